// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Numbers.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/Sysutils_Locale.h"
#include "support/FormatSettingsGuard.h"
#include "text/numbers/BTL_NUM_Version.h"
#include "text/numbers/Pasu_stringtointeger.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <string>

namespace
{

using System::AnsiString;
using System::Int64;
using System::UInt64;
using System::UnicodeString;

template <class S>
class NumbersTest : public testing::Test
{
protected:
    /// `text` in the width under test.
    static S T(const char* text) { return S(text); }
    static S T(std::string_view text) { return S(AnsiString(text)); }

private:
    Support::FormatSettingsGuard mGuard;
};

using Widths = testing::Types<UnicodeString, AnsiString>;
TYPED_TEST_SUITE(NumbersTest, Widths);

TYPED_TEST(NumbersTest, FormatsIntegers)
{
    EXPECT_EQ(BTL::FormatInt(this->T("0000"), 42), this->T("0042"));
    EXPECT_EQ(BTL::FormatInt(this->T("0"), INT_MIN), this->T("-2147483648"));
    EXPECT_EQ(BTL::FormatInt64(this->T("0"), 123456789012345678LL), this->T("123456789012345678"));
    EXPECT_EQ(BTL::FormatInt64(this->T("0"), -123456789012345678LL), this->T("-123456789012345678"));
}

TYPED_TEST(NumbersTest, JudgesIntegersStrictly)
{
    const struct
    {
        const char* text;
        bool isInt;
        bool isStrong;
    } cases[] = {
        {"12", true, true},
        {"-12", true, true},
        {"+12", true, true},
        {"$10", true, true},
        {"0x1F", true, true},
        {"x10", false, false},
        {"X10", false, false},
        {" 12", true, false},
        {" x1", false, false},
        {"12 ", false, false},
        {"12x", false, false},
        {"", false, false},
        {"  ", false, false},
        {"1.5", false, false},
        {"--1", false, false},
        {"2147483647", true, true},
        {"2147483648", false, false},
        {"-2147483648", true, true},
        {"-2147483649", false, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::IsInt(this->T(c.text)), c.isInt) << c.text;
        EXPECT_EQ(BTL::IsIntStrong(this->T(c.text)), c.isStrong) << c.text;
    }
}

TYPED_TEST(NumbersTest, ReadsIntegersLeniently)
{
    const struct
    {
        const char* text;
        bool expected;
        int value;
        Int64 value64;
    } cases[] = {
        {"  -12abc", true, -12, -12},
        {"- 12", false, 0, 0},
        {"", false, 0, 0},
        {"   ", false, 0, 0},
        {"+7", true, 7, 7},
        {"--1", false, 0, 0},
        {"+-1", false, 0, 0},
        {"abc", false, 0, 0},
        {"-", false, 0, 0},
        {"\t\r\n\v\f\xA0 5", true, 5, 5},
        {"1,2,3", true, 1, 1},
        {"1e999", true, 1, 1},
        {"nan", false, 0, 0},
        {"007", true, 7, 7},
        {"2147483648", true, INT_MAX, 2147483648LL},
        {"-2147483649", true, INT_MIN, -2147483649LL},
        {"-9223372036854775808", true, INT_MIN, LLONG_MIN},
        {"9223372036854775808", true, INT_MAX, LLONG_MAX},
        {"-99999999999999999999999", true, INT_MIN, LLONG_MIN},
    };
    for (const auto& c : cases) {
        const TypeParam text = this->T(c.text);
        int value = 4711;
        Int64 value64 = 4711;
        Int64 other = 4711;
        EXPECT_EQ(BTL::ToInt(text, value), c.expected) << c.text;
        EXPECT_EQ(BTL::ToInt(text, value64), c.expected) << c.text;
        EXPECT_EQ(BTL::StrToInt64(text, other), c.expected) << c.text;
        EXPECT_EQ(BTL::IsIntType(text), c.expected) << c.text;
        EXPECT_EQ(value, c.expected ? c.value : 4711) << c.text;
        EXPECT_EQ(value64, c.expected ? c.value64 : 4711) << c.text;
        EXPECT_EQ(other, value64) << c.text;
        EXPECT_EQ(BTL::StrToInt64Def(text, 4711), value64) << c.text;
    }
}

TYPED_TEST(NumbersTest, ReadsHexadecimalNumbers)
{
    const struct
    {
        const char* text;
        bool expected;
        int value;
    } cases[] = {
        {"1F", true, 31},
        {"  0x1fg", true, 31},
        {"0X10", true, 16},
        {"g", false, 0},
        {"", false, 0},
        {"-1", true, -1},
        {"+a", true, 10},
        {"FFFFFFFF", true, -1},
        {"7FFFFFFF", true, INT_MAX},
        {"123456789ABCDEF0123", true, -1},
        {"$10", false, 0},
        {"0x", false, 0},
        {"0", true, 0},
        {"80000000", true, INT_MIN},
    };
    for (const auto& c : cases) {
        int value = 4711;
        EXPECT_EQ(BTL::HexToInt(this->T(c.text), value), c.expected) << c.text;
        EXPECT_EQ(value, c.expected ? c.value : 4711) << c.text;
        EXPECT_EQ(BTL::HexToInt(this->T(c.text)), c.value) << c.text;
    }
}

TYPED_TEST(NumbersTest, AdaptsTheFirstSeparator)
{
    using Char = typename TypeParam::CharType;
    const struct
    {
        const char* text;
        const char* withPoint;
        const char* withComma;
    } cases[] = {
        {"1.5", "1.5", "1,5"},
        {"1,5", "1.5", "1,5"},
        {"1,2.3", "1,2.3", "1,2,3"},
        {"1.234,56", "1.234,56", "1,234,56"},
        {"1,2,3", "1.2,3", "1,2,3"},
        {"12", "12", "12"},
        {"", "", ""},
    };
    for (const auto& c : cases) {
        Sysutils::DecimalSeparator = u'.';
        EXPECT_EQ(BTL::AdaptDecimalSeparator(this->T(c.text)), this->T(c.withPoint)) << c.text;
        EXPECT_EQ(BTL::SetDecimalSeparator(this->T(c.text), Char(',')), this->T(c.withComma)) << c.text;
        Sysutils::DecimalSeparator = u',';
        EXPECT_EQ(BTL::AdaptDecimalSeparator(this->T(c.text)), this->T(c.withComma)) << c.text;
    }
    const TypeParam original = this->T("1.5");
    EXPECT_EQ(BTL::SetDecimalSeparator(original, Char(';')), this->T("1;5"));
    EXPECT_EQ(original, this->T("1.5"));
}

TYPED_TEST(NumbersTest, ReadsTimesAsPartsOfADay)
{
    Sysutils::TimeSeparator = u':';
    Sysutils::DecimalSeparator = u',';
    EXPECT_EQ(BTL::ToDoubleEx(this->T(" 18:00 ")), 0.75);
    EXPECT_EQ(BTL::ToDoubleEx(this->T("6:00:00,000")), 0.25);
    EXPECT_EQ(BTL::ToDoubleEx(this->T(" 1.5 ")), 1.5);
    EXPECT_EQ(BTL::ToDoubleEx(this->T("18")), 18);
    for (const char* const text : {"", "x", "25:00", ":", "1:5x", "1.5h"}) {
        EXPECT_THROW(BTL::ToDoubleEx(this->T(text)), Sysutils::EConvertError) << text;
    }
    Sysutils::TimeSeparator = u'.';
    EXPECT_EQ(BTL::ToDoubleEx(this->T("18.00")), 0.75);
    EXPECT_THROW(BTL::ToDoubleEx(this->T("18:00")), Sysutils::EConvertError);
}

TYPED_TEST(NumbersTest, ReadsFloatsWithEitherSeparator)
{
    const struct
    {
        const char* text;
        bool expected;
        double value;
    } cases[] = {
        {"1,5", true, 1.5},      {"1.5", true, 1.5},  {" \t-1.5e3 ", true, -1500},
        {"1,5E-2", true, 0.015}, {"12", true, 12},    {".5", true, 0.5},
        {"", false, 0},          {"  ", false, 0},    {"1.5x", false, 0},
        {"1.234,56", false, 0},  {"1,2,3", false, 0}, {"--1", false, 0},
        {"5E-", false, 0},       {"1e999", false, 0}, {"-1e999", false, 0},
        {"1 2", false, 0},
    };
    for (const System::WideChar separator : {u'.', u',', u'\u066B'}) {
        Sysutils::DecimalSeparator = separator;
        for (const auto& c : cases) {
            const TypeParam text = this->T(c.text);
            double value = 4711;
            EXPECT_EQ(BTL::IsDouble(text), c.expected) << c.text;
            EXPECT_EQ(BTL::ToDouble(text, value), c.expected) << c.text;
            EXPECT_EQ(value, c.expected ? c.value : 4711) << c.text;
            EXPECT_EQ(BTL::ToDoubleDef(text, 4711), value) << c.text;
            EXPECT_EQ(BTL::ToDoubleDef(text.c_str(), 4711), value) << c.text;
            if (c.expected) {
                EXPECT_EQ(BTL::ToDouble(text), c.value) << c.text;
            } else {
                EXPECT_THROW(BTL::ToDouble(text), Sysutils::EConvertError) << c.text;
            }
        }
    }
    const typename TypeParam::CharType* const null = nullptr;
    EXPECT_EQ(BTL::ToDoubleDef(null, 3), 3);
    TypeParam withZero = this->T("1 2");
    withZero[2] = 0;
    EXPECT_FALSE(BTL::IsDouble(withZero));
}

TYPED_TEST(NumbersTest, TrimsFloatsAndCountsTheirDigits)
{
    const struct
    {
        const char* text;
        const char* trimmed;
        int precision;
        int digits;
    } cases[] = {
        {"0012.3400", "12.34", 4, 2},
        {"1.000", "1.0", 2, 1},
        {".5", "0.5", 2, 1},
        {"5.", "5.0", 2, 1},
        {"-01.50", "-01.5", 4, 1},
        {"007", "007", 3, 0},
        {" 1,50 ", "1.5", 2, 1},
        {".", "0.0", 2, 1},
        {"", "", 0, 0},
        {"0", "0", 1, 0},
        {"000.000", "0.0", 2, 1},
        {"1.2.30", "1.2.3", 4, 3},
        {"x", "x", 1, 0},
    };
    Sysutils::DecimalSeparator = u'.';
    for (const auto& c : cases) {
        const TypeParam text = this->T(c.text);
        EXPECT_EQ(BTL::TrimFloat(text), this->T(c.trimmed)) << c.text;
        EXPECT_EQ(BTL::GetPrecision(text), c.precision) << c.text;
        EXPECT_EQ(BTL::GetDigits(text), c.digits) << c.text;
        int precision = 99;
        int digits = 99;
        BTL::GetFloatFormat(text, precision, digits);
        EXPECT_EQ(precision, c.precision) << c.text;
        EXPECT_EQ(digits, c.digits) << c.text;
    }
    Sysutils::DecimalSeparator = u',';
    EXPECT_EQ(BTL::TrimFloat(this->T("01.50")), this->T("1,5"));
    EXPECT_EQ(BTL::TrimFloat(this->T(std::string(1'000'000, '0') + "." + std::string(1'000'000, '0'))),
              this->T("0,0"));
}

TYPED_TEST(NumbersTest, PartsThePrefixFromTheNumber)
{
    const struct
    {
        const char* text;
        char prefix;
        const char* number;
    } cases[] = {
        {" 12", 0, "12"}, {"<= 5", '<', "5"}, {"-5", '-', "5"}, {" .5", 0, ".5"},
        {"abc", 'a', ""}, {"", 0, ""},        {"  ", 0, ""},    {"~,5", '~', "5"},
    };
    Sysutils::DecimalSeparator = u'.';
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::GetPrefix(this->T(c.text)), static_cast<typename TypeParam::CharType>(c.prefix))
            << c.text;
        EXPECT_EQ(BTL::ClearPrefix(this->T(c.text)), this->T(c.number)) << c.text;
    }
}

