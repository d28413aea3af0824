// SPDX-License-Identifier: MIT
#include "platform/base/numbers/Sysutils_FloatText.h"

#include "platform/base/numbers/GermanSettingsSupport.h"
#include "support/FormatSettingsGuard.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

namespace
{

using Support::German;
using System::UnicodeString;

TEST(SysutilsFloatTextTest, WritesFloats)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const struct
    {
        double value;
        const char16_t* expected;
    } cases[] = {
        {0, u"0"},
        {-0.0, u"0"},
        {1.5, u"1,5"},
        {-0.1, u"-0,1"},
        {0.1 + 0.2, u"0,3"},
        {1.0 / 3, u"0,333333333333333"},
        {2.0 / 3, u"0,666666666666667"},
        {123456789012345, u"123456789012345"},
        {1234567890123456, u"1,23456789012346E15"},
        {999999999999999.9, u"1E15"},
        {100000, u"100000"},
        {0.0001, u"0,0001"},
        {0.000012, u"0,000012"},
        {0.0000012, u"1,2E-6"},
        {1e100, u"1E100"},
        {-1.5e-300, u"-1,5E-300"},
        {std::numeric_limits<double>::max(), u"1,79769313486232E308"},
        {std::numeric_limits<double>::denorm_min(), u"5E-324"},
        {infinity, u"INF"},
        {-infinity, u"-INF"},
        {std::nan(""), u"NAN"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Sysutils::FloatToStr(c.value, German()), c.expected) << c.value;
        std::array<char, Sysutils::FloatBufferSize> narrow;
        const std::size_t length = Sysutils::FloatToBuffer(c.value, ',', narrow.data());
        EXPECT_EQ(UnicodeString(System::AnsiString(std::string_view(narrow.data(), length))), c.expected);
    }
    EXPECT_EQ(Sysutils::FloatToStr(0.1L, German()), u"0,1");
    EXPECT_EQ(Sysutils::FloatToStr(1e4000L, German()), u"1E4000");
}

struct FormatCase
{
    double value;
    Sysutils::TFloatFormat format;
    int precision;
    int digits;
    const char16_t* expected;
};

TEST(SysutilsFloatTextTest, WritesFloatsInEachForm)
{
    using enum Sysutils::TFloatFormat;
    const FormatCase cases[] = {
        {1234.5678, ffGeneral, 6, 0, u"1234,57"},
        {1234567, ffGeneral, 4, 0, u"1,235E6"},
        {1234567, ffGeneral, 4, 3, u"1,235E006"},
        {0.00000123, ffGeneral, 15, 2, u"1,23E-06"},
        {12, ffGeneral, -5, 0, u"12"},
        {123, ffGeneral, 1, 0, u"1,2E2"},
        {1234.5, ffExponent, 5, 2, u"1,2345E+03"},
        {0.00012, ffExponent, 3, 0, u"1,20E-4"},
        {0, ffExponent, 3, 4, u"0,00E+0000"},
        {-9.996, ffExponent, 3, 2, u"-1,00E+01"},
        {1234.565, ffFixed, 15, 2, u"1234,57"},
        {-1234.5, ffFixed, 15, 0, u"-1235"},
        {0.5, ffFixed, 15, 0, u"1"},
        {0.4, ffFixed, 15, 0, u"0"},
        {-0.004, ffFixed, 15, 2, u"0,00"},
        {9.999, ffFixed, 15, 2, u"10,00"},
        {0.001, ffFixed, 15, 5, u"0,00100"},
        {1.005, ffFixed, 15, 2, u"1,01"},
        {1, ffFixed, 15, 99, u"1,000000000000000000"},
        {1, ffFixed, 15, -3, u"1"},
        {123456, ffFixed, 5, 2, u"1,2346E5"},
        {1234567.891, ffNumber, 15, 2, u"1.234.567,89"},
        {123, ffNumber, 15, 0, u"123"},
        {-1000, ffNumber, 15, 1, u"-1.000,0"},
        {1234.5, ffCurrency, 15, 2, u"1.234,50 EUR"},
        {-1234.5, ffCurrency, 15, 2, u"-1.234,50 EUR"},
        {-0.001, ffCurrency, 15, 2, u"0,00 EUR"},
        {1e20, ffCurrency, 15, 2, u"1E20"},
        {std::numeric_limits<double>::infinity(), ffCurrency, 15, 2, u"INF"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Sysutils::FloatToStrF(c.value, c.format, c.precision, c.digits, German()), c.expected)
            << c.value << " " << c.format;
    }
    EXPECT_EQ(Sysutils::FloatToStrF(123456789012345678.0L, ffFixed, 18, 0, German()), u"123456789012345678");
}

