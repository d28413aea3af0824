// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StringLists.h"
#include "platform/runtime/classes/Classes.h"
#include "support/MemoryLimit.h"

#include <climits>

#include <gtest/gtest.h>

namespace
{

using namespace BTL;
using Classes::TStringList;

TEST(StringListsTest, GrowsAndMakesListsWhenTold)
{
    CStringLists lists;
    EXPECT_EQ(lists.SetCount(0, false), nullptr);
    EXPECT_EQ(lists.SetCount(-5, false), nullptr);
    TStringList* const last = lists.SetCount(3, true);
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(lists.getItem(0), nullptr);
    EXPECT_EQ(lists.getItem(1), nullptr);
    EXPECT_EQ(lists.getItem(2), last);
    EXPECT_EQ(lists.SetCount(1, true), last) << "never shrinks";
    lists.SetCount(5, false);
    EXPECT_NE(lists.getItem(3), nullptr);
    TStringList* const added = lists.Add();
    EXPECT_EQ(lists.getItem(5), added);
    for (const int index : {-1, 6, INT_MIN, INT_MAX}) {
        EXPECT_EQ(lists.getItem(index), nullptr);
    }
    lists.Clear();
    EXPECT_EQ(lists.getCount(), 0);
}

TEST(StringListsTest, TellTheirSize)
{
    CStringLists lists;
    EXPECT_TRUE(lists.empty());
    lists.SetCount(3, true);
    EXPECT_EQ(lists.size(), 3U);
    EXPECT_FALSE(lists.empty());
}

using StringListsMemoryTest = Support::OutOfMemoryTest;

TEST_F(StringListsMemoryTest, RaisesForTooManyLists)
{
    EXPECT_TRUE(Support::RaisesOutOfMemory([] { CStringLists().SetCount(INT_MAX, true); }));
    EXPECT_TRUE(Support::RaisesOutOfMemory([] { CStringLists().SetCount(INT_MAX, false); }));
}

} // namespace
