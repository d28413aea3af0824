// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

#include <cstdint>

// The counter of milliseconds.
//
//     const std::uint32_t start = GetTickCount();
//     Sleep(100);
//     const std::uint32_t elapsed = GetTickCount() - start;       // right across the counter's wrap, too

/// The milliseconds since the host started, modulo 2 to the 32: it begins anew at 0 after 49.7 days.
TRS8_BTL_API std::uint32_t GetTickCount() noexcept;

/// Suspends the thread for at least so long; 0 gives the rest of its time slice to others, and 0xFFFFFFFF
/// sleeps for ever.
TRS8_BTL_API void Sleep(unsigned long milliseconds) noexcept;

namespace Host
{

/// Lets the counter go on from `now`, in all of the process, so that a program can be tested near the wrap.
TRS8_BTL_API void SetTickCount(std::uint32_t now) noexcept;

} // namespace Host
