// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_Arrays.h"

#include "platform/runtime/variants/Variants.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

using namespace BTL;
using System::UnicodeString;
using System::Variant;
using Variants::VarArrayOf;

TEST(VariantArraysTest, TakesBytesFromArrays)
{
    const Variant value = BytesToVar({1, 0, 255});
    EXPECT_EQ(value.ArrayHighBound(), 2);
    const auto bytes = VarToBytes(value);
    ASSERT_EQ(bytes.Length(), 3);
    EXPECT_EQ(bytes[2], 255);
    EXPECT_TRUE(BytesToVar({}).IsNull());
    EXPECT_EQ(VarToBytes(VarArrayOf({1})).Length(), 0);
    EXPECT_EQ(VarToBytes(Variant({0, 1, 0, 1}, System::varByte)).Length(), 0);
}

TEST(VariantArraysTest, SumsArrays)
{
    EXPECT_EQ(ForEeachVar_Sum(VarArrayOf({u"x"})), u"x");
    EXPECT_EQ(ForEeachVar_Sum(VarArrayOf({1, 2.5, 3})), 6.5);
    EXPECT_EQ(ForEeachVar_Sum(7), 7);
    const Variant none = ForEeachVar_Sum(Variant({0, -1}, System::varVariant));
    EXPECT_EQ(none.Type(), System::varInteger);
    EXPECT_EQ(none, 0);
    const Variant texts = VarArrayOf({"a", Variant(), u"b"});
    EXPECT_EQ(ForEeachVar_Sum(texts), u"ab");
    EXPECT_EQ(texts.GetElement(0), "a") << "the elements stay";
    // Joined anew each time, so many texts would take minutes.
    const std::vector<Variant> many(100'000, u"ten digits");
    EXPECT_EQ(ForEeachVar_Sum(Variant::ArrayOf(many)).As<UnicodeString>().Length(), 1'000'000);
}

} // namespace
