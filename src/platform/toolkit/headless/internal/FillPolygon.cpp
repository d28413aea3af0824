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
            sides.push_back(a.Y < b.Y ? TSide{a, b} : TSide{b, a});
        }
    }
    std::ranges::sort(sides, {}, [](const TSide& side) { return side.top.Y; });
    return sides;
}

int PixelBehind(double place)
{
    return static_cast<int>(std::ceil(place - 0.5));
}

} // namespace

void FillPolygon(CSpanFiller& area, std::span<const Types::TPoint> points)
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
    std::vector<double> places;
    for (int y = std::max(area.Clip().Top, sides.front().top.Y); y < area.Clip().Bottom; ++y) {
        for (; next != sides.end() && next->top.Y <= y; ++next) {
            crossed.push_back(*next);
        }
        std::erase_if(crossed, [y](const TSide& side) { return side.bottom.Y <= y; });
        if (crossed.empty() && next == sides.end()) {
            return;
        }
        places.resize(crossed.size());
        std::ranges::transform(crossed, places.begin(),
                               [y](const TSide& side) { return side.CrossingAt(y); });
        std::ranges::sort(places);
        for (std::size_t i = 0; i + 1 < places.size(); i += 2) {
            area.Span(y, PixelBehind(places[i]), PixelBehind(places[i + 1]));
        }
    }
}

} // namespace Toolkits
