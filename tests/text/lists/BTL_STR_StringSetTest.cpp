// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StringSet.h"
#include "platform/runtime/classes/Classes.h"
#include "text/lists/BTL_STR_StringList.h"

#include <gmock/gmock.h>

namespace
{

using namespace BTL;
using Classes::TStringList;

TEST(StringSetTest, AddsRemovesAndTests)
{
    CStringSet set(u"b,a,B");
    set << u"c" << CStringSet(u"d,a") << CStringList(u"e").getList() << static_cast<TStringList*>(nullptr);
    EXPECT_EQ(set.getCommaText(), u"B,a,b,c,d,e");
    set >> u"x" >> u"c" >> CStringSet(u"d") >> CStringList(u"e,y").getList();
    set.AddCommaText(u"\"x y\"");
    EXPECT_EQ(set.GetDelimitedText(u';'), u"B;a;b;x y");
    EXPECT_TRUE(set.Contains(u"B"));
    EXPECT_FALSE(set.Contains(u"A"));
    EXPECT_TRUE(set.ContainsAll(u"a,b"));
    EXPECT_FALSE(set.ContainsAll(u"a,A"));
    EXPECT_TRUE(set.ContainsAll(u""));
    EXPECT_TRUE(set.ContainsAll(CStringSet()));
    EXPECT_FALSE(set.ContainsAll(CStringSet(u"z")));
    EXPECT_TRUE(set.ContainsAll(static_cast<TStringList*>(nullptr)));
    TStringList list;
    list.Add(u"old");
    set.AddStringsTo(&list);
    EXPECT_EQ(list.getCount(), 5);
    set.GetStrings(&list);
    EXPECT_EQ(list.getCount(), 4);
    set << set;
    EXPECT_EQ(set.size(), 4U);
    set >> set;
    EXPECT_TRUE(set.empty());
    set.setCommaText(u"1,2");
    set.setCommaText(u"3");
    EXPECT_EQ(set.getCommaText(), u"3");
}

TEST(StringSetTest, IsMadeOfTexts)
{
    EXPECT_THAT(CStringSet{u"a,c"}, testing::ElementsAre(u"a", u"c"));
    EXPECT_THAT(CStringSet(u"a,c"), testing::ElementsAre(u"a", u"c"));
    const std::vector<System::UnicodeString> texts = {u"x,y", u"x,y"};
    EXPECT_THAT(CStringSet(texts), testing::ElementsAre(u"x,y"));
}

} // namespace
