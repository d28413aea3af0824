// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Variants.h"

#include "platform/base/Sysutils_Exception.h"
#include "support/FormatSettingsGuard.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{

using namespace System;

TEST(NumberVariantsTest, GiveATextItsBestType)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::FormatSettings.DecimalSeparator = u',';
    const struct
    {
        const char* text;
        Word type;
        Variant value;
    } cases[] = {
        {"12", varInt64, 12},
        {" -3 ", varInt64, -3},
        {"12abc", varInt64, 12},
        {"1.5", varInt64, 1},
        {"9223372036854775807", varInt64, LLONG_MAX},
        {".5", varDouble, 0.5},
        {"-,5e1", varDouble, -5.0},
        {"", varUString, ""},
        {"abc", varUString, "abc"},
        {"$10", varUString, "$10"},
    };
    for (const auto& test : cases) {
        const Variant wide = BTL::GetVariant(UnicodeString(test.text));
        EXPECT_EQ(wide.Type(), test.type) << test.text;
        EXPECT_EQ(wide, test.value) << test.text;
        const Variant narrow = BTL::GetVariant(AnsiString(test.text));
        EXPECT_EQ(narrow.Type(), test.type == varUString ? varString : test.type) << test.text;
        EXPECT_EQ(narrow, test.value) << test.text;
    }
}

TEST(NumberVariantsTest, WriteValuesBySettings)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::FormatSettings.DecimalSeparator = u',';
    const struct
    {
        Variant value;
        const WideChar* text;
    } cases[] = {
        {1.5, u"1,5"},    {1.6F, u"1,60000002384186"},
        {7, u"7"},        {true, u"True"},
        {Variant(), u""}, {u"ä", u"ä"},
        {"a", u"a"},      {Currency(2.25), u"2,25"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(BTL::GetStringW(test.value), test.text);
        EXPECT_EQ(BTL::GetStringA(test.value), AnsiString(test.text));
    }
    EXPECT_EQ(BTL::GetStringA(u"\u4E2D"), "?");
    EXPECT_THROW(BTL::GetStringW(Variant::Null()), Sysutils::EVariantError);
    EXPECT_THROW(BTL::GetStringA(Variant({0, 1}, varByte)), Sysutils::EVariantError);
}

} // namespace
