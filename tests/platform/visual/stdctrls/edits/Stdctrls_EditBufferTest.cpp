// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/edits/Stdctrls_EditBuffer.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace
{

using Stdctrls::CEditBuffer;
using System::UnicodeString;

/// Where the lines of a text begin, found the plain way.
std::vector<int> LinesOf(std::u16string_view text)
{
    std::vector<int> lines{0};
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isInPair = text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
        if ((text[i] == u'\r' && !isInPair) || text[i] == u'\n') {
            lines.push_back(static_cast<int>(i) + 1);
        }
    }
    return lines;
}

TEST(EditBufferTest, KeepsItsLinesThroughAnyEdit)
{
    std::mt19937 random(4711); // NOLINT(cert-msc51-cpp): the same edits at each run
    const std::u16string_view letters = u"\r\n\r\na";
    CEditBuffer buffer;
    for (int i = 0; i < 3000; ++i) {
        std::u16string added;
        for (unsigned n = random() % 4; n > 0; --n) {
            added += letters[random() % letters.size()];
        }
        const auto start = static_cast<int>(random() % static_cast<unsigned>(buffer.Length() + 1));
        const int most = buffer.Length() > 30 ? 9 : 3;
        buffer.Replace(start, static_cast<int>(random()) % most, UnicodeString(added));
        const std::vector<int> expected = LinesOf(buffer.getText().AsView());
        ASSERT_EQ(buffer.LineCount(), static_cast<int>(expected.size())) << i;
        for (int line = 0; line < buffer.LineCount(); ++line) {
            ASSERT_EQ(buffer.LineBegin(line), expected[static_cast<std::size_t>(line)]) << i;
            ASSERT_EQ(buffer.LineAt(buffer.LineBegin(line)), line) << i;
        }
    }
}

TEST(EditBufferTest, TakesTypingBackAsOneEditAndDoesItAgain)
{
    CEditBuffer buffer;
    buffer.SetText(u"ab");
    EXPECT_FALSE(buffer.Undo());
    for (const char16_t c : {u'x', u'y'}) {
        buffer.Replace(buffer.getCaret(), 0, UnicodeString(c));
    }
    EXPECT_EQ(buffer.getText(), u"xyab");
    EXPECT_TRUE(buffer.Undo());
    EXPECT_EQ(buffer.getText(), u"ab");
    EXPECT_TRUE(buffer.Undo());
    EXPECT_EQ(buffer.getText(), u"xyab");
    EXPECT_EQ(buffer.SelLength(), 2);
}

TEST(EditBufferTest, StepsOverCharactersAndWords)
{
    CEditBuffer buffer;
    buffer.SetText(u"one, two\r\n\U0001F600x");
    struct TStep
    {
        int from, next, former, nextWord, formerWord;
    };
    for (const TStep& step : {TStep{0, 1, 0, 3, 0},
                              {4, 5, 3, 5, 3},
                              {8, 10, 7, 10, 5},
                              {10, 12, 8, 13, 5},
                              {13, 13, 12, 13, 10},
                              {99, 13, 12, 13, 10},
                              {-5, 1, 0, 3, 0}}) {
        SCOPED_TRACE(step.from);
        EXPECT_EQ(buffer.NextPlace(step.from), step.next);
        EXPECT_EQ(buffer.FormerPlace(step.from), step.former);
        EXPECT_EQ(buffer.NextWord(step.from), step.nextWord);
        EXPECT_EQ(buffer.FormerWord(step.from), step.formerWord);
    }
}

} // namespace
