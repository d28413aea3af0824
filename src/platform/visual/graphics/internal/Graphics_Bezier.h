// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"

#include <cstddef>
#include <span>
#include <vector>

namespace Graphics
{

/// The points of an array up to the index `highest`; none for a negative one or a null array.
inline std::span<const Types::TPoint> PointsOf(const Types::TPoint* points, int highest)
{
    return points == nullptr || highest < 0 ? std::span<const Types::TPoint>()
                                            : std::span(points, static_cast<std::size_t>(highest) + 1);
}

/// The curve through the first point and each third one as a row of points close to each other. Points that
/// make no whole curve at the end count for nothing.
std::vector<Types::TPoint> FlattenBezier(std::span<const Types::TPoint> points);

} // namespace Graphics
