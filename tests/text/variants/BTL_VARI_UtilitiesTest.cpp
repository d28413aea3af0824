// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_Utilities.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/variants/Variants.h"
#include "platform/toolkit/MessageBox.h"
#include "support/FormatSettingsGuard.h"
#include "support/ScriptedBoxes.h"
#include "text/numbers/BTL_NUM_Floats.h"
#include "text/numbers/BTL_NUM_Integers.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

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

TEST(VariantUtilitiesTest, ConvertsByType)
{
    const Variant decimal = Variant(UInt64(Wide)).AsType(System::varDecimal);
    const struct
    {
        Variant value;
        std::optional<int> whole;
        std::optional<Int64> wide;
        std::optional<double> real;
        std::optional<UnicodeString> text;
        std::optional<UnicodeString> sql;
    } cases[] = {
        {Variant(), 0, 0, {}, {}, u"NULL"},
        {Null(), 0, 0, {}, {}, u"NULL"},
        {short(-7), -7, -7, -7, u"-7", u"-7"},
        {12, 12, 12, 12, u"12", u"12"},
        {1.5F, 2, 2, 1.5, u"1,5", u"1.5"},
        {-2.25, -2, -2, -2.25, u"-2,25", u"-2.25"},
        {1e10, {}, {}, 1e10, u"10000000000", u"10000000000"},
        {Currency(3.25), 3, 3, 3.25, u"3,25", u"3.25"},
        {TDateTime(44593.5), {}, {}, {}, {}, u"'2022-2-1'"},
        {true, -1, -1, -1, {}, {}},
        {System::Byte(200), 200, 200, 200, {}, {}},
        {System::LongWord(7), 7, 7, {}, {}, {}},
        {System::LongWord(UINT_MAX), {}, {}, {}, {}, {}},
        {Wide, 5, Wide, 4294967301.0, u"4294967301", u"4294967301"},
        {UInt64(Wide), 5, Wide, 4294967301.0, u"4294967301", u"4294967301"},
        {UInt64(ULLONG_MAX), {}, {}, 0x1p64, u"18446744073709551615", u"18446744073709551615"},
        {decimal, 5, Wide, 4294967301.0, {}, {}},
        {u"12abc", 12, 12, {}, u"12abc", u"'12abc'"},
        {AnsiString("it's 1.5"), {}, {}, {}, u"it's 1.5", u"'it''s 1.5'"},
        {u" 2.5 ", 2, 2, 2.5, u" 2.5 ", u"' 2.5 '"},
        {VarArrayOf({1}), {}, {}, {}, {}, {}},
    };
    const Support::FormatSettingsGuard guard;
    Sysutils::DecimalSeparator = u',';
    for (const auto& [value, whole, wide, real, text, sql] : cases) {
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
        UnicodeString literal = u"former";
        EXPECT_EQ(VarToSqlValue(value, literal), sql.has_value());
        EXPECT_EQ(literal, sql.value_or(u""));
    }
}

TEST(VariantUtilitiesTest, TellsFailures)
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
    const Support::ScriptedBoxes boxes({IDYES, IDNO});
    try {
        VarToSqlValue(Variant(true));
        FAIL();
    } catch (const UTL::XAssert& fault) {
        EXPECT_EQ(fault.getFile(), "BTL_VARI_Utilities");
        EXPECT_EQ(fault.getLine(), 558);
    }
    EXPECT_EQ(VarToSqlValue(Variant(true)), u"");
}

TEST(VariantUtilitiesTest, TellsTypes)
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

