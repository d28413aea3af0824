// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Math.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <vector>

namespace
{

TEST(MathTest, StatisticsOfARow)
{
    const std::vector<double> row = {2, 4, 4, 4, 5, 5, 7, 9};
    EXPECT_EQ(Math::MaxValue(row), 9);
    EXPECT_EQ(Math::MinValue(row), 2);
    EXPECT_EQ(Math::Sum(row), 40);
    EXPECT_EQ(Math::SumOfSquares(row), 232);
    EXPECT_EQ(Math::Mean(row), 5);
    EXPECT_EQ(Math::TotalVariance(row), 32);
    EXPECT_EQ(Math::PopnVariance(row), 4);
    EXPECT_EQ(Math::PopnStdDev(row), 2);
    EXPECT_DOUBLE_EQ(static_cast<double>(Math::Variance(row)), 32.0 / 7);
    EXPECT_DOUBLE_EQ(static_cast<double>(Math::StdDev(row)), std::sqrt(32.0 / 7));
    EXPECT_EQ(Math::Norm(std::vector<double>{3, -4}), 5);
}

TEST(MathTest, ALargeCommonPartCostsNoDigits)
{
    const std::vector<double> row = {1e9 + 4, 1e9 + 7, 1e9 + 13, 1e9 + 16};
    EXPECT_EQ(Math::Variance(row), 30);
    const double huge = 1e300;
    EXPECT_TRUE(std::isfinite(Math::Norm(std::vector<double>{huge, huge})));
}

TEST(MathTest, EmptyRowsAndSingleValuesGiveZero)
{
    for (const std::vector<double>& row : {std::vector<double>(), std::vector<double>{7}}) {
        EXPECT_EQ(Math::MaxValue(row), row.empty() ? 0 : 7);
        EXPECT_EQ(Math::MinValue(row), row.empty() ? 0 : 7);
        EXPECT_EQ(Math::Mean(row), row.empty() ? 0 : 7);
        long double mean = -1;
        long double stdDev = -1;
        Math::MeanAndStdDev(row, mean, stdDev);
        EXPECT_EQ(mean, Math::Mean(row));
        for (const long double spread :
             {stdDev, Math::StdDev(row), Math::PopnStdDev(row), Math::Variance(row), Math::PopnVariance(row),
              Math::TotalVariance(row)}) {
            EXPECT_EQ(spread, 0);
        }
    }
    EXPECT_EQ(Math::Sum({}), 0);
    EXPECT_EQ(Math::Norm({}), 0);
}

TEST(MathTest, Integers)
{
    const std::vector<int> row = {-3, -9, -4};
    EXPECT_EQ(Math::MaxIntValue(row), -3);
    EXPECT_EQ(Math::MinIntValue(row), -9);
    EXPECT_EQ(Math::SumInt(row), -16);
    EXPECT_EQ(Math::SumInt(std::vector<int>{INT_MAX, 1}), INT_MIN);
    EXPECT_EQ(Math::MaxIntValue({}), 0);
    EXPECT_EQ(Math::MinIntValue({}), 0);
    EXPECT_EQ(Math::SumInt({}), 0);
}

} // namespace
