// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_Numbers.h"

#include "foundation/PlainTextSupport.h"

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <cmath>
#include <limits>
#include <string>

namespace
{

template <class S>
using StringNumbersTest = Support::PlainText<S>;
TYPED_TEST_SUITE(StringNumbersTest, Support::PlainTextWidths);

TYPED_TEST(StringNumbersTest, GetLongReadsTheWholeText)
{
    const struct
    {
        const char* text;
        bool isWhole;
        long value;
    } cases[] = {
        {"12", true, 12},
        {" 12", true, 12},
        {"\t\r\n\v\f-7", true, -7},
        {"+5", true, 5},
        {"12 ", false, 12},
        {"12x", false, 12},
        {"x", false, 0},
        {"-", false, 0},
        {"--1", false, 0},
        {"   ", false, 0},
        {"0x10", false, 0},
        {"007", true, 7},
        {"9223372036854775807", true, LONG_MAX},
        {"9223372036854775808", true, LONG_MAX},
        {"-9223372036854775808", true, LONG_MIN},
        {"-99999999999999999999999", true, LONG_MIN},
        {"99999999999999999999999x", false, LONG_MAX},
    };
    for (const auto& c : cases) {
        long value = 4711;
        EXPECT_EQ(UTL::GetLong(this->T(c.text).c_str(), value), c.isWhole) << c.text;
        EXPECT_EQ(value, c.value) << c.text;
    }
    long untouched = 4711;
    EXPECT_FALSE(UTL::GetLong(this->Null, untouched));
    EXPECT_FALSE(UTL::GetLong(this->T("").c_str(), untouched));
    EXPECT_EQ(untouched, 4711);
}

TYPED_TEST(StringNumbersTest, GetDoubleReadsTheWholeText)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const struct
    {
        const char* text;
        bool isWhole;
        double value;
    } cases[] = {
        {"1.5", true, 1.5},        {" -1.5e3", true, -1500},  {"1,5", false, 1},   {"1.5 ", false, 1.5},
        {".5", true, 0.5},         {"5.", true, 5},           {"1e", false, 1},    {"x", false, 0},
        {"--1", false, 0},         {"1e999", true, infinity}, {"1e-999", true, 0}, {"0x1p4", true, 16},
        {"-inf", true, -infinity},
    };
    for (const auto& c : cases) {
        double value = 4711;
        EXPECT_EQ(UTL::GetDouble(this->T(c.text).c_str(), value), c.isWhole) << c.text;
        EXPECT_EQ(value, c.value) << c.text;
    }
    double value = 4711;
    EXPECT_FALSE(UTL::GetDouble(this->Null, value));
    EXPECT_FALSE(UTL::GetDouble(this->T("").c_str(), value));
    EXPECT_EQ(value, 4711);
    EXPECT_TRUE(UTL::GetDouble(this->T("nan").c_str(), value));
    EXPECT_TRUE(std::isnan(value));
}

TYPED_TEST(StringNumbersTest, NumbersDoNotFollowTheLocaleOfTheProcess)
{
    const std::string former = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "C.UTF-8"}) {
        if (std::setlocale(LC_ALL, name) != nullptr) {
            break;
        }
    }
    double value = 0;
    EXPECT_TRUE(UTL::GetDouble(this->T("1.5").c_str(), value));
    EXPECT_EQ(UTL::ToFloat(this->T("2.5").c_str()), 2.5F);
    EXPECT_EQ(UTL::FloatToString(2.5F), "2.5");
    std::setlocale(LC_ALL, former.c_str());
}

TYPED_TEST(StringNumbersTest, LongNumbersFitNoBufferButAreRead)
{
    const auto zero = static_cast<typename TypeParam::CharType>('0');
    const TypeParam text = TypeParam::StringOfChar(zero, 1'000'000) + this->T("12.5");
    double value = 0;
    EXPECT_TRUE(UTL::GetDouble(text.c_str(), value));
    EXPECT_EQ(value, 12.5);
    EXPECT_EQ(UTL::ToInt(text.c_str()), 12);
}

TYPED_TEST(StringNumbersTest, ToIntAndToFloatTakeWhatFits)
{
    const struct
    {
        const char* text;
        int integer;
        float number;
    } cases[] = {
        {"12x", 12, 12},
        {"x", 0, 0},
        {"", 0, 0},
        {" \t-3.25e1z", -3, -32.5F},
        {"+5", 5, 5},
        {"1,5", 1, 1},
        {"- 1", 0, 0},
        {"99999999999", INT_MAX, 99999999999.0F},
        {"-99999999999", INT_MIN, -99999999999.0F},
        {"12eV", 12, 12},
        {"1.5e+", 1, 1.5F},
        {"2E-1E5", 2, 0.2F},
        {"1.5.2", 1, 1.5F},
        {".5", 0, 0.5F},
        {"0x10", 0, 0},
        {"nan", 0, 0},
        {"inf", 0, 0},
        {"--1", 0, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(UTL::ToInt(this->T(c.text).c_str()), c.integer) << c.text;
        EXPECT_EQ(UTL::ToFloat(this->T(c.text).c_str()), c.number) << c.text;
    }
    EXPECT_EQ(UTL::ToInt(this->Null), 0);
    EXPECT_EQ(UTL::ToFloat(this->Null), 0);
    EXPECT_EQ(UTL::ToFloat(this->T("1e999").c_str()), std::numeric_limits<float>::max());
}

TYPED_TEST(StringNumbersTest, IsDigitStringNeedsNoDigit)
{
    const struct
    {
        const char* text;
        bool sign;
        bool blanks;
        bool expected;
    } cases[] = {
        {"12", false, false, true},    {"+12", false, false, false},  {"+12", true, false, true},
        {" +12 ", true, true, true},   {" +12 ", true, false, false}, {"-", true, false, true},
        {"   ", false, true, true},    {"   ", false, false, false},  {"1 2", true, true, false},
        {"--1", true, true, false},    {"1.5", true, true, false},    {"", true, true, false},
        {"\xB2", false, false, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(UTL::IsDigitString(this->T(c.text).c_str(), c.sign, c.blanks), c.expected) << c.text;
    }
    EXPECT_FALSE(UTL::IsDigitString(this->Null, true, true));
}

TEST(NumberTextTest, HasTheFormOfAStream)
{
    EXPECT_EQ(UTL::IntToString(INT_MIN), "-2147483648");
    const struct
    {
        float value;
        const char* expected;
    } cases[] = {{0, "0"},
                 {1.5F, "1.5"},
                 {1234567, "1.23457e+06"},
                 {-1e-5F, "-1e-05"},
                 {0.1F, "0.1"},
                 {100000, "100000"},
                 {std::numeric_limits<float>::infinity(), "inf"}};
    for (const auto& c : cases) {
        EXPECT_EQ(UTL::FloatToString(c.value), c.expected);
    }
}

} // namespace
