// SPDX-License-Identifier: MIT
#include "text/editing/BTL_STR_Replace.h"

#include "platform/runtime/classes/Classes_StringList.h"
#include "text/BothWidthsSupport.h"
#include "text/GrowthSupport.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace
{

using System::UnicodeString;

template <class S>
using ReplaceTest = Support::BothWidths<S>;
TYPED_TEST_SUITE(ReplaceTest, Support::Widths);

TYPED_TEST(ReplaceTest, Replaces)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    EXPECT_EQ(BTL::DeleteChars(T("a.b.c"), C('.')), T("abc"));
    EXPECT_EQ(BTL::ClearBlanks(T(" a b\tc\t")), T("ab\tc"));
    EXPECT_EQ(BTL::CharReplace(T("a.b."), C('.'), C(',')), T("a,b,"));
    EXPECT_EQ(BTL::Exchange1stSubStr(T("abcabc"), T("bc"), T("X"), 0), T("aXabc"));
    EXPECT_EQ(BTL::Exchange1stSubStr(T("abcdef"), T("x"), T("y"), 3), T("abc"));
    EXPECT_EQ(BTL::Exchange1stSubStr(T("abc"), T(""), T("y"), -1), T("abc"));
    EXPECT_EQ(BTL::ExchangeAll(T("aaa"), T("aa"), T("b")), T("ba"));
    EXPECT_EQ(BTL::ExchangeAll(T("aaa"), T(""), T("b")), T("aaa"));
    EXPECT_EQ(BTL::ExchangeAll(T("a,b,"), C(','), T("--")), T("a--b--"));
    EXPECT_EQ(BTL::DeleteSubStrings(T("a(b(c)d)e"), C('('), C(')')), T("a()e"));
    EXPECT_EQ(BTL::DeleteSubStrings(T("(a)b)c(d(e)"), C('('), C(')')), T("()b)c(d(e)"));
    EXPECT_EQ(BTL::DeleteSubStrings(T("a'b'c'd"), C('\''), C('\'')), T("a''c'd"));

    Classes::TStringList list;
    list.setCommaText(u"xax,b,xx");
    BTL::Exchange1stSubStrs(&list, T("x"), T("y"), 2);
    EXPECT_EQ(list.getCommaText(), u"ya,b,yx");
}

TEST(ReplaceWideTest, ReplacesOutsideQuotes)
{
    UnicodeString s = u"abcabc";
    EXPECT_EQ(BTL::Delete1stSubString(s, u"bc"), u"aabc");
    EXPECT_EQ(s, u"aabc");
    EXPECT_EQ(BTL::Exchange1stSubStrIC(u"xÄbc", u"äB", u"-", 0), u"x-c");
    EXPECT_EQ(BTL::ExchangeAll(u"a 'a' a", u"a", u"b", u"'"), u"b 'a' b");
    EXPECT_EQ(BTL::ExchangeAll(u"a \"a'a\" 'a", u"a", u"b", u"'\""), u"b \"a'a\" 'a");
    EXPECT_EQ(BTL::ExchangeAll(u"'x'", u"'x'", u"y", u"'"), u"'x'") << "the quote is seen first";
    EXPECT_EQ(BTL::DelDelimitedSubStrings(u"a/*b/*c*/d*/e", u"/*", u"*/", u"'"), u"ae");
    EXPECT_EQ(BTL::DelDelimitedSubStrings(u"a'/*'b/*'*/'c*/d", u"/*", u"*/", u"'"), u"a'/*'bd");
    EXPECT_EQ(BTL::DelDelimitedSubStrings(u"a*/b/*c", u"/*", u"*/", u""), u"a*/b");
    EXPECT_EQ(BTL::DelDelimitedSubStrings(u"abc", u"", u"", u""), u"abc");
}

TEST(ReplaceWideTest, TakesLongTexts)
{
    const UnicodeString text = Support::RepeatedText();
    EXPECT_EQ(BTL::ExchangeAll(text, u"b,", u"xyz").Length(), 6 * Support::LongText);
    EXPECT_EQ(BTL::ExchangeAll(text, u"b", u"xyz", u"'").Length(), 7 * Support::LongText);
}

TEST(ReplaceLiteralTest, TakesNarrowCharacters)
{
    const System::UnicodeString text = u"a\u20ACb";
    EXPECT_EQ(BTL::DeleteChars(text, '\x80'), u"ab");
    EXPECT_EQ(BTL::CharReplace(text, '\x80', '/'), u"a/b");
}

TEST(ReplaceWideTest, ReplacesOutsideQuotesAtEachPlace)
{
    std::mt19937 random(1);
    const auto make = [&](std::size_t longest) {
        std::u16string text(random() % longest, u' ');
        for (char16_t& c : text) {
            c = u"aab'"[random() % 4];
        }
        return text;
    };
    for (int round = 0; round < 5'000; ++round) {
        const std::u16string text = make(40);
        const std::u16string old = make(5);
        std::u16string expected;
        for (std::size_t at = 0, quotes = 0; at < text.size();) {
            const bool isQuoted = quotes % 2 != 0 || text[at] == u'\'';
            if (!isQuoted && !old.empty() && text.compare(at, old.size(), old) == 0) {
                expected += u"<>";
                at += old.size();
                continue;
            }
            quotes += text[at] == u'\'' ? 1 : 0;
            expected += text[at++];
        }
        EXPECT_EQ(BTL::ExchangeAll(UnicodeString(text), UnicodeString(old), u"<>", u"'"),
                  UnicodeString(expected))
            << UnicodeString(old) << " in " << UnicodeString(text);
    }
}

// Minutes in time with the product of both lengths.
TEST(ReplaceWideTest, TakesTextsThatRepeatThemselves)
{
    constexpr int size = 200'000;
    const UnicodeString text = UnicodeString::StringOfChar(u'a', size);
    const UnicodeString half = UnicodeString::StringOfChar(u'a', size / 4);
    const UnicodeString nearly = half + u"b" + half;
    EXPECT_EQ(BTL::ExchangeAll(text, nearly, u"x"), text);
    EXPECT_EQ(BTL::ExchangeAll(text, nearly, u"x", u"'"), text);
    EXPECT_EQ(BTL::ExchangeAll(text + nearly, nearly, u"x", u"'"), text + u"x");
    EXPECT_EQ(BTL::DelDelimitedSubStrings(text, nearly, nearly + u"c", u"'"), text);
}

} // namespace
