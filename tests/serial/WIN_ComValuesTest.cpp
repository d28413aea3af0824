// SPDX-License-Identifier: MIT
#include "serial/WIN_ComValues.h"

#include <gtest/gtest.h>

#include <utility>

namespace
{

using WIN::EBaud;

TEST(ComValuesTest, NamesSpeeds)
{
    for (const auto& [baud, value] : {std::pair(110, 0), {4800, 5}, {56000, 11}, {256000, 15}, {9601, 6}}) {
        EXPECT_EQ(static_cast<int>(WIN::Int2Baud(baud)), value) << baud;
    }
    EXPECT_EQ(WIN::Baud2Int(EBaud::Baud128000), 128000);
    for (const int none : {-1, 16, 1000}) {
        EXPECT_EQ(WIN::Baud2Int(static_cast<EBaud>(none)), 9600);
    }
    EXPECT_EQ(static_cast<int>(WIN::Int2Com(256)), 255);
    EXPECT_EQ(WIN::Com2Int(WIN::Int2Com(7)), 7);
}

TEST(ComValuesTest, CountsTheTimeOfTheBytes)
{
    const WIN::CCommTimeouts fast(EBaud::Baud19200, 100, 200);
    EXPECT_EQ(fast.ReadIntervalTimeout, 100U);
    EXPECT_EQ(fast.ReadTotalTimeoutMultiplier, 1U);
    EXPECT_EQ(fast.ReadTotalTimeoutConstant, 100U);
    EXPECT_EQ(fast.WriteTotalTimeoutMultiplier, 1U);
    EXPECT_EQ(fast.WriteTotalTimeoutConstant, 200U);
    EXPECT_EQ(WIN::CCommTimeouts(EBaud::Baud2400, 0, 0).WriteTotalTimeoutMultiplier, 4U);
}

} // namespace