TEST(VariantUtilitiesTest, Compares)
{
    const struct
    {
        Variant a;
        Variant b;
        int result;
    } cases[] = {{Null(), 1, -1}, {1, Null(), 1}, {Null(), Null(), 0}, {Null(), Variant(), -1},
                 {2, u"10", -1},  {2.5, 2, 1},    {u"b", u"a", 1},     {Variant(), Variant(), 0}};
    for (const auto& [a, b, result] : cases) {
        EXPECT_EQ(Compare(a, b), result) << a << ' ' << b;
        EXPECT_EQ(AreEqual(a, b), result == 0);
    }
    const std::pair<Variant, Variant> apart[] = {
        {u"x", 5}, {u"x", true}, {VarArrayOf({1}), 1}, {std::nan(""), 1}};
    for (const auto& [a, b] : apart) {
        EXPECT_EQ(Compare(a, b), -1) << a << ' ' << b;
        EXPECT_EQ(Compare(b, a), -1) << a << ' ' << b;
    }
    const Variant unordered = std::nan("");
    const Variant another = std::nan("");
    EXPECT_TRUE(AreEqual(unordered, unordered)) << "the same object";
    EXPECT_FALSE(AreEqual(unordered, another));
}

TEST(VariantUtilitiesTest, ComparesArrays)
{
    EXPECT_TRUE(AreEqual(VarArrayOf({1, u"x"}), VarArrayOf({1.0, "x"})));
    EXPECT_TRUE(AreEqual(VarArrayOf({1, VarArrayOf({2, Null()})}), VarArrayOf({1, VarArrayOf({2, Null()})})));
    EXPECT_FALSE(AreEqual(VarArrayOf({Variant()}), VarArrayOf({0})));
    EXPECT_FALSE(AreEqual(VarArrayOf({VarArrayOf({Variant()})}), VarArrayOf({VarArrayOf({0})})))
        << "the same rule on each level";
    const auto grid = [](const Variant& last, int high = 1) {
        Variant array({0, 1, 0, high}, System::varVariant);
        array.PutElement(last, 1, 1);
        return array;
    };
    EXPECT_TRUE(AreEqual(grid(3), grid(u"3")));
    EXPECT_FALSE(AreEqual(grid(3), grid(4)));
    EXPECT_FALSE(AreEqual(grid(0), grid(Variant())));
    EXPECT_FALSE(AreEqual(grid(3), grid(3, 2)));
    EXPECT_FALSE(AreEqual(VarArrayOf({1, 2}), VarArrayOf({1, 3})));
    EXPECT_FALSE(AreEqual(VarArrayOf({1, 2}), VarArrayOf({1})));
    EXPECT_FALSE(AreEqual(VarArrayOf({1}), 1));
    EXPECT_FALSE(AreEqual(Variant({0, 1}, System::varInteger), Variant({1, 2}, System::varInteger)));
}

TEST(VariantUtilitiesTest, StoresValuesWithTheirType)
{
    const struct
    {
        Variant value;
        const char16_t* text;
        Variant read;
    } cases[] = {
        {Variant(), u"0:", Variant()},
        {Null(), u"1:", Null()},
        {short(-7), u"2:-7", -7},
        {5, u"3:5", 5},
        {1.5F, u"4:1,5", 1.5},
        {true, u"11:-1", -1},
        {System::Byte(200), u"17:200", 200},
        {2.5, u"5:2,5", 2.5},
        {Currency(-3.25), u"6:-3.25", Currency(-3.25)},
        {TDateTime(44593.25), u"7:44593.25", TDateTime(44593.25)},
        {Variant(ULLONG_MAX).AsType(System::varDecimal), u"14:-1", Int64(-1)},
        {Wide, u"20:4294967301", Wide},
        {UInt64(9), u"21:9", Int64(9)},
        {System::LongWord(7), u"19:7", AnsiString("7")},
        {u"a:\u00E4\n\u03B1", u"258:a:\u00E4\u0001+?", AnsiString(u"a:\u00E4\n?")},
        {AnsiString(), u"256:", AnsiString()},
    };
    const Support::FormatSettingsGuard guard;
    Sysutils::DecimalSeparator = u',';
    for (const auto& [value, text, read] : cases) {
        EXPECT_EQ(VarToVStr(value), text);
        const Variant again = VStrToVar(text);
        EXPECT_EQ(again.Type(), read.Type()) << UnicodeString(text);
        EXPECT_TRUE(AreEqual(again, read)) << UnicodeString(text);
    }
    EXPECT_EQ(Sysutils::DecimalSeparator, u',');
    for (const auto* text : {u"", u"3", u"x:5", u":5", u"1:x", u"-:5"}) {
        EXPECT_TRUE(VStrToVar(text).IsNull()) << UnicodeString(text);
    }
    for (const auto* text : {u"3:", u"3:x", u"5:2.5", u"6:x", u"7:1,5", u"20:99999999999999999999"}) {
        EXPECT_THROW(VStrToVar(text), Sysutils::EConvertError) << UnicodeString(text);
    }
    EXPECT_EQ(VStrToVar(u"3x:7"), 7) << "the code is read as by ToInt";
    EXPECT_EQ(VStrToVar(u"-1:7").Type(), System::varString);
    EXPECT_THROW(VarToVStr(VarArrayOf({1})), Sysutils::EVariantError);
    EXPECT_THROW(VarToVStr(UInt64(ULLONG_MAX)), Sysutils::EVariantError);
}

