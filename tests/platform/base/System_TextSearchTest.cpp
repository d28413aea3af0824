// SPDX-License-Identifier: MIT
#include "platform/base/System_TextSearch.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace
{

using System::Detail::FindLastText;
using System::Detail::FindText;

template <class Char>
class TextSearchTest : public testing::Test
{
protected:
    using View = std::basic_string_view<Char>;

    /// The text in the width under test, each character moved up by `offset`.
    static std::basic_string<Char> T(const std::string& text, int offset = 0)
    {
        std::basic_string<Char> result;
        for (const char c : text) {
            result += static_cast<Char>(c + offset);
        }
        return result;
    }

    static void ExpectAsStandard(View text, View pattern)
    {
        ASSERT_EQ(FindLastText(text, pattern), text.rfind(pattern));
        for (std::size_t from = 0; from <= text.size() + 1; ++from) {
            ASSERT_EQ(FindText(text, pattern, from), text.find(pattern, from)) << "from " << from;
        }
    }
};

using Widths = testing::Types<char, char16_t>;
TYPED_TEST_SUITE(TextSearchTest, Widths);

TYPED_TEST(TextSearchTest, FindsWhatTheStandardFinds)
{
    const std::string texts[] = {"",
                                 "a",
                                 "b",
                                 "ab",
                                 "aab",
                                 "abcabcabd",
                                 "the quick brown fox jumps over the dog",
                                 "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaab",
                                 std::string("a\0b\0a\0b", 7)};
    const std::string patterns[] = {"",
                                    "a",
                                    "b",
                                    "ab",
                                    "ba",
                                    "abcabd",
                                    "fox",
                                    "the",
                                    "dog",
                                    "g",
                                    "aab",
                                    "aaaa",
                                    std::string(1, '\0'),
                                    std::string("b\0a", 3)};
    for (const int offset : {0, 100}) {
        for (const std::string& text : texts) {
            for (const std::string& pattern : patterns) {
                SCOPED_TRACE("'" + pattern + "' in '" + text + "'");
                this->ExpectAsStandard(this->T(text, offset), this->T(pattern, offset));
            }
        }
    }
}

TYPED_TEST(TextSearchTest, FindsInRandomTexts)
{
    std::mt19937 random(1);
    for (int round = 0; round < 3'000; ++round) {
        const int letters = 1 + static_cast<int>(random() % 3);
        const auto make = [&](std::size_t longest) {
            std::basic_string<TypeParam> text(random() % longest, TypeParam());
            for (TypeParam& c : text) {
                c = static_cast<TypeParam>('a' + static_cast<int>(random()) % letters);
            }
            return text;
        };
        const auto text = make(100);
        this->ExpectAsStandard(text, make(1 + random() % 20));
        const auto begin = random() % (text.size() + 1);
        this->ExpectAsStandard(text, std::basic_string_view<TypeParam>(text).substr(begin, random() % 40));
    }
}

// Each of these would take minutes in time with the product of both lengths.
TYPED_TEST(TextSearchTest, TakesTextsThatRepeatThemselves)
{
    constexpr std::size_t size = 200'000;
    const auto repeated = [this](const std::string& unit, std::size_t length) {
        std::basic_string<TypeParam> text;
        while (text.size() < length) {
            text += this->T(unit);
        }
        return text;
    };
    for (const std::string unit : {"a", "ab", "aab", "abaab"}) {
        SCOPED_TRACE(unit);
        const auto text = repeated(unit, size);
        const auto half = repeated(unit, size / 4);
        const auto joined = [](const auto&... texts) {
            std::basic_string<TypeParam> result;
            (result.append(texts), ...);
            return result;
        };
        const auto nearly = joined(half, this->T("x"), half);
        EXPECT_EQ(FindText(text, nearly), text.npos);
        EXPECT_EQ(FindLastText(text, nearly), text.npos);
        EXPECT_EQ(FindText(joined(text, nearly, text), nearly), text.size());
        EXPECT_EQ(FindLastText(joined(text, nearly, text), nearly), text.size());
        const auto doubled = joined(half, half);
        EXPECT_EQ(FindText(text, doubled), 0U);
        EXPECT_EQ(FindText(joined(nearly, nearly, text), doubled), half.size() + 1);
        EXPECT_EQ(FindLastText(joined(text, nearly, nearly), doubled), text.size() + half.size() + 1);
    }
}

} // namespace
