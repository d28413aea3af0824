// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_CommandLineParser.h"

#include "platform/host/Host_Path.h"

#include <gmock/gmock.h>

#include <climits>
#include <iterator>
#include <limits>

namespace
{

using BTL::CCommandLineParser;
using System::Int64;
using System::UnicodeString;
using System::WideChar;

using Tokens = std::vector<UnicodeString>;

Tokens TokensOf(const CCommandLineParser& parser)
{
    Tokens tokens;
    for (int i = 0; i < parser.getTokens().getCount(); ++i) {
        tokens.push_back(parser.getTokens()[i]);
    }
    return tokens;
}

CCommandLineParser Parsed(const WideChar* text, bool caseSensitive = false)
{
    CCommandLineParser parser(caseSensitive);
    parser.Parse(text);
    return parser;
}

TEST(CommandLineParserTest, CutsTokens)
{
    const struct
    {
        const WideChar* text;
        Tokens tokens;
    } cases[] = {
        {u"", {}},
        {u" \t\x00A0\x2003\r\n", {}},
        {u"/a -b c", {u"/a", u"-b", u"c"}},
        {u"a=b", {u"a", u"=", u"b"}},
        {u" a = b ", {u"a", u"=", u"b"}},
        {u"==", {u"=", u"="}},
        {u"a\"b c\"d", {u"a", u"\"b c\"", u"d"}},
        {u"\"\"", {u"\"\""}},
        {u"\"a\"\"b\" c", {u"\"a\"b\"", u"c"}},
        {u"\"a\"\"\" c", {u"\"a\"\"", u"c"}},
        {u"\"ab\"\"", {u"\"ab\"", u"\""}},
        {u"\"\"\"", {u"\"\"", u"\""}},
        {u"\"open to the end", {u"\"open to the end"}},
        {u"\"a=b\"=\"", {u"\"a=b\"", u"=", u"\""}},
        {u"ä→💡", {u"ä→💡"}},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(TokensOf(Parsed(test.text)), test.tokens) << UnicodeString(test.text);
    }
}

TEST(CommandLineParserTest, FindsNamesAndValues)
{
    const struct
    {
        const WideChar* text;
        const WideChar* name;
        bool found;
        const WideChar* quoted;
        const WideChar* unquoted;
    } cases[] = {
        {u"/a /b", u"/a", true, u"/b", u"/b"},
        {u"/a /b", u"/b", true, u"former", u"default"},
        {u"a=b", u"A", true, u"b", u"b"},
        {u"a=b", u"b", false, u"former", u"default"},
        {u"a=", u"a", true, u"former", u"default"},
        {u"=x", u"x", false, u"former", u"default"},
        {u"a b=c", u"a", true, u"b", u"b"},
        {u"a b=c", u"b", true, u"c", u"c"},
        {u"a b=c", u"c", false, u"former", u"default"},
        {u"p = \"x \"\"y\"\"\" ", u"p", true, u"\"x \"y\"\"", u"x \"y\""},
        {u"p=\"\"", u"p", true, u"\"\"", u"default"},
        {u"a=1 a=2", u"a", true, u"1", u"1"},
        {u"a=a=3", u"a", true, u"a", u"a"},
        {u"x", u"", false, u"former", u"default"},
    };
    for (const auto& test : cases) {
        const CCommandLineParser parser = Parsed(test.text);
        UnicodeString value = u"former";
        EXPECT_EQ(parser.Find(test.name), test.found) << UnicodeString(test.text);
        EXPECT_EQ(parser.Find(test.name, value, false), test.found) << UnicodeString(test.text);
        EXPECT_EQ(value, test.quoted) << UnicodeString(test.text);
        EXPECT_EQ(parser.GetString(test.name, u"default"), test.unquoted) << UnicodeString(test.text);
        EXPECT_EQ(parser.Find(test.name, value, u"default", true), test.found);
        EXPECT_EQ(value, test.unquoted);
    }
    EXPECT_FALSE(Parsed(u"Port=1", true).Find(u"port"));
    EXPECT_TRUE(Parsed(u"Port=1", true).Find(u"Port"));
}

TEST(CommandLineParserTest, ReadsNumbersAndTruth)
{
    const CCommandLineParser parser =
        Parsed(u"port=3 bad=abc quoted=\"-7\" big=9223372036854775807 hex=$1F yes=true no=FALSE zero=0 last");
    EXPECT_EQ(parser.GetInt(u"port", 9), 3);
    EXPECT_EQ(parser.GetInt(u"bad", 9), 9);
    EXPECT_EQ(parser.GetInt(u"quoted", 9), -7);
    EXPECT_EQ(parser.GetInt(u"big", 9), 9);
    EXPECT_EQ(parser.GetInt(u"hex", 9), 31);
    EXPECT_EQ(parser.GetInt(u"missing", 9), 9);
    EXPECT_EQ(parser.GetInt64(u"big", 9), std::numeric_limits<Int64>::max());
    EXPECT_EQ(parser.GetInt64(u"last", 9), 9);
    for (const bool def : {false, true}) {
        EXPECT_TRUE(parser.GetBool(u"yes", def));
        EXPECT_FALSE(parser.GetBool(u"no", def));
        EXPECT_FALSE(parser.GetBool(u"zero", def));
        EXPECT_TRUE(parser.GetBool(u"port", def));
        EXPECT_EQ(parser.GetBool(u"bad", def), def);
        EXPECT_EQ(parser.GetBool(u"last", def), def);
        EXPECT_EQ(parser.GetBool(u"missing", def), def);
    }
    int value = 1;
    EXPECT_TRUE(parser.Find(u"bad", value, 9)) << "found, if not usable";
    EXPECT_EQ(value, 9);
    EXPECT_FALSE(parser.Find(u"missing", value, 8));
    EXPECT_EQ(value, 8);
}

TEST(CommandLineParserTest, TellsWhereANameIs)
{
    const CCommandLineParser parser = Parsed(u"a=b c=5 b t=no");
    EXPECT_EQ(parser.IndexOf(u"B"), 6);
    EXPECT_EQ(parser.IndexOf(u"5"), -1);
    System::Int64 number = 1;
    EXPECT_TRUE(parser.Find(u"c", number, 2));
    EXPECT_EQ(number, 5);
    EXPECT_FALSE(parser.Find(u"x", number, 2));
    EXPECT_EQ(number, 2);
    bool truth = false;
    EXPECT_TRUE(parser.Find(u"t", truth, true));
    EXPECT_TRUE(truth) << "neither a number nor a truth";
    EXPECT_FALSE(parser.Find(u"x", truth, false));
    EXPECT_FALSE(truth);
}

TEST(CommandLineParserTest, AddsAndRemovesTokens)
{
    CCommandLineParser parser = Parsed(u"a=1 b 2 a=3 c=");
    CCommandLineParser copy(parser);
    parser.Remove(u"a");
    EXPECT_EQ(TokensOf(parser), Tokens({u"b", u"2", u"a", u"=", u"3", u"c", u"="}));
    EXPECT_EQ(parser.GetInt(u"a", 0), 3);
    parser.Remove(u"b");
    parser.Remove(u"c");
    parser.Remove(u"missing");
    EXPECT_EQ(TokensOf(parser), Tokens({u"2", u"a", u"=", u"3"}));
    parser.Add(u"");
    parser.Add(u"with blank");
    EXPECT_TRUE(parser.Find(u"with blank"));
    EXPECT_EQ(parser.getText(), u"a=1 b 2 a=3 c=") << "the text stays as it was given";
    EXPECT_EQ(copy.getTokens().getCount(), 10);
    copy = parser;
    const CCommandLineParser& same = copy;
    copy = same;
    EXPECT_EQ(TokensOf(copy), TokensOf(parser));
    copy.Parse(u"x");
    EXPECT_EQ(TokensOf(copy), Tokens({u"x"}));
}

TEST(CommandLineParserTest, CutsFromAPosition)
{
    CCommandLineParser parser(true);
    EXPECT_EQ(parser.ParserArg(u"ab cd=", 4), 6);
    EXPECT_EQ(parser.ParserStr(u"x\"y\" z", 2), 5);
    for (const int position : {0, -1, 4, INT_MAX, INT_MIN}) {
        EXPECT_EQ(parser.ParserArg(u"abc", position), 4);
        EXPECT_EQ(parser.ParserStr(u"abc", position), 4);
    }
    EXPECT_EQ(TokensOf(parser), Tokens({u"cd", u"\"y\""}));
}

TEST(CommandLineParserTest, KeepsTheNamesOfFiles)
{
    const char* const argv[] = {"program", "in=/a/\xE4 \xC3\xA4", "C:\\x"};
    CCommandLineParser parser(true);
    parser.Parse(3, argv);
    EXPECT_EQ(Sysutils::HostPath(parser.GetString(u"in", u"")), "/a/\xE4 \xC3\xA4");
    EXPECT_EQ(parser.IndexOf(u"C:\\x"), 3);
}

TEST(CommandLineParserTest, TakesTheWordsOfMain)
{
    const char* const argv[] = {"program",  "--port=80",      "--name=My \"big\" one",
                                "plain",    "two words",      "",
                                "--empty=", "a=b=c",          "x \"y\"=z",
                                "\"",       "--path=C:\\a\\", "--umlaut=\xC3\xA4",
                                "=",        "--quote=\""};
    CCommandLineParser parser(true);
    parser.Parse(static_cast<int>(std::size(argv)), argv);
    const struct
    {
        const WideChar* name;
        const WideChar* value;
    } cases[] = {
        {u"--port", u"80"},      {u"--name", u"My \"big\" one"}, {u"--empty", u""},   {u"a", u"b=c"},
        {u"--path", u"C:\\a\\"}, {u"--umlaut", u"\u00E4"},       {u"--quote", u"\""},
    };
    for (const auto& c : cases) {
        UnicodeString value = u"missing";
        EXPECT_TRUE(parser.Find(c.name, value, true)) << UnicodeString(c.name);
        EXPECT_EQ(value, c.value);
    }
    EXPECT_EQ(parser.GetInt(u"--port", 0), 80);
    for (const WideChar* const token : {u"plain", u"\"two words\"", u"\"\"", u"\"x \"y\"=z\"", u"\"=\""}) {
        EXPECT_THAT(TokensOf(parser), testing::Contains(UnicodeString(token)));
    }
    CCommandLineParser same(true);
    same.Parse(parser.getText());
    EXPECT_EQ(TokensOf(same), TokensOf(parser));
    parser.Parse(1, argv);
    EXPECT_TRUE(TokensOf(parser).empty());
    parser.Parse(0, nullptr);
    EXPECT_TRUE(TokensOf(parser).empty());
}

} // namespace
