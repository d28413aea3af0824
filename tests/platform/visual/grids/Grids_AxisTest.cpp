// SPDX-License-Identifier: MIT
#include "platform/visual/grids/Grids_Axis.h"

#include "platform/visual/grids/Grids_Types.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

using Grids::CGridAxis;

TEST(GridAxisTest, NumbersAfterAMove)
{
    const struct
    {
        int from, to, index, moved;
    } cases[] = {{2, 5, 2, 5}, {2, 5, 3, 2}, {2, 5, 5, 4}, {2, 5, 6, 6}, {2, 5, 1, 1}, {2, 5, -1, -1},
                 {5, 2, 5, 2}, {5, 2, 2, 3}, {5, 2, 4, 5}, {5, 2, 6, 6}, {5, 2, 1, 1}};
    for (const auto& [from, to, index, moved] : cases) {
        SCOPED_TRACE(testing::Message() << index << " of " << from << " to " << to);
        EXPECT_EQ(CGridAxis::MovedIndex(index, from, to), moved);
    }
}

TEST(GridAxisTest, SizesGoWithWhatIsMovedAndCount)
{
    CGridAxis axis(10, 1, 20);
    axis.setSize(2, 50);
    axis.setSize(4, 0);
    EXPECT_EQ(axis.GetTotal(), 8 * 21 + 51 + 1);
    axis.Move(2, 5);
    EXPECT_EQ(axis.getSize(5), 50);
    EXPECT_EQ(axis.getSize(3), 0);
    EXPECT_EQ(axis.GetOwnEnd(), 6);
    axis.setCount(5);
    EXPECT_EQ(axis.GetTotal(), 4 * 21 + 1);
    axis.setSize(3, 20);
    EXPECT_FALSE(axis.hasOwnSizes());
    axis.setLineWidth(3);
    EXPECT_EQ(axis.GetTotal(), 5 * 23);
}

TEST(GridAxisTest, ScrollsNoFurtherThanNeeded)
{
    // One fixed of 11 pixels with its line, and nine others; in 56 pixels four of these are seen whole.
    CGridAxis axis(10, 1, 10);
    constexpr int area = 56;
    EXPECT_EQ(axis.GetLastWhole(area), 4);
    EXPECT_EQ(axis.GetHighestFirst(area), 6);
    const struct
    {
        int first, index, shown;
    } cases[] = {{1, 4, 1}, {1, 5, 2}, {1, 9, 6}, {6, 3, 3}, {6, 0, 6}, {6, 9, 6}};
    for (const auto& [first, index, shown] : cases) {
        SCOPED_TRACE(testing::Message() << index << " from " << first);
        axis.setFirst(first);
        EXPECT_EQ(axis.GetFirstToShow(index, area), shown);
    }
    axis.setSize(9, 500);
    EXPECT_EQ(axis.GetHighestFirst(area), 9);
    EXPECT_EQ(axis.GetFirstToShow(9, area), 9);
}

TEST(GridAxisTest, FindsTheLastOfSeveralLinesAtOnePlace)
{
    CGridAxis axis(6, 1, 30);
    axis.setSize(3, 0);
    ASSERT_TRUE(axis.GetLineAt(93, 500).has_value());
    EXPECT_EQ(axis.GetLineAt(93, 500)->index, 3);
    EXPECT_EQ(axis.GetLineAt(60, 500)->index, 1);
    EXPECT_FALSE(axis.GetLineAt(45, 500).has_value());
    axis.setSize(3, -1);
    EXPECT_EQ(axis.GetLineAt(93, 500)->index, 2);
}

TEST(GridAxisTest, PassesOverWhatHasNoExtent)
{
    constexpr int most = std::numeric_limits<int>::max();
    CGridAxis axis(most, 1, -1);
    EXPECT_TRUE(axis.GetVisible(100).empty());
    EXPECT_EQ(axis.GetTotal(), 0);
    EXPECT_EQ(axis.GetHighestFirst(100), most - 1);
    axis.setSize(1'000'000, 30);
    axis.setSize(2'000'000'000, 30);
    ASSERT_EQ(axis.GetVisible(100).size(), 2U);
    EXPECT_EQ(axis.GetVisible(100)[1].begin, 31);
    EXPECT_EQ(axis.GetHighestFirst(100), 1'000'000);
    EXPECT_EQ(axis.GetIndexAt(40, 100), 2'000'000'000);
    EXPECT_THROW(axis.CheckIndex(most), Grids::EInvalidGridOperation);
    EXPECT_THROW(axis.CheckIndex(-1), Grids::EInvalidGridOperation);
}

} // namespace
