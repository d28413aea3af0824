// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace WIN
{

/// A stopwatch in milliseconds. Its times are right up to 49.7 days.
///
///     WIN::CTickCount watch;
///     ...                                                 // 250 of 1000 items
///     ShowText(watch.GetDuartionInfo(250, 1000));         // "Restzeit: 0:0:42, ø 56 msec"
///     watch.Stop();
///     ShowText(watch.getLastDuration());
class TRS8_BTL_API CTickCount
{
public:
    /// Starts.
    CTickCount() noexcept;

    /// Starts anew.
    void Start() noexcept;
    /// The time since the start. The watch goes on.
    unsigned long GetTicks() const noexcept;
    /// Keeps the time since the start as the duration.
    void Stop() noexcept;

    /// The counter at the start.
    unsigned long getStart() const noexcept { return mStart; }
    /// What `GetTicks` gave last, 0 at first.
    unsigned long getTicks() const noexcept { return mTicks; }
    /// What `Stop` kept, 0 at first.
    unsigned long getDuration() const noexcept { return mDuration; }
    /// What `Stop` kept, as text.
    System::UnicodeString getLastDuration() const;

    /// How long the rest of `total` items will take, if `done` took the time since the start; behind it the
    /// time of an item, if it takes a millisecond or more. Empty if nothing is done or more than all.
    System::UnicodeString GetDuartionInfo(System::Int64 done, System::Int64 total) const;

private:
    unsigned long mStart;
    mutable unsigned long mTicks = 0;
    unsigned long mDuration = 0;
};

/// Gives the text in front of a remaining time.
using FRemainingTimeText = System::UnicodeString (*)();
/// What `GetDuartionInfo` begins with. The library's table of texts fills it in, which has "Restzeit: " in
/// German.
TRS8_BTL_API extern FRemainingTimeText GetRemainingTimeText;

} // namespace WIN
