// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

#include <cstdint>

// A lock among the threads of the process, which its owner may enter again.
//
//     CRITICAL_SECTION section;
//     InitializeCriticalSection(&section);
//     EnterCriticalSection(&section);
//     ...
//     LeaveCriticalSection(&section);
//     DeleteCriticalSection(&section);

/// The lock; its fields belong to the functions.
struct CRITICAL_SECTION
{
    /// 0 free, 1 taken, 2 taken while others may sleep.
    std::uint32_t State = 0;
    std::uint32_t Depth = 0;
    std::uintptr_t Owner = 0;
};

TRS8_BTL_API void InitializeCriticalSection(CRITICAL_SECTION* section) noexcept;
TRS8_BTL_API void DeleteCriticalSection(CRITICAL_SECTION* section) noexcept;

/// Waits until the lock is the thread's; at once if it already is.
TRS8_BTL_API void EnterCriticalSection(CRITICAL_SECTION* section) noexcept;
/// As `EnterCriticalSection`, but gives false where that would wait.
[[nodiscard]] TRS8_BTL_API bool TryEnterCriticalSection(CRITICAL_SECTION* section) noexcept;
/// Gives the lock back once; does nothing if it isn't the thread's.
TRS8_BTL_API void LeaveCriticalSection(CRITICAL_SECTION* section) noexcept;
