// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Units.h"

#include "platform/base/Sysutils_Locale.h"
#include "support/FormatSettingsGuard.h"
#include "text/numbers/BTL_NUM_FindValue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

using System::AnsiString;
using System::UnicodeString;
using System::WideChar;

template <class S>
class UnitsTest : public testing::Test
{
protected:
    /// `text` in the width under test.
    static S T(const char* text) { return S(text); }

private:
    Support::FormatSettingsGuard mGuard;
};

using Widths = testing::Types<UnicodeString, AnsiString>;
TYPED_TEST_SUITE(UnitsTest, Widths);

TYPED_TEST(UnitsTest, KnowsPrefixesByTheirFirstLetter)
{
    const struct
    {
        const char* unit;
        double factor;
    } cases[] = {
        {"a", 1e-18},  {"fF", 1e-15}, {"ps", 1e-12}, {"nA", 1e-9}, {"\xB5m", 1e-6}, {" mV", 1e-3},
        {"cm", 1e-2},  {"dm", 0.1},   {"d", 0.1},    {"dag", 10},  {"h", 100},      {"kV", 1000},
        {"K", 1000},   {"MB", 1e6},   {"GHz", 1e9},  {"T", 1e12},  {"P", 1e15},     {"EV", 1e18},
        {"mol", 1e-3}, {"Hz", 1},     {"", 1},       {"  ", 1},    {"A", 1},        {"u", 1},
        {"D", 1},      {"1", 1},      {"\xE4", 1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::GetUnitPrefixFactor(this->T(c.unit)), c.factor) << c.unit;
    }
}

TEST(UnitPrefixTest, LeavesTheUnit)
{
    const struct
    {
        const WideChar* unit;
        const WideChar* expected;
    } cases[] = {
        {u"kV", u"V"}, {u" mA ", u"A"}, {u"daN", u"N"}, {u"\u00B5m", u"m"}, {u"V", u"V"},
        {u"m", u"m"},  {u"da", u"da"},  {u"%", u"%"},   {u"", u""},         {u"  ", u""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::CutUnitPrefix(c.unit), c.expected) << UnicodeString(c.unit);
    }
}

TEST(UnitPrefixTest, IsToldWithTheValue)
{
    double value = 0;
    UnicodeString unit = u"as it was";
    EXPECT_FALSE(BTL::ValueWithUnitToDouble(u"none", value, unit));
    EXPECT_EQ(unit, u"as it was");
    EXPECT_TRUE(BTL::ValueWithUnitToDouble(u"U = 5 kV ", value, unit));
    EXPECT_EQ(value, 5000);
    EXPECT_EQ(unit, u"kV");
    EXPECT_TRUE(BTL::ValueWithUnitToDouble(u"5", value, unit));
    EXPECT_EQ(unit, u"");
}

TYPED_TEST(UnitsTest, ReadsValuesWithUnits)
{
    const struct
    {
        const char* text;
        bool expected;
        double value;
    } cases[] = {
        {"1,5 kV", true, 1500},
        {"1.5kV", true, 1500},
        {"3 ms", true, 0.003},
        {"abc", false, 0},
        {"1e3 V", true, 1000},
        {"U = -2 V", true, -2},
        {"", false, 0},
        {"5E-V", false, 0},
        {"5", true, 5},
        {"  5  ", true, 5},
        {"7 \xB5"
         "A",
         true, 7e-6},
        {"5 E", true, 5e18},
        {"1e999 V", false, 0},
        {"1.234,56 V", true, 1.234},
    };
    for (const System::WideChar separator : {u'.', u','}) {
        Sysutils::DecimalSeparator = separator;
        for (const auto& c : cases) {
            double value = 4711;
            EXPECT_EQ(BTL::ValueWithUnitToDouble(this->T(c.text), value), c.expected) << c.text;
            EXPECT_DOUBLE_EQ(value, c.expected ? c.value : 4711) << c.text;
            double other = 4711;
            EXPECT_EQ(BTL::ValueWithUnitToDoble(this->T(c.text), other), c.expected) << c.text;
            EXPECT_EQ(other, value) << c.text;
            EXPECT_EQ(BTL::ValueWithUnitToDoubleDef(UnicodeString(this->T(c.text)), 4711), value) << c.text;
        }
    }
    double value = 0;
    EXPECT_TRUE(BTL::ValueWithUnitToDouble(this->T("1e308 kV"), value));
    EXPECT_TRUE(std::isinf(value));
}

