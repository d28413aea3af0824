// SPDX-License-Identifier: MIT
#include "foundation/UTL_LOG_LogStream.h"

#include "foundation/LogSupport.h"
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

} // namespace
