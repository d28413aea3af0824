// SPDX-License-Identifier: MIT
#include "foundation/UTL_STR_String.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

using System::AnsiString;
using UTL::CString;

TEST(StringTest, CutsAtItsBounds)
{
    EXPECT_EQ(CString(static_cast<const char*>(nullptr)), "");
    EXPECT_EQ(CString("abc", 2), "ab");
    EXPECT_EQ(CString("abc", 99), "abc");
    EXPECT_EQ(CString("abc", -1), "");
    EXPECT_EQ(CString(static_cast<const char*>(nullptr), 3), "");
    EXPECT_EQ(CString(std::string("abc"), 1), "bc");
    EXPECT_EQ(CString(std::string("abc"), 99), "");
    EXPECT_EQ(CString(std::string("abc"), -1), "abc");
}

TEST(StringTest, MixesWithTheRunTimeString)
{
    const AnsiString other("b");
    CString text(other);
    EXPECT_TRUE(text == other);
    text = AnsiString("a");
    text += other;
    text += "c";
    EXPECT_EQ(text, "abc");
    EXPECT_EQ(text + other, "abcb");
    EXPECT_EQ(text + "d", "abcd");
    EXPECT_TRUE(text < other);
    EXPECT_FALSE(CString("b") < other);
    const AnsiString back = text;
    EXPECT_EQ(back, "abc");
}

TEST(StringTest, TrimsAndReadsNumbers)
{
    EXPECT_EQ(CString("  x ").Trim(), "x");
    EXPECT_EQ(CString("\t\x01 x \n").TrimLeft(), "x \n");
    EXPECT_EQ(CString(" x \n").TrimRight(), " x");
    EXPECT_EQ(CString("a\xE4").UpperCase(), "A\xC4");
    long integer = 7;
    double number = 7;
    EXPECT_FALSE(CString("").GetLong(integer));
    EXPECT_FALSE(CString("").GetDouble(number));
    EXPECT_EQ(integer, 7);
    EXPECT_EQ(number, 7);
    EXPECT_TRUE(CString(" 12").GetLong(integer));
    EXPECT_EQ(integer, 12);
    EXPECT_EQ(CString("12x").ToInt(), 12);
    EXPECT_EQ(CString("1.5x").ToFloat(), 1.5F);
    EXPECT_TRUE(CString("-").IsDigitString(true, false));
    EXPECT_FALSE(CString("").IsDigitString(true, true));
}

} // namespace
