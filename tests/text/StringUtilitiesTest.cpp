// SPDX-License-Identifier: MIT
#include "text/BTL_STR_Utilities.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace
{

using System::AnsiString;
using System::UnicodeString;

/// Runs a test in both widths; `T` makes the text, `C` the character under test.
template <class S>
class StringUtilitiesTest : public testing::Test
{
protected:
    using Char = typename S::CharType;
    static S T(const std::string& text) { return AnsiString(std::string_view(text)); }
    static Char C(char c) { return c == 0 ? Char(0) : T(std::string(1, c))[1]; }
};

using Widths = testing::Types<UnicodeString, AnsiString>;
TYPED_TEST_SUITE(StringUtilitiesTest, Widths);

TYPED_TEST(StringUtilitiesTest, CutsAtTheEnds)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    const struct
    {
        int n;
        const char* left;
        const char* right;
        const char* rightAt;
        const char* deleteLeft;
        const char* deleteRight;
        const char* deleteRightAt;
    } cases[] = {
        {2, "ab", "de", "bcde", "cde", "abc", "a"},       {5, "abcde", "abcde", "e", "", "", "abcd"},
        {6, "abcde", "abcde", "", "", "", "abcde"},       {0, "", "", "abcde", "abcde", "abcde", ""},
        {-1, "", "", "abcde", "abcde", "abcde", ""},      {INT_MAX, "abcde", "abcde", "", "", "", "abcde"},
        {INT_MIN, "", "", "abcde", "abcde", "abcde", ""},
    };
    for (const auto& c : cases) {
        const TypeParam s = T("abcde");
        EXPECT_EQ(BTL::LeftSubString(s, c.n), T(c.left)) << c.n;
        EXPECT_EQ(BTL::RightSubString(s, c.n), T(c.right)) << c.n;
        EXPECT_EQ(BTL::RightSubStringAt(s, c.n), T(c.rightAt)) << c.n;
        TypeParam work = s;
        EXPECT_EQ(BTL::DeleteLeft(work, c.n), T(c.deleteLeft)) << c.n;
        EXPECT_EQ(work, T(c.deleteLeft));
        work = s;
        EXPECT_EQ(BTL::DeleteRight(work, c.n), T(c.deleteRight)) << c.n;
        work = s;
        EXPECT_EQ(BTL::DeleteRightAt(work, c.n), T(c.deleteRightAt)) << c.n;
    }
    EXPECT_EQ(BTL::LeftSubStringUntil(T("abc"), C('b')), T("a"));
    EXPECT_EQ(BTL::LeftSubStringUntil(T("abc"), C('a')), T(""));
    EXPECT_EQ(BTL::LeftSubStringUntil(T("abc"), C('x')), T("abc"));
    TypeParam blanks = T(" a \t\x01");
    BTL::TrimEnd(blanks);
    EXPECT_EQ(blanks, T(" a"));
}

TYPED_TEST(StringUtilitiesTest, ReducesAndConsumes)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    TypeParam s = T("abcdef");
    EXPECT_TRUE(BTL::ReduceLength(s, 3, T("...")));
    EXPECT_EQ(s, T("abc..."));
    s = T("abc");
    EXPECT_FALSE(BTL::ReduceLength(s, 3, T("...")));
    EXPECT_FALSE(BTL::ReduceLength(s, -1, T("...")));
    EXPECT_EQ(s, T("abc"));
    BTL::ReduceLength(s, -1);
    BTL::ReduceLength(s, 2);
    EXPECT_EQ(s, T("ab"));

    s = T("a.b.c");
    EXPECT_EQ(BTL::ConsumeLeftSubString(s, C('.'), true), T("a"));
    EXPECT_EQ(s, T("b.c"));
    s = T("abc");
    EXPECT_EQ(BTL::ConsumeLeftSubString(s, C('.'), false), T(""));
    EXPECT_EQ(s, T("abc"));
    EXPECT_EQ(BTL::ConsumeLeftSubString(s, C('.'), true), T("abc"));
    EXPECT_EQ(s, T(""));
    s = T("a--b");
    EXPECT_EQ(BTL::ConsumeLeftSubString(s, T("--"), false), T("a"));
    EXPECT_EQ(s, T("b"));

    TypeParam left;
    s = T("a=b=c");
    BTL::GetSubStrings(s, C('='), left, s);
    EXPECT_EQ(left, T("a"));
    EXPECT_EQ(s, T("b=c"));
    BTL::GetSubStrings(T("abc"), C('='), left, s);
    EXPECT_EQ(left, T("abc"));
    EXPECT_EQ(s, T(""));
}

