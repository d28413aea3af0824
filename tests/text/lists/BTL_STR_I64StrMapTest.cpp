// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_I64StrMap.h"
#include "platform/runtime/classes/Classes.h"

#include <gmock/gmock.h>

namespace
{

using namespace BTL;
using Classes::TStringList;
using System::Int64;

TEST(I64StrMapTest, FindsKeysByText)
{
    CI64StrMap map;
    map.Add(5, u"a");
    map.Add(3, u"a");
    Int64 key = 0;
    EXPECT_TRUE(map.GetKey(key, u"a"));
    EXPECT_EQ(key, 5) << "the larger one";
    map.Add(4, u"a");
    EXPECT_TRUE(map.GetKey(key, u"a"));
    EXPECT_EQ(key, 4) << "the last one added";
    EXPECT_FALSE(map.GetKey(key, u"A"));
    EXPECT_EQ(key, 4);
    map.Add(4, u"b");
    EXPECT_TRUE(map.GetKey(key, u"a")) << "the index keeps what was overwritten";

    EXPECT_EQ(map.GetString(9), u"");
    EXPECT_FALSE(map.Contains(9));
    EXPECT_EQ(map[9], u"");
    EXPECT_TRUE(map.Contains(9));
    EXPECT_FALSE(map.GetKey(key, u"")) << "the index isn't told";

    CI64StrMap copy(map);
    EXPECT_TRUE(copy.GetKey(key, u"a"));
    EXPECT_EQ(key, 5) << "the copy has an index of its own";
    map = &copy;
    map.Add(3, u"x");
    const CI64StrMap& same = map;
    map = same;
    map = &same;
    EXPECT_TRUE(map.GetKey(key, u"a")) << "the index is still that of the map";
    EXPECT_EQ(key, 5);
    map.Add(3, u"a");
    EXPECT_EQ(map.GetCommaText(), u"a,b,a,");
    map.Add(5, u"overwritten");
    EXPECT_TRUE(map.GetKey(key, u"overwritten"));
    map.Add(5, u"a");
    map = &map;
    EXPECT_EQ(map.GetCommaText(), u"a,b,a,") << "assigned to itself";
    EXPECT_TRUE(map.GetKey(key, u"overwritten")) << "and the index as well";
    map = static_cast<const CI64StrMap*>(nullptr);
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_TRUE(CI64StrMap(nullptr).IsEmpty());
    EXPECT_EQ(copy.GetCount(), 4);
}

TEST(I64StrMapTest, ExchangesLinesWithIds)
{
    CI64StrMap map;
    map.Add(7, u"seven");
    map.Add(-1, u"minus");
    map.Add(0, u"none");
    TStringIdPairList list;
    list.Add(u"old");
    map.GetStringIdPairs(&list);
    EXPECT_EQ(list.getCommaText(), u"minus,none,seven");
    EXPECT_EQ(list.getId(0), -1);
    EXPECT_EQ(list.getId(2), 7);
    EXPECT_EQ(list.getObjects(1), nullptr);
    list.Add(u"last without id");
    CI64StrMap read;
    read.Add(99, u"former");
    read.SetStringIdPairs(&list, -1);
    EXPECT_EQ(read.GetCommaText(), u"\"last without id\",seven");
    read.SetStringIdPairs(&list, 0);
    EXPECT_EQ(read.GetCommaText(), u"minus,seven");
    TStringList texts;
    texts.Add(u"first");
    read.AddStringsTo(&texts);
    EXPECT_EQ(texts.getCommaText(), u"first,minus,seven");
    read.AddStringIdPairsTo(&texts);
    EXPECT_EQ(texts.getCommaText(), u"first,minus,seven,minus,seven");
    EXPECT_EQ(GetIdAt(&texts, 2), 0);
    EXPECT_EQ(GetIdAt(&texts, 3), -1);
    EXPECT_EQ(GetIdAt(&texts, 4), 7);
    read.GetStrings(&texts);
    EXPECT_EQ(texts.getCount(), 2);
    read.SetStringIdPairs(nullptr, 0);
    EXPECT_TRUE(read.IsEmpty());
}

TEST(I64StrMapTest, IsMadeOfEntriesAndIsARange)
{
    const CI64StrMap map = {{2, u"two"}, {-1, u"one"}, {2, u"second"}};
    EXPECT_THAT(map, testing::ElementsAre(testing::Pair(-1, u"one"), testing::Pair(2, u"two")));
    EXPECT_EQ(map.size(), 2U);
    EXPECT_FALSE(map.empty());
    EXPECT_TRUE(CI64StrMap{}.empty());
    Int64 key = 0;
    EXPECT_TRUE(map.GetKey(key, u"two"));
    EXPECT_EQ(key, 2);
}

} // namespace
