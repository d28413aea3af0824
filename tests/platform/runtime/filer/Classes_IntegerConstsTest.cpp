// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_IntegerConsts.h"

#include "platform/runtime/filer/FilerSupport.h"

#include <gtest/gtest.h>

using namespace Classes;
using System::UnicodeString;

namespace
{

constexpr TIdentMapEntry Numbers[] = {{1, u"one"}, {2, u"two"}, {2, u"couple"}};

TEST(IntegerConstsTest, TablesGoBothWays)
{
    int value = 7;
    EXPECT_FALSE(IdentToInt(u"three", value, Numbers));
    EXPECT_EQ(value, 7);
    EXPECT_TRUE(IdentToInt(u"COUPLE", value, Numbers));
    EXPECT_EQ(value, 2);
    UnicodeString name = u"none";
    EXPECT_FALSE(IntToIdent(3, name, Numbers));
    EXPECT_EQ(name, u"none");
    EXPECT_TRUE(IntToIdent(2, name, Numbers));
    EXPECT_EQ(name, u"two");
}

TEST(IntegerConstsTest, TypesHaveTheirOwnNames)
{
    FilerTest::RegisterClasses();
    ASSERT_NE(FindIdentToInt(FilerTest::ColourType()), nullptr);
    ASSERT_NE(FindIntToIdent(FilerTest::ColourType()), nullptr);
    int value = 0;
    EXPECT_TRUE(FindIdentToInt(FilerTest::ColourType())(u"clred", value));
    EXPECT_EQ(value, 0xFF);
    EXPECT_EQ(FindIdentToInt(Typinfo::TypeInfoOf<int>()), nullptr);
    EXPECT_EQ(FindIntToIdent(nullptr), nullptr);
    // What is no pair of functions changes nothing.
    RegisterIntegerConsts(FilerTest::ColourType(), nullptr, nullptr);
    EXPECT_NE(FindIdentToInt(FilerTest::ColourType()), nullptr);
}

} // namespace
