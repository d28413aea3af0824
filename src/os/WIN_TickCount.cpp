// SPDX-License-Identifier: MIT
#include "os/WIN_TickCount.h"

#include "os/WIN_Duration.h"
#include "platform/host/Host_TickCount.h"

#include <algorithm>
#include <cmath>

namespace WIN
{

namespace
{

using System::UnicodeString;

UnicodeString OwnRemainingTimeText()
{
    return u"Remaining time: ";
}

/// Computed in the counter's own width, and so right across its wrap.
std::uint32_t TicksSince(unsigned long start) noexcept
{
    return ::GetTickCount() - static_cast<std::uint32_t>(start);
}

} // namespace

constinit FRemainingTimeText GetRemainingTimeText = OwnRemainingTimeText;

CTickCount::CTickCount() noexcept : mStart(::GetTickCount()) {}

void CTickCount::Start() noexcept
{
    mStart = ::GetTickCount();
}

unsigned long CTickCount::GetTicks() const noexcept
{
    mTicks = TicksSince(mStart);
    return mTicks;
}

void CTickCount::Stop() noexcept
{
    mDuration = TicksSince(mStart);
}

UnicodeString CTickCount::getLastDuration() const
{
    return GetDuration(mDuration);
}

UnicodeString CTickCount::GetDuartionInfo(System::Int64 done, System::Int64 total) const
{
    if (done <= 0 || total < done) {
        return {};
    }
    const long double elapsed = TicksSince(mStart);
    const long double perItem = elapsed / static_cast<long double>(done);
    const long double remaining = static_cast<long double>(total) * perItem - elapsed;
    // Far beyond any life, and still an integer.
    constexpr long double longest = 9e18L;
    UnicodeString text = GetRemainingTimeText();
    if (remaining > 0) {
        text += GetDuration(static_cast<unsigned long>(std::llroundl(std::min(remaining, longest))));
    }
    if (perItem >= 1) {
        text += u", ø " + UnicodeString(static_cast<unsigned long>(perItem)) + u" msec";
    }
    return text;
}

} // namespace WIN
