// SPDX-License-Identifier: MIT
#include "text/grammar/BTL_CommandLineOptions.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/host/Host_Path.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"

#include <gmock/gmock.h>

#include <string>

namespace
{

using BTL::CCommandLineOptions;
using BTL::EOtherWords;
using BTL::XCommandLine;
using System::UnicodeString;
using testing::ElementsAre;
using testing::IsEmpty;

using Words = std::vector<UnicodeString>;

CCommandLineOptions Options(EOtherWords otherWords = EOtherWords::Kept)
{
    return CCommandLineOptions({{u"--seconds", u"N", u"how long"},
                                {u"--sql", u"", u"for SQL"},
                                {u"--include", u"FOLDER", u"where to look"},
                                {u"--help", u"", u"this text"}},
                               otherWords);
}

CCommandLineOptions Parsed(const Words& words, EOtherWords otherWords = EOtherWords::Kept)
{
    CCommandLineOptions options = Options(otherWords);
    options.Parse(words);
    return options;
}

UnicodeString FaultOf(const Words& words, EOtherWords otherWords = EOtherWords::Kept)
{
    try {
        Parsed(words, otherWords);
    } catch (const XCommandLine& fault) {
        return fault.getMessage();
    }
    return u"none";
}

TEST(CommandLineOptionsTest, GivesTheValues)
{
    const auto options = Parsed({u"--seconds", u"1,5", u"--include=a b", u"in.txt", u"--sql", u"--include",
                                 u"-c", u"--include=", u"-", u"-5"});
    EXPECT_EQ(options.GetDouble(u"--seconds", 0), 1.5);
    EXPECT_TRUE(options.Contains(u"--sql"));
    EXPECT_FALSE(options.Contains(u"--help"));
    EXPECT_THAT(options.GetValues(u"--include"), ElementsAre(u"a b", u"-c", u""));
    EXPECT_EQ(options.GetString(u"--include", u"x"), u"");
    EXPECT_THAT(options.getWords(), ElementsAre(u"in.txt", u"-", u"-5"));
    EXPECT_THAT(options.GetValues(u"--help"), IsEmpty());
}

TEST(CommandLineOptionsTest, GivesDefaults)
{
    const auto options = Parsed({});
    EXPECT_EQ(options.GetDouble(u"--seconds", 2.5), 2.5);
    EXPECT_EQ(options.GetInt(u"--seconds", 7), 7);
    EXPECT_EQ(options.GetString(u"--include"), u"");
    EXPECT_EQ(options.GetString(u"--include", u"x"), u"x");
    EXPECT_THAT(options.getWords(), IsEmpty());
}

TEST(CommandLineOptionsTest, ReadsTheWordsOfMain)
{
    const char* const argv[] = {"program", "--include", "a \"b\"=\xC3\xA4", "--seconds=3"};
    CCommandLineOptions options = Options();
    options.Parse({u"--sql", u"before"});
    options.Parse(4, argv);
    EXPECT_EQ(options.GetString(u"--include"), u"a \"b\"=\u00E4");
    EXPECT_EQ(options.GetInt(u"--seconds", 0), 3);
    EXPECT_FALSE(options.Contains(u"--sql")) << "of an earlier line";
    EXPECT_THAT(options.getWords(), IsEmpty());
    options.Parse(0, nullptr);
    EXPECT_FALSE(options.Contains(u"--seconds"));
}

TEST(CommandLineOptionsTest, KeepsTheNamesOfFiles)
{
    CCommandLineOptions options = {{u"--in", u"FILE", u""}};
    const char* const argv[] = {"program", "--in=/a/\xE4 \xC3\xA4", "C:\\x\\y"};
    options.Parse(3, argv);
    EXPECT_EQ(Sysutils::HostPath(options.GetString(u"--in")), "/a/\xE4 \xC3\xA4");
    EXPECT_EQ(options.getWords().front(), u"C:\\x\\y");
}

TEST(CommandLineOptionsTest, EndsAtTwoDashes)
{
    const auto options = Parsed({u"--sql", u"--", u"--help", u"--colour", u"--"});
    EXPECT_TRUE(options.Contains(u"--sql"));
    EXPECT_FALSE(options.Contains(u"--help"));
    EXPECT_THAT(options.getWords(), ElementsAre(u"--help", u"--colour", u"--"));
}

TEST(CommandLineOptionsTest, NamesTheFault)
{
    const struct
    {
        Words words;
        EOtherWords otherWords;
        const char16_t* fault;
    } cases[] = {
        {{u"--colour"}, EOtherWords::Kept, u"unknown option '--colour'; --help tells all"},
        {{u"--colour=red"}, EOtherWords::Kept, u"unknown option '--colour=red'; --help tells all"},
        {{u"--SQL"}, EOtherWords::Kept, u"unknown option '--SQL'; --help tells all"},
        {{u"word"}, EOtherWords::Refused, u"unknown option 'word'; --help tells all"},
        {{u""}, EOtherWords::Refused, u"unknown option ''; --help tells all"},
        {{u"--"}, EOtherWords::Refused, u"unknown option '--'; --help tells all"},
        {{u"--seconds"}, EOtherWords::Kept, u"--seconds: the value is missing"},
        {{u"--seconds", u"--sql"}, EOtherWords::Kept, u"--seconds: the value is missing"},
        {{u"--seconds", u"--include=x"}, EOtherWords::Kept, u"--seconds: the value is missing"},
        {{u"--sql=yes"}, EOtherWords::Kept, u"--sql takes no value"},
        {{u"--sql="}, EOtherWords::Kept, u"--sql takes no value"},
        {{u"--seconds", u"--colour"}, EOtherWords::Kept, u"none"},
        {{u"=", u"", u"word"}, EOtherWords::Kept, u"none"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(FaultOf(c.words, c.otherWords), c.fault);
    }
    CCommandLineOptions empty;
    EXPECT_THROW(empty.Parse(Words{u"-x"}), XCommandLine);
    const auto options = Parsed({u"--seconds=0x"});
    EXPECT_THROW(options.GetInt(u"--seconds", 0), XCommandLine);
    try {
        options.GetDouble(u"--seconds", 0);
        FAIL();
    } catch (const XCommandLine& fault) {
        EXPECT_EQ(fault.getMessage(), u"--seconds: '0x' is no number");
    }
}

TEST(CommandLineOptionsTest, WritesTheHelp)
{
    CCommandLineOptions options = Options();
    options.Add({u"-v", u"", u"tell more"});
    EXPECT_EQ(options.GetHelpText(), u"  --seconds N       how long\n"
                                     u"  --sql             for SQL\n"
                                     u"  --include FOLDER  where to look\n"
                                     u"  --help            this text\n"
                                     u"  -v                tell more\n");
    EXPECT_EQ(options.getOptions().size(), 5U);
    options.Parse({u"-v", u"-v"});
    EXPECT_EQ(options.GetValues(u"-v").size(), 2U);
    EXPECT_EQ(CCommandLineOptions().GetHelpText(), u"");
}

TEST(CommandLineOptionsTest, HaveShortNames)
{
    CCommandLineOptions options = {{u"--level", u"N", u"how much", u"-l"},
                                   {u"--sql", u"", u"for SQL"},
                                   {u"/verbose", u"", u"tell more", u"/v"}};
    options.Parse({u"-l", u"5", u"--level=6", u"-l=-7", u"/v", u"-1", u""});
    EXPECT_THAT(options.GetValues(u"--level"), ElementsAre(u"5", u"6", u"-7"));
    EXPECT_EQ(options.GetInt(u"-l", 0), -7) << "either name asks for it";
    EXPECT_TRUE(options.Contains(u"/verbose"));
    EXPECT_FALSE(options.Contains(u"--sql"));
    EXPECT_THAT(options.getWords(), ElementsAre(u"-1", u"")) << "no name is empty";
    EXPECT_EQ(options.GetHelpText(), u"  -l, --level N  how much\n"
                                     u"      --sql      for SQL\n"
                                     u"  /v, /verbose   tell more\n");
    const std::pair<Words, const char16_t*> faults[] = {
        {{u"-l"}, u"-l: the value is missing"},
        {{u"-l", u"--sql"}, u"-l: the value is missing"},
        {{u"--level", u"/v"}, u"--level: the value is missing"},
        {{u"/v=1"}, u"/v takes no value"},
        {{u"-l5"}, u"unknown option '-l5'"},
        {{u"-L", u"5"}, u"unknown option '-L'"},
    };
    for (const auto& [words, fault] : faults) {
        try {
            options.Parse(words);
            ADD_FAILURE() << UnicodeString(fault);
        } catch (const XCommandLine& error) {
            EXPECT_EQ(error.getMessage(), fault);
        }
    }
}

TEST(CommandLineOptionsTest, ToAskForNoOptionIsAFault)
{
    const auto options = Parsed({u"--sql"});
    const Support::ScriptedBoxes boxes({IDYES, IDNO});
    try {
        static_cast<void>(options.Contains(u"--sqll"));
        ADD_FAILURE() << "it was taken for an option";
    } catch (const UTL::XAssert& fault) {
        EXPECT_EQ(fault.getExpression(), u"no option '--sqll'");
    }
    EXPECT_EQ(options.GetInt(u"--sqll", 5), 5) << "passed by the user";
}

} // namespace