TEST(UnitFactorTest, DividesThePrefixes)
{
    EXPECT_DOUBLE_EQ(BTL::GetUnitFactor("kV", "mV"), 1e6);
    EXPECT_DOUBLE_EQ(BTL::GetUnitFactor("V", "kV"), 1e-3);
    EXPECT_DOUBLE_EQ(BTL::GetUnitFactor("", ""), 1);
}

TEST(UnitPrefixTest, MicroIsASignOrAGreekLetter)
{
    for (const WideChar* const micro : {u"\u00B5", u"\u03BC"}) {
        const UnicodeString unit = UnicodeString(micro) + u"A";
        EXPECT_EQ(BTL::GetUnitPrefixFactor(unit), 1e-6);
        EXPECT_EQ(BTL::CutUnitPrefix(unit), u"A");
        double value = 0;
        EXPECT_TRUE(BTL::ValueWithUnitToDouble(u"\u22125 " + unit, value));
        EXPECT_DOUBLE_EQ(value, -5e-6);
    }
    EXPECT_EQ(BTL::GetUnitPrefixFactor(u"\u039C"), 1) << "the capital letter";
}

TEST(UnitPrefixTest, TakesNarrowLiterals)
{
    double value = 0;
    EXPECT_TRUE(BTL::ValueWithUnitToDouble("2 kV", value));
    EXPECT_EQ(value, 2000);
    EXPECT_EQ(BTL::GetUnitPrefixFactor("kV"), 1000);
}

