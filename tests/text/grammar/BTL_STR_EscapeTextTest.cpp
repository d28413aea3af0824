// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_STR_EscapeText.h"

#include "text/BothWidthsSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace
{

using System::UnicodeString;

template <class S>
using EscapeTextTest = Support::BothWidths<S>;
TYPED_TEST_SUITE(EscapeTextTest, Support::Widths);

TYPED_TEST(EscapeTextTest, WritesAndReadsInOnePass)
{
    const auto T = TestFixture::T;
    const struct
    {
        std::string text;
        const char* escaped;
    } cases[] = {
        {"", ""},
        {"plain 'text'", "plain 'text'"},
        {"C:\\new\\table", R"(C:\\new\\table)"},
        {"a\nb\rc\td", R"(a\nb\rc\td)"},
        {std::string("\0\x1F ", 3), R"(\x00\x1F )"},
        {"\x7F\xFF", "\x7F\xFF"},
        {"\\", R"(\\)"},
        {"\n", R"(\n)"},
    };
    for (const auto& [text, escaped] : cases) {
        SCOPED_TRACE(escaped);
        EXPECT_EQ(BTL::EscapeText(T(text)), T(escaped));
        EXPECT_EQ(BTL::UnescapeText(T(escaped)), T(text));
    }
}

TYPED_TEST(EscapeTextTest, LeavesWhatIsNoEscape)
{
    const auto T = TestFixture::T;
    const struct
    {
        const char* escaped;
        const char* text;
    } cases[] = {
        {R"(\)", R"(\)"},      {R"(a\)", R"(a\)"},   {R"(\q\')", R"(\q\')"}, {R"(\\\q)", R"(\\q)"},
        {R"(\x)", R"(\x)"},    {R"(\x1)", R"(\x1)"}, {R"(\x1g)", R"(\x1g)"}, {R"(\N)", R"(\N)"},
        {R"(\x41\x6a)", "Aj"}, {R"(\\n)", R"(\n)"},
    };
    for (const auto& [escaped, text] : cases) {
        EXPECT_EQ(BTL::UnescapeText(T(escaped)), T(text)) << escaped;
    }
}

TYPED_TEST(EscapeTextTest, BringsEveryTextBack)
{
    std::mt19937 random(20220228);
    const std::string letters("\\\\\\nrtx01aF\n\r\t\0\x1F\x80 '\"", 20);
    std::uniform_int_distribution<std::size_t> letter(0, letters.size() - 1);
    std::uniform_int_distribution<int> length(0, 12);
    for (int i = 0; i < 5000; ++i) {
        std::string made(static_cast<std::size_t>(length(random)), ' ');
        std::ranges::generate(made, [&] { return letters[letter(random)]; });
        const TypeParam text = this->T(made);
        const TypeParam escaped = BTL::EscapeText(text);
        ASSERT_EQ(BTL::UnescapeText(escaped), text) << i;
        ASSERT_TRUE(std::ranges::none_of(escaped, [](auto c) { return c >= 0 && c < 32; })) << i;
        // Any text may be read, too, and never grows.
        ASSERT_LE(BTL::UnescapeText(text).Length(), text.Length()) << i;
    }
}

} // namespace
