// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace Host
{

enum class EFutex
{
    /// Among the threads of the process.
    Private,
    /// Also among processes that map the word.
    Shared,
};

/// Sleeps as long as the word is `value` and nobody wakes it, at most `milliseconds`; -1 waits without end.
/// May return early.
void FutexWait(std::uint32_t* word, std::uint32_t value, int milliseconds, EFutex kind) noexcept;

/// Wakes one sleeper.
void FutexWake(std::uint32_t* word, EFutex kind) noexcept;

} // namespace Host
