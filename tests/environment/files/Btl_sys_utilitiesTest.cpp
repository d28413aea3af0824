// SPDX-License-Identifier: MIT
#include "environment/files/Btl_sys_utilities.h"

#include "environment/BTL_ENV_UserFolders.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileSupport.h"
#include "platform/visual/Forms.h"
#include "support/ChildProgram.h"
#include "support/ScopedVariable.h"
#include "support/TempFolder.h"
#include "support/WaitUntil.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

using System::UnicodeString;

namespace
{

namespace fs = std::filesystem;

/// Sets the current folder back at its end.
class CurrentFolder
{
public:
    explicit CurrentFolder(const fs::path& folder) { fs::current_path(folder); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    ~CurrentFolder() { fs::current_path(mFormer); }

private:
    const fs::path mFormer = fs::current_path();
};

TEST(SysUtilitiesTest, GivesTheCurrentFolder)
{
    const Support::TempFolder temp;
    {
        const CurrentFolder here(temp.Path());
        const auto name = Sysutils::FromHostPath(fs::canonical(temp.Path()).string());
        EXPECT_EQ(BTL::GetCurrentDirectoryW(), name);
        EXPECT_EQ(BTL::GetCurrentPath(), name + u"\\");
    }
    const CurrentFolder root("/");
    EXPECT_EQ(BTL::GetCurrentPath(), u"\\");
}

TEST(SysUtilitiesTest, GivesFoldersOfTheSystem)
{
    EXPECT_TRUE(fs::is_directory(Sysutils::HostPath(BTL::GetWindowsDirectoryW())));
    EXPECT_EQ(BTL::GetWindowsPath(), BTL::GetWindowsDirectoryW() + u"\\");
    EXPECT_EQ(BTL::GetCommonAppDataPath(), BTL::GetShellPath(35));
    {
        const Support::ScopedVariable temp("TEMP", "/var/scratch");
        EXPECT_EQ(BTL::GetWindowsTempPath(), u"\\var\\scratch\\");
    }
    const Support::ScopedVariable host("TMPDIR", "/usual");
    for (const std::string& unusable : {std::string(), std::string(521, 'x')}) {
        const Support::ScopedVariable temp("TEMP", unusable);
        EXPECT_EQ(BTL::GetWindowsTempPath(), u"\\usual\\");
    }
}

TEST(SysUtilitiesTest, GivesFilesOfModules)
{
    const auto program = Sysutils::FromHostPath(fs::canonical("/proc/self/exe").string());
    EXPECT_EQ(BTL::GetModuleFileNameW(nullptr), program);
    EXPECT_EQ(BTL::GetModuleFileName2(nullptr), program);
    EXPECT_EQ(BTL::GetModulePath(nullptr), program.SubString(1, program.LastDelimiter(u"\\")));
    const auto library = BTL::GetModuleFileNameW(reinterpret_cast<const void*>(&BTL::RestartApplication));
    EXPECT_GT(library.Pos(u"libTRS8_BTL"), 0);
    const int local = 0;
    EXPECT_EQ(BTL::GetModuleFileNameW(&local), u"");
    EXPECT_EQ(BTL::GetModulePath(&local), u"");
}

TEST(SysUtilitiesTest, HandsOnToTheSystem)
{
    EXPECT_EQ(BTL::GetSystemMessage(2), WIN::GetSystemMessage(2));
    SetLastError(ERROR_ACCESS_DENIED);
    EXPECT_EQ(BTL::GetLastError(), WIN::GetSystemMessage(ERROR_ACCESS_DENIED));
    try {
        BTL::ThrowLastError("a.cpp", 7);
        ADD_FAILURE() << "nothing raised";
    } catch (const WIN::XLastError& fault) {
        EXPECT_EQ(fault.getError(), ERROR_ACCESS_DENIED);
        EXPECT_GT(fault.getMessage().Pos(u"Line: 7"), 0);
    }
    EXPECT_TRUE(BTL::WinExecAndWait(u"/bin/true"));
    EXPECT_TRUE(BTL::WinExecAndWait("/bin/true", 1));
    EXPECT_FALSE(BTL::CreateProcessW(u"/no/program", u"", 1));
}

/// What the program that is started anew runs.
TEST(SysUtilitiesChild, DISABLED_LeaveMark)
{
    std::ofstream(std::getenv("MARK_OF_RESTART")) << "restarted";
}

TEST(SysUtilitiesChild, DISABLED_Restart)
{
    const Support::ScopedVariable test("GTEST_FILTER", "SysUtilitiesChild.DISABLED_LeaveMark");
    const Support::ScopedVariable disabled("GTEST_ALSO_RUN_DISABLED_TESTS", "1");
    BTL::RestartApplication();
    Support::PrintResult(Forms::Application->getTerminated() ? "terminated" : "runs");
}

TEST(SysUtilitiesTest, RestartsTheProgram)
{
    const Support::TempFolder temp;
    const fs::path mark = temp.Path() / "mark";
    const Support::ScopedVariable place("MARK_OF_RESTART", mark.string());
    EXPECT_EQ(Support::RunChildTest("SysUtilitiesChild.DISABLED_Restart"), "terminated");
    EXPECT_TRUE(Support::WaitUntil([&] { return Support::OnTheHost(mark) == "restarted"; }));
}

} // namespace
