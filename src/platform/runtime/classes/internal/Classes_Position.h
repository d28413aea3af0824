// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Types.h"

#include <cstdint>

namespace Classes
{

/// A position and a distance from it, held within the numbers: 0 or the largest where the sum is none.
inline System::Int64 AddClamped(System::Int64 base, System::Int64 offset)
{
    System::Int64 sum = 0;
    if (__builtin_add_overflow(base, offset, &sum)) {
        return offset < 0 ? 0 : INT64_MAX;
    }
    return sum;
}

/// The bytes from a position to the end of a stream that tells `size`, which may be none: 0 or less.
inline System::Int64 BytesBehind(System::Int64 position, System::Int64 size)
{
    return size > 0 ? size - position : 0;
}

} // namespace Classes
