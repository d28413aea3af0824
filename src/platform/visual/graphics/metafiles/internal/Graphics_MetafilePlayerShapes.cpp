// SPDX-License-Identifier: MIT
#include "platform/toolkit/internal/DeviceState.h"
#include "platform/visual/graphics/internal/Graphics_Bezier.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafilePlayer.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace Graphics
{

using Toolkits::EArc;
using Toolkits::PaintRecording;
using Types::TPoint;
using Types::TRect;
using Types::TSize;

namespace
{

constexpr double Around = 2 * std::numbers::pi;

TPoint Rounded(const TMetafilePoint& point)
{
    const auto held = [](double place) {
        constexpr double farthest = Toolkits::FarthestPlace;
        return static_cast<int>(std::lround(std::clamp(place, -farthest, farthest)));
    };
    return {.X = held(point.x), .Y = held(point.y)};
}

} // namespace

Toolkits::TPenData CMetafilePlayer::Pen() const
{
    Toolkits::TPenData pen = mState.pen;
    pen.width = pen.width == 0 ? 1 : std::max(1, mState.mapping.Across(pen.width));
    pen.mode = mState.mode;
    return pen;
}

Toolkits::TBrushData CMetafilePlayer::PolygonBrush() const
{
    Toolkits::TBrushData brush = mState.brush;
    brush.rule = mState.fillRule;
    return brush;
}

template <class Point>
std::vector<TPoint> CMetafilePlayer::ToPixels(const std::vector<Point>& points) const
{
    std::vector<TPoint> pixels(points.size());
    std::ranges::transform(points, pixels.begin(),
                           [this](const Point& point) { return mState.mapping.ToPixel(point); });
    return pixels;
}

void CMetafilePlayer::DrawPoints(std::vector<TPoint> pixels, bool isClosed)
{
    const std::size_t size = pixels.size() * PixelsOfAPoint;
    if (mIsPathOpen) {
        mPath.AddFigure({.points = std::move(pixels), .isClosed = isClosed});
    } else if (isClosed) {
        Draw(size, [&](PaintRecording& target) { target.Polygon(pixels, Pen(), PolygonBrush()); });
    } else {
        Draw(size, [&](PaintRecording& target) { target.Polyline(pixels, Pen()); });
    }
}

void CMetafilePlayer::MoveTo(const TPoint& point)
{
    mState.at = point;
    if (mIsPathOpen) {
        mPath.MoveTo(mState.mapping.ToPixel(point));
    }
}

void CMetafilePlayer::LinesTo(std::vector<TPoint> points)
{
    if (points.empty()) {
        return;
    }
    const TPoint last = points.back();
    if (mIsPathOpen) {
        mPath.Add(mState.mapping.ToPixel(mState.at), ToPixels(points));
    } else {
        points.insert(points.begin(), mState.at);
        Polyline(points);
    }
    mState.at = last;
}

void CMetafilePlayer::Polyline(const std::vector<TPoint>& points)
{
    if (points.size() > 1) {
        DrawPoints(ToPixels(points), false);
    }
}

void CMetafilePlayer::Polygon(const std::vector<TPoint>& points)
{
    if (points.size() > 1) {
        DrawPoints(ToPixels(points), true);
    }
}

std::vector<TMetafileFigure> CMetafilePlayer::FiguresOf(std::span<const TPoint> points,
                                                        const std::vector<std::size_t>& counts,
                                                        bool isClosed) const
{
    std::vector<TMetafileFigure> figures;
    for (const std::size_t count : counts) {
        if (count > points.size()) {
            ThrowMetafileDamaged();
        }
        if (count > 1) {
            const auto part = points.first(count);
            figures.push_back(
                {.points = ToPixels(std::vector(part.begin(), part.end())), .isClosed = isClosed});
        }
        points = points.subspan(count);
    }
    return figures;
}

void CMetafilePlayer::Polygons(std::span<const TPoint> points, const std::vector<std::size_t>& counts)
{
    DrawOrGather(FiguresOf(points, counts, true), true);
}

void CMetafilePlayer::Polylines(std::span<const TPoint> points, const std::vector<std::size_t>& counts)
{
    DrawOrGather(FiguresOf(points, counts, false), false);
}

void CMetafilePlayer::DrawOrGather(const std::vector<TMetafileFigure>& figures, bool isFilled)
{
    if (!mIsPathOpen) {
        DrawFigures(figures, isFilled, true);
        return;
    }
    for (const TMetafileFigure& figure : figures) {
        mPath.AddFigure(figure);
    }
}

void CMetafilePlayer::DrawFigures(const std::vector<TMetafileFigure>& figures, bool isFilled, bool isDrawn)
{
    const Toolkits::TPenData pen = Pen();
    if (isFilled && isDrawn && figures.size() == 1 && figures.front().isClosed) {
        DrawPoints(figures.front().points, true);
        return;
    }
    if (isFilled && !figures.empty() && mState.brush.style != bsClear) {
        Toolkits::TPenData none = pen;
        none.style = psClear;
        const std::vector<TPoint> joined = JoinedFigures(figures);
        Draw(joined.size() * PixelsOfAPoint,
             [&](PaintRecording& target) { target.Polygon(joined, none, PolygonBrush()); });
    }
    for (std::size_t i = 0; isDrawn && i < figures.size(); ++i) {
        const TMetafileFigure& figure = figures[i];
        Draw(figure.points.size() * PixelsOfAPoint, [&](PaintRecording& target) {
            if (figure.isClosed) {
                target.Polygon(figure.points, pen, {.style = bsClear});
            } else {
                target.Polyline(figure.points, pen);
            }
        });
    }
}

std::vector<TPoint> CMetafilePlayer::Flattened(const std::vector<TPoint>& points)
{
    constexpr std::size_t step = 3;
    const std::vector<TPoint> pixels = ToPixels(points);
    std::vector<TPoint> line;
    for (std::size_t i = 0; i + step < pixels.size(); i += step) {
        const std::vector<TPoint> curve = FlattenBezier(std::span(pixels).subspan(i, step + 1));
        CountPoints(curve.size());
        line.insert(line.end(), line.empty() ? curve.begin() : std::next(curve.begin()), curve.end());
    }
    return line;
}

std::vector<TMetafilePoint> CMetafilePlayer::EllipsePoints(const TRect& box, double start, double sweep)
{
    std::vector<TMetafilePoint> points = EllipsePart(box, start, sweep);
    CountPoints(points.size());
    return points;
}

void CMetafilePlayer::Bezier(const std::vector<TPoint>& points)
{
    std::vector<TPoint> line = Flattened(points);
    if (!line.empty()) {
        DrawPoints(std::move(line), false);
    }
}

void CMetafilePlayer::BezierTo(std::vector<TPoint> points)
{
    if (points.empty()) {
        return;
    }
    const TPoint last = points.back();
    points.insert(points.begin(), mState.at);
    const std::vector<TPoint> line = Flattened(points);
    if (mIsPathOpen) {
        mPath.Add(mState.mapping.ToPixel(mState.at), line);
    } else if (!line.empty()) {
        DrawPoints(line, false);
    }
    mState.at = last;
}

void CMetafilePlayer::Rectangle(const TRect& rect, const TSize& corner)
{
    if (IsPlain()) {
        const CMetafileMapping& mapping = mState.mapping;
        Draw(PixelsOfAPoint, [&](PaintRecording& target) {
            target.Rectangle(Toolkits::Normalized(mapping.ToPixels(rect)),
                             {.cx = mapping.Across(corner.cx), .cy = mapping.Down(corner.cy)}, Pen(),
                             mState.brush);
        });
        return;
    }
    DrawPoints(ToPixels(std::vector<TPoint>{{.X = rect.Left, .Y = rect.Top},
                                            {.X = rect.Right, .Y = rect.Top},
                                            {.X = rect.Right, .Y = rect.Bottom},
                                            {.X = rect.Left, .Y = rect.Bottom}}),
               true);
}

void CMetafilePlayer::Ellipse(const TRect& rect)
{
    if (IsPlain()) {
        Draw(PixelsOfAPoint, [&](PaintRecording& target) {
            target.Ellipse(Toolkits::Normalized(mState.mapping.ToPixels(rect)), Pen(), mState.brush);
        });
    } else {
        DrawPoints(ToPixels(EllipsePoints(rect, 0, Around)), true);
    }
}

std::vector<TMetafilePoint> CMetafilePlayer::ArcPoints(const TRect& rect, const TPoint& from,
                                                       const TPoint& to)
{
    const double start = EllipseAngle(rect, from);
    double sweep = EllipseAngle(rect, to) - start;
    if (mState.isClockwise) {
        sweep -= sweep >= 0 ? Around : 0;
    } else {
        sweep += sweep <= 0 ? Around : 0;
    }
    return EllipsePoints(rect, start, sweep);
}

void CMetafilePlayer::Arc(EArc kind, const TRect& rect, TPoint from, TPoint to)
{
    if (!IsPlain()) {
        std::vector<TMetafilePoint> points = ArcPoints(rect, from, to);
        if (kind == EArc::Pie) {
            points.push_back(
                {.x = (1.0 * rect.Left + rect.Right) / 2, .y = (1.0 * rect.Top + rect.Bottom) / 2});
        }
        DrawPoints(ToPixels(points), kind != EArc::Open);
        return;
    }
    if (mState.isClockwise) {
        std::swap(from, to);
    }
    const CMetafileMapping& mapping = mState.mapping;
    Draw(PixelsOfAPoint, [&](PaintRecording& target) {
        target.Arc(kind, Toolkits::Normalized(mapping.ToPixels(rect)), mapping.ToPixel(from),
                   mapping.ToPixel(to), Pen(), mState.brush);
    });
}

void CMetafilePlayer::ArcTo(const TRect& rect, TPoint from, TPoint to)
{
    std::vector<TPoint> points;
    std::ranges::transform(ArcPoints(rect, from, to), std::back_inserter(points), Rounded);
    LinesTo(std::move(points));
}

void CMetafilePlayer::AngleArc(const TPoint& center, int radius, double start, double sweep)
{
    constexpr double degree = Around / 360;
    const int held = std::clamp(radius, 0, Toolkits::FarthestPlace);
    const TPoint middle{.X = Toolkits::HoldPlace(center.X), .Y = Toolkits::HoldPlace(center.Y)};
    const TRect box{
        .Left = middle.X - held, .Top = middle.Y - held, .Right = middle.X + held, .Bottom = middle.Y + held};
    std::vector<TPoint> points;
    std::ranges::transform(EllipsePoints(box, start * degree, sweep * degree), std::back_inserter(points),
                           Rounded);
    LinesTo(std::move(points));
}

void CMetafilePlayer::SetPixel(const TPoint& at, Toolkits::TPixel color)
{
    Draw(PixelsOfAPoint, [&](PaintRecording& target) { target.SetPixel(mState.mapping.ToPixel(at), color); });
}

void CMetafilePlayer::FloodFill(const TPoint& at, Toolkits::TPixel color, Toolkits::EFlood kind)
{
    Draw(PixelsOfAPoint, [&](PaintRecording& target) {
        target.FloodFill(mState.mapping.ToPixel(at), color, kind, mState.brush);
    });
}

void CMetafilePlayer::BeginPath()
{
    mPath = {};
    mIsPathOpen = true;
    mPath.MoveTo(mState.mapping.ToPixel(mState.at));
}

void CMetafilePlayer::ClosePath()
{
    mPath.Close();
}

void CMetafilePlayer::EndPath()
{
    mIsPathOpen = false;
}

void CMetafilePlayer::AbortPath()
{
    mPath = {};
    mIsPathOpen = false;
}

void CMetafilePlayer::DrawPath(bool isFilled, bool isDrawn)
{
    const CMetafilePath path = std::exchange(mPath, {});
    mIsPathOpen = false;
    std::vector<TMetafileFigure> figures;
    std::ranges::copy_if(path.getFigures(), std::back_inserter(figures),
                         [](const TMetafileFigure& figure) { return figure.points.size() > 1; });
    DrawFigures(figures, isFilled, isDrawn);
}

void CMetafilePlayer::ClipPath(unsigned operation)
{
    const CMetafilePath path = std::exchange(mPath, {});
    mIsPathOpen = false;
    std::vector<TRect> rects;
    for (const TMetafileFigure& figure : path.getFigures()) {
        rects.push_back(BoundsOf(figure.points));
    }
    // The rectangle around a figure leaves out more than the figure would.
    const bool isLeftOut = operation == CMetafileClip::Exclude || operation == CMetafileClip::Differ;
    if (!rects.empty() && !isLeftOut) {
        mState.clip.Combine(operation, rects);
    }
}

} // namespace Graphics
