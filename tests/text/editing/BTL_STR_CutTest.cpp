// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_Cut.h"

#include "text/BothWidthsSupport.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{

template <class S>
using CutTest = Support::BothWidths<S>;
TYPED_TEST_SUITE(CutTest, Support::Widths);

TYPED_TEST(CutTest, CutsAtTheEnds)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    const struct
    {
        int n;
        const char* left;
        const char* right;
        const char* rightAt;
        const char* deleteLeft;
        const char* deleteRight;
        const char* deleteRightAt;
    } cases[] = {
        {2, "ab", "de", "bcde", "cde", "abc", "a"},       {5, "abcde", "abcde", "e", "", "", "abcd"},
        {6, "abcde", "abcde", "", "", "", "abcde"},       {0, "", "", "abcde", "abcde", "abcde", ""},
        {-1, "", "", "abcde", "abcde", "abcde", ""},      {INT_MAX, "abcde", "abcde", "", "", "", "abcde"},
        {INT_MIN, "", "", "abcde", "abcde", "abcde", ""},
    };
    for (const auto& c : cases) {
        const TypeParam s = T("abcde");
        EXPECT_EQ(BTL::LeftSubString(s, c.n), T(c.left)) << c.n;
        EXPECT_EQ(BTL::RightSubString(s, c.n), T(c.right)) << c.n;
        EXPECT_EQ(BTL::RightSubStringAt(s, c.n), T(c.rightAt)) << c.n;
        TypeParam work = s;
        EXPECT_EQ(BTL::DeleteLeft(work, c.n), T(c.deleteLeft)) << c.n;
        EXPECT_EQ(work, T(c.deleteLeft));
        work = s;
        EXPECT_EQ(BTL::DeleteRight(work, c.n), T(c.deleteRight)) << c.n;
        work = s;
        EXPECT_EQ(BTL::DeleteRightAt(work, c.n), T(c.deleteRightAt)) << c.n;
    }
    EXPECT_EQ(BTL::LeftSubStringUntil(T("abc"), C('b')), T("a"));
    EXPECT_EQ(BTL::LeftSubStringUntil(T("abc"), C('a')), T(""));
    EXPECT_EQ(BTL::LeftSubStringUntil(T("abc"), C('x')), T("abc"));
    TypeParam blanks = T(" a \t\x01");
    BTL::TrimEnd(blanks);
    EXPECT_EQ(blanks, T(" a"));
}

TYPED_TEST(CutTest, ReducesAndConsumes)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    TypeParam s = T("abcdef");
    EXPECT_TRUE(BTL::ReduceLength(s, 3, T("...")));
    EXPECT_EQ(s, T("abc..."));
    s = T("abc");
    EXPECT_FALSE(BTL::ReduceLength(s, 3, T("...")));
    EXPECT_FALSE(BTL::ReduceLength(s, -1, T("...")));
    EXPECT_EQ(s, T("abc"));
    BTL::ReduceLength(s, -1);
    BTL::ReduceLength(s, 2);
    EXPECT_EQ(s, T("ab"));

    s = T("a.b.c");
    EXPECT_EQ(BTL::ConsumeLeftSubString(s, C('.'), true), T("a"));
    EXPECT_EQ(s, T("b.c"));
    s = T("abc");
    EXPECT_EQ(BTL::ConsumeLeftSubString(s, C('.'), false), T(""));
    EXPECT_EQ(s, T("abc"));
    EXPECT_EQ(BTL::ConsumeLeftSubString(s, C('.'), true), T("abc"));
    EXPECT_EQ(s, T(""));
    s = T("a--b");
    EXPECT_EQ(BTL::ConsumeLeftSubString(s, T("--"), false), T("a"));
    EXPECT_EQ(s, T("b"));

    TypeParam left;
    s = T("a=b=c");
    BTL::GetSubStrings(s, C('='), left, s);
    EXPECT_EQ(left, T("a"));
    EXPECT_EQ(s, T("b=c"));
    BTL::GetSubStrings(T("abc"), C('='), left, s);
    EXPECT_EQ(left, T("abc"));
    EXPECT_EQ(s, T(""));
}

TYPED_TEST(CutTest, Quotes)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    const struct
    {
        const char* text;
        bool quoted;
        const char* extracted;
    } cases[] = {{"'a'", true, "a"}, {"''", true, ""},       {"'", false, ""}, {"'a", false, "a"},
                 {"a'", false, "a"}, {"''a''", true, "'a'"}, {"", false, ""}};
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::IsQuotedStr(T(c.text), C('\'')), c.quoted) << c.text;
        EXPECT_EQ(BTL::ExtractQuotedStr(T(c.text), C('\'')), T(c.extracted)) << c.text;
    }
}

TEST(CutLiteralTest, TakesNarrowCharacters)
{
    const System::UnicodeString text = u"\"a\u20ACb\"";
    EXPECT_EQ(BTL::LeftSubStringUntil(text, '\x80'), u"\"a");
    EXPECT_TRUE(BTL::IsQuotedStr(text, '"'));
    EXPECT_EQ(BTL::ExtractQuotedStr(text, '"'), u"a\u20ACb");
}

} // namespace
