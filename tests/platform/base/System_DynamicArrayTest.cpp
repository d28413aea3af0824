// SPDX-License-Identifier: MIT
#include "platform/base/System_DynamicArray.h"

#include "platform/base/System_String.h"
#include "platform/base/Sysutils_Exception.h"
#include "support/MemoryLimit.h"

#include <array>
#include <climits>
#include <memory>
#include <thread>

#include <gmock/gmock.h>

namespace
{

using System::DynamicArray;
using System::UnicodeString;
using testing::ElementsAre;

TEST(DynamicArrayTest, CopiesShareUntilTheLengthChanges)
{
    DynamicArray<int> a{1, 2, 3};
    DynamicArray<int> b = a;
    b[0] = 9;
    EXPECT_EQ(a[0], 9);

    b.set_length(4);
    b[0] = 5;
    EXPECT_THAT(a, ElementsAre(9, 2, 3));
    EXPECT_THAT(b, ElementsAre(5, 2, 3, 0));

    // Also one that keeps the length parts the arrays.
    DynamicArray<int> c = a;
    c.set_length(3);
    c[1] = 7;
    EXPECT_EQ(a[1], 2);

    a.set_length(0);
    EXPECT_THAT(a, ElementsAre());
    EXPECT_EQ(a.High(), -1);
}

TEST(DynamicArrayTest, CopyMakesElementsOfItsOwn)
{
    const DynamicArray<UnicodeString> a{u"a", u"b", u"c"};
    DynamicArray<UnicodeString> all = a.Copy();
    all[0] = u"x";
    EXPECT_EQ(a[0], u"a");

    EXPECT_THAT(a.CopyRange(1, 1), ElementsAre(u"b"));
    EXPECT_THAT(a.CopyRange(-5, 2), ElementsAre(u"a", u"b"));
    EXPECT_THAT(a.CopyRange(2, INT_MAX), ElementsAre(u"c"));
    EXPECT_THAT(a.CopyRange(INT_MAX, INT_MAX), ElementsAre());
    EXPECT_THAT(a.CopyRange(0, -1), ElementsAre());
}

TEST(DynamicArrayTest, RaisesOutsideItsBounds)
{
    DynamicArray<bool> a;
    EXPECT_THROW(a[0], Sysutils::ERangeError);
    a.set_length(2);
    EXPECT_FALSE(a[a.High()]);
    EXPECT_THROW(a[2], Sysutils::ERangeError);
    EXPECT_THROW(a[-1], Sysutils::ERangeError);
    EXPECT_THROW(a.set_length(-1), Sysutils::ERangeError);
    EXPECT_EQ(a.Length(), 2);
}

TEST(DynamicArrayTest, DestroysItsElementsOnceWhateverTheThread)
{
    const auto alive = std::make_shared<int>();
    {
        DynamicArray<std::shared_ptr<int>> a{alive, alive};
        std::array<std::thread, 4> threads;
        for (std::thread& thread : threads) {
            thread = std::thread([copy = a]() mutable {
                for (int n = 0; n < 1000; ++n) {
                    DynamicArray<std::shared_ptr<int>> other = copy;
                    other.set_length(3);
                }
                copy.set_length(1);
            });
        }
        a = {};
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
    EXPECT_EQ(alive.use_count(), 1);
}

using DynamicArrayMemoryTest = Support::OutOfMemoryTest;

TEST_F(DynamicArrayMemoryTest, RaisesForTooManyElements)
{
    EXPECT_TRUE(Support::RaisesOutOfMemory([] { DynamicArray<int>().set_length(INT_MAX); }));
    EXPECT_TRUE(Support::RaisesOutOfMemory([] { DynamicArray<UnicodeString>{u"a"}.set_length(INT_MAX); }));
}

} // namespace
