// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_Stored.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/variants/Variants.h"
#include "support/FormatSettingsGuard.h"
#include "text/variants/BTL_VARI_Compare.h"

#include <gtest/gtest.h>

#include <climits>

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

TEST(VariantStoredTest, StoresValuesWithTheirType)
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

} // namespace
