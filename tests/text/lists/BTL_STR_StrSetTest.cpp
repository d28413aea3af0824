// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StrSet.h"
#include "platform/runtime/classes/Classes.h"
#include "text/lists/BTL_STR_StringList.h"

#include <ranges>

#include <gmock/gmock.h>

namespace
{

using namespace BTL;
using Classes::TStringList;

TEST(StrSetTest, WorksOnNothingAsOnAnEmptySet)
{
    CStrSet set;
    EXPECT_FALSE(set.Contains(u"a"));
    EXPECT_EQ(set.getCommaText(), u"");
    EXPECT_TRUE(set.ContainsAll(u""));
    EXPECT_TRUE(set.ContainsAll(nullptr));
    EXPECT_FALSE(set.ContainsAll(u"a"));
    set.Remove(u"a");
    set.RemoveCommaText(u"a,b");
    set.Remove(nullptr);
    set.Add(nullptr);
    CStrSet copy(set);
    copy = set;
    EXPECT_EQ(copy.getCommaText(), u"");
}

TEST(StrSetTest, AddsRemovesAndTests)
{
    CStrSet set;
    set.Add(u"b");
    set.Add(CStringList(u"B,a,b").getList());
    set.AddCommaText(u"c");
    set.AddCommaText(u"");
    EXPECT_EQ(set.getCommaText(), u"a,b,B,c");
    EXPECT_TRUE(set.ContainsAll(u"B,c"));
    EXPECT_FALSE(set.Contains(u"C"));
    CStrSet copy = set;
    set.RemoveCommaText(u"a,x,b");
    EXPECT_EQ(set.getCommaText(), u"B,c");
    EXPECT_EQ(copy.getCommaText(), u"a,b,B,c");
    const TStringList* const strings = set.CreateStrings();
    set.AddCommaText(u"=,new");
    EXPECT_EQ(set.getCommaText(), u"=,new") << "an equals sign replaces all";
    EXPECT_EQ(strings->getCommaText(), u"=,new") << "in the same list";
    set = copy;
    EXPECT_EQ(strings->getCommaText(), u"a,b,B,c");
    set = CStrSet();
    EXPECT_EQ(strings->getCount(), 0);
    set = copy;
    set.Remove(set.CreateStrings());
    EXPECT_EQ(set.getCommaText(), u"");
    set.AddCommaText(u"d");
    copy = set;
    EXPECT_EQ(copy.getCommaText(), u"d");
    set.setCommaText(u"e,e");
    EXPECT_EQ(set.getCommaText(), u"e");
    set.setCommaText(u"");
    EXPECT_FALSE(set.Contains(u"e"));
    copy.Clear();
    EXPECT_EQ(copy.getCommaText(), u"");
}

TEST(StrSetTest, IsMadeOfTexts)
{
    const CStrSet set = {u"b", u"a", u"b"};
    EXPECT_EQ(set.getCommaText(), u"a,b");
    EXPECT_EQ(set.size(), 2U);
    EXPECT_FALSE(set.empty());
    EXPECT_TRUE(CStrSet().empty());
    EXPECT_EQ(CStrSet().GetCount(), 0);
}

TEST(StrSetTest, IsARange)
{
    CStrSet set;
    EXPECT_TRUE(set.begin() == set.end());
    set = {u"c", u"a", u"b", u"a"};
    EXPECT_THAT(std::vector<System::UnicodeString>(set.begin(), set.end()),
                testing::ElementsAre(u"a", u"b", u"c"));
    EXPECT_EQ(set.size(), 3U);
    static_assert(std::ranges::random_access_range<const CStrSet>);
    TStringList list;
    list.AddStrings(set);
    EXPECT_EQ(list.getCommaText(), u"a,b,c");
    set.Clear();
    EXPECT_TRUE(set.empty() && set.begin() == set.end());
}

} // namespace
