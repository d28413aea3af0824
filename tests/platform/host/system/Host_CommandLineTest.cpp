// SPDX-License-Identifier: MIT
#include "platform/host/system/Host_CommandLine.h"

#include "platform/host/Host_Shell.h"
#include "support/ChildProgram.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace
{

using System::UnicodeString;

/// Its exit code is 0 if it gets its arguments behind those of the test back.
TEST(CommandLineChild, DISABLED_Check)
{
    const std::vector<UnicodeString> arguments = Host::SplitArguments(GetCommandLineW());
    const std::vector<UnicodeString> wanted = {u"",      u"a b", u"/c\\", u"d\"e\\\"", u"\u00E4\n'$(f)'",
                                               u"\xDCFF"};
    ASSERT_GE(arguments.size(), wanted.size());
    EXPECT_EQ(std::vector<UnicodeString>(arguments.end() - static_cast<int>(wanted.size()), arguments.end()),
              wanted);
    EXPECT_EQ(arguments[0], u"my \"program\"");
    EXPECT_EQ(GetCommandLineW(), GetCommandLineW());
}

TEST(HostCommandLineTest, CuttingGivesTheArgumentsBack)
{
    const pid_t child = fork();
    if (child == 0) {
        execl("/proc/self/exe", "my \"program\"", "--gtest_also_run_disabled_tests", "--gtest_brief",
              "--gtest_filter=CommandLineChild.*", "", "a b", "/c\\", "d\"e\\\"", "\u00E4\n'$(f)'", "\xFF",
              nullptr);
        _exit(errno);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
}

} // namespace
