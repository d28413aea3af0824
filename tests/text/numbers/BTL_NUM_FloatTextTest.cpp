// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_FloatText.h"

#include "platform/base/Sysutils_Locale.h"
#include "text/numbers/NumbersSupport.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

template <class S>
using FloatTextTest = Support::NumbersTest<S>;
TYPED_TEST_SUITE(FloatTextTest, Support::Widths);

TYPED_TEST(FloatTextTest, TrimsFloatsAndCountsTheirDigits)
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

TYPED_TEST(FloatTextTest, PartsThePrefixFromTheNumber)
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

TEST(FloatTextLiteralTest, TakesNarrowLiterals)
{
    const Support::FormatSettingsGuard guard;
    Sysutils::DecimalSeparator = u'.';
    EXPECT_EQ(BTL::TrimFloat("0012.3400"), System::AnsiString("12.34"));
    EXPECT_EQ(BTL::GetPrefix("<5"), '<');
    EXPECT_EQ(BTL::ClearPrefix("<5"), System::AnsiString("5"));
    int precision = 0;
    int digits = 0;
    BTL::GetFloatFormat("12.34", precision, digits);
    EXPECT_EQ(precision, BTL::GetPrecision("12.34"));
    EXPECT_EQ(digits, BTL::GetDigits("12.34"));
}

} // namespace
