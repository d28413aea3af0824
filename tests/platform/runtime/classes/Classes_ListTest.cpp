// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_List.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace
{

using Classes::EListError;
using Classes::TList;

/// Items that are told apart by their numbers, and a list that tells what happens to them.
class ListTest : public testing::Test
{
protected:
    class TToldList : public TList
    {
    public:
        std::string log;

    protected:
        void Notify(void* item, Classes::TListNotification action) override
        {
            log += "+x-"[action] + std::to_string(*static_cast<int*>(item));
        }
    };

    void* Item(std::size_t number) { return &mNumbers[number]; }
    /// The numbers of the items; "." for null.
    std::string Items() const
    {
        std::string text;
        for (const void* item : mList) {
            text += item == nullptr ? "." : std::to_string(*static_cast<const int*>(item));
        }
        return text;
    }
    void Fill(std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i) {
            mList.Add(Item(i));
        }
        mList.log.clear();
    }

    std::array<int, 10> mNumbers{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    TToldList mList;
};

TEST_F(ListTest, AddsInsertsAndMoves)
{
    EXPECT_EQ(mList.Add(Item(1)), 0);
    EXPECT_EQ(mList.Add(Item(2)), 1);
    mList.Insert(0, Item(0));
    mList.Insert(3, Item(3));
    EXPECT_EQ(Items(), "0123");
    mList.Move(0, 2);
    EXPECT_EQ(Items(), "1203");
    mList.Move(3, 1);
    EXPECT_EQ(Items(), "1320");
    mList.Exchange(0, 3);
    EXPECT_EQ(Items(), "0321");
    EXPECT_EQ(mList.First(), Item(0));
    EXPECT_EQ(mList.Last(), Item(1));
    EXPECT_EQ(mList.IndexOf(Item(2)), 2);
    EXPECT_EQ(mList.IndexOf(Item(9)), -1);
}

TEST_F(ListTest, TellsWhatBecomesOfItsItems)
{
    Fill(4);
    EXPECT_EQ(mList.Remove(Item(1)), 1);
    EXPECT_EQ(mList.Remove(Item(1)), -1);
    EXPECT_EQ(mList.Extract(Item(0)), Item(0));
    EXPECT_EQ(mList.Extract(Item(0)), nullptr);
    mList.setItems(0, Item(7));
    mList.setItems(0, Item(7));
    EXPECT_EQ(mList.log, "-1x0-2+7");
    EXPECT_EQ(Items(), "73");
    mList.log.clear();
    mList.Clear();
    EXPECT_EQ(mList.log, "-3-7");
}

TEST_F(ListTest, PacksAwayWhatIsNull)
{
    Fill(2);
    mList.setCount(4);
    mList.Insert(1, nullptr);
    EXPECT_EQ(Items(), "0.1..");
    mList.Pack();
    EXPECT_EQ(Items(), "01");
    EXPECT_EQ(mList.log, "");
    mList.setCount(1);
    EXPECT_EQ(mList.log, "-1");
}

TEST_F(ListTest, SortsWithoutTheTrustOfItsOrder)
{
    Fill(10);
    mList.Sort([](void* a, void* b) { return *static_cast<int*>(b) % 3 - *static_cast<int*>(a) % 3; });
    EXPECT_EQ(Items(), "2581470369");
    mList.Sort([](void*, void*) { return -1; });
    EXPECT_EQ(mList.getCount(), 10);
}

TEST_F(ListTest, RefusesWhatIsOutOfRange)
{
    Fill(2);
    for (const int index : {-1, 2, 2147483647}) {
        SCOPED_TRACE(index);
        EXPECT_THROW(mList.getItems(index), EListError);
        EXPECT_THROW(mList.setItems(index, nullptr), EListError);
        EXPECT_THROW(mList.Delete(index), EListError);
        EXPECT_THROW(mList.Exchange(0, index), EListError);
        EXPECT_THROW(mList.Move(0, index), EListError);
        EXPECT_THROW(mList.Insert(index == 2 ? 3 : index, nullptr), EListError);
    }
    EXPECT_THROW(mList.setCount(-1), EListError);
    EXPECT_THROW(mList.setCapacity(1), EListError);
    EXPECT_THROW(TList().First(), EListError);
    EXPECT_EQ(Items(), "01");
}

TEST_F(ListTest, TakesOverAnotherOne)
{
    Fill(3);
    TList other;
    other.Add(Item(8));
    mList.Assign(&other);
    EXPECT_EQ(mList.log, "-2-1-0+8");
    mList.Assign(&mList);
    EXPECT_EQ(Items(), "8");
    mList.Assign(nullptr);
    EXPECT_EQ(Items(), "");
}

} // namespace
