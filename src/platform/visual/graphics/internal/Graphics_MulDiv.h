// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <limits>

namespace Graphics
{

/// `value` * `factor` / `divisor`, which isn't 0, rounded half away from zero and held to what an `int` has.
constexpr int MulDiv(int value, int factor, int divisor) noexcept
{
    const long long product = static_cast<long long>(value) * factor;
    const long long half = std::max<long long>(divisor, -static_cast<long long>(divisor)) / 2;
    const long long quotient = (product + ((product < 0) ? -half : half)) / divisor;
    return static_cast<int>(
        std::clamp<long long>(quotient, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace Graphics
