// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/System_Printf.h"

#include "platform/base/Sysutils_Exception.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <limits>
#include <string>

namespace
{

using System::AnsiString;
using System::Int64;
using System::Printf;
using System::PrintfA;
using System::TVarRec;
using System::UnicodeString;

/// The format and its argument in both widths.
void Expect(const char* format, const TVarRec& argument, const UnicodeString& expected)
{
    EXPECT_EQ(Printf(UnicodeString(format), System::TVarArgs{argument}), expected) << format;
    EXPECT_EQ(PrintfA(format, System::TVarArgs{argument}), AnsiString(expected)) << format;
}

TEST(PrintfTest, WritesIntegers)
{
    const struct
    {
        const char* format;
        TVarRec argument;
        const char16_t* expected;
    } cases[] = {
        {"%d", 42, u"42"},
        {"%i", -42, u"-42"},
        {"%5d|", 42, u"   42|"},
        {"%-5d|", 42, u"42   |"},
        {"%05d", -42, u"-0042"},
        {"%-05d|", 42, u"42   |"},
        {"%+d % d", 1, nullptr},
        {"%+d", 1, u"+1"},
        {"% d", 1, u" 1"},
        {"%.3d", 7, u"007"},
        {"%08.3d", 7, u"     007"},
        {"%.0d", 0, u""},
        {"%x", 255, u"ff"},
        {"%#X", 255, u"0XFF"},
        {"%#x", 0, u"0"},
        {"%#010x", 255, u"0x000000ff"},
        {"%o", 8, u"10"},
        {"%#o", 8, u"010"},
        {"%u", -1, u"4294967295"},
        {"%x", Int64(-1), u"ffffffffffffffff"},
        {"%hd", 70000, u"70000"},
        {"%Ld", LLONG_MIN, u"-9223372036854775808"},
        {"%I64d", LLONG_MAX, u"9223372036854775807"},
        {"%lu", ULLONG_MAX, u"18446744073709551615"},
        {"%d", true, u"1"},
        {"100%%%d", 1, u"100%1"},
    };
    for (const auto& c : cases) {
        if (c.expected != nullptr) {
            Expect(c.format, c.argument, c.expected);
        } else {
            EXPECT_THROW(Printf(UnicodeString(c.format), System::TVarArgs{c.argument}),
                         Sysutils::EConvertError);
        }
    }
}

TEST(PrintfTest, WritesFloatsAsTheCLibraryDoes)
{
    const double values[] = {0,          -0.0,  1,     -1.5,   0.1,
                             123456.789, 1e10,  1e-7,  2.5,    0.05,
                             999999,     1e100, 1e300, 5e-324, std::numeric_limits<double>::infinity()};
    const char* const formats[] = {"%f",  "%.0f", "%.3f",  "%10.2f|", "%-10.2f|", "%010.2f",
                                   "%+f", "% f",  "%#.0f", "%e",      "%.0e",     "%E",
                                   "%g",  "%.3g", "%G",    "%#g",     "%.0g",     "%lf"};
    for (const char* format : formats) {
        for (const double value : values) {
            char expected[512];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
            std::snprintf(expected, sizeof expected, format, value);
#pragma GCC diagnostic pop
            Expect(format, value, UnicodeString(static_cast<const char*>(expected)));
        }
    }
    Expect("%a", 1.0, u"0x1p+0");
    Expect("%.2Lf", 2.5L, u"2.50");
}

TEST(PrintfTest, WritesTextsOfEitherWidth)
{
    Expect("[%s]", u"größer", u"[größer]");
    Expect("[%ls]", "abc", u"[abc]");
    Expect("[%hs]", u"abc", u"[abc]");
    Expect("[%S]", AnsiString("abc"), u"[abc]");
    Expect("[%5s]", u"abc", u"[  abc]");
    Expect("[%-5s]", u"abc", u"[abc  ]");
    Expect("[%.2s]", u"abc", u"[ab]");
    Expect("[%.s]", u"abc", u"[]");
    Expect("[%s]", static_cast<const char*>(nullptr), u"[]");
    Expect("%c", u'ä', u"ä");
    Expect("%c", 'x', u"x");
    Expect("%3c", 65, u"  A");
    EXPECT_EQ(Printf(u"%s, %d", u"a", 1), u"a, 1");
    EXPECT_EQ(PrintfA("%s", u"→"), "?");
    EXPECT_EQ(Printf(u"%*d|%-*d|%.*f", 4, 7, 3, 8, 1, 2.25), u"   7|8  |2.2");
    EXPECT_EQ(Printf(u"%*d|", -4, 7), u"7   |");
    EXPECT_EQ(Printf(u"plain", 1, 2), u"plain");
    for (const int length : {100, 119, 120, 121, 240, 1000}) {
        const UnicodeString word = UnicodeString::StringOfChar(u'x', length);
        const UnicodeString blanks = UnicodeString::StringOfChar(u' ', length - 1);
        EXPECT_EQ(Printf(word + u"%s%*d%d%s", word, length, 7, 8, u"y"), word + word + blanks + u"78y");
    }
}

TEST(PrintfTest, RefusesWhatDoesNotFit)
{
    for (const char16_t* format :
         {u"%", u"%5", u"%.", u"%n", u"%y", u"%s", u"%f", u"%p", u"%d%d", u"%I32", u"%ll"}) {
        EXPECT_THROW(Printf(format, 1), Sysutils::EConvertError) << UnicodeString(format);
    }
    for (const char16_t* format : {u"%d", u"%x", u"%c", u"%g", u"%*d"}) {
        EXPECT_THROW(Printf(format, u"text", 1), Sysutils::EConvertError) << UnicodeString(format);
    }
    EXPECT_THROW(Printf(u"%d", 1.5), Sysutils::EConvertError);
    EXPECT_THROW(Printf(u"%s", System::TVarArgs()), Sysutils::EConvertError);
    EXPECT_EQ(Printf(u"%999999999999d", 1).Length(), 65535);
    EXPECT_EQ(Printf(u"%.999999999999f", 1.0).Length(), 65537);
    EXPECT_EQ(Printf(u"%*d", INT_MIN, 1).Length(), 65535);
    EXPECT_EQ(Printf(u"%*d", INT_MAX, 1).Length(), 65535);
}

} // namespace
