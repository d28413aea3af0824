// SPDX-License-Identifier: MIT
#include "platform/toolkit/headless/internal/Shapes.h"

#include <algorithm>
#include <cmath>

namespace Toolkits
{

namespace
{

/// A side of a polygon from its upper end down.
struct TSide
{
    Types::TPoint top;
    Types::TPoint bottom;
    /// 1 if the line runs down here, else -1.
    int turn;

    /// Where the middle of the row crosses it.
    double CrossingAt(int y) const
    {
        return top.X + (y + 0.5 - top.Y) * (0.0 + bottom.X - top.X) / (0.0 + bottom.Y - top.Y);
    }
};

/// The sides that cross rows, the uppermost first.
std::vector<TSide> SidesOf(std::span<const Types::TPoint> points)
{
    std::vector<TSide> sides;
    sides.reserve(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Types::TPoint& a = points[i];
        const Types::TPoint& b = points[(i + 1) % points.size()];
        if (a.Y != b.Y) {
            sides.push_back(a.Y < b.Y ? TSide{a, b, 1} : TSide{b, a, -1});
        }
    }
    std::ranges::sort(sides, {}, [](const TSide& side) { return side.top.Y; });
    return sides;
}

/// Where a row is crossed, and by which turn of the line.
struct TCrossing
{
    double place;
    int turn;
};

int PixelBehind(double place)
{
    return static_cast<int>(std::ceil(place - 0.5));
}

/// Fills what is within in the row, whose crossings stand from left to right.
void FillRow(CSpanFiller& area, int y, std::span<const TCrossing> crossings, EFillRule rule)
{
    int turns = 0;
    for (std::size_t i = 0; i + 1 < crossings.size(); ++i) {
        turns = rule == EFillRule::EvenOdd ? 1 - turns : turns + crossings[i].turn;
        if (turns != 0) {
            area.Span(y, PixelBehind(crossings[i].place), PixelBehind(crossings[i + 1].place));
        }
    }
}

} // namespace

void FillPolygon(CSpanFiller& area, std::span<const Types::TPoint> points, EFillRule rule)
{
    if (points.size() < 3 || area.IsClear()) {
        return;
    }
    const std::vector<TSide> sides = SidesOf(points);
    if (sides.empty()) {
        return;
    }
    auto next = sides.begin();
    std::vector<TSide> crossed;
    std::vector<TCrossing> crossings;
    for (int y = std::max(area.Clip().Top, sides.front().top.Y); y < area.Clip().Bottom; ++y) {
        for (; next != sides.end() && next->top.Y <= y; ++next) {
            crossed.push_back(*next);
        }
        std::erase_if(crossed, [y](const TSide& side) { return side.bottom.Y <= y; });
        if (crossed.empty() && next == sides.end()) {
            return;
        }
        crossings.resize(crossed.size());
        std::ranges::transform(crossed, crossings.begin(), [y](const TSide& side) {
            return TCrossing{.place = side.CrossingAt(y), .turn = side.turn};
        });
        std::ranges::sort(crossings, {}, &TCrossing::place);
        FillRow(area, y, crossings, rule);
    }
}

} // namespace Toolkits
