// SPDX-License-Identifier: MIT
#include "platform/base/internal/System_LinearSearch.h"

#include "platform/base/internal/System_Ascii.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace
{

using System::Detail::FindLinear;
using System::Detail::GTwoWaySearch;

auto At(std::string_view text)
{
    return [text](std::size_t i) { return text[i]; };
}

/// All texts of the first `letters` letters with up to `longest` of them.
std::vector<std::string> AllTexts(int letters, std::size_t longest)
{
    std::vector<std::string> texts = {""};
    for (std::size_t i = 0; i < texts.size() && texts[i].size() < longest; ++i) {
        for (int letter = 0; letter < letters; ++letter) {
            texts.push_back(texts[i] + static_cast<char>('a' + letter));
        }
    }
    return texts;
}

TEST(LinearSearchTest, FindsEachPatternInEachText)
{
    const struct
    {
        int letters;
        std::size_t text;
        std::size_t pattern;
    } cases[] = {{1, 20, 20}, {2, 10, 7}, {3, 6, 4}};
    for (const auto& test : cases) {
        const auto texts = AllTexts(test.letters, test.text);
        for (const std::string& pattern : AllTexts(test.letters, test.pattern)) {
            if (pattern.empty()) {
                continue;
            }
            const GTwoWaySearch search(At(pattern), pattern.size());
            for (const std::string& text : texts) {
                const std::size_t expected = std::min(text.find(pattern), text.size());
                ASSERT_EQ(search.Find(At(text), text.size(), 0), expected) << pattern << " in " << text;
                ASSERT_EQ(FindLinear(At(text), text.size(), At(pattern), pattern.size()), expected)
                    << pattern << " in " << text;
                const std::size_t next = std::min(text.find(pattern, 2), text.size());
                ASSERT_EQ(search.Find(At(text), text.size(), 2), next) << pattern << " in " << text;
            }
        }
    }
}

TEST(LinearSearchTest, ComparesALinearNumberOfCharacters)
{
    constexpr std::size_t size = 20'000;
    std::size_t looked = 0;
    const auto text = [&](std::size_t i) {
        ++looked;
        return i % 7 == 0 ? 'b' : 'a';
    };
    for (const std::string& pattern :
         {std::string(size / 2, 'a'), "a" + std::string(size / 4, 'b') + "a", std::string("aaaaaab"), [] {
              std::string same;
              for (std::size_t i = 1; i < size / 4; ++i) {
                  same += i == size / 8 ? 'c' : i % 7 == 0 ? 'b' : 'a';
              }
              return same;
          }()}) {
        looked = 0;
        FindLinear(text, size, At(pattern), pattern.size());
        EXPECT_LE(looked, 16 * size) << pattern.substr(0, 20);
    }
}

TEST(LinearSearchTest, SearchesFoldedCharacters)
{
    const std::string_view line = "Width = 5 MM";
    const auto lower = [line](std::size_t i) { return System::Detail::AsciiLower(line[i]); };
    EXPECT_EQ(FindLinear(lower, line.size(), At("mm"), 2), 10U);
    EXPECT_EQ(FindLinear(lower, line.size(), At("m"), 1, 11), 11U);
    EXPECT_EQ(FindLinear(lower, line.size(), At("m"), 1, 12), line.size());
    EXPECT_EQ(FindLinear(lower, line.size(), At("mmm"), 3), line.size());
}

} // namespace
