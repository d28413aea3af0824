// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_CVariants.h"
#include "foundation/UTL_CVariants.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/variants/Variants.h"
#include "support/FormatSettingsGuard.h"
#include "support/MemoryLimit.h"

#include <climits>
#include <gtest/gtest.h>

namespace
{

using namespace BTL;
using System::Int64;
using System::UnicodeString;
using System::Variant;
using Variants::Null;
using Variants::VarArrayOf;

CVariants ListOf(std::initializer_list<Variant> values)
{
    CVariants list;
    list.AssignArray(VarArrayOf(values));
    return list;
}

TEST(VariantListTest, TakesArraysAndFoundationLists)
{
    CVariants list = ListOf({1, u"x", 2.5});
    EXPECT_EQ(list.getVarArray(), VarArrayOf({1, u"x", 2.5}));
    list.setItem(1, Null());
    EXPECT_THROW(list.setItem(3, 0), Sysutils::ERangeError);
    EXPECT_THROW(list.setItem(-1, 0), Sysutils::ERangeError);
    EXPECT_EQ(list._getDebugInfo(), u"1;;2" + UnicodeString(Sysutils::DecimalSeparator) + u"5");
    EXPECT_THROW(list.AssignArray(Variant({0, 1, 0, 1}, System::varInteger)), Sysutils::EVariantError);

    UTL::CVariants other;
    other << u"former";
    list.GetVariants(other);
    list.AddVariantsTo(other);
    EXPECT_EQ(other.GetCount(), 6);
    EXPECT_EQ(other.getItem(2).ToDouble(), 2.5);
    EXPECT_EQ(CVariants(other).size(), 6U);
    list.AssignArray(7);
    EXPECT_TRUE(list == 7);
    list = other;
    EXPECT_TRUE(list[4].IsNull());
    list[0] = VarArrayOf({8, 9});
    list.AssignArray(list[0]);
    EXPECT_EQ(list.getVarArray(), VarArrayOf({8, 9})) << "the argument may be of the list itself";

    list.push_back(System::Byte{1});
    EXPECT_THROW(list.AddVariantsTo(other), Sysutils::EVariantError);
    EXPECT_THROW(list.GetVariants(other), Sysutils::EVariantError);
    EXPECT_EQ(other.GetCount(), 6) << "refused as a whole";
    EXPECT_TRUE(CVariants(10U).empty());
    EXPECT_EQ(CVariants{10U}.size(), 1U);
    EXPECT_EQ(CVariants{other}.size(), 6U);
    EXPECT_EQ((CVariants{1, u"a b", 2.5}).getCommaText(), ListOf({1, u"a b", 2.5}).getCommaText());
    CVariants assigned;
    assigned = {true, u"x"};
    EXPECT_TRUE(assigned == ListOf({true, u"x"}));
}

TEST(VariantListTest, Compares)
{
    const CVariants one = ListOf({1});
    const CVariants oneTwo = ListOf({1, 2});
    const CVariants two = ListOf({u"2"});
    EXPECT_TRUE(one == ListOf({1.0}));
    EXPECT_FALSE(one == oneTwo);
    EXPECT_TRUE(one < oneTwo);
    EXPECT_FALSE(oneTwo < one);
    EXPECT_FALSE(one < one);
    EXPECT_TRUE(oneTwo < two);
    EXPECT_TRUE(CVariants() < one);
    EXPECT_TRUE(two == Variant(2));
    EXPECT_TRUE(two == 2);
    EXPECT_FALSE(oneTwo == 1);
    EXPECT_FALSE(ListOf({u"x"}) == 0);
    EXPECT_FALSE(ListOf({u"x"}) < 9);
    EXPECT_TRUE(oneTwo < 2);
    EXPECT_FALSE(two < Variant(2));
    EXPECT_FALSE(one == 1.5);
    EXPECT_FALSE(one == Int64{0x1'0000'0001});
    EXPECT_TRUE(one < 1.5);
    EXPECT_TRUE(one < Int64{0x1'0000'0000});
    EXPECT_TRUE(ListOf({1.4}) == 1) << "by the int cast";
    EXPECT_TRUE(oneTwo > one && oneTwo >= one && one <= oneTwo && one >= one && one <= ListOf({1.0}));
    EXPECT_FALSE(one > oneTwo || one >= oneTwo || oneTwo <= one || one > one);
    EXPECT_FALSE(one <= ListOf({u"x"}) || one >= ListOf({u"x"})) << "not to be compared";
    EXPECT_TRUE(CVariants() < Variant(0));
    EXPECT_TRUE(CVariants() < 0);
}

TEST(VariantListTest, HasACommaText)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::DecimalSeparator = u'.';
    CVariants list;
    list.setCommaText(u"1,2.5,abc,\"\",\"a, b\"");
    ASSERT_EQ(list.size(), 5U);
    EXPECT_EQ(list[0].Type(), System::varInteger);
    EXPECT_EQ(list[1].Type(), System::varDouble);
    EXPECT_EQ(list[2], u"abc");
    EXPECT_TRUE(list[3].IsNull());
    EXPECT_EQ(list.getCommaText(), u"1,2.5,abc,,\"a, b\"");
    list.setCommaText(u"\"\t7\",\"\r\n8\"");
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0], 7);
    EXPECT_EQ(list[1], 8);
    list.setCommaText(u"");
    EXPECT_TRUE(list.empty());
}

using VariantListMemoryTest = Support::OutOfMemoryTest;

TEST_F(VariantListMemoryTest, RaisesForTooManyEntries)
{
    EXPECT_TRUE(Support::RaisesOutOfMemory([] { const CVariants list(UINT_MAX); }));
}

} // namespace
