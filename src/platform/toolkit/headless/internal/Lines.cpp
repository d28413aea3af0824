// SPDX-License-Identifier: MIT
#include "platform/toolkit/headless/internal/Shapes.h"
#include "platform/toolkit/internal/DeviceState.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace Toolkits
{

namespace
{

using Types::TPoint;
using Types::TRect;

bool IsStroke(std::span<const int> strokes, long long step)
{
    long long period = 0;
    for (const int length : strokes) {
        period += length;
    }
    long long rest = step % period;
    for (std::size_t i = 0; i < strokes.size(); ++i) {
        if (rest < strokes[i]) {
            return i % 2 == 0;
        }
        rest -= strokes[i];
    }
    return false;
}

/// A line from `from` up to the pixel before `to`. `offset` is the steps of the lines before it.
void DrawThinLine(CSpanFiller& line, const TPoint& from, const TPoint& to, std::span<const int> strokes,
                  long long offset)
{
    const long long dx = 0LL + to.X - from.X;
    const long long dy = 0LL + to.Y - from.Y;
    const bool isFlat = std::abs(dx) >= std::abs(dy);
    const long long length = isFlat ? std::abs(dx) : std::abs(dy);
    const long long minor = isFlat ? dy : dx;
    const int sign = (isFlat ? dx : dy) < 0 ? -1 : 1;
    // Only steps within the limit are walked, so that a line of any length takes no longer.
    const TRect& clip = line.Clip();
    const long long start = isFlat ? from.X : from.Y;
    const long long low = isFlat ? clip.Left : clip.Top;
    const long long high = (isFlat ? clip.Right : clip.Bottom) - 1LL;
    const long long first = std::max(0LL, sign > 0 ? low - start : start - high);
    const long long end = std::min(length, (sign > 0 ? high - start : start - low) + 1);
    for (long long step = first; step < end; ++step) {
        if (!strokes.empty() && !IsStroke(strokes, offset + step)) {
            continue;
        }
        const long long twice = 2 * step * std::abs(minor) + length;
        const int aside = static_cast<int>(twice / (2 * length)) * (minor < 0 ? -1 : 1);
        const int along = static_cast<int>(start + sign * step);
        isFlat ? line.Point(along, from.Y + aside) : line.Point(from.X + aside, along);
    }
}

TRect BoundsOf(std::span<const TPoint> points)
{
    TRect bounds{.Left = points[0].X, .Top = points[0].Y, .Right = points[0].X, .Bottom = points[0].Y};
    for (const TPoint& point : points) {
        bounds = {.Left = std::min(bounds.Left, point.X),
                  .Top = std::min(bounds.Top, point.Y),
                  .Right = std::max(bounds.Right, point.X + 1),
                  .Bottom = std::max(bounds.Bottom, point.Y + 1)};
    }
    return bounds;
}

/// The four corners of a line of that width.
std::array<TPoint, 4> CornersOf(const TPoint& from, const TPoint& to, int width)
{
    const double dx = 0.0 + to.X - from.X;
    const double dy = 0.0 + to.Y - from.Y;
    const double length = std::max(1.0, std::hypot(dx, dy));
    const auto corner = [&](const TPoint& point, double side) {
        return TPoint{.X = static_cast<int>(std::lround(point.X - dy / length * side)),
                      .Y = static_cast<int>(std::lround(point.Y + dx / length * side))};
    };
    const double before = width / 2;
    const double behind = width - before;
    return {corner(from, -before), corner(to, -before), corner(to, behind), corner(from, behind)};
}

/// Marks in `marks` what the lines cover, with round ends.
void MarkWideLines(Pixels& marks, std::span<const TPoint> points, int width)
{
    CSpanFiller marker(marks, marks.Bounds(), TBrushData{});
    CSpanFiller noLine(marks, marks.Bounds(), TPenData{.style = Graphics::psClear});
    for (std::size_t i = 0; i < points.size(); ++i) {
        const auto& [x, y] = points[i];
        const int left = x - width / 2;
        const int top = y - width / 2;
        DrawRoundShape(noLine, marker,
                       {.rect = {.Left = left, .Top = top, .Right = left + width, .Bottom = top + width},
                        .corner = {.cx = width, .cy = width}},
                       {});
        if (i > 0) {
            FillPolygon(marker, CornersOf(points[i - 1], points[i], width));
        }
    }
}

/// Each pixel is coloured once, whatever the mode, also where lines cross.
void DrawWideLines(CSpanFiller& line, std::span<const TPoint> points, int width)
{
    const TRect ends = BoundsOf(points);
    const TRect bounds = Intersection(line.Clip(), {.Left = ends.Left - width,
                                                    .Top = ends.Top - width,
                                                    .Right = ends.Right + width,
                                                    .Bottom = ends.Bottom + width});
    if (bounds == TRect{}) {
        return;
    }
    std::vector<TPoint> moved(points.size());
    std::ranges::transform(points, moved.begin(), [&](const TPoint& point) {
        return TPoint{.X = point.X - bounds.Left, .Y = point.Y - bounds.Top};
    });
    Pixels marks(bounds.Width(), bounds.Height());
    MarkWideLines(marks, moved, width);
    for (int y = 0; y < marks.getHeight(); ++y) {
        for (int x = 0; x < marks.getWidth(); ++x) {
            if (marks.At(x, y) != 0) {
                line.Point(bounds.Left + x, bounds.Top + y);
            }
        }
    }
}

} // namespace

std::span<const int> StrokesOf(const TPenData& pen)
{
    static constexpr int dash[] = {18, 6};
    static constexpr int dot[] = {3, 3};
    static constexpr int dashDot[] = {9, 6, 3, 6};
    static constexpr int dashDotDot[] = {9, 3, 3, 3, 3, 3};
    switch (pen.style) {
    case Graphics::psDash:
        return dash;
    case Graphics::psDot:
        return dot;
    case Graphics::psDashDot:
        return dashDot;
    case Graphics::psDashDotDot:
        return dashDotDot;
    default:
        return {};
    }
}

void DrawPolyline(CSpanFiller& line, std::span<const TPoint> points, const TPenData& pen)
{
    if (points.size() < 2 || line.IsClear()) {
        return;
    }
    if (pen.width > 1) {
        DrawWideLines(line, points, std::min(pen.width, FarthestPlace));
        return;
    }
    const auto strokes = StrokesOf(pen);
    long long offset = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        DrawThinLine(line, points[i - 1], points[i], strokes, offset);
        offset += std::max(std::abs(0LL + points[i].X - points[i - 1].X),
                           std::abs(0LL + points[i].Y - points[i - 1].Y));
    }
}

} // namespace Toolkits
