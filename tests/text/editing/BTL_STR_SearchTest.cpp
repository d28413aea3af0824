// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_Search.h"

#include "text/BothWidthsSupport.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{

using System::UnicodeString;

template <class S>
using SearchTest = Support::BothWidths<S>;
TYPED_TEST_SUITE(SearchTest, Support::Widths);

TYPED_TEST(SearchTest, Searches)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    const TypeParam s = T("abcabc");
    EXPECT_EQ(BTL::Pos(s, C('c')), 3);
    EXPECT_EQ(BTL::CharPos(s.c_str(), C('x')), 0);
    EXPECT_EQ(BTL::CharPos(static_cast<const typename TypeParam::CharType*>(nullptr), C('x')), 0);
    EXPECT_EQ(BTL::Pos(s, T("bc"), 3), 5);
    EXPECT_EQ(BTL::Pos(s, T("bc"), -7), 2);
    EXPECT_EQ(BTL::Pos(s, T("bc"), 7), 0);
    EXPECT_EQ(BTL::Pos(s, T("bc"), INT_MAX), 0);
    EXPECT_EQ(BTL::Pos(s, T(""), 1), 0);
    EXPECT_EQ(BTL::CharRPos(s, C('b'), -1), 5);
    EXPECT_EQ(BTL::CharRPos(s, C('b'), 4), 2);
    EXPECT_EQ(BTL::CharRPos(s, C('b'), 0), 0);
    EXPECT_EQ(BTL::RPos(s, T("bc"), 99), 5);
    EXPECT_EQ(BTL::RPos(s, T("bc"), 5), 2) << "the last occurrence must lie wholly before the end";
    EXPECT_EQ(BTL::RPos(s, T(""), -1), 0);
    EXPECT_EQ(BTL::RIPos(T("xAbaB"), T("aB"), -1), 4);
    EXPECT_EQ(BTL::PosIC(T("x\xC4y"), T("\xE4Y")), 2);
    EXPECT_EQ(BTL::PosIC(T("\xDFx"), T("X")), 2) << "places stay, whatever upper case does to a letter";
    EXPECT_EQ(BTL::CountChar(T("abca").c_str(), C('a')), 2);
    EXPECT_EQ(BTL::CountChar(T("abca").c_str(), C(0)), 0);
    EXPECT_TRUE(BTL::IsText(T("12\xE4")));
    EXPECT_FALSE(BTL::IsText(T("12_ \xF7")));
    EXPECT_EQ(BTL::CharUpperW(C('\xE4')), C('\xC4'));
    EXPECT_EQ(BTL::CharUpperW(C('\xDF')), C('\xDF'));
}

TEST(SearchWideTest, ComparesBeginsAndEnds)
{
    const UnicodeString s = u"abcab";
    EXPECT_TRUE(BTL::BeginsWith(s, u"bc", 2));
    EXPECT_TRUE(BTL::BeginsWith(s, u"", 6));
    for (const int at : {INT_MIN, 0, 7, INT_MAX}) {
        EXPECT_FALSE(BTL::BeginsWith(s, u"", at)) << at;
    }
    EXPECT_FALSE(BTL::BeginsWith(s, u"abc", 4));
    EXPECT_TRUE(BTL::EndsWith(s, u"ab"));
    EXPECT_FALSE(BTL::EndsWith(s, u"abc"));
    EXPECT_FALSE(BTL::EndsWith(s, u""));
    EXPECT_TRUE(BTL::IEndsWith(s, u"AB"));
    EXPECT_EQ(BTL::CountChar(UnicodeString(u"€a€"), '\x80'), 2);
}

TEST(SearchLiteralTest, TakesTextsAndNarrowCharacters)
{
    const System::UnicodeString text = u"a\u20ACb\u20AC";
    EXPECT_EQ(BTL::Pos(text, u"b"), 3);
    EXPECT_EQ(BTL::Pos(text, "b"), 3);
    EXPECT_EQ(BTL::Pos(text, 'b'), 3);
    EXPECT_EQ(BTL::Pos(text, '\x80'), 2) << "the sign of the euro in the code page";
    EXPECT_EQ(BTL::Pos_N2(text, '\x80'), 2);
    EXPECT_EQ(BTL::CharRPos(text, '\x80', -1), 4);
    EXPECT_EQ(BTL::Pos(System::AnsiString("ab"), "b"), 2);
}

} // namespace
