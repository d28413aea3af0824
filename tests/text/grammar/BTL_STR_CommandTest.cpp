// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_STR_Command.h"

#include "platform/base/Sysutils_Exception.h"
#include "text/BothWidthsSupport.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{

using System::UnicodeString;

template <class S>
using CommandTest = Support::BothWidths<S>;
TYPED_TEST_SUITE(CommandTest, Support::Widths);

TYPED_TEST(CommandTest, CutsDelimitedPieces)
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

TYPED_TEST(CommandTest, CutsNestedPieces)
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

TYPED_TEST(CommandTest, FindsAndCutsCommands)
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

TEST(CommandWideTest, CutsCommandsWithTheirParameters)
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

TEST(CommandWideTest, TakesNarrowMarks)
{
    const UnicodeString text = u"\u20ACto x @bold {b{c}\u20AC}}";
    int pos = 1;
    EXPECT_EQ(BTL::GetWord(text, '\x80'), u"\u20ACto");
    EXPECT_EQ(BTL::GetWord(text, pos, '@'), u"@bold");
    EXPECT_EQ(BTL::DelimSubString2(text, '{', '}', 1), u"b{c");
    EXPECT_EQ(BTL::DelimSubString(text, '\x80', 1), u"to x @bold {b{c}");
    EXPECT_EQ(BTL::GetSubString(text, false, '{', '}', '\x80'), u"b{c}}");
    EXPECT_EQ(BTL::GetSubString(text, pos, true, '{', '}', 0), u"b{c}\u20AC");
    EXPECT_EQ(BTL::GetCommandParameter(text, u"@bold", '{', '}', 0), u"b{c}\u20AC");
    UnicodeString parameter;
    EXPECT_TRUE(BTL::GetCommandParameter2(parameter, text, u"@bold", '{', '}', 0));
    EXPECT_EQ(parameter, u"b{c}\u20AC");
    UnicodeString rest = text;
    EXPECT_EQ(BTL::CutCommandParameter(rest, u"@bold", '{', '}', 0), u"b{c}\u20AC");
    EXPECT_EQ(rest, u"\u20ACto x }");
    rest = text;
    EXPECT_TRUE(BTL::CutCommand(rest, parameter, u"@bold", '{', '}', 0));
    EXPECT_EQ(rest, u"\u20ACto x }");
}

} // namespace
