// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"

#include <algorithm>
#include <limits>

namespace Graphics
{

/// The place so far behind another one, held to what an `int` has.
constexpr int PlaceBehind(int place, int extent) noexcept
{
    return static_cast<int>(std::clamp<long long>(0LL + place + extent, std::numeric_limits<int>::min(),
                                                  std::numeric_limits<int>::max()));
}

/// The distance of two places, held to what an `int` has.
constexpr int Distance(int first, int last) noexcept
{
    return static_cast<int>(std::clamp<long long>(0LL + last - first, std::numeric_limits<int>::min(),
                                                  std::numeric_limits<int>::max()));
}

/// The rectangle of that size at the place.
constexpr Types::TRect RectAt(int x, int y, int width, int height) noexcept
{
    return {.Left = x, .Top = y, .Right = PlaceBehind(x, width), .Bottom = PlaceBehind(y, height)};
}

} // namespace Graphics
