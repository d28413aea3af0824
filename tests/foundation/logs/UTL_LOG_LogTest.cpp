// SPDX-License-Identifier: MIT
#include "foundation/logs/UTL_LOG_Log.h"

#include "foundation/logs/LogSupport.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_Chrono.h"
#include "platform/base/dates/Sysutils_IsoDate.h"
#include "support/ChildProgram.h"
#include "support/TempFolder.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace
{

using System::UnicodeString;

constexpr UTL::TLogForm StampedUtf8{.encoding = UTL::ELogEncoding::Utf8, .time = UTL::ELogTime::Local};

TEST(LogChild, DISABLED_WritesToTheDefaultFile)
{
    BTL::Log(u"größer →");
    BTL::SetLogFile(u"");
    BTL::Log(u"lost");
    Support::PrintResult("done");
}

TEST(LogTest, TheDefaultFileLiesBesideTheProgram)
{
    const Support::TempFolder folder;
    Support::RunChildTest("LogChild.DISABLED_WritesToTheDefaultFile", folder.Path() / "program");
    EXPECT_EQ(Support::ReadFile(folder.Path() / "Log.txt"), "gr\xF6\xDF"
                                                            "er ?\n");
}

/// Puts the log back as it was, but with an empty name.
class LogFormTest : public testing::Test
{
protected:
    LogFormTest() { BTL::SetLogFile(Support::LibraryPath(File())); }
    ~LogFormTest() override
    {
        BTL::SetLogFile(u"");
        BTL::SetLogForm({});
    }
    std::filesystem::path File() const { return mFolder.Path() / "log.txt"; }
    std::string Content() const { return Support::ReadFile(File()); }

private:
    Support::TempFolder mFolder;
};

TEST_F(LogFormTest, IsChosenForTheLinesThatFollow)
{
    using UTL::ELogEncoding;
    using UTL::ELogTime;
    const struct
    {
        UTL::TLogForm form;
        std::string bytes;
    } rows[] = {
        {{}, "\xE4?\n"},
        {{.encoding = ELogEncoding::Utf8}, "\xC3\xA4\xE2\x86\x92\n"},
        {{.time = ELogTime::Local}, "T \xE4?\n"},
        {StampedUtf8, "T \xC3\xA4\xE2\x86\x92\n"},
        {{}, "\xE4?\n"},
    };
    std::string expected;
    for (const auto& [form, bytes] : rows) {
        BTL::SetLogForm(form);
        BTL::Log(u"\u00E4\u2192");
        expected += bytes;
        EXPECT_EQ(Support::WithoutTimes(Content()), expected);
    }
}

TEST_F(LogFormTest, TellsWhetherALineIsWritten)
{
    EXPECT_TRUE(BTL::TryLog(u"a"));
    EXPECT_EQ(Content(), "a\n");
    for (const UnicodeString name : {u"/dev/full", u"/missing/log.txt"}) {
        BTL::SetLogFile(name);
        EXPECT_FALSE(BTL::TryLog(u"b")) << name;
        EXPECT_NO_THROW(BTL::Log(u"b")) << name;
    }
    BTL::SetLogFile(u"");
    EXPECT_TRUE(BTL::TryLog(u"c")) << "nothing to lose";
}

TEST_F(LogFormTest, KeepsTheMessageOfAnException)
{
    BTL::SetLogForm({.encoding = UTL::ELogEncoding::Utf8});
    BTL::Log(Sysutils::EConvertError(u"\u00D6l.txt \u2192"));
    EXPECT_TRUE(BTL::TryLog(std::runtime_error("\xC3\x96l.txt")));
    EXPECT_EQ(Content(), "\xC3\x96l.txt \xE2\x86\x92\n\xC3\x96l.txt\n");
}

TEST_F(LogFormTest, EachLineOfATextHasItsTime)
{
    BTL::SetLogForm(StampedUtf8);
    BTL::Log(u"a\n\nb");
    BTL::Log(u"");
    BTL::Log(u"c\n");
    EXPECT_EQ(Support::WithoutTimes(Content()), "T a\nT \nT b\nT \nT c\nT \n");
}

TEST_F(LogFormTest, TheTimeIsThatOfTheClock)
{
    BTL::SetLogForm(StampedUtf8);
    const System::TDateTime before = Sysutils::ToDateTime(std::chrono::system_clock::now());
    BTL::Log(u"x");
    const System::TDateTime after = Sysutils::ToDateTime(std::chrono::system_clock::now());
    const std::string line = Content();
    const UnicodeString time = System::FromUtf8(line.substr(0, line.find(' ')));
    const Sysutils::TIsoDateTime read = Sysutils::IsoToDateTime(time);
    ASSERT_TRUE(read.offset.has_value());
    constexpr double halfAMilliSecond = 0.0005 / (24 * 60 * 60);
    EXPECT_GE(read.InUniversalTime(), before - halfAMilliSecond);
    EXPECT_LE(read.InUniversalTime(), after + halfAMilliSecond);
}

TEST_F(LogFormTest, LinesOfThreadsDontMix)
{
    BTL::SetLogForm(StampedUtf8);
    Support::LogFromThreads([](const std::string& name) {
        for (int i = 0; i < 50; ++i) {
            BTL::Log(System::FromUtf8(name + ' ' + name));
        }
    });
    EXPECT_EQ(Support::SortedLines(Content()), Support::LinesOfThreads(50, ""));
}

TEST(LogChild, DISABLED_LogsAtTheEndOfGlobals)
{
    BTL::Log(u"main");
    Support::atEndOfGlobals.call = [] { BTL::Log(u"global"); };
    Support::PrintResult("done");
}

TEST(LogTest, OutlivesGlobalObjects)
{
    const Support::TempFolder folder;
    Support::RunChildTest("LogChild.DISABLED_LogsAtTheEndOfGlobals", folder.Path() / "program");
    EXPECT_EQ(Support::ReadFile(folder.Path() / "Log.txt"), "main\nglobal\n");
}

} // namespace
