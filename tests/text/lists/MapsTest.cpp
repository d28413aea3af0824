// SPDX-License-Identifier: MIT
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"
#include "support/TempFolder.h"
#include "text/lists/BTL_STR_I64StrMap.h"
#include "text/lists/BTL_STR_IntSet.h"
#include "text/lists/BTL_STR_StrSet.h"
#include "text/lists/BTL_STR_StrStrMap.h"
#include "text/lists/BTL_STR_StringInt32Map.h"
#include "text/lists/BTL_STR_StringList.h"
#include "text/lists/BTL_STR_StringSet.h"

#include <gmock/gmock.h>

#include <climits>
#include <fstream>
#include <iterator>
#include <limits>

namespace
{

using namespace BTL;
using Classes::TStringList;
using System::Int64;
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

TEST(StringIdPairListTest, KeepsIdsOnLines)
{
    TStringList list;
    AddStringIdPair(&list, u"a", 0);
    AddStringIdPair(&list, u"b", std::numeric_limits<Int64>::max());
    EXPECT_TRUE(list.getOwnsObjects());
    EXPECT_EQ(GetIdAt(&list, 0), 0);
    EXPECT_EQ(GetIdAt(&list, 1), std::numeric_limits<Int64>::max());
    EXPECT_EQ(GetIdAt(&list, -1), 0);
    EXPECT_EQ(GetIdAt(nullptr, 0), 0);
    EXPECT_THROW(GetIdAt(&list, 2), Classes::EStringListError);
    EXPECT_THROW(SetIdAt(&list, 2, 1), Classes::EStringListError);
    SetIdAt(&list, 0, 4);
    SetIdAt(&list, 1, 5);
    EXPECT_EQ(GetIdAt(&list, 0), 4);
    EXPECT_EQ(GetIdAt(&list, 1), 5);

    TStringList foreign;
    System::TObject object;
    foreign.AddObject(u"x", &object);
    EXPECT_EQ(GetIdAt(&foreign, 0), 0);
    SetIdAt(&foreign, 0, 6);
    EXPECT_EQ(GetIdAt(&foreign, 0), 6);

    // Each of the lists destroys its own ids.
    TStringIdPairList pairs;
    pairs.Assign(&list);
    pairs.AddStrings(&foreign);
    pairs.AddStrings(&pairs);
    pairs.setSorted(true);
    pairs.AddStringIdPair(u"a", 9);
    EXPECT_EQ(pairs.getCommaText(), u"a,a,b,b,x,x");
    EXPECT_EQ(pairs.getId(0), 4);
    pairs.setId(0, 8);
    EXPECT_EQ(pairs.getId(0), 8);
    EXPECT_EQ(GetIdAt(&list, 0), 4);
}

/// The sanitizers watch that each id is destroyed once.
TEST(StringIdPairListTest, HandlersThatRaiseLeaveTheListWhole)
{
    TStringList list;
    const auto raise = [](System::TObject*) { throw Sysutils::EAbort("handler"); };
    list.setOnChange(raise);
    EXPECT_THROW(AddStringIdPair(&list, u"a", 1), Sysutils::EAbort);
    EXPECT_EQ(GetIdAt(&list, 0), 1) << "added by then";
    list.setOnChange([&](System::TObject*) {
        if (list.getCount() > 1) {
            list.Delete(1);
        }
    });
    AddStringIdPair(&list, u"b", 2);
    EXPECT_EQ(list.getCount(), 1) << "deleted at once";
    list.setOnChange({});
    list.Add(u"c");
    list.setOnChange(raise);
    EXPECT_THROW(SetIdAt(&list, list.getCount() - 1, 3), Sysutils::EAbort);
    EXPECT_EQ(GetIdAt(&list, list.getCount() - 1), 3);
    list.setOnChange({});
    list.setOnChanging(raise);
    const int count = list.getCount();
    EXPECT_THROW(AddStringIdPair(&list, u"d", 4), Sysutils::EAbort);
    EXPECT_EQ(list.getCount(), count);

    TStringList sorted;
    sorted.setSorted(true);
    AddStringIdPair(&sorted, u"a", 1);
    AddStringIdPair(&sorted, u"A", 2);
    sorted.setDuplicates(Classes::dupError);
    EXPECT_THROW(AddStringIdPair(&sorted, u"a", 3), Classes::EStringListError);
    EXPECT_EQ(sorted.getCount(), 1);
    EXPECT_EQ(GetIdAt(&sorted, 0), 1);

    System::TObject object;
    TStringList foreign;
    foreign.AddObject(u"x", &object);
    EXPECT_THROW(SetIdAt(&foreign, 5, 1), Classes::EStringListError);
    EXPECT_FALSE(foreign.getOwnsObjects()) << "nothing was given to it";
}

TEST(StringIdPairListTest, TakesManyLinesAtOnce)
{
    constexpr int count = 200'000;
    TStringIdPairList source;
    for (int i = 0; i < count; ++i) {
        source.AddStringIdPair(UnicodeString(count - i), i);
    }
    TStringIdPairList sorted;
    sorted.setSorted(true);
    sorted.AddStringIdPair(u"1", 7);
    sorted.AddStrings(&source);
    EXPECT_EQ(sorted.getCount(), count) << "one line was there";
    EXPECT_EQ(sorted.getId(sorted.IndexOf(u"1")), 7);
    EXPECT_EQ(sorted.getId(sorted.IndexOf(u"2")), count - 2);
    EXPECT_EQ(sorted.getObjects(sorted.IndexOf(UnicodeString(count))), nullptr) << "the id 0";
    sorted.setDuplicates(Classes::dupError);
    EXPECT_THROW(sorted.AddStrings(&source), Classes::EStringListError);
    EXPECT_EQ(sorted.getCount(), count);
}

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

TEST(IntSetTest, FindsTheNextFreeValue)
{
    const struct
    {
        std::vector<int> values;
        int start;
        int free;
    } cases[] = {
        {{}, 5, 5},
        {{1, 2, 4}, 1, 3},
        {{1, 2, 4}, 5, 5},
        {{1, 2, 4}, 4, 5},
        {{1, 2, 4}, 0, 0},
        {{1, 2}, 1, 3},
        {{1, 2}, 9, 3},
        {{-2, -1, 0}, -2, 1},
        {{1, INT_MAX}, 1, 2},
        {{INT_MIN, INT_MAX}, INT_MIN, INT_MIN + 1},
        {{INT_MAX - 1, INT_MAX}, INT_MAX - 1, INT_MAX - 2},
        {{INT_MAX}, INT_MAX, INT_MAX - 1},
    };
    for (const auto& test : cases) {
        const CIntSet set(test.values.data(), static_cast<int>(test.values.size()));
        EXPECT_EQ(set.NextFreeValue(test.start), test.free) << testing::PrintToString(test.values);
    }
    EXPECT_FALSE(CIntSet(nullptr, 3).Contains(0));
}

TEST(IntSetTest, SavesItsValues)
{
    const Support::TempFolder folder;
    const auto path = folder.Path() / "set.txt";
    const UnicodeString name = Sysutils::FromHostPath(path.string());
    const auto content = [&] {
        std::ifstream file(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    const int values[] = {3, 1, 2};
    CIntSet(values, 3).SaveToFile(name);
    EXPECT_EQ(content(), "1,2,3");
    const Int64 wide[] = {std::numeric_limits<Int64>::min(), 0};
    CInt64Set(wide, 2).SaveToFile(name);
    EXPECT_EQ(content(), "-9223372036854775808,0");
    CIntSet().SaveToFile(name);
    EXPECT_EQ(content(), "");
    EXPECT_THROW(CIntSet().SaveToFile(name + u"\\x"), Classes::EFCreateError);
}

} // namespace
