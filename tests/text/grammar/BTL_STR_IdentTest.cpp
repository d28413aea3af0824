// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_STR_Ident.h"

#include "text/BothWidthsSupport.h"
#include "text/GrowthSupport.h"
#include "text/editing/BTL_STR_Search.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

using System::AnsiString;
using System::UnicodeString;

template <class S>
using IdentTest = Support::BothWidths<S>;
TYPED_TEST_SUITE(IdentTest, Support::Widths);

TYPED_TEST(IdentTest, MakesIdentifiers)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    EXPECT_EQ(BTL::TransformToValidIdent(T("1a b\xE4_2"), C('_')), T("_a_b__2"));
    EXPECT_EQ(BTL::TransformToValidIdent(T("-1a b"), C(0)), T("1ab"));
    EXPECT_EQ(BTL::TransformToValidIdent(T("9"), C(0)), T(""));
    const TypeParam first = BTL::TransformToValidIdent(T("--"), C(0), T("Name"));
    const TypeParam second = BTL::TransformToValidIdent(T(""), C('_'), T("Name"));
    ASSERT_EQ(first.SubString(1, 4), T("Name"));
    EXPECT_EQ(std::stoi(AnsiString(second.SubString(5)).c_str()),
              std::stoi(AnsiString(first.SubString(5)).c_str()) + 1);
    EXPECT_EQ(BTL::TransformToValidIdent(T("a"), C(0), T("Name")), T("a"));
}

TYPED_TEST(IdentTest, FindsAndClearsShortCuts)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    const struct
    {
        const char* text;
        int single;
        int shortCut;
        const char* cleared;
    } marks[] = {{"&File", 1, 1, "File"}, {"A&&B&C", 5, 5, "A&&BC"}, {"A&", 2, 0, "A"},
                 {"A&&", 0, 0, "A&&"},    {"&&&x", 3, 3, "&&x"},     {"", 0, 0, ""},
                 {"&", 1, 0, ""},         {"a&b&c", 2, 2, "abc"}};
    for (const auto& c : marks) {
        EXPECT_EQ(BTL::Pos_N2(T(c.text), C('&')), c.single) << c.text;
        EXPECT_EQ(BTL::ShortCutPos(T(c.text), C('&')), c.shortCut) << c.text;
        EXPECT_EQ(BTL::ClearShortCut(T(c.text), C('&')), T(c.cleared)) << c.text;
    }
}

TEST(IdentWideTest, TakesLongTexts)
{
    const UnicodeString text = Support::RepeatedText();
    EXPECT_EQ(BTL::ClearShortCut(text, u'b').Length(), 4 * Support::LongText);
}

} // namespace
