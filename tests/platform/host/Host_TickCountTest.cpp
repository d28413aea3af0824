// SPDX-License-Identifier: MIT
#include "platform/host/Host_TickCount.h"

#include <gtest/gtest.h>

namespace
{

TEST(TickCountTest, CountsAcrossItsWrap)
{
    constexpr std::uint32_t beforeWrap = 20;
    Host::SetTickCount(0U - beforeWrap);
    const std::uint32_t start = GetTickCount();
    EXPECT_GE(start, 0U - beforeWrap);
    Sleep(40);
    EXPECT_LT(GetTickCount(), start);
    EXPECT_GE(GetTickCount() - start, 40U);
    EXPECT_LT(GetTickCount() - start, 60'000U);
}

} // namespace
