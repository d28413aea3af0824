// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_SetDecimalSeparator.h"

#include "platform/base/Sysutils_Locale.h"
#include "text/numbers/NumbersSupport.h"

#include <gtest/gtest.h>

namespace
{

template <class S>
using SetDecimalSeparatorTest = Support::NumbersTest<S>;
TYPED_TEST_SUITE(SetDecimalSeparatorTest, Support::Widths);

using WideSetDecimalSeparatorTest = Support::WideNumbersTest;

TYPED_TEST(SetDecimalSeparatorTest, AdaptsTheFirstSeparator)
{
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
        EXPECT_EQ(BTL::SetDecimalSeparator(this->T(c.text), typename TypeParam::CharType(',')),
                  this->T(c.withComma))
            << c.text;
        Sysutils::DecimalSeparator = u',';
        EXPECT_EQ(BTL::AdaptDecimalSeparator(this->T(c.text)), this->T(c.withComma)) << c.text;
    }
    const TypeParam original = this->T("1.5");
    EXPECT_EQ(BTL::SetDecimalSeparator(original, typename TypeParam::CharType(';')), this->T("1;5"));
    EXPECT_EQ(original, this->T("1.5"));
}

TEST_F(WideSetDecimalSeparatorTest, GuardPutsTheSeparatorBack)
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

} // namespace
