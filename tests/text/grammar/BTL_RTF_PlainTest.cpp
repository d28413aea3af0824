// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_RTF_Plain.h"

#include <gtest/gtest.h>

namespace
{

using System::UnicodeString;
using System::WideChar;

TEST(RtfTest, KeepsTheVisibleText)
{
    const struct
    {
        const WideChar* rtf;
        const WideChar* plain;
    } cases[] = {
        {u"{\\rtf1 Hello\\par World\\par}", u"Hello\nWorld\n"},
        {u"{\\rtf1 \\par}", u""},
        {u"{\\rtf1 \\par\\par}", u"\n\n"},
        {u"{\\rtf1 a\\{b\\}c\\\\d}", u"a{b}c\\d"},
        {u"{\\rtf1 \\'e4\\'E4x}", u"ääx"},
        {u"{\\rtf1{\\fonttbl{\\f0 Arial;}} Text}", u" Text"},
        {u"{\\rtf1 a\r\nb\\pard\r\nc\\par\nd}", u"abc\nd"},
        {u"{\\rtf1 a\\par1 b\\line c\\tab d\\pard e\\PAR f}", u"abcdef"},
        {u"{\\rtf1 a\\b\\par\\i0 b}", u"a\nb"},
        {u"{\\rtf1 a\\ b\\~c d}", u"abd"},
        {u"{\\rtf1 a}b{c}", u"ac"},
        {u"{\\rtf1 a}}b{c}{d}", u"a"},
        {u"{\\rtf1 {a\\{} b} c}", u" c"},
        {u"{\\rtf1 tab\there 💡}", u"tab\there 💡"},
        // Cut off.
        {u"{\\rtf1 a\\", u"a\\"},
        {u"{\\rtf1 a\\p", u"a"},
        {u"{\\rtf1 a\\par", u"a"},
        {u"{\\rtf1 a\\par b", u"a\nb"},
        {u"{\\rtf1 a\\'", u"a"},
        {u"{\\rtf1 a\\'e", u"a"},
        {u"{\\rtf1 a\\'e4", u"aä"},
        {u"{\\rtf1", u""},
        {u"{\\rtf}", u""},
    };
    for (const auto& test : cases) {
        EXPECT_TRUE(BTL::IsRTF(test.rtf));
        EXPECT_EQ(BTL::RTF2PlainStd(test.rtf), test.plain) << UnicodeString(test.rtf);
    }
    EXPECT_EQ(BTL::RTF2PlainFile(u"{\\rtf1 a\\par b}"), u"a\r\nb");
    EXPECT_EQ(BTL::RTF2PlainFile(u"{\\rtf1 \\par}"), u"");
    EXPECT_EQ(BTL::RTF2Plain(u"{\\rtf1 a\\par\\par b}", u"<br>"), u"a<br><br>b");
    EXPECT_EQ(BTL::RTF2Plain(u"{\\rtf1 a\\par b}", u""), u"ab");
}

TEST(RtfTest, OtherTextPasses)
{
    for (const WideChar* const text : {u"", u"{\\rtf", u"{\\RTF1 a}", u" {\\rtf1 a}", u"a\nb\rc"}) {
        EXPECT_FALSE(BTL::IsRTF(text));
        EXPECT_EQ(BTL::RTF2PlainStd(text), text);
        EXPECT_EQ(BTL::RTF2PlainFile(text), text);
    }
    EXPECT_EQ(BTL::RTF2PlainStd(u"a\r\nb\r\n"), u"a\nb\n");
    EXPECT_EQ(BTL::RTF2PlainFile(u"a\r\nb\r\n"), u"a\r\nb\r\n");
}

} // namespace
