// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_Text.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>

namespace
{

using System::AnsiString;
using System::UnicodeString;
using Sysutils::TReplaceFlags;

template <class S>
class SysutilsTextTest : public testing::Test
{
};

using Widths = testing::Types<UnicodeString, AnsiString>;
TYPED_TEST_SUITE(SysutilsTextTest, Widths);

const auto First = TReplaceFlags();
const auto All = TReplaceFlags() << Sysutils::rfReplaceAll;
const auto AllIgnoringCase = TReplaceFlags() << Sysutils::rfReplaceAll << Sysutils::rfIgnoreCase;

TYPED_TEST(SysutilsTextTest, Replaces)
{
    const struct
    {
        const char* text;
        const char* from;
        const char* to;
        TReplaceFlags flags;
        const char* expected;
    } cases[] = {
        {"abcabc", "b", "xx", First, "axxcabc"},
        {"abcabc", "b", "xx", All, "axxcaxxc"},
        {"abcabc", "B", "x", All, "abcabc"},
        {"abcABC", "Bc", "x", AllIgnoringCase, "axAx"},
        {"aaaaa", "aa", "b", All, "bba"},
        {"aaa", "a", "aa", All, "aaaaaa"},
        {"aaa", "a", "", All, ""},
        {"abc", "", "x", All, "abc"},
        {"", "a", "x", All, ""},
        {"ab", "abc", "x", All, "ab"},
        {"\xC4\xE4", "\xE4", "ae", AllIgnoringCase, "aeae"},
    };
    using S = TypeParam;
    for (const auto& c : cases) {
        EXPECT_EQ(Sysutils::StringReplace(S(c.text), S(c.from), S(c.to), c.flags), S(c.expected)) << c.text;
    }
}

TYPED_TEST(SysutilsTextTest, ReplacesInTimeWithTheLengthOfTheText)
{
    using S = TypeParam;
    using C = typename S::CharType;
    const S text = S::StringOfChar(C('a'), 4'000'000);
    const S half = S::StringOfChar(C('a'), 20'000);
    EXPECT_EQ(Sysutils::StringReplace(text, S("b") + half, S("x"), All), text);
    EXPECT_EQ(Sysutils::StringReplace(text, half + S("b"), S("x"), All), text);
    EXPECT_EQ(Sysutils::StringReplace(text, half + S("b") + half, S("x"), All), text);
    EXPECT_EQ(Sysutils::StringReplace(text, half, S("x"), All).Length(), 200);
}

TYPED_TEST(SysutilsTextTest, Quotes)
{
    using S = TypeParam;
    using C = typename S::CharType;
    const struct
    {
        const char* text;
        const char* quoted;
    } cases[] = {{"", "''"}, {"abc", "'abc'"}, {"'", "''''"}, {"it's 'so'", "'it''s ''so'''"}};
    for (const auto& c : cases) {
        const S quoted = Sysutils::AnsiQuotedStr(S(c.text), C('\''));
        EXPECT_EQ(quoted, S(c.quoted));
        auto source = quoted.AsView();
        EXPECT_EQ(Sysutils::AnsiExtractQuotedStr(source, C('\'')), S(c.text));
        EXPECT_TRUE(source.empty());
    }
    const S text("'a''b'rest");
    const C* at = text.c_str();
    EXPECT_EQ(Sysutils::AnsiExtractQuotedStr(at, C('\'')), S("a'b"));
    EXPECT_EQ(S(at), S("rest"));
    EXPECT_TRUE(Sysutils::AnsiExtractQuotedStr(at, C('\'')).IsEmpty());
    EXPECT_EQ(S(at), S("rest"));
    const S open("'a''");
    at = open.c_str();
    EXPECT_EQ(Sysutils::AnsiExtractQuotedStr(at, C('\'')), S("a'"));
    EXPECT_EQ(*at, C());
    at = nullptr;
    EXPECT_TRUE(Sysutils::AnsiExtractQuotedStr(at, C('\'')).IsEmpty());
    EXPECT_EQ(at, nullptr);
}

TEST(SysutilsPlainTextTest, DequotesOnlyWhatBeginsWithAQuote)
{
    EXPECT_EQ(Sysutils::AnsiDequotedStr(u"\"a\"\"b\"", u'"'), u"a\"b");
    EXPECT_EQ(Sysutils::AnsiDequotedStr(u"a\"b", u'"'), u"a\"b");
    EXPECT_EQ(Sysutils::AnsiDequotedStr(u"", u'"'), u"");
    EXPECT_EQ(Sysutils::QuotedStr(u"it's"), u"'it''s'");
}

TEST(SysutilsPlainTextTest, TrimsBlanksAndControlCharacters)
{
    EXPECT_EQ(Sysutils::Trim(u"\t a b \r\n"), u"a b");
    EXPECT_EQ(Sysutils::TrimLeft(u"\t a \r\n"), u"a \r\n");
    EXPECT_EQ(Sysutils::TrimRight(u"\t a \r\n"), u"\t a");
    EXPECT_EQ(Sysutils::Trim(u" \t "), u"");
    EXPECT_EQ(Sysutils::Trim(u"\u00A0a"), u"\u00A0a");
}

TEST(SysutilsPlainTextTest, ChangesCase)
{
    EXPECT_EQ(Sysutils::UpperCase(u"azAZ09äß"), u"AZAZ09äß");
    EXPECT_EQ(Sysutils::LowerCase(u"azAZ@[Ä"), u"azaz@[Ä");
    EXPECT_EQ(Sysutils::AnsiUpperCase(u"azäжé"), u"AZÄЖÉ");
    EXPECT_EQ(Sysutils::AnsiLowerCase(u"AZÄЖÉ"), u"azäжé");
    const UnicodeString kept = u"abc";
    EXPECT_EQ(Sysutils::UpperCase(kept), u"ABC");
    EXPECT_EQ(kept, u"abc");
}

TEST(SysutilsPlainTextTest, Compares)
{
    const struct
    {
        const char16_t* a;
        const char16_t* b;
        int ordinal;
        int plain;
        int collated;
        int collatedText;
    } cases[] = {
        {u"", u"", 0, 0, 0, 0},      {u"", u"a", -1, -1, -1, -1},    {u"a", u"ab", -1, -1, -1, -1},
        {u"a", u"B", 1, -1, -1, -1}, {u"a", u"A", 1, 0, -1, 0},      {u"z", u"ä", -1, -1, 1, 1},
        {u"ä", u"Ä", 1, 1, -1, 0},   {u"a\u0001", u"a", 1, 1, 1, 1},
    };
    const auto sign = [](int value) { return (value > 0) - (value < 0); };
    for (const auto& c : cases) {
        const UnicodeString name = UnicodeString(c.a) + u"/" + c.b;
        EXPECT_EQ(sign(Sysutils::CompareStr(c.a, c.b)), c.ordinal) << name;
        EXPECT_EQ(sign(Sysutils::CompareStr(c.b, c.a)), -c.ordinal) << name;
        EXPECT_EQ(sign(Sysutils::CompareText(c.a, c.b)), c.plain) << name;
        EXPECT_EQ(Sysutils::SameText(c.a, c.b), c.plain == 0) << name;
        EXPECT_EQ(sign(Sysutils::AnsiCompareStr(c.a, c.b)), c.collated) << name;
        EXPECT_EQ(sign(Sysutils::AnsiCompareText(c.a, c.b)), c.collatedText) << name;
        EXPECT_EQ(Sysutils::AnsiSameStr(c.a, c.b), c.collated == 0) << name;
        EXPECT_EQ(Sysutils::AnsiSameText(c.a, c.b), c.collatedText == 0) << name;
    }
}

TEST(SysutilsPlainTextTest, FindsPartsAndDelimiters)
{
    EXPECT_EQ(Sysutils::AnsiPos(u"b", u"abcb"), 2);
    EXPECT_EQ(Sysutils::AnsiPos(u"", u"abc"), 0);
    EXPECT_EQ(Sysutils::LastDelimiter(u"\\.:", u"C:\\a.b"), 5);
    EXPECT_EQ(Sysutils::LastDelimiter(u"x", u"abc"), 0);
    EXPECT_EQ(Sysutils::LastDelimiter(u"", u"abc"), 0);
    EXPECT_TRUE(Sysutils::IsDelimiter(u".;", u"a;b", 2));
    EXPECT_FALSE(Sysutils::IsDelimiter(u".;", u"a;b", 1));
    for (const int index : {0, -1, 4, 1000}) {
        EXPECT_FALSE(Sysutils::IsDelimiter(u".;", u";;;", index)) << index;
    }
}

TEST(SysutilsPlainTextTest, LaterResourcesHideEarlierOnes)
{
    EXPECT_EQ(Sysutils::LoadStr(4711), u"");
    const Sysutils::TStringResources base({{4711, u"base"}, {4712, u"other"}});
    auto over = std::make_unique<Sysutils::TStringResources>(std::map<int, UnicodeString>{{4711, u"over"}});
    EXPECT_EQ(Sysutils::LoadStr(4711), u"over");
    EXPECT_EQ(Sysutils::LoadStr(4712), u"other");
    over.reset();
    EXPECT_EQ(Sysutils::LoadStr(4711), u"base");
}

} // namespace