TYPED_TEST(StringUtilitiesTest, Quotes)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    const struct
    {
        const char* text;
        bool quoted;
        const char* extracted;
    } cases[] = {{"'a'", true, "a"}, {"''", true, ""},       {"'", false, ""}, {"'a", false, "a"},
                 {"a'", false, "a"}, {"''a''", true, "'a'"}, {"", false, ""}};
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::IsQuotedStr(T(c.text), C('\'')), c.quoted) << c.text;
        EXPECT_EQ(BTL::ExtractQuotedStr(T(c.text), C('\'')), T(c.extracted)) << c.text;
    }
}

TYPED_TEST(StringUtilitiesTest, Searches)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    const TypeParam s = T("abcabc");
    EXPECT_EQ(BTL::Pos(s, C('c')), 3);
    EXPECT_EQ(BTL::CharPos(s.c_str(), C('x')), 0);
    EXPECT_EQ(BTL::CharPos(static_cast<const typename TypeParam::CharType*>(nullptr), C('x')), 0);
    EXPECT_EQ(BTL::Pos(s, T("bc"), 3), 5);
    EXPECT_EQ(BTL::Pos(s, T("bc"), -7), 2);
    EXPECT_EQ(BTL::Pos(s, T("bc"), 7), 0);
    EXPECT_EQ(BTL::Pos(s, T("bc"), INT_MAX), 0);
    EXPECT_EQ(BTL::Pos(s, T(""), 1), 0);
    EXPECT_EQ(BTL::CharRPos(s, C('b'), -1), 5);
    EXPECT_EQ(BTL::CharRPos(s, C('b'), 4), 2);
    EXPECT_EQ(BTL::CharRPos(s, C('b'), 0), 0);
    EXPECT_EQ(BTL::RPos(s, T("bc"), 99), 5);
    EXPECT_EQ(BTL::RPos(s, T("bc"), 5), 2) << "the last occurrence must lie wholly before the end";
    EXPECT_EQ(BTL::RPos(s, T(""), -1), 0);
    EXPECT_EQ(BTL::RIPos(T("xAbaB"), T("aB"), -1), 4);
    EXPECT_EQ(BTL::PosIC(T("x\xC4y"), T("\xE4Y")), 2);
    EXPECT_EQ(BTL::PosIC(T("\xDFx"), T("X")), 2) << "places stay, whatever upper case does to a letter";
    EXPECT_EQ(BTL::CountChar(T("abca").c_str(), C('a')), 2);
    EXPECT_EQ(BTL::CountChar(T("abca").c_str(), C(0)), 0);
    EXPECT_TRUE(BTL::IsText(T("12\xE4")));
    EXPECT_FALSE(BTL::IsText(T("12_ \xF7")));
    EXPECT_EQ(BTL::CharUpperW(C('\xE4')), C('\xC4'));
    EXPECT_EQ(BTL::CharUpperW(C('\xDF')), C('\xDF'));

    const struct
    {
        const char* text;
        int single;
        int shortCut;
        const char* cleared;
    } marks[] = {{"&File", 1, 1, "File"}, {"A&&B&C", 5, 5, "A&&BC"}, {"A&", 2, 0, "A"},
                 {"A&&", 0, 0, "A&&"},    {"&&&x", 3, 3, "&&x"},     {"", 0, 0, ""},
                 {"&", 1, 0, ""},         {"a&b&c", 2, 2, "abc"}};
    for (const auto& c : marks) {
        EXPECT_EQ(BTL::Pos_N2(T(c.text), C('&')), c.single) << c.text;
        EXPECT_EQ(BTL::ShortCutPos(T(c.text), C('&')), c.shortCut) << c.text;
        EXPECT_EQ(BTL::ClearShortCut(T(c.text), C('&')), T(c.cleared)) << c.text;
    }
}

