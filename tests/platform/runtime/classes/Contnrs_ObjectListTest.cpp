// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Contnrs_ObjectList.h"

#include "platform/runtime/classes/Classes_StringList.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using Contnrs::TObjectList;

/// An object that counts those that are alive.
class TCounted : public System::TObject
{
public:
    explicit TCounted(int& count) : mCount(count) { ++mCount; }
    TCounted(const TCounted&) = delete;
    TCounted& operator=(const TCounted&) = delete;
    ~TCounted() override { --mCount; }

private:
    int& mCount;
};

TEST(ObjectListTest, DestroysWhatItOwns)
{
    int alive = 0;
    {
        TObjectList list;
        for (int i = 0; i < 5; ++i) {
            list.Add(new TCounted(alive));
        }
        list.Delete(0);
        list.Remove(list.Last());
        list.setItems(0, new TCounted(alive));
        EXPECT_EQ(alive, 3);
        const std::unique_ptr<System::TObject> extracted(list.Extract(list.First()));
        list.setCount(1);
        EXPECT_EQ(alive, 2);
    }
    EXPECT_EQ(alive, 0);
}

TEST(ObjectListTest, LeavesAloneWhatItDoesNotOwn)
{
    int alive = 0;
    TCounted object(alive);
    {
        TObjectList list(false);
        list.Add(&object);
        list.Add(&object);
        list.Delete(0);
    }
    EXPECT_EQ(alive, 1);
}

TEST(ObjectListTest, FindsObjectsByTheirClass)
{
    TObjectList list;
    list.Add(new Classes::TList);
    list.Add(new TObjectList);
    list.Add(nullptr);
    list.Add(new Classes::TStringList);
    const auto* const plain = System::ClassOf<Classes::TList>();
    EXPECT_EQ(list.FindInstanceOf(plain), 0);
    EXPECT_EQ(list.FindInstanceOf(plain, true, 1), -1);
    EXPECT_EQ(list.FindInstanceOf(plain, false, 1), 1);
    EXPECT_EQ(list.FindInstanceOf(System::ClassOf<Classes::TStrings>(), false, -5), 3);
}

} // namespace
