// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_STR_Escape.h"

#include "text/editing/BTL_STR_Replace.h"

#include "text/BothWidthsSupport.h"
#include "text/GrowthSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

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

TYPED_TEST(EscapeTest, DoesInOneWalkWhatReplacementsInTurnDo)
{
    using S = TypeParam;
    const auto inTurn = [](S text, auto replacements) {
        for (const auto& [from, to] : replacements) {
            text = BTL::ExchangeAll(text, S(from), S(to));
        }
        return text;
    };
    using TReplacements = std::vector<std::pair<const char*, const char*>>;
    const TReplacements apply = {{"\\n", "\n"}, {"\\r", "\r"}, {"\\t", "\t"}, {"\\\\", "\\"}};
    const TReplacements applyQuotes = {{"\\\"", "\""}, {"\\'", "'"}};
    const TReplacements insert = {{"\\", "\\\\"}, {"\n", "\\n"}, {"\r", "\\r"}, {"\t", "\\t"}};
    const TReplacements insertQuotes = {{"'", "\\'"}, {"\"", "\\\""}};

    // All texts of up to five of these characters.
    std::vector<std::string> texts = {""};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::string text = texts[i];
        const S s{text.c_str()};
        SCOPED_TRACE(text);
        EXPECT_EQ(BTL::ApplyEscapeSequences(s), inTurn(s, apply));
        EXPECT_EQ(BTL::ApplyEscapeSequences2(s), inTurn(inTurn(s, apply), applyQuotes));
        EXPECT_EQ(BTL::InsertEscapeSequences(s), inTurn(s, insert));
        EXPECT_EQ(BTL::InsertEscapeSequences2(s), inTurn(inTurn(s, insert), insertQuotes));
        for (const char c : text.size() < 5 ? std::string_view("\\n\"'\t") : std::string_view()) {
            texts.push_back(text + c);
        }
    }
}

TEST(EscapeWideTest, TakesLongTexts)
{
    const UnicodeString text = Support::RepeatedText();
    EXPECT_EQ(BTL::ApplyEscapeSequences2(BTL::InsertEscapeSequences2(text)), text);
}

} // namespace