class WideNumbersTest : public testing::Test
{
private:
    Support::FormatSettingsGuard mGuard;
};

TEST_F(WideNumbersTest, ReadsUnsignedIntegers)
{
    const struct
    {
        const char* text;
        bool expected;
        unsigned value;
        UInt64 value64;
    } cases[] = {
        {" 12a", true, 12, 12},
        {"+1", false, 0, 0},
        {"-1", false, 0, 0},
        {"", false, 0, 0},
        {"4294967296", true, UINT_MAX, 4294967296ULL},
        {"18446744073709551615", true, UINT_MAX, ULLONG_MAX},
        {"18446744073709551616", true, UINT_MAX, ULLONG_MAX},
    };
    for (const auto& c : cases) {
        unsigned value = 4711;
        UInt64 value64 = 4711;
        EXPECT_EQ(BTL::StrToUInt(c.text, value), c.expected) << c.text;
        EXPECT_EQ(BTL::StrToUInt64(c.text, value64), c.expected) << c.text;
        EXPECT_EQ(value, c.expected ? c.value : 4711) << c.text;
        EXPECT_EQ(value64, c.expected ? c.value64 : 4711) << c.text;
        EXPECT_EQ(BTL::StrToUInt64Def(c.text, 4711), value64) << c.text;
    }
    int value = 0;
    EXPECT_TRUE(BTL::ToInt(UnicodeString(u"\u2003\u3000"
                                         u"8"),
                           value));
    EXPECT_EQ(value, 8);
    EXPECT_FALSE(BTL::ToInt(UnicodeString(u"٣"), value));
}

