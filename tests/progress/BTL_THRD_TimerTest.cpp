// SPDX-License-Identifier: MIT
#include "progress/BTL_THRD_Timer.h"

#include "os/WIN_Duration.h"
#include "platform/host/Host_TickCount.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace
{

using BTL::CTimer;

constexpr int Long = 3'600'000;

bool Remains(CTimer& timer)
{
    return timer;
}

/// A counter that stands at `now`; what runs meanwhile is far below the times of these tests.
void SetTicks(std::uint32_t now)
{
    Host::SetTickCount(now);
}

TEST(TimerTest, RunsOutAtItsEnd)
{
    constexpr std::uint32_t fromWrap = 1'000'000;
    const struct
    {
        std::uint32_t start;
        std::uint32_t passed;
        bool remains;
    } rows[] = {
        {5, 0, true},
        {5, Long - 60'000, true},
        {5, Long, false},
        {5, Long + 60'000, false},
        // The counter wraps meanwhile.
        {0U - fromWrap, 0, true},
        {0U - fromWrap, fromWrap - 60'000, true},
        {0U - fromWrap, fromWrap, true},
        {0U - fromWrap, Long - 60'000, true},
        {0U - fromWrap, Long, false},
        // Looked at for the first time long behind the end.
        {0U - fromWrap, 10 * Long, false},
        // The end is the wrap itself.
        {0U - Long, Long - 60'000, true},
        {0U - Long, Long, false},
    };
    for (const auto& [start, passed, remains] : rows) {
        SCOPED_TRACE(testing::Message() << start << " + " << passed);
        SetTicks(start);
        CTimer timer(Long);
        SetTicks(start + passed);
        EXPECT_EQ(Remains(timer), remains);
        // Asked again, and for ever.
        EXPECT_EQ(Remains(timer), remains);
        SetTicks(start + Long);
        EXPECT_FALSE(Remains(timer));
        SetTicks(start);
        EXPECT_FALSE(Remains(timer));
        timer.Start(Long);
        EXPECT_TRUE(Remains(timer));
    }
}

TEST(TimerTest, OfNothingHasRunOutAtOnce)
{
    CTimer timer(0);
    EXPECT_FALSE(Remains(timer));
    timer.Sleep();
    timer.SleepEx(Long);
}

TEST(TimerTest, SleepsUntilItsEnd)
{
    // The wrap lies in the middle of both.
    SetTicks(0U - 20);
    CTimer slept(40);
    const std::uint32_t start = GetTickCount();
    slept.SleepEx(3);
    EXPECT_FALSE(Remains(slept));
    EXPECT_GE(GetTickCount() - start, 40U);

    SetTicks(0U - 5);
    CTimer spun(10);
    spun.Sleep();
    EXPECT_GE(GetTickCount(), 5U);
    CTimer negative(5);
    negative.SleepEx(-1);
    EXPECT_FALSE(Remains(negative));
}

TEST(TimerTest, CountsTheTicksSinceItsStart)
{
    SetTicks(1000);
    const CTimer timer(Long);
    EXPECT_LT(timer.GetTicks(), 60'000U);
    SetTicks(1000 + Long);
    EXPECT_GE(timer.GetTicks(), static_cast<unsigned long>(Long));
    EXPECT_LT(timer.GetTicks(), static_cast<unsigned long>(Long) + 60'000);
    SetTicks(1000 + Long + 500);
    EXPECT_EQ(timer.GetDuration(), u"1:0:0");
}

TEST(TimerTest, LosesATickAtTheWrap)
{
    // The clock may go on by one between two looks at it.
    for (int attempt = 0; attempt < 1000; ++attempt) {
        SetTicks(0U - 10);
        const std::uint32_t before = GetTickCount();
        const CTimer timer(Long);
        if (GetTickCount() != before) {
            continue;
        }
        SetTicks(20);
        const std::uint32_t now = GetTickCount();
        const unsigned long ticks = timer.GetTicks();
        if (GetTickCount() == now) {
            EXPECT_EQ(ticks, now - before - 1);
            return;
        }
    }
    FAIL() << "the clock never stood for four looks at it";
}

} // namespace
