// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_STR_Escape.h"

#include "text/BothWidthsSupport.h"
#include "text/GrowthSupport.h"

#include <gtest/gtest.h>

namespace
{

using System::UnicodeString;

template <class S>
using EscapeTest = Support::BothWidths<S>;
TYPED_TEST_SUITE(EscapeTest, Support::Widths);

TYPED_TEST(EscapeTest, AppliesAndInsertsEscapes)
{
    const auto T = TestFixture::T;
    EXPECT_EQ(BTL::ApplyEscapeSequences(T("a\\nb\\rc\\td\\\\e\\'")), T("a\nb\rc\td\\e\\'"));
    EXPECT_EQ(BTL::ApplyEscapeSequences(T("\\\\n")), T("\\\n")) << "one replacement after the other";
    EXPECT_EQ(BTL::ApplyEscapeSequences2(T("\\\"a\\'")), T("\"a'"));
    EXPECT_EQ(BTL::InsertEscapeSequences(T("a\nb\\c'")), T("a\\nb\\\\c'"));
    EXPECT_EQ(BTL::InsertEscapeSequences2(T("'\"\t")), T("\\'\\\"\\t"));
}

TEST(EscapeWideTest, TakesLongTexts)
{
    const UnicodeString text = Support::RepeatedText();
    EXPECT_EQ(BTL::ApplyEscapeSequences2(BTL::InsertEscapeSequences2(text)), text);
}

} // namespace