TEST_F(WideNumbersTest, FindsTheFirstNumber)
{
    const struct
    {
        const char16_t* text;
        int position;
        int integerLength;
        int floatLength;
    } cases[] = {
        {u"U=-3.5E-2V", 3, 2, 7}, {u".5", 2, 1, 1},        {u"5.", 1, 1, 1},  {u"1,5 kV", 1, 1, 3},
        {u"5E-V", 1, 1, 3},       {u"5EV", 1, 1, 1},       {u"5E", 1, 1, 1},  {u"1e3 V", 1, 1, 3},
        {u"2e1.5x", 1, 1, 5},     {u"a+-7", 3, 2, 2},      {u"1;5", 1, 1, 3}, {u"1.2.3", 1, 1, 3},
        {u"5e-.5", 1, 1, 3},      {u"5e+12,5e1", 1, 1, 7},
    };
    Sysutils::DecimalSeparator = u';';
    for (const auto& c : cases) {
        const UnicodeString text = c.text;
        int position = 0;
        int length = 0;
        EXPECT_TRUE(BTL::Find1stInt(text, position, length)) << text;
        EXPECT_EQ(position, c.position) << text;
        EXPECT_EQ(length, c.integerLength) << text;
        EXPECT_TRUE(BTL::Find1stFloat(text, position, length)) << text;
        EXPECT_EQ(position, c.position) << text;
        EXPECT_EQ(length, c.floatLength) << text;
        EXPECT_EQ(BTL::Cut1stFloat(text), text.SubString(c.position, c.floatLength));
    }
    for (const char16_t* none : {u"", u"abc", u"+-", u"E", u"."}) {
        int position = 4711;
        int length = 4711;
        EXPECT_FALSE(BTL::Find1stInt(none, position, length));
        EXPECT_FALSE(BTL::Find1stFloat(none, position, length));
        EXPECT_EQ(position, 4711);
        EXPECT_EQ(length, 4711);
        EXPECT_TRUE(BTL::Cut1stFloat(none, position).IsEmpty());
        EXPECT_EQ(position, 0);
    }
}

