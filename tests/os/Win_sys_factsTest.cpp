// SPDX-License-Identifier: MIT
#include "os/Win_sys_facts.h"

#include <gtest/gtest.h>

namespace
{

TEST(SystemFactsTest, ClaimsALaterVersion)
{
    EXPECT_TRUE(WIN::IsNT());
    EXPECT_TRUE(WIN::IsVista());
}

TEST(SystemFactsTest, FillsTheWholeStatus)
{
    _MEMORYSTATUSEX status;
    status.dwLength = 0;
    WIN::GlobalMemoryStatus(status);
    EXPECT_EQ(status.dwLength, 64U);
    EXPECT_GT(status.ullTotalPhys, 0U);
}

} // namespace
