// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_Compare.h"

#include "platform/runtime/variants/Variants.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace
{

using namespace BTL;
using System::Variant;
using Variants::Null;
using Variants::VarArrayOf;

TEST(VariantCompareTest, Compares)
{
    const struct
    {
        Variant a;
        Variant b;
        int result;
    } cases[] = {{Null(), 1, -1}, {1, Null(), 1}, {Null(), Null(), 0}, {Null(), Variant(), -1},
                 {2, u"10", -1},  {2.5, 2, 1},    {u"b", u"a", 1},     {Variant(), Variant(), 0}};
    for (const auto& [a, b, result] : cases) {
        EXPECT_EQ(Compare(a, b), result) << a << ' ' << b;
        EXPECT_EQ(AreEqual(a, b), result == 0);
    }
    const std::pair<Variant, Variant> apart[] = {
        {u"x", 5}, {u"x", true}, {VarArrayOf({1}), 1}, {std::nan(""), 1}};
    for (const auto& [a, b] : apart) {
        EXPECT_EQ(Compare(a, b), -1) << a << ' ' << b;
        EXPECT_EQ(Compare(b, a), -1) << a << ' ' << b;
    }
    const Variant unordered = std::nan("");
    const Variant another = std::nan("");
    EXPECT_TRUE(AreEqual(unordered, unordered)) << "the same object";
    EXPECT_FALSE(AreEqual(unordered, another));
}

TEST(VariantCompareTest, ComparesArrays)
{
    EXPECT_TRUE(AreEqual(VarArrayOf({1, u"x"}), VarArrayOf({1.0, "x"})));
    EXPECT_TRUE(AreEqual(VarArrayOf({1, VarArrayOf({2, Null()})}), VarArrayOf({1, VarArrayOf({2, Null()})})));
    EXPECT_FALSE(AreEqual(VarArrayOf({Variant()}), VarArrayOf({0})));
    EXPECT_FALSE(AreEqual(VarArrayOf({VarArrayOf({Variant()})}), VarArrayOf({VarArrayOf({0})})))
        << "the same rule on each level";
    const auto grid = [](const Variant& last, int high = 1) {
        Variant array({0, 1, 0, high}, System::varVariant);
        array.PutElement(last, 1, 1);
        return array;
    };
    EXPECT_TRUE(AreEqual(grid(3), grid(u"3")));
    EXPECT_FALSE(AreEqual(grid(3), grid(4)));
    EXPECT_FALSE(AreEqual(grid(0), grid(Variant())));
    EXPECT_FALSE(AreEqual(grid(3), grid(3, 2)));
    EXPECT_FALSE(AreEqual(VarArrayOf({1, 2}), VarArrayOf({1, 3})));
    EXPECT_FALSE(AreEqual(VarArrayOf({1, 2}), VarArrayOf({1})));
    EXPECT_FALSE(AreEqual(VarArrayOf({1}), 1));
    EXPECT_FALSE(AreEqual(Variant({0, 1}, System::varInteger), Variant({1, 2}, System::varInteger)));
}

} // namespace
