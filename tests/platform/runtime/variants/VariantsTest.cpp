// SPDX-License-Identifier: MIT
#include "platform/runtime/variants/Variants.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/variants/System_VariantSupport.h"

#include <climits>
#include <sstream>

#include <gmock/gmock.h>

namespace
{

using namespace System;
using namespace Support;
using namespace Variants;

class VariantsTest : public VariantFixture
{
};

TEST_F(VariantsTest, ComparesByRules)
{
    const Variant array = VarArrayOf({1, u"a"});
    enum TOrder
    {
        Equal,
        Less,
        Apart
    };
    const struct
    {
        Variant a;
        Variant b;
        TOrder order;
        TVariantRelationship relationship;
    } cases[] = {
        {Null(), Null(), Equal, vrEqual},
        {Null(), Unassigned(), Less, vrNotEqual},
        {Null(), -1, Less, vrNotEqual},
        {Null(), array, Less, vrNotEqual},
        {Unassigned(), Unassigned(), Equal, vrEqual},
        {Unassigned(), 0, Equal, vrNotEqual},
        {Unassigned(), u"", Equal, vrNotEqual},
        {Unassigned(), u"a", Less, vrNotEqual},
        {Unassigned(), false, Equal, vrNotEqual},
        {1, 1.0, Equal, vrEqual},
        {1, 1.5, Less, vrLessThan},
        {-1, ULLONG_MAX, Less, vrLessThan},
        {LLONG_MAX, Decimal(ULLONG_MAX), Less, vrLessThan},
        {9007199254740992.0, 9007199254740993LL, Less, vrLessThan},
        {Currency(0.1), 0.1, Equal, vrEqual},
        {Currency::OfUnits(LLONG_MAX - 1), Currency::OfUnits(LLONG_MAX), Less, vrLessThan},
        {Currency(2), 2, Equal, vrEqual},
        {TDateTime(2), 2.5, Less, vrLessThan},
        {u"1900-01-01", TDateTime(2), Equal, vrEqual},
        {false, true, Less, vrLessThan},
        {true, -1, Equal, vrEqual},
        {"TRUE", true, Equal, vrEqual},
        {u"a", "a", Equal, vrEqual},
        {u"A", u"a", Less, vrLessThan},
        {u"10", u"9", Less, vrLessThan},
        {9, u"10", Less, vrLessThan},
        {u"1,5", 1.5, Equal, vrEqual},
        {u"x", 5, Apart, vrNotEqual},
        {u"x", true, Apart, vrNotEqual},
        {double{NAN}, double{NAN}, Apart, vrNotEqual},
        {array, VarArrayOf({1.0, "a"}), Equal, vrEqual},
        {array, VarArrayOf({1, u"b"}), Apart, vrNotEqual},
        {array, Variant({1, 2}, varVariant), Apart, vrNotEqual},
        {array, 1, Apart, vrNotEqual},
    };
    for (const auto& [a, b, order, relationship] : cases) {
        const testing::Message where = testing::Message() << a << " with " << b;
        EXPECT_EQ(a == b, order == Equal) << where;
        EXPECT_EQ(b == a, order == Equal) << where;
        EXPECT_EQ(a < b, order == Less) << where;
        EXPECT_EQ(b > a, order == Less) << where;
        EXPECT_FALSE(a > b) << where;
        EXPECT_EQ(VarCompareValue(a, b), relationship) << where;
        EXPECT_EQ(VarSameValue(b, a), relationship == vrEqual) << where;
    }
    EXPECT_TRUE(Variant(5) == 5 && 5 == Variant(5) && Variant(u"a") != "b" &&
                UnicodeString(u"a") == Variant("a"));
    EXPECT_TRUE(Variant(5) > 4.5 && 4 < Variant(5) && Variant(TDateTime(1)) <= TDateTime(1));
}

TEST_F(VariantsTest, AnswersByType)
{
    const struct
    {
        Variant value;
        bool ordinal;
        bool floating;
        bool text;
        const WideChar* string;
    } cases[] = {
        {Variant(), false, false, false, u""},
        {Null(), false, false, false, u"?"},
        {Byte{5}, true, false, false, u"5"},
        {true, true, false, false, u"True"},
        {1.5F, false, true, false, u"1,5"},
        {Currency(1), false, true, false, u"1"},
        {TDateTime(2), false, false, false, u"1900-01-01"},
        {u"5", false, false, true, u"5"},
        {"a", false, false, true, u"a"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(VarIsOrdinal(test.value), test.ordinal) << test.value;
        EXPECT_EQ(VarIsFloat(test.value), test.floating) << test.value;
        EXPECT_EQ(VarIsNumeric(test.value), test.ordinal || test.floating) << test.value;
        EXPECT_EQ(VarIsStr(test.value), test.text) << test.value;
        EXPECT_EQ(VarToStrDef(test.value, u"?"), test.string) << test.value;
    }
    EXPECT_EQ(VarToStr(Null()), u"");
    EXPECT_TRUE(VarIsType(5, {varByte, varInteger}));
    EXPECT_FALSE(VarIsType(5, {varByte, varWord}));
    std::ostringstream stream;
    stream << Null() << Variant(u"ä") << VarArrayOf({1});
    EXPECT_EQ(stream.str(), "(Null)\xC3\xA4(Array Variant)");
}

} // namespace