TEST(StringUtilitiesWideTest, ComparesBeginsAndEnds)
{
    const UnicodeString s = u"abcab";
    EXPECT_TRUE(BTL::BeginsWith(s, u"bc", 2));
    EXPECT_TRUE(BTL::BeginsWith(s, u"", 6));
    for (const int at : {INT_MIN, 0, 7, INT_MAX}) {
        EXPECT_FALSE(BTL::BeginsWith(s, u"", at)) << at;
    }
    EXPECT_FALSE(BTL::BeginsWith(s, u"abc", 4));
    EXPECT_TRUE(BTL::EndsWith(s, u"ab"));
    EXPECT_FALSE(BTL::EndsWith(s, u"abc"));
    EXPECT_FALSE(BTL::EndsWith(s, u""));
    EXPECT_TRUE(BTL::IEndsWith(s, u"AB"));
    EXPECT_EQ(BTL::CountChar(UnicodeString(u"€a€"), '\x80'), 2);
}

TYPED_TEST(StringUtilitiesTest, JoinsAndPads)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    TypeParam s;
    BTL::AddString(s, T("a"), T(", "));
    BTL::AddString(s, T(""), T(", "));
    EXPECT_EQ(BTL::AddString(s, s, T("-")), T("a, -a, "));
    EXPECT_EQ(BTL::ConcatenateStrings(T("C:\\long\\path"), T(".txt"), 10, T("...")), T("C:\\....txt"));
    EXPECT_EQ(BTL::ConcatenateStrings(T("a"), T("b"), 2, T("...")), T("ab"));
    EXPECT_EQ(BTL::ConcatenateStrings(T("abc"), T("xyz"), -5, T("~")), T("~xyz"));
    EXPECT_EQ(BTL::FillString(T("a"), 3, C('.')), T("a.."));
    EXPECT_EQ(BTL::FillStringLeft(T("a"), 3, C('.')), T("..a"));
    EXPECT_EQ(BTL::FillStringLeft(T("abc"), -3, C('.')), T("abc"));
    EXPECT_EQ(BTL::InsertNumber(T("file##.txt"), T("##"), 7), T("file07txt"))
        << "the rest is a picture too, and a separator needs digits behind it";
    EXPECT_EQ(BTL::InsertNumber(T("file"), T("##"), -7), T("file-7"));
    EXPECT_EQ(BTL::InsertNumber(T("file"), T(""), 7), T("file7"));
}

TEST(StringUtilitiesWideTest, PadsNumbers)
{
    EXPECT_EQ(BTL::FillNumberLeftW(5, 100), u"005");
    EXPECT_EQ(BTL::FillNumberLeftW(-5, 99), u"-05");
    EXPECT_EQ(BTL::FillNumberLeftW(1234, 99), u"1234");
    EXPECT_EQ(BTL::FillNumberLeftW(INT_MIN, 0), u"-2147483648");
    EXPECT_EQ(BTL::FillNumberLeftA(5, 1000), "0005");
    EXPECT_EQ(BTL::StrCat(u"a", u"b", u"/"), u"a/b");
    EXPECT_EQ(BTL::StrCat(u"", u"b", u"/"), u"b");
    EXPECT_EQ(BTL::StrCat(u"a", u"", u"/"), u"a");
}

TYPED_TEST(StringUtilitiesTest, Replaces)
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

TEST(StringUtilitiesWideTest, ReplacesOutsideQuotes)
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

TYPED_TEST(StringUtilitiesTest, CutsDelimitedPieces)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    EXPECT_EQ(BTL::DelimSubString2(T("a(b(c)d)"), C('('), C(')'), 1), T("b(c"));
    EXPECT_EQ(BTL::DelimSubString2(T("a(b"), C('('), C(')'), 1), T(""));
    EXPECT_EQ(BTL::DelimSubString2(T("abc("), C('('), C(')'), 1), T(""));
    EXPECT_EQ(BTL::DelimSubString(T("'a''b'"), C('\''), 4), T("b"));
    EXPECT_EQ(BTL::DelimSubString(T("'a'"), C('\''), 99), T(""));
    EXPECT_EQ(BTL::DelimSubString(T(""), C('\''), 0), T(""));
    EXPECT_THROW(BTL::DelimSubString(T("'a'"), C('\''), 0), Sysutils::ERangeError);

    const struct
    {
        const char* text;
        int from;
        const char* word;
        int pos;
    } words[] = {{"x %ab1 y", 1, "%ab1", 7}, {"%ab", 1, "%ab", 3}, {"%1", 1, "", 2},
                 {"abc%", 1, "", 4},         {"abc", 9, "", 9},    {"%a%b", 2, "%b", 4},
                 {"%\xE4 ", 1, "%\xE4", 3}};
    for (const auto& c : words) {
        int pos = c.from;
        EXPECT_EQ(BTL::GetWord(T(c.text), pos, C('%')), T(c.word)) << c.text;
        EXPECT_EQ(pos, c.pos) << c.text;
    }
    EXPECT_EQ(BTL::GetWord(T("a $b"), C('$')), T("$b"));
}

