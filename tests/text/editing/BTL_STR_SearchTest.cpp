// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_Search.h"

#include "text/BothWidthsSupport.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <string>

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

TYPED_TEST(SearchTest, FindsWithoutRegardToCaseWhatUpperCaseHas)
{
    const auto T = TestFixture::T;
    std::mt19937 random(1);
    const auto make = [&](std::size_t longest) {
        const std::string letters = "aAbB\xE4\xC4";
        std::string text(random() % longest, ' ');
        for (char& c : text) {
            c = letters[random() % letters.size()];
        }
        return T(text);
    };
    const auto upper = [](TypeParam text) {
        for (int i = 1; i <= text.Length(); ++i) {
            text[i] = BTL::CharUpperW(text[i]);
        }
        return text;
    };
    for (int round = 0; round < 2'000; ++round) {
        const TypeParam text = make(60);
        const TypeParam part = make(5);
        const int end = static_cast<int>(random() % 60);
        EXPECT_EQ(BTL::PosIC(text, part), upper(text).Pos(upper(part)));
        EXPECT_EQ(BTL::RIPos(text, part, end), BTL::RPos(upper(text), upper(part), end));
        const System::UnicodeString whole = text;
        EXPECT_EQ(BTL::IEndsWith(whole, part), BTL::EndsWith(upper(text), upper(part)));
    }
}

// Minutes in time with the product of both lengths.
TYPED_TEST(SearchTest, TakesTextsThatRepeatThemselves)
{
    const auto C = TestFixture::C;
    constexpr int size = 200'000;
    const TypeParam text = TypeParam::StringOfChar(C('a'), size);
    const TypeParam half = TypeParam::StringOfChar(C('A'), size / 4);
    const TypeParam nearly = half + C('b') + half;
    EXPECT_EQ(BTL::PosIC(text, nearly), 0);
    EXPECT_EQ(BTL::RIPos(text, nearly, -1), 0);
    EXPECT_EQ(BTL::PosIC(text + nearly + text, nearly), size + 1);
    EXPECT_EQ(BTL::RIPos(text + nearly + text, nearly, -1), size + 1);
    const TypeParam near =
        TypeParam::StringOfChar(C('a'), size / 4) + C('b') + TypeParam::StringOfChar(C('a'), size / 4);
    EXPECT_EQ(BTL::Pos(text, near), 0);
    EXPECT_EQ(text.Pos(near), 0);
    EXPECT_EQ(BTL::RPos(text, near, -1), 0);
}

} // namespace
