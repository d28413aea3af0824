// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_SqlValue.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/variants/Variants.h"
#include "platform/toolkit/MessageBox.h"
#include "support/FormatSettingsGuard.h"
#include "support/ScriptedBoxes.h"

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

TEST(VariantSqlValueTest, GivesLiterals)
{
    const Variant decimal = Variant(UInt64(Wide)).AsType(System::varDecimal);
    const struct
    {
        Variant value;
        std::optional<UnicodeString> sql;
    } cases[] = {
        {Variant(), u"NULL"},
        {Null(), u"NULL"},
        {short(-7), u"-7"},
        {12, u"12"},
        {1.5F, u"1.5"},
        {-2.25, u"-2.25"},
        {1e10, u"10000000000"},
        {Currency(3.25), u"3.25"},
        {TDateTime(44593.5), u"'2022-2-1'"},
        {true, {}},
        {System::Byte(200), {}},
        {System::LongWord(7), {}},
        {System::LongWord(UINT_MAX), {}},
        {Wide, u"4294967301"},
        {UInt64(Wide), u"4294967301"},
        {UInt64(ULLONG_MAX), u"18446744073709551615"},
        {decimal, {}},
        {u"12abc", u"'12abc'"},
        {AnsiString("it's 1.5"), u"'it''s 1.5'"},
        {u" 2.5 ", u"' 2.5 '"},
        {VarArrayOf({1}), {}},
    };
    const Support::FormatSettingsGuard guard;
    Sysutils::DecimalSeparator = u',';
    for (const auto& [value, sql] : cases) {
        SCOPED_TRACE(testing::PrintToString(value));
        UnicodeString literal = u"former";
        EXPECT_EQ(VarToSqlValue(value, literal), sql.has_value());
        EXPECT_EQ(literal, sql.value_or(u""));
    }
}

TEST(VariantSqlValueTest, WhatHasNoLiteralIsAFault)
{
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

} // namespace
