// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Testing
{

/// Lets `GetTickCount` go on from `now`, in all of the process, so that a program can be tested near the
/// counter's wrap.
///
///     Testing::SetTickCount(0xFFFFFFFF - 100);                    // wraps in a tenth of a second
void SetTickCount(std::uint32_t now) noexcept;

} // namespace Testing