TYPED_TEST(StringUtilitiesTest, CutsNestedPieces)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    const struct
    {
        const char* text;
        bool skipBlanks;
        const char* marks;
        char escape;
        const char* piece;
        int pos;
    } cases[] = {
        {"  (a(b)c) x", true, "()", 0, "a(b)c", 10},
        {"x (a)", true, "()", 0, "", 1},
        {"x (a)", false, "()", 0, "a", 6},
        {"\"a\\\"b\" c", true, "\"\"", '\\', "a\"b", 7},
        {"(a\\\\b)", true, "()", '\\', "a\\b", 7},
        {"(a\\)b)", true, "()", '\\', "a)b", 7},
        {"()", true, "()", 0, "", 3},
        {"(a(b)", true, "()", 0, "", 7},
        {"(a\\", true, "()", '\\', "", 5},
        {"  a  b", true, "  ", 0, "a", 5},
        {"abc", false, "()", 0, "", 4},
        {"", true, "()", 0, "", 1},
    };
    for (const auto& c : cases) {
        int pos = 1;
        const TypeParam piece =
            BTL::GetSubString(T(c.text), pos, c.skipBlanks, C(c.marks[0]), C(c.marks[1]), C(c.escape));
        EXPECT_EQ(piece, T(c.piece)) << c.text;
        EXPECT_EQ(pos, c.pos) << c.text;
    }
    int pos = 0;
    EXPECT_THROW(BTL::GetSubString(T("(a)"), pos, true, C('('), C(')'), C(0)), Sysutils::ERangeError);
    pos = INT_MAX;
    EXPECT_EQ(BTL::GetSubString(T("(a)"), pos, false, C('('), C(')'), C(0)), T(""));
}

TYPED_TEST(StringUtilitiesTest, FindsAndCutsCommands)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    EXPECT_EQ(BTL::GetCommandPosition(T("/abc"), T("/ab")), 0);
    EXPECT_EQ(BTL::GetCommandPosition(T("/ab c"), T("/ab")), 1);
    EXPECT_EQ(BTL::GetCommandPosition(T("/ab"), T("/ab")), 1);
    EXPECT_EQ(BTL::GetCommandPosition(T("/abc /ab"), T("/ab")), 0) << "a later occurrence is not tried";
    EXPECT_EQ(BTL::GetCommandParameter(T("x /ab (p) y"), T("/ab"), C('('), C(')'), C(0)), T("p"));
    EXPECT_EQ(BTL::GetCommandParameter(T("x"), T("/ab"), C('('), C(')'), C(0)), T(""));

    TypeParam s = T("x/ab y");
    EXPECT_TRUE(BTL::CutCommand(s, T("/ab")));
    EXPECT_EQ(s, T("x y"));
    EXPECT_FALSE(BTL::CutCommand(s, T("/ab")));
    EXPECT_EQ(s, T("x y"));
    s = T("x/ab (p)y");
    EXPECT_EQ(BTL::CutCommandParameter(s, T("/ab"), C('('), C(')'), C(0)), T("p"));
    EXPECT_EQ(s, T("xy"));
    s = T("x/ab()y");
    EXPECT_EQ(BTL::CutCommandParameter(s, T("/ab"), C('('), C(')'), C(0)), T(""));
    EXPECT_EQ(s, T("x/ab()y"));
}

TEST(StringUtilitiesWideTest, CutsCommandsWithTheirParameters)
{
    UnicodeString param = u"old";
    EXPECT_FALSE(BTL::GetCommandParameter2(param, u"x", u"/ab", u'(', u')', 0));
    EXPECT_EQ(param, u"old");
    EXPECT_TRUE(BTL::GetCommandParameter2(param, u"/ab", u"/ab", u'(', u')', 0));
    EXPECT_EQ(param, u"");
    const struct
    {
        const char16_t* text;
        const char16_t* rest;
        const char16_t* param;
    } cases[] = {{u"x/ab (p)y", u"xy", u"p"},
                 {u"x/ab()y", u"xy", u""},
                 {u"x/ab  y", u"xy", u""},
                 {u"x/ab(y", u"x", u""}};
    for (const auto& c : cases) {
        UnicodeString s = c.text;
        EXPECT_TRUE(BTL::CutCommand(s, param, u"/ab", u'(', u')', 0));
        EXPECT_EQ(s, c.rest);
        EXPECT_EQ(param, c.param);
    }
}

