// SPDX-License-Identifier: MIT
#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/UTL_CVariants.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/variants/Variants.h"
#include "platform/toolkit/MessageBox.h"
#include "support/FormatSettingsGuard.h"
#include "support/ScriptedBoxes.h"
#include "text/lists/BTL_STR_StringList.h"
#include "text/variants/BTL_VARI_CVariants.h"
#include "text/variants/BTL_VARI_Maps.h"
#include "text/variants/BTL_VARI_NameValuePairs.h"
#include "text/variants/BTL_VARI_StrVariant.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

using namespace BTL;
using System::Currency;
using System::Int64;
using System::TDateTime;
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

TEST(VariantMapTest, FindsByText)
{
    CStrVariantMap map;
    map[u"b"] = u"12abc";
    map[u"a"] = u"true";
    map[u"B"] = Null();
    Variant value = 1;
    EXPECT_FALSE(map.Find(u"x", value));
    EXPECT_EQ(value, 1);
    EXPECT_TRUE(map.Find(u"a", value));
    EXPECT_EQ(value, u"true");
    EXPECT_TRUE(map.Find(u"x").IsEmpty());
    EXPECT_EQ(map.FindDef(u"x", 5), 5);
    EXPECT_EQ(map.FindInt(u"b", 5), 12);
    EXPECT_EQ(map.FindInt(u"a", 5), 5);
    EXPECT_EQ(map.FindInt64(u"B", 5), 0);
    EXPECT_EQ(map.FindInt64(u"x", 5), 5);
    EXPECT_EQ(map.FindInt(u"x", 5), 5);
    EXPECT_EQ(map.FindPropertyInt(u"x", 5), 5);
    EXPECT_EQ(map.FindPropertyInt(u"a", 5), 1);
    EXPECT_EQ(map.size(), 3U) << "looking adds nothing";

    CStringList lines;
    map.AddInfoTextTo(lines.getList());
    map.AddInfoTextTo(nullptr);
    EXPECT_EQ(lines.GetDelimitedText(u'|'), u"B = |a = true|b = 12abc");
    EXPECT_EQ(map.getDebugText(), u"[B]='1:';[a]='258:true';[b]='258:12abc';");
}

TEST(VariantMapTest, AppendsUnderTheNextKey)
{
    constexpr Int64 last = std::numeric_limits<Int64>::max();
    CInt64VariantMap map;
    EXPECT_EQ(map.Append(u"a"), 1);
    EXPECT_EQ(map.Append(u"b"), 2);
    map.Delete(2);
    map.Delete(99);
    EXPECT_EQ(map.Append(u"c"), 2);
    map.clear();
    map[-1] = 0;
    EXPECT_EQ(map.Append(u"d"), 1) << "0 is left out";
    map[last] = 0;
    EXPECT_EQ(map.Append(u"e"), std::numeric_limits<Int64>::min());
    const Support::ScriptedBoxes boxes({IDYES, IDNO});
    try {
        map.Append(u"f");
        FAIL();
    } catch (const UTL::XAssert& fault) {
        EXPECT_EQ(fault.getFile(), "BTL_VARI_CInt64VariantMap");
        EXPECT_EQ(fault.getLine(), 89);
    }
    map.Append(u"g");
    EXPECT_EQ(map.begin()->second, u"e");

    CIntToVarMap ints;
    ints.Add(UTL::CIntVector(u"3,1"), u"x");
    ints.Add(UTL::CIntVector(u"3,5"));
    EXPECT_EQ(ints.size(), 3U);
    EXPECT_EQ(ints.Find(1), u"x");
    EXPECT_TRUE(ints.FindDef(3, 7).IsEmpty());
}

TEST(NameValuePairsTest, WritesSqlAssignments)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::DecimalSeparator = u',';
    CNameValuePairs pairs;
    EXPECT_EQ(pairs.GetSqlUpdateAssign(), u"");
    pairs.Assign(u"old", 0);
    pairs.Assign(u"a", 1);
    pairs.Add(u"b", u"x, 'y'");
    pairs.Add(u"a", 1.5);
    pairs.Add(u"n", Null());
    EXPECT_EQ(pairs.GetSqlUpdateAssign(), u"a=1,b='x, ''y''',a=1.5,n=NULL");
    EXPECT_EQ(pairs._getDebugInfo(), u"a=1,\"b=x, 'y'\",\"a=1,5\",n=");
    pairs.Assign(pairs[1].name, pairs[1].value);
    EXPECT_EQ(pairs.GetSqlUpdateAssign(), u"b='x, ''y'''");

    CStringList lines;
    lines.Add(u"former");
    pairs.AddSqlUpdateAssignTo(lines.getList());
    pairs.AddSqlUpdateAssignTo(nullptr);
    EXPECT_EQ(lines.GetDelimitedText(u'|'), u"former|b='x, ''y'''");
    pairs.Assign(u"flag", true);
    const Support::ScriptedBoxes boxes({IDYES, IDNO});
    EXPECT_THROW(pairs.AddSqlUpdateAssignTo(lines.getList()), UTL::XAssert);
    EXPECT_EQ(pairs.GetSqlUpdateAssign(), u"flag=") << "passed by the user";
}

template <class S>
class StrVariantTest : public testing::Test
{
};
using Widths = testing::Types<CStrVariant, CAStrVariant>;
TYPED_TEST_SUITE(StrVariantTest, Widths);

TYPED_TEST(StrVariantTest, ConvertsBothWays)
{
    using S = TypeParam;
    const Support::FormatSettingsGuard guard;
    Sysutils::DecimalSeparator = u',';
    EXPECT_EQ(UnicodeString(S(Variant(2.5))), u"2,5");
    EXPECT_EQ(UnicodeString(S(Null())), u"");
    EXPECT_EQ(UnicodeString(S(2.5)), u"2,5");
    EXPECT_EQ(UnicodeString(S(2.5F)), u"2,5");
    EXPECT_EQ(UnicodeString(S(-7)), u"-7");
    EXPECT_EQ(UnicodeString(S(-7L)), u"-7");
    EXPECT_EQ(UnicodeString(S("abc")), u"abc");
    EXPECT_EQ(UnicodeString(S(u"abc")), u"abc");
    EXPECT_EQ(UnicodeString(S(static_cast<const char*>(nullptr))), u"");
    const Int64 wide = 0x1'0000'0005;
    const Int64 wideBack = S(wide);
    EXPECT_EQ(wideBack, wide);
    const Currency moneyBack = S(Currency(-3.25));
    EXPECT_EQ(moneyBack, Currency(-3.25));
    const TDateTime date(44593.25);
    const TDateTime dateBack = S(date);
    EXPECT_EQ(dateBack.Val, date.Val);
    const S text(Variant(u" 1.5 "));
    const double real = text;
    EXPECT_EQ(real, 1.5);
    const float single = text;
    EXPECT_EQ(single, 1.5F);
    const S bad(Variant(u"12x"));
    EXPECT_THROW(static_cast<void>(static_cast<double>(bad)), Sysutils::EConvertError);
}

TEST(StrVariantIntTest, DiffersByWidth)
{
    EXPECT_THROW(static_cast<void>(static_cast<Int64>(CStrVariant(UnicodeString(u"12x")))),
                 Sysutils::EConvertError);
    EXPECT_EQ(static_cast<Int64>(CAStrVariant(System::AnsiString("12x"))), 12);
    EXPECT_EQ(static_cast<Int64>(CAStrVariant(System::AnsiString("x"))), 0);
}

} // namespace
