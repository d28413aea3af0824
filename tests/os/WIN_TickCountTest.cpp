// SPDX-License-Identifier: MIT
#include "os/WIN_TickCount.h"

#include "os/WIN_Duration.h"

#include "platform/host/Host_TickCount.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace
{

using System::UnicodeString;

/// A watch that started so long ago.
WIN::CTickCount StartedAgo(std::uint32_t milliseconds)
{
    const std::uint32_t now = GetTickCount();
    Host::SetTickCount(now - milliseconds);
    const WIN::CTickCount watch;
    Host::SetTickCount(now);
    return watch;
}

TEST(WinTickCountTest, CountsAcrossTheWrap)
{
    Host::SetTickCount(0U - 20U);
    WIN::CTickCount watch;
    EXPECT_EQ(watch.getTicks(), 0U);
    Sleep(40);
    const unsigned long ticks = watch.GetTicks();
    EXPECT_GE(ticks, 40U);
    EXPECT_LT(ticks, 60'000U);
    EXPECT_EQ(watch.getTicks(), ticks);
    EXPECT_EQ(watch.getDuration(), 0U);
    watch.Stop();
    EXPECT_GE(watch.getDuration(), ticks);
    EXPECT_EQ(watch.getLastDuration(), WIN::GetDuration(watch.getDuration()));
    watch.Start();
    EXPECT_LT(watch.GetTicks(), 40U + ticks);
}

/// Another text in front of a remaining time, for a scope; who gives it else depends on what is linked.
class CRestText
{
public:
    CRestText() : mFormer(std::exchange(WIN::GetRemainingTimeText, [] { return UnicodeString(u"Rest "); })) {}
    CRestText(const CRestText&) = delete;
    CRestText& operator=(const CRestText&) = delete;
    ~CRestText() { WIN::GetRemainingTimeText = mFormer; }

private:
    decltype(WIN::GetRemainingTimeText) mFormer;
};

TEST(WinTickCountTest, EstimatesTheRest)
{
    const CRestText text;
    const WIN::CTickCount watch = StartedAgo(100'000);
    for (const auto& [done, total] : {std::pair(0LL, 10LL), {-1LL, 10LL}, {11LL, 10LL}}) {
        EXPECT_EQ(watch.GetDuartionInfo(done, total), u"");
    }
    EXPECT_EQ(watch.GetDuartionInfo(10, 10).SubString(1, 9), u"Rest , ø ");
    EXPECT_TRUE(watch.GetDuartionInfo(10, 20).AsView().starts_with(u"Rest 0:1:40, ø 100"));
    EXPECT_EQ(watch.GetDuartionInfo(1'000'000, 2'000'000), u"Rest 0:1:40");
    EXPECT_FALSE(watch.GetDuartionInfo(1, std::numeric_limits<System::Int64>::max()).IsEmpty());
}

} // namespace
