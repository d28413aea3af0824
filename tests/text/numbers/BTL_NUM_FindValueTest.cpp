// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_FindValue.h"

#include "text/GrowthSupport.h"

#include <gtest/gtest.h>

namespace
{

using System::UnicodeString;

/// All values of a text, with the piece of each.
UnicodeString AllValues(const UnicodeString& text)
{
    UnicodeString all;
    BTL::TFoundValue found;
    for (int start = 1; BTL::FindValueWithUnit(text, found, start);) {
        all += text.SubString(found.position, found.length) + u"=" + UnicodeString(found.value) + found.unit +
               u';';
    }
    return all;
}

TEST(FindValueTest, FindsNumbersWithKnownUnits)
{
    const struct
    {
        const char16_t* text;
        const char16_t* expected;
    } cases[] = {
        {u"U at 12.5 kV, then 30 mA measured", u"12.5 kV=12500V;30 mA=0.03A;"},
        {u"12,5kV", u"12,5kV=12500V;"},
        {u"20°C (30 °C).", u"20°C=20°C;30 °C=30°C;"},
        {u"U=-3.5E-2V!", u"-3.5E-2V=-0.035V;"},
        {u"\u22125\u00A0V", u"\u22125\u00A0V=-5V;"},
        {u"10-20 V", u"20 V=20V;"},
        {u"10 V-20 V", u"10 V=10V;20 V=20V;"},
        {u"10 - -20 V", u"-20 V=-20V;"},
        {u"12 V/24 V", u"12 V=12V;24 V=24V;"},
        {u"3 of 5 min", u"5 min=5min;"},
        {u"5 mol, 5 mmol", u"5 mol=5mol;5 mmol=0.005mol;"},
        {u"99 %, 5%", u"99 %=99%;5%=5%;"},
        {u"3 m/s, 3 m², 3 m^2, 3 m2, 3 dBm, 3 Vx", u""},
        {u"CH2 V, R12 V, x_5 V", u""},
        {u"1.000,5 V at 10:15 h on 1/2 d", u""},
        {u"5 volts, 5", u""},
        {u"5 e- V, 1e308 kV, 1e999 V", u""},
        {u"5e3 V", u"5e3 V=5000V;"},
        {u"", u""},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(AllValues(text), expected) << UnicodeString(text);
    }
}

TEST(FindValueTest, StartsAnywhere)
{
    BTL::TFoundValue found;
    for (const int first : {INT_MIN, 0, 1}) {
        int start = first;
        EXPECT_TRUE(BTL::FindValueWithUnit(u"5 V", found, start));
        EXPECT_EQ(start, 4);
    }
    found.unit = u"as it was";
    for (const int first : {4, 5, INT_MAX}) {
        int start = first;
        EXPECT_FALSE(BTL::FindValueWithUnit(u"5 V", found, start));
        EXPECT_EQ(start, first);
    }
    EXPECT_EQ(found.unit, u"as it was");
}

TEST(FindValueTest, TakesLongTexts)
{
    const auto repeated = [](const char16_t* piece) {
        UnicodeString text;
        for (int i = 0; i < Support::LongText / 5; ++i) {
            text += piece;
        }
        return text;
    };
    BTL::TFoundValue found;
    int start = 1;
    EXPECT_FALSE(BTL::FindValueWithUnit(repeated(u"1.2,"), found, start));
    EXPECT_FALSE(BTL::FindValueWithUnit(repeated(u"12"), found, start));
    EXPECT_FALSE(BTL::FindValueWithUnit(repeated(u"-1 "), found, start));
    EXPECT_TRUE(BTL::FindValueWithUnit(repeated(u"ab 1 ") + u"V", found, start));
}

TEST(ToValueWithUnitTest, TakesNothingElse)
{
    const struct
    {
        const char16_t* text;
        double value;
        const char16_t* unit;
    } good[] = {
        {u" 12,5 kV ", 12500, u"V"}, {u"-5V", -5, u"V"}, {u"+1e3 mA", 1, u"A"}, {u"20 °C", 20, u"°C"}};
    for (const auto& c : good) {
        double value = 0;
        UnicodeString unit;
        EXPECT_TRUE(BTL::ToValueWithUnit(c.text, value, unit)) << UnicodeString(c.text);
        EXPECT_EQ(value, c.value);
        EXPECT_EQ(unit, c.unit);
    }
    for (const auto* text :
         {u"", u"-", u"5", u"kV", u"U = 5 kV", u"5 kV, then", u"5 Vx", u"5 6 V", u"- 5 V", u"5 m/s"}) {
        double value = 7;
        UnicodeString unit = u"as it was";
        EXPECT_FALSE(BTL::ToValueWithUnit(text, value, unit)) << UnicodeString(text);
        EXPECT_EQ(value, 7);
        EXPECT_EQ(unit, u"as it was");
    }
}

} // namespace
