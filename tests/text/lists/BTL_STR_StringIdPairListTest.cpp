// SPDX-License-Identifier: MIT
#include "text/lists/BTL_STR_StringIdPairList.h"
#include "platform/runtime/classes/Classes.h"

#include <limits>

#include <gmock/gmock.h>

namespace
{

using namespace BTL;
using Classes::TStringList;
using System::Int64;
using System::UnicodeString;

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

/// In the order of the codes, which costs little to ask for.
class OrdinalPairs : public TStringIdPairList
{
public:
    ~OrdinalPairs() override = default;

protected:
    int CompareStrings(const UnicodeString& a, const UnicodeString& b) const override { return a.Compare(b); }
};

TEST(StringIdPairListTest, TakesManyLinesAtOnce)
{
    constexpr int count = 100'000;
    TStringIdPairList source;
    for (int i = 0; i < count; ++i) {
        source.AddStringIdPair(UnicodeString(count - i), i);
    }
    OrdinalPairs sorted;
    sorted.setSorted(true);
    sorted.AddStringIdPair(u"1", 7);
    sorted.AddStrings(&source);
    EXPECT_EQ(sorted.getCount(), count) << "one line was there";
    EXPECT_EQ(sorted.getId(sorted.IndexOf(u"1")), 7);
    EXPECT_EQ(sorted.getId(sorted.IndexOf(u"2")), count - 2);
    EXPECT_EQ(sorted.getObjects(sorted.IndexOf(UnicodeString(count))), nullptr) << "the id 0";
}

TEST(StringIdPairListTest, RefusedLinesLeaveNoIds)
{
    TStringIdPairList source;
    TStringIdPairList sorted;
    sorted.setSorted(true);
    for (int i = 1; i <= 20; ++i) {
        source.AddStringIdPair(UnicodeString(i), i);
        sorted.AddStringIdPair(UnicodeString(i), -i);
    }
    sorted.setDuplicates(Classes::dupError);
    EXPECT_THROW(sorted.AddStrings(&source), Classes::EStringListError);
    EXPECT_EQ(sorted.getCount(), 20);
    EXPECT_EQ(sorted.getId(sorted.IndexOf(u"7")), -7);
}

} // namespace
