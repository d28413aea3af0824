// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_BestValue.h"

#include "platform/runtime/variants/Variants.h"
#include "text/variants/BTL_VARI_Compare.h"

#include <gtest/gtest.h>

namespace
{

using namespace BTL;
using System::Int64;
using System::UnicodeString;
using System::Variant;
using Variants::Null;

TEST(VariantBestValueTest, FindsTheBestType)
{
    const struct
    {
        const char16_t* text;
        Variant best;
        Variant property;
    } cases[] = {
        {u"12", 12, 12},
        {u"$1F", 31, 31},
        {u"$FFFFFFFF", Int64(0xFFFF'FFFF), Int64(0xFFFF'FFFF)},
        {u"\t12", 12, 12},
        {u"\r\n -3", -3, -3},
        {u" \t$1F", 31, 31},
        {u"1.5", 1.5, 1.5},
        {u"3000000000", 3e9, 3e9},
        {u"", Null(), Null()},
        {u"abc", u"abc", u"abc"},
        {u"true", u"true", 1},
        {u"false", u"false", 0},
        {u"null", u"null", Null()},
        {u"True", u"True", u"True"},
    };
    for (const auto& [text, best, property] : cases) {
        EXPECT_EQ(StringToBestVariant(text).Type(), best.Type()) << UnicodeString(text);
        EXPECT_TRUE(AreEqual(StringToBestVariant(text), best));
        EXPECT_EQ(StringToBestPropertyValue(text).Type(), property.Type()) << UnicodeString(text);
        EXPECT_TRUE(AreEqual(StringToBestPropertyValue(text), property));
    }
}

} // namespace