TEST_F(WideNumbersTest, ReadsVersions)
{
    const struct
    {
        const char* text;
        bool expected;
        unsigned numbers[4];
    } cases[] = {
        {"", true, {0, 0, 0, 0}},
        {"1", true, {1, 0, 0, 0}},
        {"1.2", true, {1, 2, 0, 0}},
        {" 1.2.3.4 ", true, {1, 2, 3, 4}},
        {"1.2.3.4.5", false, {1, 2, 3, 4}},
        {"1a.2", true, {1, 2, 0, 0}},
        {"1..2", true, {1, 0, 0, 0}},
        {".1", true, {0, 0, 0, 0}},
        {"1.x.2", false, {1, 0, 0, 0}},
        {"1.2.3.4.", true, {1, 2, 3, 4}},
        {"-1", false, {0, 0, 0, 0}},
        {"1.2.", true, {1, 2, 0, 0}},
        {"99999999999", true, {UINT_MAX, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        unsigned a = 9;
        unsigned b = 9;
        unsigned d = 9;
        unsigned e = 9;
        EXPECT_EQ(BTL::VersionStrToVersionNos(c.text, a, b, d, e), c.expected) << c.text;
        EXPECT_TRUE(a == c.numbers[0] && b == c.numbers[1] && d == c.numbers[2] && e == c.numbers[3])
            << c.text;
        a = b = d = 9;
        EXPECT_EQ(BTL::VersionStrToVersionNos(c.text, a, b, d), c.expected) << c.text;
        EXPECT_TRUE(a == c.numbers[0] && b == c.numbers[1] && d == c.numbers[2]) << c.text;
    }
}

TEST_F(WideNumbersTest, GuardPutsTheSeparatorBack)
{
    Sysutils::DecimalSeparator = u'\u066B';
    {
        const BTL::CSetDecimalSeparator outer(',');
        EXPECT_EQ(Sysutils::DecimalSeparator, u',');
        {
            const BTL::CSetDecimalSeparator inner('.');
            EXPECT_EQ(Sysutils::DecimalSeparator, u'.');
        }
        EXPECT_EQ(Sysutils::DecimalSeparator, u',');
    }
    EXPECT_EQ(Sysutils::DecimalSeparator, u'\u066B');
}

TEST_F(WideNumbersTest, TellsTheFirstBadCharacter)
{
    const struct
    {
        const char* text;
        int code;
        int value;
    } cases[] = {{"12", 0, 12}, {"-$1F", 0, -31}, {"12x", 3, 0}, {"", 1, 0}};
    for (const auto& c : cases) {
        int value = 0;
        int code = 99;
        Pasu_stringtointeger::StringToInteger(c.text, value, code);
        EXPECT_EQ(code, c.code) << c.text;
        if (code == 0) {
            EXPECT_EQ(value, c.value) << c.text;
        }
    }
}

TEST(ThreeStateTest, FoldsOtherValues)
{
    static_assert(BTL::ToThreeState(0) == 0 && BTL::ToThreeState(1) == 1);
    static_assert(BTL::ToThreeState(2) == 2 && BTL::ToThreeState(-1) == 2 && BTL::ToThreeState(INT_MAX) == 2);
}

} // namespace