TEST(UnitTableTest, TellsAUnitFromAPrefix)
{
    const struct
    {
        const WideChar* text;
        double factor;
        const WideChar* unit;
    } cases[] = {
        {u"m", 1, u"m"},          {u"mm", 1e-3, u"m"},
        {u"mol", 1, u"mol"},      {u" mmol ", 1e-3, u"mol"},
        {u"h", 1, u"h"},          {u"hPa", 100, u"Pa"},
        {u"Pa", 1, u"Pa"},        {u"min", 1, u"min"},
        {u"cd", 1, u"cd"},        {u"dam", 10, u"m"},
        {u"dA", 0.1, u"A"},       {u"kV", 1000, u"V"},
        {u"\u03BCs", 1e-6, u"s"}, {u"k\u03A9", 1000, u"\u03A9"},
        {u"%", 1, u"%"},          {u"\u00B0C", 1, u"\u00B0C"},
        {u"T", 1, u"T"},          {u"TB", 1e12, u"B"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(UnicodeString(c.text));
        double factor = 0;
        UnicodeString unit;
        EXPECT_TRUE(BTL::FindUnit(c.text, factor, unit));
        EXPECT_EQ(factor, c.factor);
        EXPECT_EQ(unit, c.unit);
    }
    for (const WideChar* const none : {u"", u" ", u"k", u"kmin", u"k%", u"kkV", u"km/h", u"v", u"V2"}) {
        double factor = 4711;
        UnicodeString unit = u"as it was";
        EXPECT_FALSE(BTL::FindUnit(none, factor, unit)) << UnicodeString(none);
        EXPECT_EQ(factor, 4711);
        EXPECT_EQ(unit, u"as it was");
    }
}

TEST(UnitTableTest, ReadsAllThatItLists)
{
    for (const BTL::TUnit& unit : BTL::GetUnits()) {
        const UnicodeString symbol(unit.symbol);
        SCOPED_TRACE(symbol);
        double factor = 0;
        UnicodeString found;
        EXPECT_TRUE(BTL::FindUnit(symbol, factor, found));
        EXPECT_EQ(factor, 1);
        EXPECT_EQ(found, symbol);
        EXPECT_EQ(BTL::FindUnit(u"M" + symbol, factor, found), unit.takesPrefix);
        EXPECT_FALSE(unit.name.empty());
    }
    for (const BTL::TUnitPrefix& prefix : BTL::GetUnitPrefixes()) {
        EXPECT_EQ(BTL::GetUnitPrefixFactor(UnicodeString(prefix.symbol)), prefix.factor);
    }
}

TEST(UnitTextTest, HasThePrefixThatSuits)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::DecimalSeparator = u'.';
    const double infinity = std::numeric_limits<double>::infinity();
    const struct
    {
        double value;
        const WideChar* unit;
        int precision;
        const WideChar* expected;
    } cases[] = {
        {5e-6, u"V", 6, u"5 \u00B5V"},
        {-5e-6, u"V", 6, u"-5 \u00B5V"},
        {5, u"V", 6, u"5 V"},
        {1500, u"V", 6, u"1.5 kV"},
        {1.5, u"kV", 6, u"1.5 kV"},
        {0.0015, u" mV ", 6, u"1.5 \u00B5V"},
        {0.05, u"m", 6, u"50 mm"},
        {0.005, u"mol", 6, u"5 mmol"},
        {2.5, u"kg", 6, u"2.5 kg"},
        {0, u"kV", 6, u"0 V"},
        {-0.0, u"V", 6, u"0 V"},
        {1, u"A", 6, u"1 A"},
        {0.999, u"A", 6, u"999 mA"},
        {1000, u"A", 6, u"1 kA"},
        {999.9994, u"A", 6, u"999.999 A"},
        {999.9996, u"A", 6, u"1 kA"},
        {-0.9999996, u"A", 6, u"-1 A"},
        {123456, u"\u03A9", 3, u"123 k\u03A9"},
        {987, u"\u03A9", 1, u"1 k\u03A9"},
        {123, u"\u03A9", 1, u"100 \u03A9"},
        {1.0 / 3, u"s", 99, u"333.333333333333 ms"},
        {1.0 / 3, u"s", -5, u"300 ms"},
        {1e-18, u"C", 6, u"1 aC"},
        {9.99e-19, u"C", 6, u"9.99E-19 C"},
        {1e-300, u"aC", 6, u"1E-318 C"},
        {9.99999e20, u"Hz", 6, u"999.999 EHz"},
        {1e21, u"Hz", 6, u"1E21 Hz"},
        {std::numeric_limits<double>::max(), u"EHz", 6, u"1.79769E326 Hz"},
        {0.0005, u"\u00B0C", 6, u"0.0005 \u00B0C"},
        {12345.678, u"min", 6, u"12345.7 min"},
        {5e-6, u"km/h", 6, u"5E-6 km/h"},
        {2000, u"", 6, u"2000"},
        {infinity, u"kV", 6, u"INF V"},
        {-infinity, u"", 6, u"-INF"},
        {std::numeric_limits<double>::quiet_NaN(), u"%", 6, u"NAN %"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::ValueWithUnitToStr(c.value, c.unit, c.precision), c.expected)
            << c.value << UnicodeString(c.unit);
    }
    Sysutils::DecimalSeparator = u',';
    EXPECT_EQ(BTL::ValueWithUnitToStr(1500, u"V"), u"1,5 kV");
}

TEST(UnitTextTest, IsReadBack)
{
    const Support::FormatSettingsGuard guard;
    for (const WideChar separator : {u'.', u','}) {
        Sysutils::DecimalSeparator = separator;
        for (const BTL::TUnit& unit : BTL::GetUnits()) {
            for (const double value : {0.0, 1.25, -3e-5, 7e4, 4.5e11, 2e-17, 8e-20, 6.5e22}) {
                const UnicodeString text = BTL::ValueWithUnitToStr(value, unit.symbol);
                double read = 4711;
                UnicodeString symbol;
                EXPECT_TRUE(BTL::ToValueWithUnit(text, read, symbol)) << text;
                EXPECT_DOUBLE_EQ(read, value) << text;
                EXPECT_EQ(symbol, unit.symbol) << text;
            }
        }
    }
}

} // namespace
