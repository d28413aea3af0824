// SPDX-License-Identifier: MIT
#include "progress/BTL_THRD_Timer.h"

#include "os/WIN_Duration.h"
#include "platform/host/Host_TickCount.h"

#include <algorithm>
#include <limits>

namespace BTL
{

CTimer::CTimer(int milliseconds)
{
    Start(milliseconds);
}

void CTimer::Start(int milliseconds)
{
    mStart = GetTickCount();
    mEnd = mStart + static_cast<std::uint32_t>(milliseconds);
    mIsEndBehindWrap = mEnd < mStart;
    mHasRunOut = false;
    mHasRunOut = !*this;
}

CTimer::operator bool()
{
    if (mHasRunOut) {
        return false;
    }
    const std::uint32_t now = GetTickCount();
    // A counter below the start has passed its wrap, also if it has passed the end since it was last looked
    // at.
    mIsEndBehindWrap = mIsEndBehindWrap && mEnd < now && mStart <= now;
    mHasRunOut = !mIsEndBehindWrap && mEnd <= now;
    return !mHasRunOut;
}

void CTimer::Sleep()
{
    while (*this) {
        // The host's clock has no finer wait than this one.
    }
}

void CTimer::SleepEx(int milliseconds)
{
    const auto step = static_cast<unsigned long>(std::max(milliseconds, 0));
    while (*this) {
        ::Sleep(step);
    }
}

unsigned long CTimer::GetTicks() const
{
    const std::uint32_t now = GetTickCount();
    if (now >= mStart) {
        return now - mStart;
    }
    return std::numeric_limits<std::uint32_t>::max() - mStart + now;
}

System::UnicodeString CTimer::GetDuration() const
{
    return WIN::GetDuration(GetTicks());
}

} // namespace BTL