TEST(VariantUtilitiesTest, TakesBytesFromArrays)
{
    const Variant value = BytesToVar({1, 0, 255});
    EXPECT_EQ(value.ArrayHighBound(), 2);
    const auto bytes = VarToBytes(value);
    ASSERT_EQ(bytes.Length(), 3);
    EXPECT_EQ(bytes[2], 255);
    EXPECT_TRUE(BytesToVar({}).IsNull());
    EXPECT_EQ(VarToBytes(VarArrayOf({1})).Length(), 0);
    EXPECT_EQ(VarToBytes(Variant({0, 1, 0, 1}, System::varByte)).Length(), 0);
}

TEST(VariantUtilitiesTest, SumsArrays)
{
    EXPECT_EQ(ForEeachVar_Sum(VarArrayOf({u"x"})), u"x");
    EXPECT_EQ(ForEeachVar_Sum(VarArrayOf({1, 2.5, 3})), 6.5);
    EXPECT_EQ(ForEeachVar_Sum(7), 7);
    const Variant none = ForEeachVar_Sum(Variant({0, -1}, System::varVariant));
    EXPECT_EQ(none.Type(), System::varInteger);
    EXPECT_EQ(none, 0);
    const Variant texts = VarArrayOf({"a", Variant(), u"b"});
    EXPECT_EQ(ForEeachVar_Sum(texts), u"ab");
    EXPECT_EQ(texts.GetElement(0), "a") << "the elements stay";
    // Joined anew each time, so many texts would take minutes.
    const std::vector<Variant> many(100'000, u"ten digits");
    EXPECT_EQ(ForEeachVar_Sum(Variant::ArrayOf(many)).As<UnicodeString>().Length(), 1'000'000);
}

TEST(VariantUtilitiesTest, FindsTheBestType)
{
    const struct
    {
        const char16_t* text;
        Variant best;
        Variant property;
    } cases[] = {
        {u"12", 12, 12},
        {u"$1F", 31, 31},
        {u"$FFFFFFFF", Int64(0xFFFF'FFFF), Int64(0xFFFF'FFFF)},
        {u"\t12", 12, 12},
        {u"\r\n -3", -3, -3},
        {u" \t$1F", 31, 31},
        {u"1.5", 1.5, 1.5},
        {u"3000000000", 3e9, 3e9},
        {u"", Null(), Null()},
        {u"abc", u"abc", u"abc"},
        {u"true", u"true", 1},
        {u"false", u"false", 0},
        {u"null", u"null", Null()},
        {u"True", u"True", u"True"},
    };
    for (const auto& [text, best, property] : cases) {
        EXPECT_EQ(StringToBestVariant(text).Type(), best.Type()) << UnicodeString(text);
        EXPECT_TRUE(AreEqual(StringToBestVariant(text), best));
        EXPECT_EQ(StringToBestPropertyValue(text).Type(), property.Type()) << UnicodeString(text);
        EXPECT_TRUE(AreEqual(StringToBestPropertyValue(text), property));
    }
    EXPECT_EQ(ToPropertyIntDef(u"true", 5), 1);
    EXPECT_EQ(ToPropertyIntDef(u"True", 5), 5);
    EXPECT_EQ(ToPropertyIntDef(2, 5), 2);
    EXPECT_EQ(ToPropertyIntDef(u"\r\n12", 5), 12);
}

} // namespace
