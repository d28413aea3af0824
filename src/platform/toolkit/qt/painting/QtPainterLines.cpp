// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/painting/QtPainterDevice.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <numeric>
#include <vector>

namespace Toolkits
{

using Types::TPoint;
using Types::TRect;

namespace
{

bool IsStraight(const TPoint& from, const TPoint& to)
{
    return from.X == to.X || from.Y == to.Y;
}

/// The steps of a line, of which each is a pixel.
int StepsOf(const TPoint& from, const TPoint& to)
{
    return std::max(std::abs(to.X - from.X), std::abs(to.Y - from.Y));
}

/// The pixel of a step.
TPoint StepOf(const TPoint& from, const TPoint& to, long long step)
{
    const long long steps = std::max(1, StepsOf(from, to));
    const auto along = [&](long long begin, long long end) {
        const long long twice = 2 * step * std::abs(end - begin) + steps;
        return static_cast<int>(begin + (end < begin ? -1 : 1) * (twice / (2 * steps)));
    };
    return {.X = along(from.X, to.X), .Y = along(from.Y, to.Y)};
}

struct TSteps
{
    long long first = 0;
    long long end = 0;
};

/// The steps within a limit, so that a line of any length takes no longer.
TSteps SeenSteps(const TPoint& from, const TPoint& to, const TRect& clip)
{
    const bool isFlat = std::abs(to.X - from.X) >= std::abs(to.Y - from.Y);
    const bool isBack = isFlat ? to.X < from.X : to.Y < from.Y;
    const long long start = isFlat ? from.X : from.Y;
    const long long low = isFlat ? clip.Left : clip.Top;
    const long long high = (isFlat ? clip.Right : clip.Bottom) - 1LL;
    return {.first = std::max(0LL, isBack ? start - high : low - start),
            .end = std::min<long long>(StepsOf(from, to), (isBack ? start - low : high - start) + 1)};
}

struct TStroke
{
    bool isDrawn = true;
    /// The steps up to the next one.
    long long rest = 0;
};

TStroke StrokeAt(std::span<const int> strokes, long long step)
{
    long long place = step % std::accumulate(strokes.begin(), strokes.end(), 0LL);
    std::size_t i = 0;
    while (place >= strokes[i]) {
        place -= strokes[i];
        ++i;
    }
    return {.isDrawn = i % 2 == 0, .rest = strokes[i] - place};
}

bool IsThin(const TPenData& pen)
{
    return pen.width <= 1;
}

bool HasGaps(const TPenData& pen)
{
    return IsThin(pen) && !StrokesOf(pen).empty();
}

} // namespace

TPoint CQtPainterDevice::LinePlace(const TPoint& place, const TPenData& pen) const
{
    const int logical = std::max(1, std::min(pen.width, FarthestPlace / 16));
    const int before = logical / 2;
    const int middle = mScale.Length(logical) / 2;
    const TPoint corner = mScale.Map(TPoint{.X = place.X - before, .Y = place.Y - before});
    return {.X = corner.X + middle, .Y = corner.Y + middle};
}

std::vector<TPoint> CQtPainterDevice::Places(std::span<const TPoint> points) const
{
    std::vector<TPoint> places(points.size());
    std::ranges::transform(points, places.begin(),
                           [this](const TPoint& point) { return mState.ToDevice(point); });
    return places;
}

void CQtPainterDevice::Polyline(std::span<const TPoint> points, const TPenData& pen)
{
    if (pen.style == Graphics::psClear || points.size() < 2) {
        return;
    }
    DrawLines(Places(points), pen);
}

void CQtPainterDevice::DrawLines(std::span<const TPoint> places, const TPenData& pen)
{
    if (!mScale.IsOne() && HasGaps(pen)) {
        DrawStrokes(places, pen);
        return;
    }
    const bool isStraight = std::ranges::adjacent_find(places, [](const TPoint& a, const TPoint& b) {
                                return !IsStraight(a, b);
                            }) == places.end();
    if (!mScale.IsOne() && IsThin(pen) && isStraight) {
        for (std::size_t i = 1; i < places.size(); ++i) {
            DrawStraight(places[i - 1], places[i], pen);
        }
        return;
    }
    std::vector<TPoint> pixels(places.size());
    std::ranges::transform(places, pixels.begin(),
                           [&](const TPoint& place) { return LinePlace(place, pen); });
    const TPenData shown = Scaled(pen);
    if (IsThin(pen) && !IsThin(shown)) {
        // A wide line has its last point, a thin one hasn't.
        const TPoint& from = places[places.size() - 2];
        const TPoint& to = places.back();
        pixels.back() = LinePlace(StepOf(from, to, std::max(0, StepsOf(from, to) - 1)), pen);
    }
    mShapes.Polyline(pixels, shown);
}

void CQtPainterDevice::DrawStraight(const TPoint& from, const TPoint& to, const TPenData& pen)
{
    const int width = mScale.Length(1);
    const bool isDown = from.X == to.X;
    const int first = isDown ? std::min(from.Y, to.Y + 1) : std::min(from.X, to.X + 1);
    const int end = first + StepsOf(from, to);
    const TPoint corner = mScale.Map(from);
    const TRect row = isDown ? TRect{.Left = corner.X,
                                     .Top = mScale.Y(first),
                                     .Right = corner.X + width,
                                     .Bottom = mScale.Y(end)}
                             : TRect{.Left = mScale.X(first),
                                     .Top = corner.Y,
                                     .Right = mScale.X(end),
                                     .Bottom = corner.Y + width};
    Fill(row, pen.color, pen.mode);
}

void CQtPainterDevice::DrawStrokes(std::span<const TPoint> places, const TPenData& pen)
{
    TPenData solid = pen;
    solid.style = Graphics::psSolid;
    long long offset = 0;
    for (std::size_t i = 1; i < places.size(); ++i) {
        const TPoint& from = places[i - 1];
        const TPoint& to = places[i];
        const TSteps seen = SeenSteps(from, to, mState.Clip());
        for (long long step = seen.first; step < seen.end;) {
            const TStroke stroke = StrokeAt(StrokesOf(pen), offset + step);
            const long long end = std::min(seen.end, step + stroke.rest);
            if (stroke.isDrawn) {
                DrawLines(std::array{StepOf(from, to, step), StepOf(from, to, end)}, solid);
            }
            step = end;
        }
        offset += StepsOf(from, to);
    }
}

void CQtPainterDevice::Polygon(std::span<const TPoint> points, const TPenData& pen, const TBrushData& brush)
{
    DrawClosed(Places(points), pen, brush);
}

void CQtPainterDevice::DrawClosed(std::vector<TPoint> places, const TPenData& pen, const TBrushData& brush)
{
    if (places.empty()) {
        return;
    }
    std::vector<TPoint> corners(places.size());
    std::ranges::transform(places, corners.begin(),
                           [this](const TPoint& place) { return mScale.Map(place); });
    mShapes.Polygon(corners, {.style = Graphics::psClear, .mode = pen.mode}, Scaled(brush));
    places.push_back(places.front());
    if (pen.style != Graphics::psClear) {
        DrawLines(places, pen);
    }
}

void CQtPainterDevice::Arc(EArc kind, const TRect& rect, const TPoint& from, const TPoint& to,
                           const TPenData& pen, const TBrushData& brush)
{
    const TRect shape = Normalized(mState.ToDevice(rect));
    const TPoint begin = mState.ToDevice(from);
    const TPoint end = mState.ToDevice(to);
    if (HasGaps(pen) && !mScale.IsOne()) {
        std::vector<TPoint> places = ArcPoints(shape, begin, end);
        if (kind == EArc::Open) {
            DrawLines(places, pen);
            return;
        }
        if (kind == EArc::Pie) {
            places.push_back({.X = shape.Left + shape.Width() / 2, .Y = shape.Top + shape.Height() / 2});
        }
        DrawClosed(std::move(places), pen, brush);
        return;
    }
    const TPoint first = LinePlace({.X = shape.Left, .Y = shape.Top}, pen);
    const TPoint last = LinePlace({.X = shape.Right - 1, .Y = shape.Bottom - 1}, pen);
    mShapes.Arc(kind, {.Left = first.X, .Top = first.Y, .Right = last.X + 1, .Bottom = last.Y + 1},
                LinePlace(begin, pen), LinePlace(end, pen), Scaled(pen), Scaled(brush));
}

} // namespace Toolkits
