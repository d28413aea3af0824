// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_StringList.h"

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/runtime/classes/Classes_StringsSupport.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "support/MemoryLimit.h"

#include <algorithm>
#include <climits>
#include <map>
#include <memory>
#include <random>
#include <utility>

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
        EXPECT_THROW(list.At(index), EStringListError);
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

/// Where the line goes in a list that is sorted, with case or without.
Lines::iterator PlaceOf(Lines& lines, const UnicodeString& text, bool caseSensitive)
{
    return std::ranges::lower_bound(lines, text, [caseSensitive](const auto& a, const auto& b) {
        return (caseSensitive ? Sysutils::AnsiCompareStr(a, b) : Sysutils::AnsiCompareText(a, b)) < 0;
    });
}

// So many lines that a list doesn't move all of them for each that comes.
TEST(StringListTest, SortedListsAreFilledAndChangedInAnyOrder)
{
    for (const TDuplicates duplicates : {dupIgnore, dupAccept, dupError}) {
        SCOPED_TRACE(duplicates);
        std::mt19937 random(static_cast<unsigned>(duplicates) + 1);
        TStringList list;
        list.setCaseSensitive(true);
        list.setDuplicates(duplicates);
        list.setSorted(true);
        Lines model;
        const auto add = [&](const UnicodeString& text) {
            const auto place = PlaceOf(model, text, true);
            const int index = static_cast<int>(place - model.begin());
            const bool isThere = place != model.end() && *place == text;
            if (isThere && duplicates == dupError) {
                EXPECT_THROW(list.Add(text), EStringListError);
                return;
            }
            EXPECT_EQ(list.Add(text), index);
            if (!isThere || duplicates == dupAccept) {
                model.insert(place, text);
            }
        };
        for (int step = 0; step < 2'500; ++step) {
            const UnicodeString text = u"line " + UnicodeString(static_cast<int>(random() % 50'000));
            const auto index = static_cast<int>(random() % (model.size() + 1));
            const auto at = model.begin() + index;
            switch (random() % 1'000) {
            case 0:
                if (at != model.end()) {
                    list.Delete(index);
                    model.erase(at);
                }
                break;
            case 1:
                list.DeleteRange(index, 3);
                model.erase(at, at + std::min<std::ptrdiff_t>(3, model.end() - at));
                break;
            case 2:
                list.DeleteAll(text);
                std::erase(model, text);
                break;
            case 3:
                list.setSorted(false);
                list.Add(u"a line at the end");
                list.setSorted(true);
                model.insert(PlaceOf(model, u"a line at the end", true), u"a line at the end");
                break;
            default:
                add(text);
            }
            ASSERT_EQ(list.getCount(), static_cast<int>(model.size()));
            ASSERT_GE(list.getCapacity(), list.getCount());
            int found = 0;
            const auto place = PlaceOf(model, text, true);
            ASSERT_EQ(list.Find(text, found), place != model.end() && *place == text);
            ASSERT_EQ(found, place - model.begin());
            if (index < list.getCount()) {
                ASSERT_EQ(list.At(index), model[static_cast<std::size_t>(index)]);
            }
        }
        add(u"line 1");
        EXPECT_EQ(LinesOf(list), model);
        list.setCaseSensitive(false);
        Lines more = {u"LINE 1", u"Line 3", u"z"};
        if (duplicates == dupError) {
            EXPECT_THROW(list.AddStrings(more), EStringListError);
        } else {
            list.AddStrings(more);
        }
        for (const UnicodeString& line : more) {
            const auto place = PlaceOf(model, line, false);
            if (duplicates == dupAccept || place == model.end() || !Sysutils::AnsiSameText(*place, line)) {
                model.insert(place, line);
            }
        }
        ASSERT_EQ(list.getCount(), static_cast<int>(model.size()));
        EXPECT_TRUE(std::ranges::is_sorted(
            LinesOf(list), [](const auto& a, const auto& b) { return Sysutils::AnsiCompareText(a, b) < 0; }));
        list.Clear();
        EXPECT_EQ(list.getCount(), 0);
    }
}

TEST(StringListTest, SortedListsKeepObjectsWithTheirLines)
{
    int alive = 0;
    constexpr int count = 3'000;
    {
        TStringList list(true);
        list.setSorted(true);
        std::map<UnicodeString, TObject*> objects;
        for (int i = 0; i < count; ++i) {
            const UnicodeString text(i * 7919 % count + 10'000);
            objects[text] = new Counted(alive);
            list.AddObject(text, objects[text]);
        }
        for (int i = 0; i < count; ++i) {
            EXPECT_EQ(list.getObjects(i), objects[list.getStrings(i)]);
        }
        list.Exchange(0, count - 1);
        EXPECT_EQ(list.getObjects(0), objects[UnicodeString(count - 1 + 10'000)]);
        list.Exchange(0, count - 1);
        auto* const other = new Counted(alive);
        const std::unique_ptr<TObject> former(list.getObjects(5));
        list.setObjects(5, other);
        EXPECT_EQ(list.getObjects(5), other);
    }
    EXPECT_EQ(alive, 0);
}

TEST(StringListTest, SortedListsMayChangeWhileTheyTellOfIt)
{
    TStringList list;
    list.setSorted(true);
    for (int i = 0; i < 2'000; ++i) {
        list.Add(UnicodeString(i * 7 % 2'000 + 10'000));
    }
    bool isInside = false;
    list.setOnChanging([&](TObject*) {
        if (!std::exchange(isInside, true)) {
            list.DeleteRange(10, INT_MAX);
        }
    });
    EXPECT_EQ(list.Add(u"10500 and more"), 501) << "the place that was found";
    EXPECT_EQ(list.getCount(), 11);
    EXPECT_EQ(list[10], u"10500 and more");
    list.setOnChanging([&](TObject*) { list.setSorted(false); });
    list.Add(u"00000");
    list.Insert(3, u"x");
    EXPECT_EQ(list[0], u"00000");
    EXPECT_EQ(list[3], u"x");
}

} // namespace