TYPED_TEST(StringUtilitiesTest, ExpandsMacros)
{
    const auto T = TestFixture::T;
    const struct
    {
        const char* text;
        const char* macro;
        const char* body;
        const char* expected;
    } cases[] = {
        {"x=SQR(4);", "SQR(a)", "%a*%a", "x=4*4;"},
        {"a NAME b NAME", "NAME", "x", "a x b x"},
        {"F(1)", "F(a,b)", "%a+%b", "1+%b"},
        {"F(1,2,3)", "F(a b)", "%a+%b", "1+2"},
        {"F(\"1,2\" 3)", "F(a,b)", "%b-%a", "3-1,2"},
        {"F(1,2)", "F(a,ab)", "%ab", "1b"},
        {"G(1)F(2)XF(3)", "F(a)", "<%a>", "G(1)<2>X<3>"},
        {"F(F(1))", "F(a)", "<%a>", "<<1>>"},
        {"F(1", "F(a)", "%a", "F(1"},
        {"F 1)", "F(a)", "%a", "F 1)"},
        {"F", "F(a)", "%a", "F"},
        {"FF(1)(2)", "F(a)", "", "(2)"},
        {"AAB(1)B(2)C", "AB(a)", "", "C"},
        {"abc", "(a)", "x", "abc"},
        {"", "F(a)", "x", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::ApplyMacro(T(c.text), T(c.macro), T(c.body)), T(c.expected)) << c.text;
    }
}

TYPED_TEST(StringUtilitiesTest, MacroExpansionEnds)
{
    const auto T = TestFixture::T;
    EXPECT_FALSE(BTL::ApplyMacro(T("F(1)"), T("F(a)"), T("F(%a)")).IsEmpty());
    constexpr int bound = 2'000'000;
    EXPECT_LT(BTL::ApplyMacro(T("F(1)"), T("F(a)"), T("F(%a)F(%a)F(%a%a)")).Length(), bound);
    EXPECT_LT(BTL::ApplyMacro(T("F(xxxxxxxxxxxxxxxx)"), T("F(a)"), T("F(%a%a%a%a%a%a%a%a)")).Length(), bound);

    TypeParam text;
    TypeParam expected;
    for (int i = 0; i < 50'000; ++i) {
        text += T("F(1) ");
        expected += T("<1> ");
    }
    EXPECT_EQ(BTL::ApplyMacro(text, T("F(a)"), T("<%a>")), expected) << "many calls one after the other";
}

TYPED_TEST(StringUtilitiesTest, AppliesAndInsertsEscapes)
{
    const auto T = TestFixture::T;
    EXPECT_EQ(BTL::ApplyEscapeSequences(T("a\\nb\\rc\\td\\\\e\\'")), T("a\nb\rc\td\\e\\'"));
    EXPECT_EQ(BTL::ApplyEscapeSequences(T("\\\\n")), T("\\\n")) << "one replacement after the other";
    EXPECT_EQ(BTL::ApplyEscapeSequences2(T("\\\"a\\'")), T("\"a'"));
    EXPECT_EQ(BTL::InsertEscapeSequences(T("a\nb\\c'")), T("a\\nb\\\\c'"));
    EXPECT_EQ(BTL::InsertEscapeSequences2(T("'\"\t")), T("\\'\\\"\\t"));
}

TEST(StringUtilitiesWideTest, AppendsCsvFields)
{
    UnicodeString csv;
    EXPECT_EQ(BTL::AddCSVString(csv, u"IDENT", u';'), u"\"IDENT\"");
    EXPECT_EQ(BTL::AddCSVString(csv, u"IDENT", u';'), u"\"IDENT\";IDENT");
    EXPECT_EQ(BTL::AddCSVString(csv, u"a;\"b", u';'), u"\"IDENT\";IDENT;\"a;\"\"b\"");
    EXPECT_EQ(BTL::AddCSVString(csv, u"\"", u';'), u"\"IDENT\";IDENT;\"a;\"\"b\";\"\"");
    csv = UnicodeString();
    EXPECT_EQ(BTL::AddCSVString(csv, u"id", u';'), u"id");
}

