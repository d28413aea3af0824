// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_StringList.h"

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/classes/Classes_StringsSupport.h"
#include "support/MemoryLimit.h"

#include <climits>
#include <random>

#include <gmock/gmock.h>

using namespace Classes;
using namespace Support;
using System::TObject;
using System::UnicodeString;
using System::WideChar;
using testing::ElementsAre;

namespace
{

class Counted : public TObject
{
public:
    explicit Counted(int& alive) : mAlive(alive) { ++mAlive; }
    ~Counted() override { --mAlive; }

private:
    int& mAlive;
};

TEST(StringListTest, SortedListsTakeTextsInOneGo)
{
    UnicodeString text;
    for (int i = 0; i < 5'000; ++i) {
        text += u"line 1234\r\n";
    }
    TStringList list;
    list.setSorted(true);
    list.setText(text);
    EXPECT_EQ(list.getCount(), 1);
}

TEST(StringListTest, IndicesOutOfRangeRaise)
{
    TStringList list;
    Fill(list, {u"a", u"b"});
    for (const int index : {-1, 2, INT_MAX, INT_MIN}) {
        EXPECT_THROW(list.getStrings(index), EStringListError);
        EXPECT_THROW(list[index], EStringListError);
        EXPECT_THROW(list.setStrings(index, u"x"), EStringListError);
        EXPECT_THROW(list.getObjects(index), EStringListError);
        EXPECT_THROW(list.setObjects(index, nullptr), EStringListError);
        EXPECT_THROW(list.Delete(index), EStringListError);
        EXPECT_THROW(list.Exchange(0, index), EStringListError);
        EXPECT_THROW(list.Move(index, 0), EStringListError);
        EXPECT_THROW(list.Move(0, index), EStringListError);
        EXPECT_THROW(list.getNames(index), EStringListError);
    }
    EXPECT_THROW(list.Insert(3, u"x"), EStringListError);
    EXPECT_THROW(list.setCapacity(1), EStringListError);
    EXPECT_THAT(LinesOf(list), ElementsAre(u"a", u"b"));
    try {
        list.Delete(7);
        FAIL();
    } catch (const EStringListError& error) {
        EXPECT_EQ(error.getMessage(), u"List index out of bounds (7)");
    }
}

TEST(StringListTest, EditsLinesWithTheirObjects)
{
    TStringList list;
    TObject a;
    TObject b;
    list.AddObject(u"a", &a);
    list.Insert(0, u"x");
    list.InsertObject(2, u"b", &b);
    list.Move(2, 0);
    EXPECT_THAT(LinesOf(list), ElementsAre(u"b", u"x", u"a"));
    EXPECT_EQ(list.getObjects(0), &b);
    list.Exchange(0, 2);
    EXPECT_EQ(list.getObjects(0), &a);
    EXPECT_EQ(list.IndexOfObject(&b), 2);
    list.setStrings(2, u"c");
    EXPECT_EQ(list.getObjects(2), &b);
    list.AddStrings(&list);
    EXPECT_EQ(list.getCount(), 6);
    EXPECT_EQ(list.getObjects(5), &b);
    list.AddStrings(nullptr);
    EXPECT_EQ(list.IndexOfObject(&list), -1);

    TStringList copy;
    copy.Assign(&list);
    EXPECT_TRUE(copy.Equals(&list));
    EXPECT_EQ(copy.getObjects(2), &b);
    copy.Assign(&copy);
    EXPECT_TRUE(copy.Equals(&list));
    copy.setStrings(0, u"A");
    EXPECT_FALSE(copy.Equals(&list)) << "compared exactly";
    TComponent other;
    EXPECT_THROW(copy.Assign(&other), Sysutils::EConvertError);
}

TEST(StringListTest, DestroysTheObjectsItOwns)
{
    int alive = 0;
    {
        TStringList list(true);
        for (int i = 0; i < 6; ++i) {
            list.AddObject(UnicodeString(i), new Counted(alive));
        }
        list.Add(u"none");
        list.Delete(0);
        EXPECT_EQ(alive, 5);
        list.Move(0, 3);
        list.Exchange(0, 1);
        list.Sort();
        list.setStrings(1, u"other");
        EXPECT_EQ(alive, 5);
        list.setText(u"x");
        EXPECT_EQ(alive, 0);
        list.AddObject(u"y", new Counted(alive));
    }
    EXPECT_EQ(alive, 0);
}

TEST(StringListTest, DeletesManyLinesAtOnce)
{
    int alive = 0;
    TStringList list(true);
    for (const WideChar* const line : {u"a", u"B", u"c", u"b", u"d", u"b", u"e"}) {
        list.AddObject(line, new Counted(alive));
    }
    list.DeleteAll(u"b");
    EXPECT_THAT(LinesOf(list), ElementsAre(u"a", u"c", u"d", u"e"));
    EXPECT_EQ(alive, 4);
    list.DeleteAll(u"x");
    list.DeleteRange(1, 2);
    EXPECT_THAT(LinesOf(list), ElementsAre(u"a", u"e"));
    list.DeleteRange(0, 0);
    list.DeleteRange(0, INT_MIN);
    list.DeleteRange(INT_MAX - 1, INT_MAX);
    EXPECT_THROW(list.DeleteRange(-1, 1), EStringListError);
    EXPECT_EQ(list.getCount(), 2);
    list.DeleteRange(1, INT_MAX);
    EXPECT_THAT(LinesOf(list), ElementsAre(u"a"));
    EXPECT_EQ(alive, 1);
}

TEST(StringListTest, SortedListsKeepTheirOrder)
{
    TStringList list;
    Fill(list, {u"b", u"C", u"ä", u"a", u"Z"});
    list.setSorted(true);
    EXPECT_THAT(LinesOf(list), ElementsAre(u"a", u"ä", u"b", u"C", u"Z")) << "by the language's order";
    EXPECT_EQ(list.Add(u"B"), 2) << "ignored: there already";
    EXPECT_EQ(list.Add(u"ba"), 3);
    int index = 0;
    EXPECT_TRUE(list.Find(u"c", index));
    EXPECT_EQ(index, 4);
    EXPECT_FALSE(list.Find(u"m", index));
    EXPECT_EQ(index, 5);
    EXPECT_EQ(list.IndexOf(u"z"), 5);
    EXPECT_THROW(list.Insert(0, u"x"), EStringListError);
    EXPECT_THROW(list.setStrings(0, u"x"), EStringListError);
    EXPECT_THROW(list.Move(0, 1), EStringListError);
    EXPECT_EQ(list.getCount(), 6) << "a refusal loses nothing";
}

TEST(StringListTest, DuplicatesAreAcceptedOrRefused)
{
    TStringList list;
    list.setSorted(true);
    list.setDuplicates(dupError);
    list.Add(u"a");
    try {
        list.Add(u"A");
        FAIL();
    } catch (const EStringListError& error) {
        EXPECT_EQ(error.getMessage(), u"String list does not allow duplicates");
    }
    EXPECT_THROW(list.setCommaText(u"b,a,B"), EStringListError);
    EXPECT_THAT(LinesOf(list), ElementsAre(u"a", u"b"));
    list.setDuplicates(dupAccept);
    list.setCommaText(u"b,a,B");
    EXPECT_THAT(LinesOf(list), ElementsAre(u"a", u"b", u"B"));
    list.Add(u"b");
    EXPECT_EQ(list.IndexOf(u"B"), 1) << "the first of them";
    list.setDuplicates(dupIgnore);
    TStringList more;
    Fill(more, {u"c", u"A", u"c", u"b"});
    list.AddStrings(&more);
    EXPECT_EQ(list.getCount(), 5);
    EXPECT_EQ(list[4], u"c");
}

TEST(StringListTest, CaseCountsIfTold)
{
    TStringList list;
    Fill(list, {u"b", u"A", u"a", u"B"});
    EXPECT_EQ(list.IndexOf(u"B"), 0);
    EXPECT_EQ(list.IndexOf(u"Ä"), -1);
    list.setCaseSensitive(true);
    EXPECT_EQ(list.IndexOf(u"B"), 3);
    list.setSorted(true);
    EXPECT_EQ(list.IndexOf(u"A"), list.IndexOf(u"a") + 1);
    list.Add(u"A");
    EXPECT_EQ(list.getCount(), 4);
    // What a language takes for the same, such as control characters, is not the same line.
    list.Add(u"a\x01");
    list.Add(WithZero());
    list.Add(u"ab");
    EXPECT_EQ(list.getCount(), 7);
    EXPECT_GE(list.IndexOf(WithZero()), 0);
}

TEST(StringListTest, SortsByACallersOrder)
{
    TStringList list;
    Fill(list, {u"ccc", u"a", u"bb", u"dd"});
    list.CustomSort(
        [](TStringList* lines, int a, int b) { return (*lines)[b].Length() - (*lines)[a].Length(); });
    EXPECT_THAT(LinesOf(list), ElementsAre(u"ccc", u"bb", u"dd", u"a"));
    list.CustomSort([](TStringList*, int, int) { return -1; });
    EXPECT_EQ(list.getCount(), 4) << "an order that is none loses no line";
    list.CustomSort({});
}

UnicodeString ManyLines(int count)
{
    UnicodeString text;
    for (int i = 0; i < count; ++i) {
        text += UnicodeString(i) + u"\r\n";
    }
    return text;
}

TEST(StringListTest, LosesNoLineByAnOrderThatContradictsItself)
{
    std::mt19937 random(1);
    const TStringListSortCompare orders[] = {
        [](TStringList*, int, int) { return -1; },
        [](TStringList*, int a, int b) { return a % 3 - b % 2 - 1; },
        [&](TStringList*, int, int) { return static_cast<int>(random() % 3) - 1; },
    };
    for (const TStringListSortCompare& order : orders) {
        TStringList list;
        list.setText(ManyLines(1'000));
        list.CustomSort(order);
        list.Sort();
        TStringList expected;
        expected.setText(ManyLines(1'000));
        expected.Sort();
        EXPECT_EQ(list.getText(), expected.getText());
    }
}

/// A list whose order changes from look to look.
class RestlessList : public TStringList
{
protected:
    int CompareStrings(const UnicodeString&, const UnicodeString&) const override
    {
        return static_cast<int>(mRandom() % 3) - 1;
    }

private:
    mutable std::mt19937 mRandom{2};
};

TEST(StringListTest, LosesNoLineByAnOwnOrderThatContradictsItself)
{
    RestlessList list;
    list.setDuplicates(dupAccept);
    for (int i = 0; i < 20; ++i) {
        list.setSorted(false);
        list.setText(ManyLines(200));
        list.setSorted(true);
        list.AddStrings({u"a", u"b", u"c"});
        list.Add(u"d");
        EXPECT_EQ(list.getCount(), 204);
    }
}

TEST(StringListTest, GivesOneNoticeForAnUpdate)
{
    TStringList list;
    int changing = 0;
    int changed = 0;
    list.setOnChanging([&](TObject*) { ++changing; });
    list.setOnChange([&](TObject* sender) {
        EXPECT_EQ(sender, &list);
        ++changed;
    });
    list.Add(u"a");
    EXPECT_EQ(changing, 1);
    EXPECT_EQ(changed, 1);
    list.setCommaText(u"a,b,c");
    EXPECT_EQ(changed, 2);
    list.BeginUpdate();
    list.BeginUpdate();
    list.Add(u"d");
    list.EndUpdate();
    EXPECT_EQ(changed, 2);
    list.EndUpdate();
    EXPECT_EQ(changed, 3);
    EXPECT_EQ(changing, 3);
    list.EndUpdate();
    EXPECT_EQ(changed, 3) << "one end too many";
    list.setSorted(true);
    list.setDuplicates(dupError);
    EXPECT_THROW(list.setCommaText(u"x,x"), EStringListError);
    EXPECT_FALSE(list.IsUpdating());
    list.Clear();
    const int before = changed;
    list.Clear();
    EXPECT_EQ(changed, before) << "nothing to clear";
}

TEST(StringListTest, HoldsWhatItsBracesHold)
{
    TStringList list{u"pear", "fig"};
    EXPECT_EQ(list.getCommaText(), u"pear,fig");
    list.setSorted(true);
    list.AddStrings({u"apple", u"fig"});
    EXPECT_EQ(list.getCommaText(), u"apple,fig,pear");
    EXPECT_EQ(TStringList{}.getCount(), 0);
    EXPECT_TRUE(TStringList{true}.getOwnsObjects());
}

using StringListMemoryTest = Support::OutOfMemoryTest;

TEST_F(StringListMemoryTest, RaisesForTooMuchRoom)
{
    EXPECT_TRUE(Support::RaisesOutOfMemory([] { TStringList().setCapacity(INT_MAX); }));
}

} // namespace
