// SPDX-License-Identifier: MIT
#include "foundation/UTL_LOG_LogFile.h"
#include "foundation/UTL_LOG_LogStream.h"
#include "foundation/UTL_LOG_Sink.h"
#include "platform/host/Host_Path.h"
#include "support/ChildProgram.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <regex>
#include <vector>

namespace
{

namespace fs = std::filesystem;
using System::UnicodeString;

std::string ReadFile(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

UnicodeString LibraryPath(const fs::path& file)
{
    return Sysutils::FromHostPath(file.string());
}

/// A folder whose name the child process finds in its environment.
class LogFolder : public Support::TempFolder
{
public:
    LogFolder() { setenv("TRS8_BTL_TEST_LOG", Path().c_str(), 1); }
    static fs::path File() { return fs::path(std::getenv("TRS8_BTL_TEST_LOG")) / "stream.txt"; }
};

TEST(LogChild, DISABLED_WritesToTheStream)
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

TEST(LogChild, DISABLED_WritesToTheDefaultFiles)
{
    *UTL::get_log_stream() << "stream";
    BTL::Log(u"größer →");
    BTL::SetLogFile(u"");
    BTL::Log(u"lost");
    Support::PrintResult("done");
}

TEST(LogTest, StreamHasAStartLineForEachRun)
{
    const LogFolder folder;
    for (int run = 0; run < 2; ++run) {
        Support::RunChildTest("LogChild.DISABLED_WritesToTheStream");
    }
    const std::string run = "\n[^\n]*\\d\\d[^\n]* -{52}\nline\n";
    EXPECT_TRUE(std::regex_match(ReadFile(LogFolder::File()), std::regex(run + run)))
        << ReadFile(LogFolder::File());
}

TEST(LogTest, DefaultFilesLieBesideTheProgram)
{
    const Support::TempFolder folder;
    Support::RunChildTest("LogChild.DISABLED_WritesToTheDefaultFiles", folder.Path() / "program");
    EXPECT_TRUE(ReadFile(folder.Path() / "TRS_Log.txt").ends_with("-\nstream"));
    EXPECT_EQ(ReadFile(folder.Path() / "Log.txt"), "gr\xF6\xDF"
                                                   "er ?\n");
}

TEST(LogFileTest, ObjectsShareTheNameButNotTheFile)
{
    const Support::TempFolder folder;
    const UnicodeString path = LibraryPath(folder.Path()) + u"\\";
    UTL::CLogFile first;
    first.Log(u"lost", true);
    first.Init(path, u"first.txt");
    first.Log(u"ä", true);
    first.Log(u"b", false);
    EXPECT_EQ(ReadFile(folder.Path() / "first.txt"), "\xE4\r\nb");

    UTL::CLogFile second;
    second.Init("second.txt");
    second.Log(u"2", false);
    first.On();
    first.Log(u"c", false);
    EXPECT_EQ(ReadFile(folder.Path() / "first.txt"), "\xE4\r\nbc") << "an object that is on keeps its file";

    first.Off();
    first.Log(u"lost", false);
    second.Off();
    first.On();
    first.Log(u"new", false);
    EXPECT_EQ(ReadFile(folder.Path() / "second.txt"), "new") << "the name of the last start, emptied";

    first.Init("");
    first.Log(u"lost", false);
    EXPECT_EQ(ReadFile(folder.Path() / "second.txt"), "new");
}

TEST(LogFileTest, SwallowsWhatItCannotWrite)
{
    const Support::TempFolder folder;
    UTL::CLogFile log;
    log.Init(LibraryPath(folder.Path() / "missing") + u"\\", u"log.txt");
    EXPECT_NO_THROW(log.Log(u"lost", true));
    log.Off();
    EXPECT_FALSE(fs::exists(folder.Path() / "missing"));
}

TEST(CoutToFileTest, RedirectsOnlyWhenAskedFor)
{
    const Support::TempFolder folder;
    const fs::path file = folder.Path() / "cout.txt";
    std::streambuf* const former = std::cout.rdbuf();
    {
        const UTL::CCoutToFile redirection(nullptr, true);
        EXPECT_EQ(std::cout.rdbuf(), former);
    }
    std::ofstream(file) << "old";
    {
        const UTL::CCoutToFile redirection(file.c_str(), false);
        EXPECT_EQ(std::cout.rdbuf(), former);
    }
    EXPECT_EQ(ReadFile(file), "");
    {
        const UTL::CCoutToFile redirection(file.c_str(), true);
        std::cout << "redirected";
    }
    EXPECT_EQ(std::cout.rdbuf(), former);
    EXPECT_EQ(ReadFile(file), "redirected");
}

struct TLogged
{
    UnicodeString text;
    UTL::ELogType type;
    UTL::ELogSeverity severity;
    std::string rest;

    friend bool operator==(const TLogged&, const TLogged&) = default;
};

std::vector<TLogged> logged;

void Sink(const UnicodeString& text, UTL::ELogType type, UTL::ELogSeverity severity, const char* a, int b,
          const char* c)
{
    logged.push_back({text, type, severity, a + std::to_string(b) + c});
}

TEST(LoggingSinkTest, GetsWhatIsLogged)
{
    constexpr auto type = static_cast<UTL::ELogType>(42);
    constexpr auto severity = static_cast<UTL::ELogSeverity>(43);
    UTL::LogTrace(u"lost", type, "a", 1, "c");
    UTL::SetLoggingSink(Sink);
    UTL::LogTrace(u"trace", type, "a", 1, "c");
    UTL::LogMessage(u"message", severity, "d", 2, "e");
    UTL::SetLoggingSink(nullptr);
    UTL::LogMessage(u"lost", severity, "d", 2, "e");
    const std::vector<TLogged> expected = {{u"trace", type, static_cast<UTL::ELogSeverity>(1), "a1c"},
                                           {u"message", static_cast<UTL::ELogType>(5), severity, "d2e"}};
    EXPECT_TRUE(logged == expected);
}

} // namespace
