// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/internal/Classes_DelimitedText.h"

#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/classes/Classes_StringsSupport.h"
#include <random>

#include <gmock/gmock.h>

using namespace Classes;
using namespace Support;
using System::UnicodeString;
using System::WideChar;
using testing::ElementsAre;

namespace
{

TEST(DelimitedTextTest, ReadsCommaText)
{
    const struct
    {
        const WideChar* text;
        Lines lines;
    } cases[] = {
        {u"", {}},
        {u"   ", {}},
        {u"a,b", {u"a", u"b"}},
        {u" a  b\tc ", {u"a", u"b", u"c"}},
        {u"a , b", {u"a", u"b"}},
        {u",", {u"", u""}},
        {u"a,,b", {u"a", u"", u"b"}},
        {u"a,", {u"a", u""}},
        {u",a", {u"", u"a"}},
        {u"\"\"", {u""}},
        {u"\"a b\",\"c,d\"", {u"a b", u"c,d"}},
        {u"\"a\"\"b\"", {u"a\"b"}},
        {u"\"\"\"\"", {u"\""}},
        {u"a\"b", {u"a\"b"}},
        {u"\"a\"b", {u"a", u"b"}},
        {u"\"open, to the end", {u"open, to the end"}},
        {u"\"", {u""}},
        {u"x=1,y=\"2 3\"", {u"x=1", u"y=\"2", u"3\""}},
    };
    TStringList list;
    for (const auto& test : cases) {
        list.setCommaText(test.text);
        EXPECT_EQ(LinesOf(list), test.lines) << UnicodeString(test.text);
    }
}

TEST(DelimitedTextTest, CommaTextQuotesOnlyWhatNeedsIt)
{
    TStringList list;
    Fill(list, {u"a", u"", u"b c", u"d,e", u"f\"g", u"h\ti", u"ä€"});
    EXPECT_EQ(list.getCommaText(), u"a,,\"b c\",\"d,e\",\"f\"\"g\",\"h\ti\",ä€");
    Fill(list, {u""});
    EXPECT_EQ(list.getCommaText(), u"\"\"");
    list.Clear();
    EXPECT_EQ(list.getCommaText(), u"");
}

TEST(DelimitedTextTest, DelimitedTextBringsAnyListBack)
{
    std::mt19937 random(7);
    const WideChar letters[] = {u'a', u' ', u'"', u',', u';', 0, 9, 13, 10, 0xD800, u'\'', u'='};
    std::uniform_int_distribution<std::size_t> letter(0, std::size(letters) - 1);
    std::uniform_int_distribution<int> few(0, 4);
    const WideChar delimiters[] = {u',', u';', u' ', u'\t', u'a'};
    for (int round = 0; round < 4000; ++round) {
        TStringList list;
        list.setDelimiter(delimiters[static_cast<std::size_t>(round) % std::size(delimiters)]);
        list.setQuoteChar(round % 3 == 0 ? u'\'' : u'"');
        list.setStrictDelimiter(round % 2 == 0);
        for (int lines = few(random); lines > 0; --lines) {
            UnicodeString line;
            for (int length = few(random); length > 0; --length) {
                line += letters[letter(random)];
            }
            list.Add(line);
        }
        const Lines lines = LinesOf(list);
        list.setDelimitedText(list.getDelimitedText());
        ASSERT_EQ(LinesOf(list), lines) << "delimited, round " << round;
        list.setCommaText(list.getCommaText());
        ASSERT_EQ(LinesOf(list), lines) << "comma text, round " << round;
    }
}

TEST(DelimitedTextTest, StrictDelimiterKeepsBlanks)
{
    TStringList list;
    list.setDelimiter(u';');
    list.setStrictDelimiter(true);
    list.setDelimitedText(u" a b ;c; ");
    EXPECT_THAT(LinesOf(list), ElementsAre(u" a b ", u"c", u" "));
    EXPECT_EQ(list.getDelimitedText(), u" a b ;c; ");
    list.setQuoteChar(0);
    list.setDelimitedText(u"\"a;b\"");
    EXPECT_THAT(LinesOf(list), ElementsAre(u"\"a", u"b\""));
    EXPECT_EQ(list.getDelimiter(), u';');
    list.setCommaText(u"a b");
    EXPECT_EQ(list.getCount(), 2) << "comma text knows no strictness";
    EXPECT_EQ(list.getDelimiter(), u';');
}

TEST(DelimitedTextTest, AcceptsADelimiterThatIsTheQuote)
{
    TStringList list;
    list.setDelimiter(u'"');
    list.setDelimitedText(u"a\"b\"c\"\"");
    list.getDelimitedText();
    EXPECT_GT(list.getCount(), 0);
}

} // namespace
