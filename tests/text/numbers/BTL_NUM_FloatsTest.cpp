// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_Floats.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/Sysutils_Locale.h"
#include "text/numbers/NumbersSupport.h"

#include <gtest/gtest.h>

namespace
{

template <class S>
using FloatsTest = Support::NumbersTest<S>;
TYPED_TEST_SUITE(FloatsTest, Support::Widths);

TYPED_TEST(FloatsTest, ReadsTimesAsPartsOfADay)
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

TYPED_TEST(FloatsTest, ReadsFloatsWithEitherSeparator)
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

TEST(FloatsMinusTest, ReadTheMinusSignAsTheHyphen)
{
    const Support::FormatSettingsGuard guard;
    const struct
    {
        const System::WideChar* text;
        double expected;
    } cases[] = {
        {u"\u22121,5", -1.5},
        {u" \u2212.5 ", -0.5},
        {u"2e\u22123", 0.002},
        {u"\u22122E\u22123", -0.002},
        {u"\u2212", 4711},
        {u"1\u22122", 4711},
        {u"\u2212\u22121", 4711},
        {u"\u20131", 4711},
        {u"\u2212123456789012345678901234567890123", -123456789012345678901234567890123.0},
    };
    for (const System::WideChar separator : {u'.', u','}) {
        Sysutils::DecimalSeparator = separator;
        for (const auto& c : cases) {
            SCOPED_TRACE(System::UnicodeString(c.text));
            EXPECT_EQ(BTL::ToDoubleDef(c.text, 4711), c.expected);
            EXPECT_EQ(BTL::IsDouble(c.text), c.expected != 4711);
        }
    }
    EXPECT_EQ(BTL::ToDouble(System::UnicodeString(u"\u22122")), -2);
}

TYPED_TEST(FloatsTest, ReadsPiecesOfATextWhereTheyStand)
{
    const TypeParam line("-1,5E2;7x");
    const auto text = line.AsView();
    double value = 0;
    EXPECT_TRUE(BTL::ToDouble(text.substr(0, 4), value));
    EXPECT_EQ(value, -1.5);
    EXPECT_TRUE(BTL::ToDouble(text.substr(1, 5), value));
    EXPECT_EQ(value, 150);
    EXPECT_FALSE(BTL::ToDouble(text.substr(0, 7), value));
    EXPECT_FALSE(BTL::ToDouble(text.substr(0, 0), value));
    EXPECT_EQ(value, 150);
    EXPECT_EQ(BTL::ToDoubleDef(text.substr(7, 1), 3), 7);
    EXPECT_EQ(BTL::ToDoubleDef(text.substr(7), 3), 3);
}

TEST(FloatsLiteralTest, TakeNarrowLiterals)
{
    double value = 0;
    EXPECT_EQ(BTL::ToDouble("1.5"), 1.5);
    EXPECT_TRUE(BTL::ToDouble("2,5", value) && BTL::IsDouble("2.5"));
    EXPECT_EQ(value, BTL::ToDoubleEx("2.5"));
    const char* const null = nullptr;
    EXPECT_FALSE(BTL::ToDouble(null, value));
}

TEST(FloatsFailureTest, QuotesTheTextThatWasGiven)
{
    const Support::FormatSettingsGuard guard;
    for (const System::WideChar separator : {u'.', u','}) {
        Sysutils::DecimalSeparator = separator;
        for (const char16_t* const text : {u"1.5x", u"12,5x", u" \u22125 V", u"1.234,56", u"\u03A9", u""}) {
            const System::UnicodeString given(text);
            SCOPED_TRACE(given);
            for (const bool mayBeTime : {false, true}) {
                try {
                    mayBeTime ? BTL::ToDoubleEx(given) : BTL::ToDouble(given);
                    ADD_FAILURE();
                } catch (const Sysutils::EConvertError& fault) {
                    EXPECT_EQ(fault.getMessage(), u"'" + given + u"' is not a valid floating point value");
                }
            }
        }
    }
    try {
        BTL::ToDouble("12,5\xB5");
        FAIL();
    } catch (const Sysutils::EConvertError& fault) {
        EXPECT_NE(fault.getMessage().Pos(u"'12,5\u00B5'"), 0) << fault.getMessage();
    }
}

} // namespace
