// SPDX-License-Identifier: MIT
#include "platform/toolkit/headless/internal/Shapes.h"
#include "platform/toolkit/internal/DeviceState.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Toolkits
{

namespace
{

/// A part of a row, `end` behind it.
struct TSpan
{
    int first = 0;
    int end = 0;

    bool IsEmpty() const { return first >= end; }
};

/// How far the edge of a quarter of an ellipse is from its rectangle, at the height `depth` below the top.
double EdgeOf(double width, double height, double depth)
{
    if (depth >= height || width <= 0 || height <= 0) {
        return 0;
    }
    const double rest = 1 - depth / height;
    return width * (1 - std::sqrt(std::max(0.0, 1 - rest * rest)));
}

/// The pixels of a row whose middles are within the shape.
TSpan RowOf(const TRoundShape& shape, int y)
{
    const auto& rect = shape.rect;
    if (y < rect.Top || y >= rect.Bottom || rect.Left >= rect.Right) {
        return {};
    }
    const double depth = std::min(y + 0.5 - rect.Top, rect.Bottom - (y + 0.5));
    const double edge = EdgeOf(shape.corner.cx / 2.0, shape.corner.cy / 2.0, depth);
    return {.first = static_cast<int>(std::ceil(rect.Left + edge - 0.5)),
            .end = static_cast<int>(std::floor(rect.Right - edge + 0.5))};
}

} // namespace

TRoundShape TRoundShape::Inset(int by) const
{
    TRoundShape inner{
        .rect = {.Left = rect.Left + by,
                 .Top = rect.Top + by,
                 .Right = rect.Right - by,
                 .Bottom = rect.Bottom - by},
        .corner = {.cx = std::max(0, corner.cx - 2 * by), .cy = std::max(0, corner.cy - 2 * by)}};
    return inner;
}

TRoundShape OuterEdge(const TRoundShape& shape, const TPenData& pen)
{
    if (pen.width <= 1 || pen.style == Graphics::psInsideFrame || pen.style == Graphics::psClear) {
        return shape;
    }
    const int width = std::min(pen.width, FarthestPlace);
    const int before = width / 2;
    const int behind = (width - 1) / 2;
    TRoundShape outer = shape;
    outer.rect = {.Left = shape.rect.Left - before,
                  .Top = shape.rect.Top - before,
                  .Right = shape.rect.Right + behind,
                  .Bottom = shape.rect.Bottom + behind};
    if (shape.corner != Types::TSize{}) {
        outer.corner = {.cx = shape.corner.cx + before + behind, .cy = shape.corner.cy + before + behind};
    }
    return outer;
}

void DrawRoundShape(CSpanFiller& line, CSpanFiller& area, const TRoundShape& shape, const TPenData& pen)
{
    const bool hasLine = !line.IsClear();
    const TRoundShape outer = OuterEdge(shape, pen);
    // No inset beyond the middle, so that the sums stay in range.
    const int width = hasLine ? std::min(std::max(1, pen.width), outer.rect.Width() / 2 + 1) : 0;
    const TRoundShape inner = outer.Inset(width);
    const Types::TRect& clip = area.Clip();
    const int bottom = std::min(outer.rect.Bottom, clip.Bottom);
    for (int y = std::max(outer.rect.Top, clip.Top); y < bottom; ++y) {
        const TSpan all = RowOf(outer, y);
        const TSpan within = RowOf(inner, y);
        if (within.IsEmpty()) {
            line.Span(y, all.first, all.end);
        } else {
            line.Span(y, all.first, within.first);
            area.Span(y, within.first, within.end);
            line.Span(y, within.end, all.end);
        }
    }
}

std::vector<Types::TPoint> ArcPoints(const Types::TRect& rect, const Types::TPoint& from,
                                     const Types::TPoint& to)
{
    // The line runs through the middles of the outermost pixels.
    const double radiusX = std::max(0, rect.Width() - 1) / 2.0;
    const double radiusY = std::max(0, rect.Height() - 1) / 2.0;
    const double middleX = rect.Left + radiusX;
    const double middleY = rect.Top + radiusY;
    const auto angleOf = [&](const Types::TPoint& point) {
        return std::atan2((middleY - point.Y) * std::max(radiusX, 0.5),
                          (point.X - middleX) * std::max(radiusY, 0.5));
    };
    constexpr double circle = 2 * std::numbers::pi;
    const double start = angleOf(from);
    double sweep = std::fmod(angleOf(to) - start + 2 * circle, circle);
    if (sweep <= 0) {
        sweep = circle;
    }
    const int steps = static_cast<int>(std::clamp((radiusX + radiusY) * sweep / 4, 8.0, 1000.0));
    std::vector<Types::TPoint> points;
    points.reserve(static_cast<std::size_t>(steps) + 1);
    for (int i = 0; i <= steps; ++i) {
        const double angle = start + sweep * i / steps;
        points.push_back({.X = static_cast<int>(std::lround(middleX + radiusX * std::cos(angle))),
                          .Y = static_cast<int>(std::lround(middleY - radiusY * std::sin(angle)))});
    }
    return points;
}

} // namespace Toolkits
