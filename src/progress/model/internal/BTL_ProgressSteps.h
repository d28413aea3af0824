// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Types.h"

#include <limits>

namespace BTL
{

/// `position` after so many steps, or the last number there is on the way.
constexpr System::Int64 AddSteps(System::Int64 position, System::Int64 steps)
{
    System::Int64 sum = 0;
    if (__builtin_add_overflow(position, steps, &sum)) {
        using TLimits = std::numeric_limits<System::Int64>;
        return steps < 0 ? TLimits::min() : TLimits::max();
    }
    return sum;
}

} // namespace BTL
