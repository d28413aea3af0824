// SPDX-License-Identifier: MIT
#include "platform/base/System_CodePage.h"

#include "platform/base/System_String.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <string>

namespace
{

using System::CP_UTF8;
using System::DecodeText;
using System::DefaultSystemCodePage;
using System::EncodeText;

std::u16string Decode(System::CodePage codePage, std::string_view bytes)
{
    return std::u16string(DecodeText(codePage, bytes).AsView());
}

std::string Encode(System::CodePage codePage, std::u16string_view text)
{
    return std::string(EncodeText(codePage, text).AsView());
}

TEST(CodePageTest, EveryWesternByteComesBack)
{
    std::string bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    const std::u16string text = Decode(DefaultSystemCodePage, bytes);
    EXPECT_EQ(text.size(), 256U);
    EXPECT_EQ(text[0x80], u'€');
    EXPECT_EQ(text[0x9F], u'Ÿ');
    EXPECT_EQ(text[0x81], 0x81) << "an unassigned code passes as the control character of its number";
    EXPECT_EQ(Encode(DefaultSystemCodePage, text), bytes);
}

TEST(CodePageTest, WesternLosesOneMarkPerCharacter)
{
    const char16_t lone[] = {u'a', 0xD83D, u'b', 0xDCA1, 0xD83D};
    const struct
    {
        std::u16string_view text;
        const char* expected;
    } cases[] = {{u"a→b", "a?b"}, {u"a💡b", "a?b"}, {{lone, 5}, "a?b??"}, {u"\u0100", "?"}, {u"\u0080", "?"}};
    for (const auto& c : cases) {
        EXPECT_EQ(Encode(DefaultSystemCodePage, c.text), c.expected);
    }
}

/// Runs of plain characters are converted in blocks; a character that isn't plain stands at each place of
/// them.
TEST(CodePageTest, EachPlaceOfABlockIsConverted)
{
    for (const std::u16string_view character : {u"\u00E4", u"\u20AC", u"\u0416", u"\u4E2D", u"\U0001F4A1"}) {
        for (const System::CodePage codePage : {DefaultSystemCodePage, CP_UTF8}) {
            const std::string bytes = Encode(codePage, character);
            for (std::size_t place = 0; place < 70; ++place) {
                SCOPED_TRACE(place);
                const std::size_t rest = 70 - place;
                const std::u16string text =
                    std::u16string(place, u'a') + std::u16string(character) + std::u16string(rest, u'z');
                const std::string expected = std::string(place, 'a') + bytes + std::string(rest, 'z');
                ASSERT_EQ(Encode(codePage, text), expected);
                ASSERT_EQ(Encode(codePage, std::u16string_view(text).substr(0, text.size() - rest)),
                          expected.substr(0, expected.size() - rest));
                if (bytes != "?") {
                    ASSERT_EQ(Decode(codePage, expected), text);
                    ASSERT_EQ(Decode(codePage, std::string_view(expected).substr(place)),
                              std::u16string_view(text).substr(place));
                }
            }
        }
    }
}

TEST(CodePageTest, IllFormedUtf8BecomesReplacementCharacters)
{
    const struct
    {
        const char* bytes;
        std::u16string_view expected;
    } cases[] = {
        {"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x92\xA1", u"ä€💡"},
        {"\x80", u"\uFFFD"},
        {"\xC0\xAF", u"\uFFFD\uFFFD"},
        {"\xE0\x80\xAF", u"\uFFFD\uFFFD\uFFFD"},
        {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xF5x", u"\uFFFDx"},
        {"\xE2\x82", u"\uFFFD"},
        {"\xE2\x82x", u"\uFFFDx"},
        {"\xF0\x9F\x92", u"\uFFFD"},
        {"a\xFF", u"a\uFFFD"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Decode(CP_UTF8, c.bytes), c.expected) << testing::PrintToString(c.bytes);
    }
    const char16_t lone[] = {0xDC00, u'x', 0xD800};
    EXPECT_EQ(Encode(CP_UTF8, {lone, 3}), "\xEF\xBF\xBDx\xEF\xBF\xBD");
}

TEST(CodePageTest, WhatIsNoTextInOtherCodePagesBecomesReplacementCharacters)
{
    const struct
    {
        System::CodePage codePage;
        const char* bytes;
        std::u16string_view expected;
    } cases[] = {
        {932, "a\xFFz", u"a\uFFFDz"},
        {932, "a\x81", u"a\uFFFD"},
        {1253, "a\xD2z", u"a\uFFFDz"},
    };
    for (const auto& [codePage, bytes, expected] : cases) {
        EXPECT_EQ(System::DecodeText(codePage, bytes).AsView(), expected) << codePage << ' ' << bytes;
    }
}

TEST(CodePageTest, Utf8KeepsEveryText)
{
    std::mt19937 random(1);
    for (int round = 0; round < 300; ++round) {
        std::u16string text;
        const auto length = random() % 40;
        while (text.size() < length) {
            // Runs of plain characters drive the word-wise paths, the others all lengths of UTF-8.
            const char32_t limits[] = {0x80, 0x80, 0x800, 0xD800, 0x110000};
            const auto code = static_cast<char32_t>(random() % limits[random() % 5]);
            if (code >= 0x10000) {
                text += static_cast<char16_t>(0xD7C0 + (code >> 10));
                text += static_cast<char16_t>(0xDC00 + (code & 0x3FF));
            } else if (code < 0xD800 || code >= 0xE000) {
                text += static_cast<char16_t>(code);
            }
        }
        EXPECT_EQ(Decode(CP_UTF8, Encode(CP_UTF8, text)), text);
    }
}

TEST(CodePageTest, OtherCodePagesAreKnown)
{
    EXPECT_EQ(Decode(1251, "\xC6"), u"Ж");
    EXPECT_EQ(Encode(1251, u"Жä"), "\xC6?");
    EXPECT_EQ(Decode(932, "\x93\xFA"), u"日");
    EXPECT_EQ(Encode(932, u"日"), "\x93\xFA");
    EXPECT_EQ(Decode(4711, "\xE4"), u"ä") << "an unknown one counts as Western";
}

} // namespace
