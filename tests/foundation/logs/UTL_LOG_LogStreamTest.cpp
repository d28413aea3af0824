// SPDX-License-Identifier: MIT
#include "foundation/logs/UTL_LOG_LogStream.h"

#include "foundation/logs/LogSupport.h"
#include "support/ChildProgram.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <ostream>
#include <regex>
#include <string>

namespace
{

namespace fs = std::filesystem;
using Support::LibraryPath;
using Support::ReadFile;

/// A folder whose name the child process finds in its environment.
class LogFolder : public Support::TempFolder
{
public:
    LogFolder() { setenv("TRS8_BTL_TEST_LOG", Path().c_str(), 1); }
    static fs::path File() { return fs::path(std::getenv("TRS8_BTL_TEST_LOG")) / "stream.txt"; }
};

TEST(LogStreamChild, DISABLED_WritesToTheStream)
{
    const bool wasThere = fs::exists(LogFolder::File());
    UTL::set_log_file(LibraryPath(LogFolder::File()));
    UTL::set_logging(false);
    EXPECT_EQ(UTL::get_log_stream(), nullptr);
    EXPECT_EQ(fs::exists(LogFolder::File()), wasThere) << "nothing is opened while logging is off";
    UTL::set_logging(true);
    ASSERT_NE(UTL::get_log_stream(), nullptr);
    UTL::set_log_file(LibraryPath(LogFolder::File()) + u".other");
    *UTL::get_log_stream() << "line\n";
    EXPECT_FALSE(fs::exists(LogFolder::File().string() + ".other"));
    Support::PrintResult("done");
}

TEST(LogStreamChild, DISABLED_WritesToTheDefaultFile)
{
    *UTL::get_log_stream() << "stream";
    Support::PrintResult("done");
}

TEST(LogStreamTest, HasAStartLineForEachRun)
{
    const LogFolder folder;
    for (int run = 0; run < 2; ++run) {
        Support::RunChildTest("LogStreamChild.DISABLED_WritesToTheStream");
    }
    const std::string run = "\n[^\n]*\\d\\d[^\n]* -{52}\nline\n";
    EXPECT_TRUE(std::regex_match(ReadFile(LogFolder::File()), std::regex(run + run)))
        << ReadFile(LogFolder::File());
}

TEST(LogStreamTest, TheDefaultFileLiesBesideTheProgram)
{
    const Support::TempFolder folder;
    Support::RunChildTest("LogStreamChild.DISABLED_WritesToTheDefaultFile", folder.Path() / "program");
    EXPECT_TRUE(ReadFile(folder.Path() / "TRS_Log.txt").ends_with("-\nstream"));
}

TEST(LogStreamChild, DISABLED_WritesLinesFromThreads)
{
    UTL::set_log_file(LibraryPath(LogFolder::File()));
    UTL::set_log_form({.encoding = UTL::ELogEncoding::Utf8, .time = UTL::ELogTime::Local});
    Support::LogFromThreads([](const std::string& name) {
        std::ostream& log = *UTL::get_log_stream();
        for (int i = 0; i < 100; ++i) {
            log << name << ' ' << name << (i < 99 ? "\n" : "");
        }
    });
    Support::PrintResult("done");
}

TEST(LogStreamTest, LinesOfThreadsDontMix)
{
    const LogFolder folder;
    Support::RunChildTest("LogStreamChild.DISABLED_WritesLinesFromThreads");
    std::vector<std::string> lines = Support::SortedLines(ReadFile(LogFolder::File()));
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines[0], "") << "in front of the start line";
    EXPECT_EQ(lines[1], "T " + std::string(52, '-'));
    lines.erase(lines.begin(), lines.begin() + 2);
    EXPECT_EQ(lines, Support::LinesOfThreads(100, "")) << "the last line of a thread is ended with it";
}

/// Writes in `main` and when the global objects end, there by the pointer of `main` and by one of its own.
void WriteUpToTheEnd(const UTL::TLogForm& form)
{
    UTL::set_log_file(LibraryPath(LogFolder::File()));
    UTL::set_log_form(form);
    std::ostream* const log = UTL::get_log_stream();
    *log << System::UnicodeString(u"\u2192") << " in main, " << std::hex << 16 << '\n';
    Support::atEndOfGlobals.call = [log] {
        *log << "by the old pointer\n";
        *UTL::get_log_stream() << "by a new pointer\n";
        *UTL::get_log_stream() << "without an end";
    };
    Support::PrintResult("done");
}

TEST(LogStreamChild, DISABLED_WritesUpToTheEnd)
{
    WriteUpToTheEnd({});
}

TEST(LogStreamChild, DISABLED_WritesLinesUpToTheEnd)
{
    WriteUpToTheEnd({.encoding = UTL::ELogEncoding::Utf8, .time = UTL::ELogTime::Local});
}

TEST(LogStreamTest, OutlivesGlobalObjects)
{
    const auto lines = [](const std::string& test) {
        const LogFolder folder;
        Support::RunChildTest("LogStreamChild." + test);
        const std::string content = Support::WithoutTimes(ReadFile(LogFolder::File()));
        return content.substr(content.find("-\n") + 2);
    };
    EXPECT_EQ(lines("DISABLED_WritesUpToTheEnd"),
              "\xE2\x86\x92 in main, 10\nby the old pointer\nby a new pointer\nwithout an end");
    EXPECT_EQ(lines("DISABLED_WritesLinesUpToTheEnd"),
              "T \xE2\x86\x92 in main, 10\nT by the old pointer\nT by a new pointer\nT without an end\n");
}

TEST(LogStreamTest, SwallowsWhatItCannotWrite)
{
    EXPECT_EQ(Support::RunChildTest("LogStreamChild.DISABLED_WritesNowhere"), "failed");
}

TEST(LogStreamChild, DISABLED_WritesNowhere)
{
    const Support::TempFolder folder;
    UTL::set_log_file(LibraryPath(folder.Path() / "missing" / "log.txt"));
    UTL::set_log_form({.time = UTL::ELogTime::Local});
    std::ostream* const log = UTL::get_log_stream();
    *log << "lost\n";
    Support::PrintResult(log->fail() ? "failed" : "good");
}

} // namespace
