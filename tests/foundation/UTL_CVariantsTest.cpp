// SPDX-License-Identifier: MIT
#include "foundation/UTL_CVariants.h"

#include "foundation/VariantsSupport.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/System_DateTime.h"
#include "platform/runtime/variants/Variants.h"
#include "support/FormatSettingsGuard.h"
#include "support/MemoryLimit.h"

#include <gtest/gtest.h>

#include <climits>
#include <ranges>

namespace
{

using Support::ArrayOf;
using Support::Written;
using System::AnsiString;
using System::Int64;
using System::TDateTime;
using System::UnicodeString;
using System::Variant;
using System::WideChar;
using UTL::CVariant;
using UTL::CVariants;

TEST(CVariantsTest, GathersItems)
{
    const int integers[] = {1, 2};
    const double floats[] = {0.5};
    CVariants list(integers, 2);
    list << true << 3 << Int64{4} << 1.5 << "a" << u"b" << UTL::CSimpleString("c") << AnsiString("d")
         << UnicodeString(u"e") << Variant(5) << CVariant() << TDateTime(0);
    EXPECT_EQ(list.GetCount(), 14);
    list.SetItems(floats, 1);
    list.AddItems(integers, 2);
    list.AddItems(floats, 1);
    list.AddItems(Variants::VarArrayOf({7, u"x"}));
    list.AddItems(Variant(8));
    EXPECT_EQ(Written(list), "[0.5,1,2,0.5,7,\"x\",8]");
    list.setItem(0, list.getItem(5));
    list << list.getItem(0);
    EXPECT_EQ(Written(list), "[\"x\",1,2,0.5,7,\"x\",8,\"x\"]");
    const CVariants copy(list);
    list.SetItems(Variants::VarArrayOf({1}));
    list.AddItems(static_cast<const int*>(nullptr), 3);
    EXPECT_EQ(Written(list), "[1]");
    EXPECT_EQ(copy.GetCount(), 8);
    EXPECT_THROW(list.AddItems(Variants::VarArrayOf({2, System::Byte{1}})), Sysutils::EVariantError);
    EXPECT_THROW(list.SetItems(Variant(System::Byte{1})), Sysutils::EVariantError);
    EXPECT_EQ(Written(list), "[1]");
    for (const int index : {-1, 1, INT_MAX}) {
        EXPECT_THROW(list.getItem(index), Sysutils::ERangeError);
        EXPECT_THROW(list.setItem(index, 1), Sysutils::ERangeError);
    }
    list << "b" << ArrayOf(CVariants(integers, 2));
    EXPECT_EQ(list.get_DebugInfo(), u"[3]; 1; b; ?");
    Variant array;
    list.GetItems(array);
    EXPECT_EQ(array.ArrayLowBound(), 0);
    EXPECT_EQ(array.ArrayHighBound(), 2);
    EXPECT_EQ(array.GetElement(1).As<UnicodeString>(), u"b");
    EXPECT_EQ(array.GetElement(2).GetElement(1).As<int>(), 2);
}

TEST(CVariantsTest, ReadsCommaTextInAnyLocale)
{
    const Support::FormatSettingsGuard guard;
    for (const WideChar separator : {u'.', u',', u';'}) {
        Sysutils::FormatSettings.DecimalSeparator = separator;
        const struct
        {
            const char16_t* text;
            const char* written;
        } cases[] = {
            {u"", "[]"},
            {uR"(1.5,abc,"a b")", R"([1.5,"abc","a b"])"},
            {uR"(-2,"1,5"," 1e3 ",1;5)", R"([-2,1.5,1000,"1;5"])"},
            {uR"("1.5,5","1,5.5",,inf,nan,1e999)", R"(["1.5,5","1,5.5","","inf","nan","1e999"])"},
        };
        for (const auto& test : cases) {
            CVariants list(3);
            list << "former";
            UTL::CommaTextToVariants(test.text, list);
            EXPECT_EQ(Written(list), test.written);
            EXPECT_EQ(Sysutils::FormatSettings.DecimalSeparator, separator);
        }
    }
}

TEST(CVariantsTest, HoldsWhatItsBracesHold)
{
    EXPECT_EQ(Written(CVariants{1, 2.5, u"a", "b", true, std::string("c")}), "[1,2.5,\"a\",\"b\",1,\"c\"]");
    EXPECT_EQ(CVariants{5}.GetCount(), 1);
    EXPECT_EQ(CVariants(5).GetCount(), 0) << "room alone";
    EXPECT_EQ(CVariants{}.GetCount(), 0);
    CVariants list;
    list = {1, 2};
    list << ArrayOf(CVariants{3});
    EXPECT_EQ(Written(list), "[1,2,[[3]]]");
}

TEST(CVariantsTest, CountsTheDepthOfWhatItsBracesHold)
{
    CVariants list;
    for (int depth = 2; depth < CVariants::MaxDepth; ++depth) {
        list = CVariants{ArrayOf(list)};
    }
    const CVariants deepest{ArrayOf(list)};
    EXPECT_THROW(CVariants() << ArrayOf(deepest), Sysutils::EVariantError);
    EXPECT_THROW(CVariants({1, ArrayOf(deepest)}), Sysutils::EVariantError);
}

TEST(CVariantsTest, CopiesChangeAlone)
{
    CVariants first{1, ArrayOf(CVariants{2, 3})};
    CVariants second = first;
    first.setItem(0, 9);
    CVariant inner = second.getItem(1);
    inner.SetItem(0, 8);
    second << inner;
    EXPECT_EQ(Written(first), "[9,[[2,3]]]");
    EXPECT_EQ(Written(second), "[1,[[2,3]],[[8,3]]]");
    const CVariants moved = std::move(second);
    EXPECT_EQ(moved.GetCount(), 3);
    EXPECT_TRUE(second.empty()); // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
    second << 1;
    EXPECT_EQ(second.GetCount(), 1);
}

TEST(CVariantsTest, ListsThatHoldOthersManyTimesCostWhatTheyShow)
{
    CVariant list = ArrayOf(CVariants{1});
    Variant array = Variants::VarArrayOf({1});
    // Each level twice as many items, if each of them was an own one.
    constexpr int levels = 200;
    for (int level = 0; level < levels; ++level) {
        list = ArrayOf(CVariants{list, list});
        array = Variants::VarArrayOf({array, array});
    }
    EXPECT_EQ(list.ToVariant(), array);
    CVariant read(array);
    for (int level = 0; level < levels; ++level) {
        ASSERT_EQ(read.GetCount(), 2);
        const CVariant item = read.GetItem(level % 2);
        read = item;
    }
    EXPECT_EQ(read.ToInt(), 1);
}

TEST(CVariantsTest, IsARangeOfItsItems)
{
    static_assert(std::ranges::random_access_range<const CVariants>);
    const CVariants list{1, 2, 3};
    EXPECT_EQ(list.size(), 3U);
    EXPECT_FALSE(list.empty());
    EXPECT_TRUE(CVariants().empty());
    int sum = 0;
    for (const CVariant& item : list) {
        sum += item.ToInt();
    }
    EXPECT_EQ(sum, 6);
}

using CVariantsMemoryTest = Support::OutOfMemoryTest;

TEST_F(CVariantsMemoryTest, RaisesForTooManyItems)
{
    EXPECT_TRUE(Support::RaisesOutOfMemory([] { const CVariants list(UINT_MAX); }));
}

} // namespace
