// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <cstdint>

namespace BTL
{

/// A deadline on the tick counter (`::GetTickCount`), also across the counter's wrap.
///
///     BTL::CTimer timer(500);
///     while (timer && !HasAnswer()) {
///         ::Sleep(5);
///     }
///     if (!timer) { ... }                                         // 500 ms are over
class TRS8_BTL_API CTimer
{
public:
    /// As `Start`.
    explicit CTimer(int milliseconds);

    /// Begins anew. A time of 0 has run out at once; a negative one is that much below 49.7 days.
    void Start(int milliseconds);

    /// Whether time remains. Once it has run out, that stays so until the next `Start`.
    operator bool();

    /// Keeps the processor busy until the time has run out; for times of a few milliseconds.
    void Sleep();
    /// Sleeps in steps of `milliseconds` until the time has run out; a negative step is one of 0.
    void SleepEx(int milliseconds);

    /// The milliseconds since the start; one less behind the counter's wrap.
    unsigned long GetTicks() const;
    /// `GetTicks` as text, see `WIN::GetDuration`.
    System::UnicodeString GetDuration() const;

private:
    std::uint32_t mStart = 0;
    std::uint32_t mEnd = 0;
    /// The end lies behind the wrap, and the counter in front of it.
    bool mIsEndBehindWrap = false;
    bool mHasRunOut = false;
};

} // namespace BTL