TEST(SysutilsFloatTextTest, RoundsAWideValueByItself)
{
    using enum Sysutils::TFloatFormat;
    const FormatCase cases[] = {
        // Decimals that no float holds lie on either side of the half that they are written as.
        {0.15, ffFixed, 15, 1, u"0,1"},
        {0.35, ffFixed, 15, 1, u"0,3"},
        {0.45, ffFixed, 15, 1, u"0,5"},
        {2.675, ffGeneral, 3, 0, u"2,67"},
        {1.000005, ffGeneral, 6, 0, u"1,00001"},
        {0.1234567890123455, ffGeneral, 15, 0, u"0,123456789012345"},
        {0.1234567890123455, ffGeneral, 14, 0, u"0,12345678901235"},
        {0.25, ffFixed, 15, 1, u"0,3"},
        {-999999.5, ffExponent, 6, 1, u"-1,00000E+6"},
        {1e-6, ffFixed, 15, 6, u"0,000001"},
        {1e-6, ffFixed, 15, 5, u"0,00000"},
        {1e23, ffGeneral, 15, 0, u"1E23"},
        {1e23, ffGeneral, 18, 0, u"9,99999999999999916E22"},
        {5e-324, ffGeneral, 6, 0, u"4,94066E-324"},
        {-0.0, ffFixed, 15, 1, u"0,0"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Sysutils::FloatToStrF(static_cast<long double>(c.value), c.format, c.precision, c.digits,
                                        German()),
                  c.expected)
            << c.value << " " << c.format;
    }
}

TEST(SysutilsFloatTextTest, PutsTheCurrencyInItsPlace)
{
    using enum Sysutils::TFloatFormat;
    Sysutils::TFormatSettings settings;
    settings.CurrencyString = u"$";
    const char16_t* const positive[] = {u"$1", u"1$", u"$ 1", u"1 $"};
    for (std::size_t i = 0; i < std::size(positive); ++i) {
        settings.CurrencyFormat = static_cast<System::Byte>(i);
        EXPECT_EQ(Sysutils::FloatToStrF(1.0, ffCurrency, 15, 0, settings), positive[i]) << i;
    }
    const char16_t* const negative[] = {u"($1)", u"-$1",  u"$-1",   u"$1-",  u"(1$)", u"-1$",
                                        u"1-$",  u"1$-",  u"-1 $",  u"-$ 1", u"1 $-", u"$ 1-",
                                        u"$ -1", u"1- $", u"($ 1)", u"(1 $)"};
    for (std::size_t i = 0; i < std::size(negative); ++i) {
        settings.NegCurrFormat = static_cast<System::Byte>(i);
        EXPECT_EQ(Sysutils::FloatToStrF(-1.0, ffCurrency, 15, 0, settings), negative[i]) << i;
    }
    settings.CurrencyFormat = 255;
    settings.NegCurrFormat = 255;
    EXPECT_FALSE(Sysutils::FloatToStrF(1.0, ffCurrency, 15, 0, settings).IsEmpty());
    EXPECT_FALSE(Sysutils::FloatToStrF(-1.0, ffCurrency, 15, 0, settings).IsEmpty());
}

TEST(SysutilsFloatTextTest, FollowsTheSettingsOfTheProcess)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::FormatSettings = German();
    EXPECT_EQ(Sysutils::FloatToStr(1.5), u"1,5");
    EXPECT_EQ(Sysutils::FloatToStrF(1.5, Sysutils::ffFixed, 15, 1), u"1,5");
    Sysutils::DecimalSeparator = u'.';
    EXPECT_EQ(Sysutils::FloatToStr(1.5), u"1.5");
}

} // namespace
