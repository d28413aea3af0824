// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_Conversions.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/variants/Variants.h"
#include "support/FormatSettingsGuard.h"
#include "text/numbers/BTL_NUM_Floats.h"
#include "text/numbers/BTL_NUM_Integers.h"

#include <gtest/gtest.h>

#include <climits>
#include <optional>

namespace
{

using namespace BTL;
using System::AnsiString;
using System::Currency;
using System::Int64;
using System::TDateTime;
using System::UInt64;
using System::UnicodeString;
using System::Variant;
using Variants::Null;
using Variants::VarArrayOf;

/// Whole numbers that need more than 32 bits.
constexpr Int64 Wide = 0x1'0000'0005;

TEST(VariantConversionsTest, ConvertsByType)
{
    const Variant decimal = Variant(UInt64(Wide)).AsType(System::varDecimal);
    const struct
    {
        Variant value;
        std::optional<int> whole;
        std::optional<Int64> wide;
        std::optional<double> real;
        std::optional<UnicodeString> text;
    } cases[] = {
        {Variant(), 0, 0, {}, {}},
        {Null(), 0, 0, {}, {}},
        {short(-7), -7, -7, -7, u"-7"},
        {12, 12, 12, 12, u"12"},
        {1.5F, 2, 2, 1.5, u"1,5"},
        {-2.25, -2, -2, -2.25, u"-2,25"},
        {1e10, {}, {}, 1e10, u"10000000000"},
        {Currency(3.25), 3, 3, 3.25, u"3,25"},
        {TDateTime(44593.5), {}, {}, {}, {}},
        {true, -1, -1, -1, {}},
        {System::Byte(200), 200, 200, 200, {}},
        {System::LongWord(7), 7, 7, {}, {}},
        {System::LongWord(UINT_MAX), {}, {}, {}, {}},
        {Wide, 5, Wide, 4294967301.0, u"4294967301"},
        {UInt64(Wide), 5, Wide, 4294967301.0, u"4294967301"},
        {UInt64(ULLONG_MAX), {}, {}, 0x1p64, u"18446744073709551615"},
        {decimal, 5, Wide, 4294967301.0, {}},
        {u"12abc", 12, 12, {}, u"12abc"},
        {AnsiString("it's 1.5"), {}, {}, {}, u"it's 1.5"},
        {u" 2.5 ", 2, 2, 2.5, u" 2.5 "},
        {VarArrayOf({1}), {}, {}, {}, {}},
    };
    const Support::FormatSettingsGuard guard;
    Sysutils::DecimalSeparator = u',';
    for (const auto& [value, whole, wide, real, text] : cases) {
        SCOPED_TRACE(testing::PrintToString(value));
        int toInt = 77;
        EXPECT_EQ(ToInt(value, toInt), whole.has_value());
        EXPECT_EQ(toInt, whole.value_or(77));
        EXPECT_EQ(ToBoolDef(value, true), whole.value_or(1) != 0);
        Int64 toInt64 = 77;
        EXPECT_EQ(ToInt64(value, toInt64), wide.has_value());
        EXPECT_EQ(toInt64, wide.value_or(77));
        EXPECT_EQ(ToDoubleDef(value, 0.125), real.value_or(0.125));
        EXPECT_EQ(ToStrDef(value, u"none"), text.value_or(u"none"));
    }
}

TEST(VariantConversionsTest, TellsFailures)
{
    EXPECT_EQ(ToInt(Variant(u"8")), 8);
    try {
        ToInt(Variant(TDateTime(1)));
        FAIL();
    } catch (const Sysutils::EConvertError& error) {
        EXPECT_EQ(error.getMessage(), u"Variant-To-Int-Convert-Error, invalid type.");
    }
    try {
        ToInt64(Variant(u"x"));
        FAIL();
    } catch (const Sysutils::EConvertError& error) {
        EXPECT_EQ(error.getMessage(), u"Variant-To-Int64-Convert-Error, invalid type.");
    }
}

TEST(VariantConversionsTest, TellsTypes)
{
    EXPECT_TRUE(IsIntType(Variant(u"12abc")));
    EXPECT_FALSE(IsFloatType(u"12abc"));
    EXPECT_TRUE(IsFloatType(u"1,5"));
    EXPECT_TRUE(IsFloatType(1));
    EXPECT_FALSE(IsIntType(Variant(1.0)));
    EXPECT_FALSE(IsIntType(Variant(true)));
    EXPECT_FALSE(IsFloatType(VarArrayOf({1})));
    EXPECT_TRUE(IsStringType("x"));
    EXPECT_FALSE(IsStringType(Null()));
    // Literals still find the functions on text.
    EXPECT_TRUE(IsIntType(u"12"));
    int value = 0;
    EXPECT_TRUE(ToInt(u"12", value));
    double real = 0;
    EXPECT_TRUE(VarWithUnitToDouble(u"5 mV", real));
    EXPECT_EQ(real, 5e-3);
    EXPECT_TRUE(VarWithUnitToDouble(7, real));
    EXPECT_EQ(real, 7);
    EXPECT_EQ(ToVariant(3L).Type(), System::varInt64);
}

TEST(VariantConversionsTest, ReadsPropertyValues)
{
    EXPECT_EQ(ToPropertyIntDef(u"true", 5), 1);
    EXPECT_EQ(ToPropertyIntDef(u"True", 5), 5);
    EXPECT_EQ(ToPropertyIntDef(2, 5), 2);
    EXPECT_EQ(ToPropertyIntDef(u"\r\n12", 5), 12);
}

} // namespace
