// SPDX-License-Identifier: MIT
#include "platform/base/numbers/Sysutils_Currency.h"

#include "platform/base/Sysutils_Exception.h"
#include "support/FormatSettingsGuard.h"

#include <cmath>
#include <functional>
#include <limits>
#include <optional>

#include <gtest/gtest.h>

namespace
{

using namespace System;
using namespace Sysutils;

constexpr Int64 MaxUnits = std::numeric_limits<Int64>::max();
constexpr Int64 MinUnits = std::numeric_limits<Int64>::min();

TEST(CurrencyTest, RoundsFloatsToFourDecimals)
{
    const struct
    {
        double value;
        Int64 units;
    } cases[] = {
        {1.5, 15000},
        {-0.00005, -1},
        {0.00005, 1},
        {0.000049, 0},
        {2.00005, 20001},
        {-2.00005, -20001},
        {1.00004999, 10000},
        {123456789012.3456, 1234567890123456},
        {922337203685477.0, 9223372036854770000},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(Currency(test.value).Val, test.units) << test.value;
        EXPECT_EQ(Currency(static_cast<double>(Currency::OfUnits(test.units))).Val, test.units);
    }
    for (const double bad : {922337203685478.0, -1e300, double{INFINITY}, double{NAN}}) {
        EXPECT_THROW(Currency{bad}, EIntOverflow) << bad;
    }
}

TEST(CurrencyTest, CountsExactlyAndRaisesOnOverflow)
{
    const Currency max = Currency::OfUnits(MaxUnits);
    const Currency min = Currency::OfUnits(MinUnits);
    const struct
    {
        const char* what;
        std::function<Currency()> calculate;
        std::optional<Int64> units;
    } cases[] = {
        {"sum", [] { return Currency(0.1) + 0.2 + 1; }, 13000},
        {"difference", [] { return 1 - Currency(1.0001); }, -1},
        {"product, half up", [] { return Currency(0.01) * Currency(0.005); }, 1},
        {"product, half down", [] { return Currency(-0.01) * Currency(0.005); }, -1},
        {"float factor", [] { return 1000 * Currency(1) * 0.123456; }, 1234560},
        {"quotient, third", [] { return Currency(2) / 3; }, 6667},
        {"quotient, signs", [] { return Currency(-2) / Currency(-3); }, 6667},
        {"float divisor", [] { return Currency(1) / 0.00001; }, 1000000000},
        {"large product", [=] { return max * 1; }, MaxUnits},
        {"negated min", [=] { return -min; }, std::nullopt},
        {"past max", [=] { return max + Currency::OfUnits(1); }, std::nullopt},
        {"past min", [=] { return min - Currency::OfUnits(1); }, std::nullopt},
        {"min over -1", [=] { return min / -1; }, std::nullopt},
        {"product past max", [=] { return max * 2; }, std::nullopt},
        {"float product past max", [=] { return max * 2.0; }, std::nullopt},
        {"integer past max", [] { return Currency(MaxUnits); }, std::nullopt},
        {"unsigned past max", [] { return Currency(std::numeric_limits<UInt64>::max()); }, std::nullopt},
    };
    for (const auto& test : cases) {
        if (test.units) {
            EXPECT_EQ(test.calculate().Val, *test.units) << test.what;
        } else {
            EXPECT_THROW(test.calculate(), EIntOverflow) << test.what;
        }
    }
    EXPECT_THROW(max / 0, EDivByZero);
    EXPECT_THROW(max / 0.0, EDivByZero);
    EXPECT_LT(min, 0);
    EXPECT_EQ(Currency(2), 2.00004);
}

TEST(CurrencyTest, ReadsTextsExactly)
{
    const Support::FormatSettingsGuard guard;
    FormatSettings.DecimalSeparator = u',';
    const struct
    {
        const char* text;
        std::optional<Int64> units;
    } cases[] = {
        {" 12,5 ", 125000},
        {"-,00005", -1},
        {"0,000049999999999999999999", 0},
        {"922337203685477,5807", MaxUnits},
        {"-922337203685477,5808", MinUnits},
        {"922337203685477,58074", MaxUnits},
        {"922337203685477,5808", std::nullopt},
        {"922337203685477,58075", std::nullopt},
        {"-922337203685477,58085", std::nullopt},
        {"000000000000000000000000001,5e-1", 1500},
        {"0,00000000000000000000015E+20", 150},
        {"1e-999999999999999999999", 0},
        {"0e999999999999999999999", 0},
        {"1e16", std::nullopt},
        {"1e99999", std::nullopt},
        {"1.5", std::nullopt},
        {"", std::nullopt},
        {"abc", std::nullopt},
    };
    for (const auto& test : cases) {
        Currency value = 7;
        EXPECT_EQ(TryStrToCurr(test.text, value), test.units.has_value()) << test.text;
        EXPECT_EQ(value.Val, test.units.value_or(70000)) << test.text;
        if (!test.units) {
            EXPECT_THROW(StrToCurr(test.text), EConvertError) << test.text;
            EXPECT_EQ(StrToCurrDef(test.text, 3), 3);
        }
    }
    EXPECT_EQ(Currency(UnicodeString(u"1,25")).Val, 12500);
}

TEST(CurrencyTest, WritesAllDigits)
{
    const Support::FormatSettingsGuard guard;
    FormatSettings.DecimalSeparator = u',';
    FormatSettings.ThousandSeparator = u'.';
    FormatSettings.CurrencyString = u"€";
    FormatSettings.CurrencyFormat = 3;
    FormatSettings.NegCurrFormat = 8;
    const struct
    {
        UnicodeString text;
        const WideChar* expected;
    } cases[] = {
        {CurrToStr(0), u"0"},
        {CurrToStr(-0.0001), u"-0,0001"},
        {CurrToStr(1500), u"1500"},
        {CurrToStr(Currency::OfUnits(MaxUnits)), u"922337203685477,5807"},
        {CurrToStr(Currency::OfUnits(MinUnits)), u"-922337203685477,5808"},
        {UnicodeString(Currency(12.5)), u"12,5"},
        {CurrToStrF(1234.5, ffNumber, 2), u"1.234,50"},
        {CurrToStrF(Currency::OfUnits(MinUnits), ffFixed, 4), u"-922337203685477,5808"},
        {CurrToStrF(-1234.565, ffCurrency, 2), u"-1.234,57 €"},
        {FormatCurr(u"#,##0.00", 1234.5), u"1.234,50"},
        {FormatCurr(u"0;(0.0)", -0.25), u"(0,3)"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(test.text, test.expected);
    }
}

} // namespace
