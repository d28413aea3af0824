// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Limits.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/Sysutils_Locale.h"
#include "support/FormatSettingsGuard.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <type_traits>

namespace
{

using System::AnsiString;
using System::UnicodeString;

/// The functions whose widths differ in their names, by the string type.
template <class S>
class LimitsTest : public testing::Test
{
protected:
    static constexpr bool IsWide = std::is_same_v<S, UnicodeString>;

    LimitsTest()
    {
        Sysutils::DecimalSeparator = u'.';
        Sysutils::TimeSeparator = u':';
        Sysutils::LongTimeFormat = u"hh:nn:ss";
    }

    static S T(const char* text) { return S(text); }

    static S Measure(long double value, int precision, int digits)
    {
        if constexpr (IsWide) {
            return BTL::MeasureFloatToStrW(value, precision, digits);
        } else {
            return BTL::MeasureFloatToStrA(value, precision, digits);
        }
    }

    static S Limits(double upper, double lower, const S* unit = nullptr)
    {
        if constexpr (IsWide) {
            return BTL::GetLimitTextW(upper, lower, unit);
        } else {
            return BTL::GetLimitTextA(upper, lower, unit);
        }
    }

    static S TimeLimits(double upper, double lower, const S* unit = nullptr)
    {
        if constexpr (IsWide) {
            return BTL::GetDateTimeLimitTextW(upper, lower, unit);
        } else {
            return BTL::GetDateTimeLimitTextA(upper, lower, unit);
        }
    }

private:
    Support::FormatSettingsGuard mGuard;
};

using Widths = testing::Types<UnicodeString, AnsiString>;
TYPED_TEST_SUITE(LimitsTest, Widths);

TYPED_TEST(LimitsTest, ShowsMeasuredValues)
{
    const long double infinity = std::numeric_limits<long double>::infinity();
    const struct
    {
        long double value;
        int precision;
        int digits;
        const char* expected;
    } cases[] = {
        {1.5L, -1, -1, "1.5"},
        {0, -1, -1, "0.0"},
        {2, -1, 0, "2"},
        {2, -1, 3, "2.0"},
        {2.1L, 6, 3, "2.1"},
        {2.1239L, 6, 3, "2.124"},
        {-2.5L, -1, 2, "-2.5"},
        {100, -1, -1, "100.0"},
        {999999, -1, -1, "999999.0"},
        {-999999, -1, -1, "-999999.0"},
        {1000000, -1, -1, "1000000"},
        {1000000.9L, 3, 2, "1000000"},
        {-1234567.9L, -1, 5, "-1234567"},
        {1.23456789L, -1, -1, "1.23457"},
        {1.23456789L, 3, -1, "1.23"},
        {1e-6L, -1, -1, "1E-6"},
        {2147483648.5L, -1, -1, "2147483648"},
        {-9e18L, -1, -1, "-9000000000000000000"},
        {1e20L, -1, -1, "1E20"},
        {infinity, -1, -1, "INF"},
        {-infinity, 3, 3, "-INF"},
        {std::numeric_limits<long double>::quiet_NaN(), -1, 0, "NAN"},
        {1.5L, -7, -7, "1.5"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(this->Measure(c.value, c.precision, c.digits), this->T(c.expected)) << c.value;
    }
    Sysutils::DecimalSeparator = u',';
    EXPECT_EQ(this->Measure(1.5L, -1, -1), this->T("1,5"));
    EXPECT_EQ(this->Measure(10, -1, -1), this->T("10,0"));
    EXPECT_FALSE(
        this->Measure(1.5L, std::numeric_limits<int>::max(), std::numeric_limits<int>::max()).IsEmpty());
}

TYPED_TEST(LimitsTest, ShowsRangesOfValues)
{
    const TypeParam unit = this->T("V");
    const struct
    {
        double upper;
        double lower;
        const char* expected;
    } cases[] = {
        {5, 0, " <= 5.0"},     {0, 5, " >= 5.0"},         {1, 9, "1.0 ... 9.0"},
        {9, 1, "1.0 ... 9.0"}, {5, 5, " = 5.0"},          {0, 0, ""},
        {0, -5, " >= -5.0"},   {-1, -9, "-9.0 ... -1.0"}, {2000000, 1, "1.0 ... 2000000"},
    };
    for (const auto& c : cases) {
        const TypeParam expected = this->T(c.expected);
        EXPECT_EQ(this->Limits(c.upper, c.lower), expected) << c.expected;
        EXPECT_EQ(this->Limits(c.upper, c.lower, &unit),
                  expected.IsEmpty() ? expected : expected + this->T(" V"))
            << c.expected;
    }
}

TYPED_TEST(LimitsTest, ShowsRangesOfTimes)
{
    const double noon = 0.5;
    const double evening = 0.75;
    EXPECT_EQ(this->TimeLimits(evening, noon), this->T("12:00:00 ... 18:00:00"));
    EXPECT_EQ(this->TimeLimits(noon, evening), this->T("12:00:00 ... 18:00:00"));
    EXPECT_EQ(this->TimeLimits(noon, 0), this->T(" <= 12:00:00"));
    EXPECT_EQ(this->TimeLimits(0, noon), this->T(" >= 12:00:00"));
    EXPECT_EQ(this->TimeLimits(44000.5, 44000.5), this->T(" = 12:00:00"));
    const TypeParam unit = this->T("h");
    EXPECT_EQ(this->TimeLimits(noon, 0, &unit), this->T(" <= 12:00:00 h"));
    EXPECT_TRUE(this->TimeLimits(0, 0, &unit).IsEmpty());
    EXPECT_EQ(this->TimeLimits(std::numeric_limits<double>::quiet_NaN(), 0), this->T(" <= 00:00:00"));
}

TYPED_TEST(LimitsTest, ShowsRangesOfTexts)
{
    const struct
    {
        const char* upper;
        const char* lower;
        const char* expected;
    } cases[] = {
        {"0", "0", ""},
        {"5", "0", "0 ... 5"},
        {"0", "5", "5 ... 0"},
        {" 9 ", " 1,5 ", "1,5 ... 9"},
        {"5", "", "<= 5"},
        {"", "5", ">= 5"},
        {"0", "", "<= 0"},
        {"", "", ""},
        {"x", "", ""},
        {"", "x", ""},
        {"5", "x", ""},
        {"x", "5", ""},
        {"0.0", "0", "0 ... 0.0"},
        {"  ", "7", ">= 7"},
        {"1e999", "", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::GetLimitText(this->T(c.upper), this->T(c.lower)), this->T(c.expected))
            << c.upper << '|' << c.lower;
    }
}

using BTL::TLimits;

struct TLimitsCase
{
    const char16_t* text;
    TLimits limits;
    const char16_t* unit;
};

TEST(OptionalLimitsTest, AreReadFromText)
{
    const Support::FormatSettingsGuard guard;
    const TLimitsCase cases[] = {
        {u"", {}, u""},
        {u"  ", {}, u""},
        {u"<= 5", {std::nullopt, 5}, u""},
        {u" <=-5 kV ", {std::nullopt, -5000}, u"V"},
        {u">= 0 V", {0, std::nullopt}, u"V"},
        {u"\u2265\u22121,5", {-1.5, std::nullopt}, u""},
        {u"\u2264 .5", {std::nullopt, 0.5}, u""},
        {u"= 5 \u03BCA", {5e-6, 5e-6}, u"A"},
        {u"1 ... 9 kV", {1000, 9000}, u"V"},
        {u"1kV...9", {1000, 9000}, u"V"},
        {u"5 mV ... 1 V", {0.005, 1}, u"V"},
        {u"-1e-3\u20261e3 mol", {-0.001, 1000}, u"mol"},
        {u"1 ... 1", {1, 1}, u""},
        {u"50 ... 130 km/h", {50, 130}, u"km/h"},
        {u"10..20 kV", {10000, 20000}, u"V"},
        {u"10 .. 20 kV", {10000, 20000}, u"V"},
        {u"10 \u2026 20 kV", {10000, 20000}, u"V"},
        {u"1.5..2.5", {1.5, 2.5}, u""},
        {u"1,5...2,5", {1.5, 2.5}, u""},
        {u"-.5...-.25", {-0.5, -0.25}, u""},
        {u".. 20 kV", {std::nullopt, 20000}, u"V"},
        {u"... 20 kV", {std::nullopt, 20000}, u"V"},
        {u"\u2026\u22125", {std::nullopt, -5}, u""},
        {u"... .5", {std::nullopt, 0.5}, u""},
        {u"10 .. kV", {10000, std::nullopt}, u"V"},
        {u" 10 kV ... ", {10000, std::nullopt}, u"V"},
        {u"10 \u2026 km/h", {10, std::nullopt}, u"km/h"},
        {u"1..", {1, std::nullopt}, u""},
    };
    for (const char16_t separator : {u'.', u','}) {
        Sysutils::DecimalSeparator = separator;
        for (const auto& c : cases) {
            SCOPED_TRACE(UnicodeString(c.text));
            TLimits limits = {4711, 4711};
            UnicodeString unit = u"as it was";
            EXPECT_TRUE(BTL::ParseLimits(c.text, limits, unit));
            EXPECT_EQ(limits, c.limits);
            EXPECT_EQ(unit, c.unit);
            EXPECT_EQ(BTL::ParseLimits(c.text), c.limits);
            UnicodeString raisingUnit;
            EXPECT_EQ(BTL::ParseLimits(c.text, raisingUnit), c.limits);
            EXPECT_EQ(raisingUnit, c.unit);
        }
    }
}

TEST(OptionalLimitsTest, TellWhyATextIsRefusedAndWhere)
{
    constexpr const char* noSign = "one of <=, >=, = and ... is missing";
    constexpr const char* noNumber = "a number is missing";
    constexpr const char* badNumber = "this is no number, or one that is too large";
    constexpr const char* more = "more than a unit stands behind the number";
    constexpr const char* wrongOrder = "the lower limit is above the upper one";
    const struct
    {
        const char16_t* text;
        const char* why;
        int place;
    } cases[] = {
        {u"5", noSign, 1},
        {u"  x", noSign, 3},
        {u"< 5", noSign, 1},
        {u"1 \u2212 9", noSign, 1},
        {u"<= ", noNumber, 3},
        {u"<= x", noNumber, 4},
        {u"...", noNumber, 4},
        {u" .. kV ", noNumber, 5},
        {u"kV ..", noNumber, 1},
        {u"10 V .. kV", noNumber, 9},
        {u"= =5", badNumber, 3},
        {u"<= a5", badNumber, 4},
        {u"kV .. 20", noNumber, 1},
        {u"1 ... x5", badNumber, 7},
        {u"<= 1e999", badNumber, 4},
        {u"<= 5E-V", badNumber, 4},
        {u"1 ... 2 ... 3", more, 9},
        {u"1 .. 2 .. 3", more, 8},
        {u"<= 1.234,56", more, 9},
        {u"<= 1 2", more, 6},
        {u"<= 1 kV ... 2", more, 6},
        {u"= 1 ... 9", more, 5},
        {u"<= 1e308 kV", "the number is too large", 4},
        {u"1 V ... 9 A", "the limits differ in their units", 9},
        {u"9 ... 1", wrongOrder, 1},
        {u"  1 V ... 9 mV", wrongOrder, 3},
    };
    for (const auto& c : cases) {
        const UnicodeString text(c.text);
        SCOPED_TRACE(text);
        TLimits limits = {4711, std::nullopt};
        UnicodeString unit = u"as it was";
        EXPECT_FALSE(BTL::ParseLimits(text, limits, unit));
        EXPECT_EQ(limits, (TLimits{4711, std::nullopt}));
        EXPECT_FALSE(BTL::ParseLimits(text, limits));
        try {
            BTL::ParseLimits(text, unit);
            ADD_FAILURE();
        } catch (const Sysutils::EConvertError& fault) {
            EXPECT_EQ(std::string(fault.what()), "'" + System::ToUtf8(text) + "' tells no limits: " + c.why +
                                                     " (character " + std::to_string(c.place) + ")");
        }
        EXPECT_EQ(unit, u"as it was");
        EXPECT_THROW(BTL::ParseLimits(text), Sysutils::EConvertError);
    }
}

TEST(OptionalLimitsTest, ComeBackFromTheirText)
{
    const Support::FormatSettingsGuard guard;
    const TLimitsCase cases[] = {
        {u"", {}, u"kV"},
        {u"<= 0 kV", {std::nullopt, 0}, u"kV"},
        {u">= 5 kV", {5000, std::nullopt}, u"kV"},
        {u"= -5", {-5, -5}, u""},
        {u"1000 ... 2.5E15", {1000, 2.5e15}, u""},
        {u"0.1 ... 0.3 mV", {1e-4, 3e-4}, u"mV"},
        {u"1234567.25 ... 1234567.5 km/h", {1234567.25, 1234567.5}, u"km/h"},
    };
    Sysutils::DecimalSeparator = u'.';
    for (const auto& c : cases) {
        const UnicodeString text = BTL::LimitsToStr(c.limits, c.unit);
        EXPECT_EQ(text, c.text);
        EXPECT_EQ(BTL::ParseLimits(text), c.limits) << text;
    }
}

TEST(OptionalLimitsTest, ContainTheirEnds)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const struct
    {
        TLimits limits;
        double value;
        bool expected;
    } cases[] = {
        {{}, 5, true},
        {{}, nan, true},
        {{0, 1}, 0, true},
        {{0, 1}, 1, true},
        {{0, 1}, -0.1, false},
        {{0, 1}, 1.1, false},
        {{0, std::nullopt}, infinity, true},
        {{std::nullopt, 0}, 1, false},
        {{std::nullopt, 0}, -infinity, true},
        {{0, 1}, nan, false},
        {{0, std::nullopt}, nan, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::IsWithin(c.value, c.limits), c.expected) << c.value << BTL::LimitsToStr(c.limits);
    }
}

} // namespace
