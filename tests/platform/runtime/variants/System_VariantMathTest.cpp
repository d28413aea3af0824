// SPDX-License-Identifier: MIT
#include "platform/runtime/variants/System_Variant.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/variants/System_VariantSupport.h"

#include <climits>

#include <gmock/gmock.h>

namespace
{

using namespace System;
using namespace Support;
using namespace Variants;
using Sysutils::EVariantError;

class VariantMathTest : public VariantFixture
{
};

TEST_F(VariantMathTest, PromotesInArithmetic)
{
    const Variant two = 2;
    const Currency price = 2.5;
    const struct
    {
        Variant result;
        Variant expected;
        Word type;
    } cases[] = {
        {two + 3, 5, varInteger},
        {3 - Variant(Byte{5}), -2, varInteger},
        {two * INT_MAX, 4294967294LL, varInt64},
        {Variant(INT_MIN) - 1, -2147483649LL, varInt64},
        {Variant(INT_MIN) * INT_MIN, 0x4000'0000'0000'0000LL, varInt64},
        {0.5 - two, -1.5, varDouble},
        {Variant(LLONG_MAX) + 1, 9223372036854775808ULL, varUInt64},
        {Variant(LLONG_MIN) - 1, -9223372036854775809.0, varDouble},
        {Variant(ULLONG_MAX) * ULLONG_MAX, 0x1p128, varDouble},
        {Variant(ULLONG_MAX) - 1, 18446744073709551614ULL, varUInt64},
        {Variant(1ULL) - two, -1, varInt64},
        {two / 4, 0.5, varDouble},
        {two + 0.5, 2.5, varDouble},
        {true + two, 1, varInteger},
        {two + Unassigned(), 2, varInteger},
        {two * Null(), Null(), varNull},
        {Null() / 0, Null(), varNull},
        {u"a" + Variant(u"b"), u"ab", varUString},
        {Variant("a") + "b", "ab", varString},
        {Variant("a") + u"b", u"ab", varUString},
        {Variant() + "a", "a", varString},
        {Variant(u"1") + 2, 3, varDouble},
        {Variant(u"3") - u"1,5", 1.5, varDouble},
        {Variant(price) + 1, Currency(3.5), varCurrency},
        {Variant(price) - 0.25, Currency(2.25), varCurrency},
        {two * price, Currency(5), varCurrency},
        {Variant(price) * 0.5, 1.25, varDouble},
        {Variant(price) / 2, Currency(1.25), varCurrency},
        {Variant(price) / price, 1, varDouble},
        {Variant(TDateTime(5)) + 0.5, TDateTime(5.5), varDate},
        {Variant(TDateTime(5)) - TDateTime(2), 3, varDouble},
        {Variant(TDateTime(5)) * 2, 10, varDouble},
        {-two, -2, varInteger},
        {-Variant(u"1,5"), -1.5, varDouble},
        {-Variant(true), 1, varInteger},
        {-Null(), Null(), varNull},
        {-Variant(TDateTime(1.5)), TDateTime(-1.5), varDate},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(test.result, test.expected) << "case " << &test - cases;
        EXPECT_EQ(test.result.Type(), test.type) << "case " << &test - cases;
    }
    Variant sum = 1;
    sum += 2;
    sum *= two;
    sum -= 1.5;
    sum /= 3;
    EXPECT_EQ(sum, 1.5);
    // Texts grow in place, but to the type that their sum has.
    const Variant first = "a";
    Variant text = first;
    text += "b";
    text += text;
    text += Variant();
    EXPECT_EQ(text.Type(), varString);
    text += u"\u4E2D";
    text += text;
    text += "c";
    EXPECT_EQ(text, u"abab\u4E2Dabab\u4E2Dc");
    EXPECT_EQ(text.Type(), varUString);
    EXPECT_EQ(first, "a");
    Variant former = Variant(u"x").AsType(varOleStr);
    former += "y";
    EXPECT_EQ(former.Type(), varUString);
    EXPECT_THROW(former += 1, EVariantError);
    EXPECT_EQ(former, u"xy");
    former += Null();
    EXPECT_TRUE(former.IsNull());
    Variant digits = u"4";
    digits += 1;
    EXPECT_EQ(digits, 5);
    EXPECT_THROW(two + u"x", EVariantError);
    EXPECT_THROW(two + VarArrayOf({1}), EVariantError);
    EXPECT_THROW(two / 0, Sysutils::EDivByZero);
    EXPECT_THROW(Variant(Currency::OfUnits(LLONG_MAX)) + 1, Sysutils::EIntOverflow);
}

} // namespace
