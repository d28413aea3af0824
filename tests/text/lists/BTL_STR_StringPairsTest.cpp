// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StringPairs.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"
#include "text/GrowthSupport.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

namespace
{

using BTL::CStringPairs;
using Classes::TStringList;
using System::UnicodeString;
using System::WideChar;

CStringPairs Pairs(std::initializer_list<std::pair<const WideChar*, const WideChar*>> items)
{
    CStringPairs pairs;
    for (const auto& [first, second] : items) {
        pairs.Add(first, second);
    }
    return pairs;
}

UnicodeString TextOf(const CStringPairs& pairs)
{
    return pairs.GetText(u"=", u";");
}

TEST(StringPairsTest, TakesLinesAndColumns)
{
    TStringList lines;
    lines.setText(u" a = b=c \nplain\n=x\ny=\n");
    CStringPairs pairs;
    pairs.Add(&lines);
    pairs.Add(static_cast<TStringList*>(nullptr));
    EXPECT_EQ(TextOf(pairs), u"a=b=c;=x;y=");

    TStringList firsts;
    TStringList seconds;
    firsts.setCommaText(u"1,2");
    seconds.setCommaText(u"x,y");
    pairs.Clear();
    pairs.Add(&firsts, &seconds);
    EXPECT_EQ(TextOf(pairs), u"1=x;2=y");
    seconds.Add(u"z");
    const Support::ScriptedBoxes boxes({IDYES, IDNO, IDNO});
    try {
        pairs.Add(&firsts, &seconds);
        FAIL();
    } catch (const UTL::XAssert& fault) {
        EXPECT_EQ(fault.getFile(), "BTL_STR_StringPairs");
        EXPECT_EQ(fault.getLine(), 68);
    }
    pairs.Add(&firsts, &seconds);
    pairs.Add(nullptr, &seconds);
    EXPECT_EQ(pairs.getCount(), 2);
    for (const int index : {-1, 2}) {
        EXPECT_THROW(pairs.getItem(index), Sysutils::ERangeError);
    }
    pairs.getItem(1).second = u"w";
    const CStringPairs copy = pairs;
    pairs.Clear();
    EXPECT_EQ(copy.getItem(1).second, u"w");
}

TEST(StringPairsTest, FillsLists)
{
    const CStringPairs pairs = Pairs({{u"a", u"1"}, {u"b", u"2"}});
    System::TObject object;
    TStringList list;
    const auto lines = [&] { return list.getCommaText(); };
    list.Add(u"old");
    pairs.AddPairsTo(&list);
    EXPECT_EQ(lines(), u"old,a=1,b=2");
    pairs.GetPairs(&list);
    EXPECT_EQ(lines(), u"a=1,b=2");
    pairs.GetFirsts(&list);
    pairs.AddSecondsTo(&list, &object);
    EXPECT_EQ(lines(), u"a,b,1,2");
    EXPECT_EQ(list.getObjects(1), nullptr);
    EXPECT_EQ(list.getObjects(2), &object);
    pairs.GetSeconds(&list, &object);
    pairs.AddFirstsInFrontTo(&list);
    pairs.AddSecondsInFrontTo(&list, &object);
    pairs.AddFirstsTo(&list);
    EXPECT_EQ(lines(), u"1,2,a,b,1,2,a,b");
    EXPECT_EQ(list.getObjects(1), &object);
    EXPECT_EQ(list.getObjects(2), nullptr);
    pairs.GetFirsts(nullptr);
    pairs.AddFirstsInFrontTo(nullptr);
    pairs.GetPairs(nullptr);
}

TEST(StringPairsTest, PutsManyPairsInFrontOfManyLines)
{
    CStringPairs pairs;
    TStringList list;
    for (int i = 0; i < Support::LongText; ++i) {
        pairs.Add(u"front", UnicodeString(i));
        list.Add(UnicodeString(i));
    }
    pairs.AddSecondsInFrontTo(&list);
    ASSERT_EQ(list.getCount(), 2 * Support::LongText);
    for (int i = 0; i < list.getCount(); ++i) {
        ASSERT_EQ(list[i], UnicodeString(i % Support::LongText));
    }
    TStringList sorted{u"a"};
    sorted.setSorted(true);
    EXPECT_THROW(pairs.AddFirstsInFrontTo(&sorted), Classes::EStringListError);
    EXPECT_EQ(sorted.getCount(), 1);
}

TEST(StringPairsTest, FindsAndSorts)
{
    CStringPairs pairs = Pairs({{u"aa", u"1"}, {u"b", u"333"}, {u"aa", u"22"}, {u"", u"1"}});
    ASSERT_NE(pairs.FindFirst(u"aa"), nullptr);
    EXPECT_EQ(pairs.FindFirst(u"aa")->second, u"1");
    EXPECT_EQ(pairs.FindSecond(u"1")->first, u"aa");
    EXPECT_EQ(pairs.FindFirst(u"AA"), nullptr);
    pairs.SortByFirstLengths(true);
    EXPECT_EQ(TextOf(pairs), u"aa=1;aa=22;b=333;=1");
    pairs.SortBySecondLengths(true);
    EXPECT_EQ(TextOf(pairs), u"b=333;aa=22;aa=1;=1");
    pairs.SortByFirstLengths(false);
    EXPECT_EQ(TextOf(pairs), u"=1;b=333;aa=22;aa=1");
    pairs.SortBySecondLengths(false);
    EXPECT_EQ(TextOf(pairs), u"=1;aa=1;aa=22;b=333");
}

TEST(StringPairsTest, WritesConditions)
{
    EXPECT_EQ(Pairs({{u"id", u"Key"}, {u"active=1", u""}}).GetSQLParamFilter(), u"id=:Key and (active=1)");
    EXPECT_EQ(Pairs({{u"id", u"Key"}}).GetSQLParamFilter(u"@"), u"id=@Key");
    EXPECT_EQ(Pairs({}).GetSQLParamFilter(), u"");
    EXPECT_EQ(Pairs({{u"a", u"b"}}).GetSQLMasterLink(), u"a=b");
    EXPECT_EQ(Pairs({{u"a", u"b"}, {u"c", u"d"}}).GetSQLMasterLink(), u"");
    EXPECT_EQ(Pairs({}).GetSQLMasterLink(), u"");
}

TEST(StringPairsTest, ReplacesMacrosAndPaths)
{
    const CStringPairs pairs = Pairs({{u"%A", u"C:\\x\\"}, {u"%B", u"D:\\"}, {u"%C", u"%A\\sub/"}});
    const struct
    {
        const WideChar* text;
        const WideChar* once;
        const WideChar* all;
    } cases[] = {
        {u"%A\\f", u"C:\\x\\f", u"C:\\x\\f"},
        {u"%A %B", u"C:\\x %B", u"C:\\x D:\\"},
        {u"%A%A", u"C:\\x%A", u"C:\\xC:\\x"},
        {u"%C", u"%A\\sub", u"C:\\x\\sub"},
        {u"%B\\g", u"D:\\g", u"D:\\g"},
        {u"%B/g%B", u"D:/g%B", u"D:/gD:\\"},
        {u"x%Bg", u"xD:\\g", u"xD:\\g"},
        {u"%a", u"%a", u"%a"},
        {u"", u"", u""},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(pairs.ReplaceMacroToPath(test.text), test.once) << UnicodeString(test.text);
        EXPECT_EQ(pairs.ReplaceMacroToPathRecursive(test.text), test.all) << UnicodeString(test.text);
    }
    EXPECT_EQ(pairs.ReplacePathToMacro(u"c:\\X\\f c:\\x"), u"%A\\f c:\\x");
    EXPECT_EQ(pairs.ReplacePathToMacro(u"e:\\f"), u"e:\\f");
    EXPECT_EQ(pairs.ReplacePathToMacro(u"%a\\SUB/x"), u"%C/x");
    EXPECT_EQ(pairs.ReplacePathToMacro(u"d:\\g"), u"%B\\g");
    EXPECT_EQ(pairs.ReplaceMacroToPath(pairs.ReplacePathToMacro(u"D:\\")), u"D:\\");
    EXPECT_EQ(Pairs({{u"%R", u"\\"}}).ReplaceMacroToPath(u"%R\\x"), u"\\x");

    CStringPairs nested = Pairs({{u"%Root", u"C:\\p"}, {u"%Bin", u"C:\\p\\bin"}});
    EXPECT_EQ(nested.ReplacePathToMacro(u"C:\\p\\bin\\x"), u"%Root\\bin\\x");
    nested.SortBySecondLengths(true);
    EXPECT_EQ(nested.ReplacePathToMacro(u"C:\\p\\bin\\x"), u"%Bin\\x");
    EXPECT_EQ(Pairs({{u"", u""}, {u"%A", u""}}).ReplaceMacroToPathRecursive(u"x%A"), u"x");
}

TEST(StringPairsTest, MacrosThatBringMacrosComeToAnEnd)
{
    EXPECT_LE(Pairs({{u"a", u"b"}, {u"b", u"a"}}).ReplaceMacroToPathRecursive(u"a").Length(), 1);
    EXPECT_GT(Pairs({{u"a", u"aa"}}).ReplaceMacroToPathRecursive(u"a").Length(), 500);
    const UnicodeString many = UnicodeString::StringOfChar(u'a', 3000);
    EXPECT_EQ(Pairs({{u"a", u"b"}}).ReplaceMacroToPathRecursive(many),
              UnicodeString::StringOfChar(u'b', 3000));
}

TEST(StringPairsTest, AreMadeOfPairsAndAreARange)
{
    CStringPairs pairs = {{u"a", u"1"}, {u"b", u"2"}};
    EXPECT_EQ(pairs.size(), 2U);
    EXPECT_FALSE(pairs.empty());
    EXPECT_TRUE(CStringPairs().empty());
    for (auto& [first, second] : pairs) {
        second += first;
    }
    const std::span<const BTL::CStringPair> all = pairs;
    EXPECT_EQ(all[1].second, u"2b");
    EXPECT_EQ(CStringPairs(all.subspan(1)).GetText(u"=", u";"), u"b=2b");
    EXPECT_EQ(std::as_const(pairs).begin()->first, u"a");
}

} // namespace
