// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Integers.h"

#include "text/BothWidthsSupport.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{

using System::Int64;
using System::UInt64;
using System::UnicodeString;
using System::WideChar;

template <class S>
using IntegersTest = Support::BothWidths<S>;
TYPED_TEST_SUITE(IntegersTest, Support::Widths);

TYPED_TEST(IntegersTest, FormatsIntegers)
{
    EXPECT_EQ(BTL::FormatInt(this->T("0000"), 42), this->T("0042"));
    EXPECT_EQ(BTL::FormatInt(this->T("0"), INT_MIN), this->T("-2147483648"));
    EXPECT_EQ(BTL::FormatInt64(this->T("0"), 123456789012345678LL), this->T("123456789012345678"));
    EXPECT_EQ(BTL::FormatInt64(this->T("0"), -123456789012345678LL), this->T("-123456789012345678"));
}

TYPED_TEST(IntegersTest, JudgesIntegersStrictly)
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

TYPED_TEST(IntegersTest, ReadsIntegersLeniently)
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

TYPED_TEST(IntegersTest, ReadsPiecesOfATextWhereTheyStand)
{
    const TypeParam line("12345678901;-7");
    const auto text = line.AsView();
    int value = 0;
    EXPECT_TRUE(BTL::ToInt(text.substr(0, 3), value));
    EXPECT_EQ(value, 123);
    EXPECT_FALSE(BTL::ToInt(text.substr(12, 1), value));
    EXPECT_EQ(value, 123);
    System::Int64 large = 0;
    EXPECT_TRUE(BTL::ToInt(text.substr(0, 11), large));
    EXPECT_EQ(large, 12'345'678'901);
}

TYPED_TEST(IntegersTest, ReadsHexadecimalNumbers)
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

TEST(WideIntegersTest, ReadsUnsignedIntegers)
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

TEST(ThreeStateTest, FoldsOtherValues)
{
    static_assert(BTL::ToThreeState(0) == 0 && BTL::ToThreeState(1) == 1);
    static_assert(BTL::ToThreeState(2) == 2 && BTL::ToThreeState(-1) == 2 && BTL::ToThreeState(INT_MAX) == 2);
}

TEST(IntegersMinusTest, ReadTheMinusSignAsTheHyphen)
{
    const struct
    {
        const WideChar* text;
        bool isInt;
        bool isStart;
        int value;
    } cases[] = {
        {u"\u221212", true, true, -12},
        {u"  \u221212abc", false, true, -12},
        {u"\u2212", false, false, 4711},
        {u"\u2212\u22125", false, false, 4711},
        {u"\u2212-5", false, false, 4711},
        {u"5\u2212", false, true, 5},
        {u"\u2212 5", false, false, 4711},
        {u"\u20135", false, false, 4711},
        {u"\u22122147483648", true, true, INT_MIN},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(UnicodeString(c.text));
        int value = 4711;
        EXPECT_EQ(BTL::IsInt(c.text), c.isInt);
        EXPECT_EQ(BTL::ToInt(c.text, value), c.isStart);
        EXPECT_EQ(value, c.value);
        EXPECT_EQ(BTL::StrToInt64Def(c.text, 4711), c.value);
        EXPECT_EQ(BTL::IsIntType(c.text), c.isStart);
    }
    unsigned none = 0;
    EXPECT_FALSE(BTL::StrToUInt(u"\u22121", none));
    EXPECT_EQ(BTL::HexToInt(u"\u2212A"), -10);
}

TEST(IntegersLiteralTest, TakeNarrowLiterals)
{
    int value = 0;
    Int64 wide = 0;
    EXPECT_TRUE(BTL::ToInt("12", value) && BTL::ToInt("13", wide));
    EXPECT_EQ(value + wide, 25);
    EXPECT_TRUE(BTL::StrToInt64("-7", wide));
    EXPECT_EQ(wide, BTL::StrToInt64Def("-7", 0));
    EXPECT_TRUE(BTL::IsInt(" 5") && !BTL::IsIntStrong(" 5") && BTL::IsIntType("5x"));
    EXPECT_TRUE(BTL::HexToInt("ff", value));
    EXPECT_EQ(value, BTL::HexToInt("0xFF"));
    EXPECT_EQ(BTL::FormatInt("000", 7), System::AnsiString("007"));
    const char* const null = nullptr;
    EXPECT_FALSE(BTL::ToInt(null, value));
}

} // namespace
