// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_Join.h"

#include "text/BothWidthsSupport.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{

template <class S>
using JoinTest = Support::BothWidths<S>;
TYPED_TEST_SUITE(JoinTest, Support::Widths);

TYPED_TEST(JoinTest, JoinsAndPads)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    TypeParam s;
    BTL::AddString(s, T("a"), T(", "));
    BTL::AddString(s, T(""), T(", "));
    EXPECT_EQ(BTL::AddString(s, s, T("-")), T("a, -a, "));
    EXPECT_EQ(BTL::ConcatenateStrings(T("C:\\long\\path"), T(".txt"), 10, T("...")), T("C:\\....txt"));
    EXPECT_EQ(BTL::ConcatenateStrings(T("a"), T("b"), 2, T("...")), T("ab"));
    EXPECT_EQ(BTL::ConcatenateStrings(T("abc"), T("xyz"), -5, T("~")), T("~xyz"));
    EXPECT_EQ(BTL::FillString(T("a"), 3, C('.')), T("a.."));
    EXPECT_EQ(BTL::FillStringLeft(T("a"), 3, C('.')), T("..a"));
    EXPECT_EQ(BTL::FillStringLeft(T("abc"), -3, C('.')), T("abc"));
    EXPECT_EQ(BTL::InsertNumber(T("file##.txt"), T("##"), 7), T("file07txt"))
        << "the rest is a picture too, and a separator needs digits behind it";
    EXPECT_EQ(BTL::InsertNumber(T("file"), T("##"), -7), T("file-7"));
    EXPECT_EQ(BTL::InsertNumber(T("file"), T(""), 7), T("file7"));
}

TEST(JoinWideTest, PadsNumbers)
{
    EXPECT_EQ(BTL::FillNumberLeftW(5, 100), u"005");
    EXPECT_EQ(BTL::FillNumberLeftW(-5, 99), u"-05");
    EXPECT_EQ(BTL::FillNumberLeftW(1234, 99), u"1234");
    EXPECT_EQ(BTL::FillNumberLeftW(INT_MIN, 0), u"-2147483648");
    EXPECT_EQ(BTL::FillNumberLeftA(5, 1000), "0005");
    EXPECT_EQ(BTL::StrCat(u"a", u"b", u"/"), u"a/b");
    EXPECT_EQ(BTL::StrCat(u"", u"b", u"/"), u"b");
    EXPECT_EQ(BTL::StrCat(u"a", u"", u"/"), u"a");
}

TEST(JoinLiteralTest, TakesNarrowCharacters)
{
    const System::UnicodeString text = u"a";
    EXPECT_EQ(BTL::FillString(text, 3, '\x80'), u"a\u20AC\u20AC");
    EXPECT_EQ(BTL::FillStringLeft(text, 3, ' '), u"  a");
}

} // namespace
