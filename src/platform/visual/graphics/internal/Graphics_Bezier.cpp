// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/internal/Graphics_Bezier.h"

#include <algorithm>
#include <cmath>

namespace Graphics
{

namespace
{

using Types::TPoint;

/// The distance along the points that pull, which is at least that of the curve.
double LengthOf(std::span<const TPoint> curve)
{
    double length = 0;
    for (std::size_t i = 1; i < curve.size(); ++i) {
        length += std::hypot(0.0 + curve[i].X - curve[i - 1].X, 0.0 + curve[i].Y - curve[i - 1].Y);
    }
    return length;
}

TPoint PlaceOf(std::span<const TPoint> curve, double share)
{
    const double rest = 1 - share;
    const double weights[] = {rest * rest * rest, 3 * rest * rest * share, 3 * rest * share * share,
                              share * share * share};
    double x = 0;
    double y = 0;
    for (std::size_t i = 0; i < curve.size(); ++i) {
        x += weights[i] * curve[i].X;
        y += weights[i] * curve[i].Y;
    }
    return {.X = static_cast<int>(std::lround(x)), .Y = static_cast<int>(std::lround(y))};
}

} // namespace

std::vector<TPoint> FlattenBezier(std::span<const TPoint> points)
{
    constexpr std::size_t step = 3;
    std::vector<TPoint> line;
    if (points.size() <= step) {
        return line;
    }
    line.push_back(points[0]);
    for (std::size_t i = 0; i + step < points.size(); i += step) {
        const auto curve = points.subspan(i, step + 1);
        const int parts = static_cast<int>(std::clamp(LengthOf(curve) / 4, 4.0, 256.0));
        for (int part = 1; part <= parts; ++part) {
            line.push_back(PlaceOf(curve, 1.0 * part / parts));
        }
    }
    return line;
}

} // namespace Graphics
