// SPDX-License-Identifier: MIT
#include "platform/base/numbers/Sysutils_Number.h"

#include "platform/base/Sysutils_Exception.h"
#include "support/FormatSettingsGuard.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cmath>
#include <limits>
#include <random>

namespace
{

using System::Int64;
using System::UnicodeString;

/// German forms, so that no separator is right by chance.
Sysutils::TFormatSettings German()
{
    Sysutils::TFormatSettings settings;
    settings.DecimalSeparator = u',';
    settings.ThousandSeparator = u'.';
    settings.CurrencyString = u"EUR";
    settings.CurrencyFormat = 3;
    settings.NegCurrFormat = 8;
    return settings;
}

TEST(SysutilsNumberTest, WritesIntegers)
{
    EXPECT_EQ(Sysutils::IntToStr(LLONG_MIN), u"-9223372036854775808");
    EXPECT_EQ(Sysutils::UIntToStr(ULLONG_MAX), u"18446744073709551615");
    EXPECT_EQ(Sysutils::IntToHex(255, 4), u"00FF");
    EXPECT_EQ(Sysutils::IntToHex(0, 0), u"0");
    EXPECT_EQ(Sysutils::IntToHex(-1, 2), u"FFFFFFFF");
    EXPECT_EQ(Sysutils::IntToHex(Int64(-1), 2), u"FFFFFFFFFFFFFFFF");
    EXPECT_EQ(Sysutils::IntToHex(1, INT_MAX).Length(), 64);
    EXPECT_EQ(Sysutils::IntToHex(1, INT_MIN), u"1");
}

TEST(SysutilsNumberTest, ReadsIntegers)
{
    const struct
    {
        const char16_t* text;
        int value;
        /// 0, or the place of the first character that doesn't fit.
        int code;
    } cases[] = {
        {u"0", 0, 0},
        {u"  -12", -12, 0},
        {u"+7", 7, 0},
        {u"2147483647", INT_MAX, 0},
        {u"-2147483648", INT_MIN, 0},
        {u"2147483648", 214748364, 10},
        {u"-2147483649", -214748364, 11},
        {u"$ff", 255, 0},
        {u"0xFF", 255, 0},
        {u"X1f", 31, 0},
        {u"-$10", -16, 0},
        {u"$FFFFFFFF", -1, 0},
        {u"$100000000", 0x10000000, 10},
        {u"", 0, 1},
        {u"  ", 0, 3},
        {u"-", 0, 2},
        {u"$", 0, 2},
        {u"12 ", 12, 3},
        {u"1.5", 1, 2},
        {u"+-1", 0, 2},
        {u"1a", 1, 2},
        {u"\u0661", 0, 1},
    };
    for (const auto& c : cases) {
        int value = 0;
        int code = -1;
        System::Val(c.text, value, code);
        EXPECT_EQ(value, c.value) << UnicodeString(c.text);
        EXPECT_EQ(code, c.code) << UnicodeString(c.text);
        value = 4711;
        EXPECT_EQ(Sysutils::TryStrToInt(c.text, value), c.code == 0) << UnicodeString(c.text);
        EXPECT_EQ(value, c.code == 0 ? c.value : 4711) << UnicodeString(c.text);
        EXPECT_EQ(Sysutils::StrToIntDef(c.text, 4711), value) << UnicodeString(c.text);
        if (c.code == 0) {
            EXPECT_EQ(Sysutils::StrToInt(c.text), c.value) << UnicodeString(c.text);
        } else {
            EXPECT_THROW(Sysutils::StrToInt(c.text), Sysutils::EConvertError) << UnicodeString(c.text);
        }
    }
    EXPECT_EQ(Sysutils::StrToInt64(u"-9223372036854775808"), LLONG_MIN);
    EXPECT_EQ(Sysutils::StrToInt64(u"$FFFFFFFFFFFFFFFF"), -1);
    EXPECT_EQ(Sysutils::StrToInt64Def(u"9223372036854775808", 7), 7);
    EXPECT_THROW(Sysutils::StrToInt64(u"x"), Sysutils::EConvertError);
}

TEST(SysutilsNumberTest, WritesFloats)
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

TEST(SysutilsNumberTest, WritesFloatsInEachForm)
{
    using enum Sysutils::TFloatFormat;
    const struct
    {
        double value;
        Sysutils::TFloatFormat format;
        int precision;
        int digits;
        const char16_t* expected;
    } cases[] = {
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

TEST(SysutilsNumberTest, PutsTheCurrencyInItsPlace)
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

TEST(SysutilsNumberTest, WritesFloatsByPictures)
{
    const struct
    {
        const char16_t* format;
        double value;
        const char16_t* expected;
    } cases[] = {
        {u"", 1234.5, u"1234,5"},
        {u"0", 1234.5, u"1235"},
        {u"0", 0.4, u"0"},
        {u"#", 0.4, u""},
        {u"0000", 12, u"0012"},
        {u"0000", -12, u"-0012"},
        {u"0.00", 1234.5, u"1234,50"},
        {u"0.00", 1.005, u"1,01"},
        {u"0.0#", 1.25, u"1,25"},
        {u"0.0#", 1, u"1,0"},
        {u"#.##", 1, u"1"},
        {u"#.##", 0.5, u",5"},
        {u"#.##", 0.001, u""},
        {u"0.", 5, u"5"},
        {u"#,##0.00", 1234567.891, u"1.234.567,89"},
        {u"#,##0", 123, u"123"},
        {u"0,000", 12, u"0.012"},
        {u"0.000E+00", 12345, u"1,235E+04"},
        {u"0.000E-00", 12345, u"1,235E04"},
        {u"0.0e+0", 0.00012, u"1,2e-4"},
        {u"00.0E+00", 12345, u"12,3E+03"},
        {u"0.00E+00", 0, u"0,00E+00"},
        {u"0.0E+0", 9.96, u"1,0E+1"},
        {u"0 'units'", 3, u"3 units"},
        {u"\"0;#\" 0", 3, u"0;# 3"},
        {u"0%", 3, u"3%"},
        {u"00-00", 1234, u"12-34"},
        {u"0'open", 3, u"3open"},
        {u"0;(0)", -3, u"(3)"},
        {u"0;(0)", 3, u"3"},
        {u"0;;zero", 0, u"zero"},
        {u"0;;zero", -3, u"-3"},
        {u"0.0;-0.0;'none'", 0.01, u"none"},
        {u"0;(0)", -0.4, u"0"},
        {u"0", 1e18, u"1E18"},
        {u"0", 123456789012345678.0, u"123456789012346000"},
        {u"0", std::numeric_limits<double>::infinity(), u"INF"},
        {u";", 1.5, u"1,5"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Sysutils::FormatFloat(c.format, c.value, German()), c.expected)
            << UnicodeString(c.format) << " " << c.value;
    }
}

TEST(SysutilsNumberTest, ReadsFloats)
{
    const double refused = -4711;
    const struct
    {
        const char16_t* text;
        double value;
    } cases[] = {
        {u"0", 0},
        {u"1,5", 1.5},
        {u"  -1,5  ", -1.5},
        {u"+,5", 0.5},
        {u"5,", 5},
        {u"1e3", 1000},
        {u"1,5E-3", 0.0015},
        {u"1E+2", 100},
        {u"0,1", 0.1},
        {u"123456789012345678", 123456789012345678.0},
        {u"9007199254740993", 9007199254740992.0},
        {u"1,7976931348623157e308", std::numeric_limits<double>::max()},
        {u"1e-400", 0},
        {u"5e-324", std::numeric_limits<double>::denorm_min()},
        {u"0,000000000000000000000000000000000000000000000000000000000000000000001", 1e-69},
        {u"1e400", refused},
        {u"", refused},
        {u" ", refused},
        {u",", refused},
        {u"-", refused},
        {u"-,", refused},
        {u"+-1", refused},
        {u"--1", refused},
        {u"1.5", refused},
        {u"1,5,", refused},
        {u"1 5", refused},
        {u"1e", refused},
        {u"e5", refused},
        {u"inf", refused},
        {u"nan", refused},
        {u"0x10", refused},
        {u"1,5x", refused},
        {u"\t1", refused},
    };
    for (const auto& c : cases) {
        double value = refused;
        EXPECT_EQ(Sysutils::TryStrToFloat(c.text, value, German()), c.value != refused)
            << UnicodeString(c.text);
        EXPECT_EQ(value, c.value) << UnicodeString(c.text);
    }
    EXPECT_TRUE(std::signbit(Sysutils::StrToFloat(u"-0", German())));
    EXPECT_THROW(Sysutils::StrToFloat(u"1.5", German()), Sysutils::EConvertError);
}

TEST(SysutilsNumberTest, FollowsTheSettingsOfTheProcess)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::FormatSettings = German();
    EXPECT_EQ(Sysutils::FloatToStr(1.5), u"1,5");
    EXPECT_EQ(Sysutils::FormatFloat(u"0.0", 1.5), u"1,5");
    EXPECT_EQ(Sysutils::FloatToStrF(1.5, Sysutils::ffFixed, 15, 1), u"1,5");
    EXPECT_EQ(Sysutils::StrToFloat(u"1,5"), 1.5);
    EXPECT_EQ(Sysutils::StrToFloatDef(u"1.5", 7), 7);
    Sysutils::DecimalSeparator = u'.';
    EXPECT_EQ(Sysutils::FloatToStr(1.5), u"1.5");
}

TEST(SysutilsNumberTest, ShortAndLongWayReadTheSameFloat)
{
    std::mt19937_64 random(4711);
    for (int i = 0; i < 20000; ++i) {
        const auto digits = static_cast<Int64>(random() >> (8 + random() % 50));
        UnicodeString text(digits);
        const int decimals = static_cast<int>(random() % 18);
        text = UnicodeString::StringOfChar(u'0', decimals + 1 - text.Length()) + text;
        text.Insert(u".", text.Length() - decimals + 1);
        double shortWay = 0;
        double longWay = 0;
        ASSERT_TRUE(Sysutils::BufferToFloat(text.AsView(), u'.', shortWay)) << text;
        ASSERT_TRUE(Sysutils::BufferToFloat((text + u"e0").AsView(), u'.', longWay)) << text;
        ASSERT_EQ(shortWay, longWay) << text;
    }
}

} // namespace
