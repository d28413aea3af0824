// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StrStrMap.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"
#include "text/lists/BTL_STR_StringList.h"

#include <gmock/gmock.h>

namespace
{

using namespace BTL;
using Classes::TStringList;
using System::UnicodeString;
using testing::ElementsAre;

TEST(StrStrMapTest, FindsBothWays)
{
    CStrStrMap map(u"key,b,Key", u"1,2,1");
    map.Add(u"b", u"3");
    EXPECT_EQ(map.size(), 3U);
    EXPECT_EQ(map.GetValue(u"b"), u"3");
    EXPECT_EQ(map.GetValue(u"KEY"), u"");
    EXPECT_EQ(map.Get1stKey(u"1"), u"Key") << "capitals come first";
    EXPECT_EQ(map.Get1stKey(u"2"), u"") << "overwritten";
    UnicodeString text = u"former";
    EXPECT_FALSE(map.GetValue(u"x", text));
    EXPECT_FALSE(map.Get1stKey(u"x", text));
    EXPECT_EQ(text, u"former");
    EXPECT_TRUE(map.GetValue(u"key", text));
    EXPECT_EQ(text, u"1");
    EXPECT_TRUE(map.Get1stKey(u"3", text));
    EXPECT_EQ(text, u"b");
    EXPECT_TRUE(map.Contains(u"b"));
    EXPECT_FALSE(map.Contains(u""));
    EXPECT_EQ(map.size(), 3U) << "looking adds nothing";

    TStringList list;
    list.Add(u"old");
    map.GetKeys(&list);
    EXPECT_EQ(list.getCommaText(), u"Key,b,key");
    map.GetValues(&list);
    EXPECT_EQ(list.getCommaText(), u"1,3,1");
    map.GetValues(nullptr);
    EXPECT_EQ(map.getDebugInfo(), u" [Key]='1'   [b]='3'   [key]='1' ");
    EXPECT_EQ(CStrStrMap().getDebugInfo(), u"");
}

TEST(StrStrMapTest, RefusesUnequalLists)
{
    CStrStrMapEx map;
    map.SetValues(u"a,b", u"1,2");
    const Support::ScriptedBoxes boxes({IDYES, IDNO});
    try {
        map.SetValues(u"c,d", u"3");
        FAIL();
    } catch (const UTL::XAssert& fault) {
        EXPECT_EQ(fault.getFile(), "BTL_STR_StrStrMap");
        EXPECT_EQ(fault.getLine(), 50);
    }
    map.SetValues(CStringList(u"c").getList(), nullptr);
    EXPECT_EQ(map.size(), 2U);
    EXPECT_THAT(map.getKeysInOrder(), ElementsAre(u"a", u"b"));
}

TEST(StrStrMapTest, KnowsTheOrderOfItsKeys)
{
    CStrStrMapEx map;
    map.Add(u"b", u"1");
    map.Add(u"a", u"2");
    map.Add(u"b", u"3");
    EXPECT_THAT(map.getKeysInOrder(), ElementsAre(u"b", u"a", u"b"));
    EXPECT_EQ(map.GetValue(u"b"), u"3");
    map.SetValues(u"z,c", u"4,5");
    EXPECT_THAT(map.getKeysInOrder(), ElementsAre(u"z", u"c"));
    EXPECT_EQ(map.size(), 4U) << "former entries stay";
    EXPECT_EQ(map.Get1stKey(u"2"), u"a");
    map.Clear();
    EXPECT_TRUE(map.empty());
    EXPECT_TRUE(map.getKeysInOrder().empty());
}

TEST(StrStrMapTest, IsMadeOfEntries)
{
    const CStrStrMap map = {{u"b", u"2"}, {u"a", u"1"}};
    EXPECT_EQ(map.GetValue(u"b"), u"2");
    EXPECT_EQ(map.size(), 2U);
    EXPECT_EQ((CStrStrMap{u"a,b", u"1,2"}), map) << "two comma texts, also in braces";
    const CStrStrMapEx ordered = {{u"b", u"2"}, {u"a", u"1"}};
    EXPECT_THAT(ordered.getKeysInOrder(), ElementsAre(u"b", u"a"));
    EXPECT_EQ(ordered.GetValue(u"a"), u"1");
}

} // namespace
