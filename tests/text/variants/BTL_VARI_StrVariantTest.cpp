// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_StrVariant.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/variants/Variants.h"
#include "support/FormatSettingsGuard.h"

#include <gtest/gtest.h>

namespace
{

using namespace BTL;
using System::Currency;
using System::Int64;
using System::TDateTime;
using System::UnicodeString;
using System::Variant;
using Variants::Null;

template <class S>
class StrVariantTest : public testing::Test
{
};
using Widths = testing::Types<CStrVariant, CAStrVariant>;
TYPED_TEST_SUITE(StrVariantTest, Widths);

TYPED_TEST(StrVariantTest, ConvertsBothWays)
{
    using S = TypeParam;
    const Support::FormatSettingsGuard guard;
    Sysutils::DecimalSeparator = u',';
    EXPECT_EQ(UnicodeString(S(Variant(2.5))), u"2,5");
    EXPECT_EQ(UnicodeString(S(Null())), u"");
    EXPECT_EQ(UnicodeString(S(2.5)), u"2,5");
    EXPECT_EQ(UnicodeString(S(2.5F)), u"2,5");
    EXPECT_EQ(UnicodeString(S(-7)), u"-7");
    EXPECT_EQ(UnicodeString(S(-7L)), u"-7");
    EXPECT_EQ(UnicodeString(S("abc")), u"abc");
    EXPECT_EQ(UnicodeString(S(u"abc")), u"abc");
    EXPECT_EQ(UnicodeString(S(static_cast<const char*>(nullptr))), u"");
    const Int64 wide = 0x1'0000'0005;
    const Int64 wideBack = S(wide);
    EXPECT_EQ(wideBack, wide);
    const Currency moneyBack = S(Currency(-3.25));
    EXPECT_EQ(moneyBack, Currency(-3.25));
    const TDateTime date(44593.25);
    const TDateTime dateBack = S(date);
    EXPECT_EQ(dateBack.Val, date.Val);
    const S text(Variant(u" 1.5 "));
    const double real = text;
    EXPECT_EQ(real, 1.5);
    const float single = text;
    EXPECT_EQ(single, 1.5F);
    const S bad(Variant(u"12x"));
    EXPECT_THROW(static_cast<void>(static_cast<double>(bad)), Sysutils::EConvertError);
}

TEST(StrVariantIntTest, DiffersByWidth)
{
    EXPECT_THROW(static_cast<void>(static_cast<Int64>(CStrVariant(UnicodeString(u"12x")))),
                 Sysutils::EConvertError);
    EXPECT_EQ(static_cast<Int64>(CAStrVariant(System::AnsiString("12x"))), 12);
    EXPECT_EQ(static_cast<Int64>(CAStrVariant(System::AnsiString("x"))), 0);
}

} // namespace
