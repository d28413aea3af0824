// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StringInt32Map.h"
#include "platform/runtime/classes/Classes.h"

#include <climits>
#include <limits>

#include <gmock/gmock.h>

namespace
{

using namespace BTL;
using System::Int64;

TEST(StringIntegerMapTest, AnswersQuietly)
{
    const char* const names[] = {"zero", "one", "zero"};
    CStringInt32Map map(names, 3);
    EXPECT_EQ(map.ToValue(u"zero", -1), 2);
    EXPECT_EQ(map.ToValue(u"Zero", -1), -1);
    int value = 7;
    EXPECT_FALSE(map.GetValue(u"x", value));
    EXPECT_EQ(value, 7);
    EXPECT_FALSE(map.GetValue(u"x", value, 9));
    EXPECT_EQ(value, 9);
    EXPECT_TRUE(map.GetValue(u"one", value, 9));
    EXPECT_EQ(value, 1);
    EXPECT_EQ(map.IncValue(u"one", 5), 6);
    EXPECT_EQ(map.IncValue(u"new", INT_MAX), INT_MAX);
    EXPECT_EQ(map.IncValue(u"new", 1), INT_MIN);
    EXPECT_EQ(map.getCount(), 3);
    map.Clear();
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_TRUE(CStringInt32Map(nullptr, 3).IsEmpty());

    CStringKeyMap keys;
    keys.Add(u"big", std::numeric_limits<Int64>::min());
    const CStringKeyMap copy = keys;
    keys.Clear();
    EXPECT_EQ(copy.ToValue(u"big", 0), std::numeric_limits<Int64>::min());
}

TEST(StringInt32MapTest, IsMadeOfEntriesAndIsARange)
{
    CStringInt32Map map = {{u"b", 2}, {u"a", 1}};
    map.IncValue(u"b", 3);
    EXPECT_THAT(map, testing::ElementsAre(testing::Pair(u"a", 1), testing::Pair(u"b", 5)));
    EXPECT_EQ(map.size(), 2U);
    EXPECT_FALSE(map.empty());
    EXPECT_EQ((CStringKeyMap{{u"k", 5000000000}}).ToValue(u"k", 0), 5000000000);
}

} // namespace
