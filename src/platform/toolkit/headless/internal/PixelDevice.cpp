// SPDX-License-Identifier: MIT
#include "platform/toolkit/headless/internal/PixelDevice.h"

#include "platform/toolkit/headless/internal/Shapes.h"
#include "platform/toolkit/internal/RasterOperation.h"

#include <algorithm>
#include <array>

namespace Toolkits
{

using Types::TPoint;
using Types::TRect;
using Types::TSize;

CPixelDevice::CPixelDevice(Pixels& pixels, const TBrushGrid& grid)
    : mPixels(pixels), mGrid(grid), mState(pixels.Bounds())
{
}

CPixelDevice::~CPixelDevice() = default;

CSpanFiller CPixelDevice::Filler(const TBrushData& brush, Graphics::TPenMode mode) const
{
    return {mPixels, mState.Clip(), brush, mode, mGrid};
}

CSpanFiller CPixelDevice::Filler(const TPenData& pen) const
{
    return {mPixels, mState.Clip(), pen};
}

bool CPixelDevice::IsVisible(const TPoint& pixel) const
{
    const TRect& clip = mState.Clip();
    return pixel.X >= clip.Left && pixel.X < clip.Right && pixel.Y >= clip.Top && pixel.Y < clip.Bottom;
}

std::vector<TPoint> CPixelDevice::ToDevice(std::span<const TPoint> points) const
{
    std::vector<TPoint> moved(points.size());
    std::ranges::transform(points, moved.begin(),
                           [this](const TPoint& point) { return mState.ToDevice(point); });
    return moved;
}

bool CPixelDevice::GetPixel(const TPoint& at, TPixel& color) const
{
    const TPoint pixel = mState.ToDevice(at);
    if (!IsVisible(pixel)) {
        return false;
    }
    color = mPixels.At(pixel.X, pixel.Y);
    return true;
}

void CPixelDevice::SetPixel(const TPoint& at, TPixel color)
{
    const TPoint pixel = mState.ToDevice(at);
    if (IsVisible(pixel)) {
        mPixels.At(pixel.X, pixel.Y) = color;
    }
}

bool CPixelDevice::ReadPixels(const TRect& rect, Pixels& pixels) const
{
    const TRect all = mState.ToDevice(rect);
    pixels = Pixels(std::max(0, all.Width()), std::max(0, all.Height()));
    const TRect part = Intersection(all, mPixels.Bounds());
    for (int y = part.Top; y < part.Bottom; ++y) {
        const auto row = mPixels.Row(y).subspan(static_cast<std::size_t>(part.Left),
                                                static_cast<std::size_t>(part.Width()));
        std::ranges::copy(row, pixels.Row(y - all.Top).begin() + (part.Left - all.Left));
    }
    return true;
}

void CPixelDevice::Polyline(std::span<const TPoint> points, const TPenData& pen)
{
    CSpanFiller line = Filler(pen);
    DrawPolyline(line, ToDevice(points), pen);
}

void CPixelDevice::DrawClosed(std::vector<TPoint> points, const TPenData& pen, const TBrushData& brush)
{
    if (points.empty()) {
        return;
    }
    CSpanFiller area = Filler(brush, pen.mode);
    FillPolygon(area, points, brush.rule);
    points.push_back(points.front());
    CSpanFiller line = Filler(pen);
    DrawPolyline(line, points, pen);
}

void CPixelDevice::Polygon(std::span<const TPoint> points, const TPenData& pen, const TBrushData& brush)
{
    DrawClosed(ToDevice(points), pen, brush);
}

void CPixelDevice::FillRect(const TRect& rect, const TBrushData& brush)
{
    const TRect area = Normalized(mState.ToDevice(rect));
    CSpanFiller filler = Filler(brush);
    const int bottom = std::min(area.Bottom, mState.Clip().Bottom);
    for (int y = std::max(area.Top, mState.Clip().Top); y < bottom; ++y) {
        filler.Span(y, area.Left, area.Right);
    }
}

void CPixelDevice::DrawShape(const TRect& rect, const TSize& corner, const TPenData& pen,
                             const TBrushData& brush)
{
    CSpanFiller area = Filler(brush, pen.mode);
    CSpanFiller line = Filler(pen);
    DrawRoundShape(line, area, {.rect = rect, .corner = corner}, pen);
}

void CPixelDevice::Rectangle(const TRect& rect, const TSize& corner, const TPenData& pen,
                             const TBrushData& brush)
{
    const TRect shape = Normalized(mState.ToDevice(rect));
    DrawShape(shape,
              {.cx = std::clamp(corner.cx, 0, shape.Width()), .cy = std::clamp(corner.cy, 0, shape.Height())},
              pen, brush);
}

void CPixelDevice::Ellipse(const TRect& rect, const TPenData& pen, const TBrushData& brush)
{
    const TRect shape = Normalized(mState.ToDevice(rect));
    DrawShape(shape, {.cx = shape.Width(), .cy = shape.Height()}, pen, brush);
}

void CPixelDevice::Arc(EArc kind, const TRect& rect, const TPoint& from, const TPoint& to,
                       const TPenData& pen, const TBrushData& brush)
{
    const TRect shape = Normalized(mState.ToDevice(rect));
    std::vector<TPoint> points = ArcPoints(shape, mState.ToDevice(from), mState.ToDevice(to));
    if (kind == EArc::Open) {
        CSpanFiller line = Filler(pen);
        DrawPolyline(line, points, pen);
        return;
    }
    if (kind == EArc::Pie) {
        points.push_back({.X = shape.Left + shape.Width() / 2, .Y = shape.Top + shape.Height() / 2});
    }
    DrawClosed(std::move(points), pen, brush);
}

void CPixelDevice::MixPixel(TPixel& there, TPixel image, const TImageOptions& options) const
{
    if (options.hasAlpha) {
        there = Blend(image, there, options.opacity);
    } else if (options.operation == TImageOptions::CopyImage) {
        there = image | AlphaBits;
    } else {
        there = ApplyOperation(options.operation, options.brush, image, there);
    }
}

void CPixelDevice::Image(const Pixels& image, const TRect& source, const TRect& target,
                         const TImageOptions& options)
{
    const TRect onto = mState.ToDevice(target);
    const TRect visible = Intersection(Normalized(onto), mState.Clip());
    if (visible == TRect{} || source.Left == source.Right || source.Top == source.Bottom) {
        return;
    }
    // The middle of a pixel tells which one of the image it shows.
    const auto placeIn = [](int from, int to, int first, int last, int place) {
        const long long twice = 2LL * (place - first) + 1;
        const long long share = twice * (0LL + to - from) / (2LL * (0LL + last - first));
        return from + share;
    };
    std::vector<int> columns(static_cast<std::size_t>(visible.Width()), -1);
    for (int x = visible.Left; x < visible.Right; ++x) {
        const long long column = placeIn(source.Left, source.Right, onto.Left, onto.Right, x);
        if (column >= 0 && column < image.getWidth()) {
            columns[static_cast<std::size_t>(x - visible.Left)] = static_cast<int>(column);
        }
    }
    for (int y = visible.Top; y < visible.Bottom; ++y) {
        const long long row = placeIn(source.Top, source.Bottom, onto.Top, onto.Bottom, y);
        if (row < 0 || row >= image.getHeight()) {
            continue;
        }
        const auto from = image.Row(static_cast<int>(row));
        const auto to = mPixels.Row(y);
        for (int x = visible.Left; x < visible.Right; ++x) {
            const int column = columns[static_cast<std::size_t>(x - visible.Left)];
            if (column >= 0) {
                MixPixel(to[static_cast<std::size_t>(x)], from[static_cast<std::size_t>(column)], options);
            }
        }
    }
}

void CPixelDevice::FocusRect(const TRect& rect)
{
    // Dots that are inverted are gone when they are inverted again.
    CSpanFiller dots = Filler(TPenData{.mode = Graphics::pmNot});
    EachFocusDot(Normalized(mState.ToDevice(rect)), mState.Clip(), [&](int x, int y) { dots.Point(x, y); });
}

void CPixelDevice::FloodFill(const TPoint& at, TPixel color, EFlood kind, const TBrushData& brush)
{
    const TRect& clip = mState.Clip();
    const TPoint start = mState.ToDevice(at);
    CSpanFiller filler = Filler(brush);
    std::vector<bool> seen(static_cast<std::size_t>(clip.Width()) * static_cast<std::size_t>(clip.Height()));
    std::vector<TPoint> waiting;
    // What is inside is told by the colours before the flood, so all of it is found first.
    const auto visit = [&](int x, int y) {
        if (!IsVisible({.X = x, .Y = y})) {
            return;
        }
        const auto index = static_cast<std::size_t>(y - clip.Top) * static_cast<std::size_t>(clip.Width()) +
                           static_cast<std::size_t>(x - clip.Left);
        const bool isColor = ((mPixels.At(x, y) ^ color) & ~AlphaBits) == 0;
        if (!seen[index] && isColor == (kind == EFlood::Surface)) {
            seen[index] = true;
            waiting.push_back({.X = x, .Y = y});
        }
    };
    visit(start.X, start.Y);
    while (!waiting.empty()) {
        const TPoint place = waiting.back();
        waiting.pop_back();
        visit(place.X - 1, place.Y);
        visit(place.X + 1, place.Y);
        visit(place.X, place.Y - 1);
        visit(place.X, place.Y + 1);
    }
    for (std::size_t i = 0; i < seen.size(); ++i) {
        if (seen[i]) {
            const auto width = static_cast<std::size_t>(clip.Width());
            filler.Point(clip.Left + static_cast<int>(i % width), clip.Top + static_cast<int>(i / width));
        }
    }
}

} // namespace Toolkits