TYPED_TEST(StringUtilitiesTest, SplitsAndJoinsLists)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    const struct
    {
        const char* text;
        const char* items;
    } cases[] = {{"a b,,c,", "a|b||c"},
                 {"  \"x, y\" ,z", "x, y|z"},
                 {",", ""},
                 {"\"open", "open"},
                 {"\"a\"b", "a|b"},
                 {"a\"b", "a\"b"},
                 {"", "-"}};
    Classes::TStringList list;
    for (const auto& c : cases) {
        BTL::SetDelimitedTextEx(&list, T(c.text), C(','), C('"'));
        EXPECT_EQ(BTL::GetDelimitedText(&list, C('|')), T(c.items == std::string("-") ? "" : c.items))
            << c.text;
        EXPECT_EQ(list.getCount() == 0, c.items == std::string("-")) << c.text;
    }
    list.Clear();
    list.Add(u"a b");
    list.Add(u"c,\"d\"");
    EXPECT_EQ(BTL::GetDelimitedTextEx(&list, C(','), C('"')), T("a b,\"c,\"\"d\"\"\""));
    EXPECT_EQ(BTL::GetDelimitedText(static_cast<Classes::TStrings*>(nullptr), C(',')), T(""));
    BTL::SetDelimitedTextEx(&list, T(std::string("a\0b,c", 5)), C(','), C(0));
    EXPECT_EQ(list.getCount(), 2);
    EXPECT_EQ(list.getStrings(0).Length(), 3) << "a zero is text";
    EXPECT_EQ(BTL::LinesToCommaText(T("a\r\nb c")), T("a,\"b c\""));
    EXPECT_EQ(BTL::LinesToCommaText(T("a\nb")), T("a\nb"));
}

TYPED_TEST(StringUtilitiesTest, MakesIdentifiers)
{
    const auto T = TestFixture::T;
    const auto C = TestFixture::C;
    EXPECT_EQ(BTL::TransformToValidIdent(T("1a b\xE4_2"), C('_')), T("_a_b__2"));
    EXPECT_EQ(BTL::TransformToValidIdent(T("-1a b"), C(0)), T("1ab"));
    EXPECT_EQ(BTL::TransformToValidIdent(T("9"), C(0)), T(""));
    const TypeParam first = BTL::TransformToValidIdent(T("--"), C(0), T("Name"));
    const TypeParam second = BTL::TransformToValidIdent(T(""), C('_'), T("Name"));
    ASSERT_EQ(first.SubString(1, 4), T("Name"));
    EXPECT_EQ(std::stoi(AnsiString(second.SubString(5)).c_str()),
              std::stoi(AnsiString(first.SubString(5)).c_str()) + 1);
    EXPECT_EQ(BTL::TransformToValidIdent(T("a"), C(0), T("Name")), T("a"));
}

TEST(StringUtilitiesWideTest, LoadsFormats)
{
    const Sysutils::TStringResources resources({{4711, u"%s is %d"}});
    EXPECT_EQ(BTL::LoadSPrintf(4711, UnicodeString(u"x"), 7), u"x is 7");
    EXPECT_EQ(BTL::LoadSPrintfA(4711, "x", 7), "x is 7");
    EXPECT_EQ(BTL::LoadSPrintf(4712, 1), u"");
    EXPECT_THROW(BTL::LoadSPrintf(4711, 1), Sysutils::EConvertError);
}

TEST(StringUtilitiesWideTest, LongTextsTakeTimeInProportion)
{
    // Each of these would run for hours if its time grew with the square of the text.
    UnicodeString text;
    for (int i = 0; i < 2'000'000; ++i) {
        text += u"ab,\" ";
    }
    EXPECT_EQ(BTL::ExchangeAll(text, u"b,", u"xyz").Length(), 12'000'000);
    EXPECT_EQ(BTL::ExchangeAll(text, u"b", u"xyz", u"'").Length(), 14'000'000);
    EXPECT_EQ(BTL::ApplyEscapeSequences2(BTL::InsertEscapeSequences2(text)), text);
    Classes::TStringList list;
    BTL::SetDelimitedTextEx(&list, text, u',', u'\'');
    EXPECT_EQ(list.getCount(), 4'000'000);
    EXPECT_EQ(BTL::ClearShortCut(text, u'b').Length(), 8'000'000);
}

} // namespace
