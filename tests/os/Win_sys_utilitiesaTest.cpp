// SPDX-License-Identifier: MIT
#include "os/Win_sys_utilitiesa.h"

#include "os/WIN_LastError.h"
#include "platform/host/Host_Path.h"
#include "platform/host/processes/Host_Process.h"
#include "support/ScopedVariable.h"
#include "support/Script.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace
{

using Support::ScopedVariable;
using System::AnsiString;
using System::UnicodeString;

TEST(NarrowSystemTest, StartsProgramsByNarrowText)
{
    const Support::TempFolder folder;
    const std::filesystem::path program = folder.Path() / u8"prögram";
    const AnsiString name = Sysutils::FromHostPath(program.string());
    Support::WriteScript(program, "echo \"$1\" > \"$0.out\"");
    const auto out = [&] { return Support::ReadText(folder.Path() / u8"prögram.out"); };
    EXPECT_TRUE(WIN::WinExecAndWait((name + " \xE4").c_str()));
    EXPECT_EQ(out(), "\xC3\xA4\n");
    EXPECT_TRUE(WIN::ExecAndWait(name.c_str(), (name + " 2").c_str(), 0));
    EXPECT_EQ(out(), "2\n");
    PROCESS_INFORMATION info;
    ASSERT_TRUE(WIN::CreateProcessW(nullptr, (name + " 3").c_str(), info));
    EXPECT_EQ(WaitForSingleObject(info.hProcess, 20'000), WAIT_OBJECT_0);
    EXPECT_EQ(out(), "3\n");
    CloseHandle(info.hThread);
    CloseHandle(info.hProcess);
    EXPECT_FALSE(WIN::CreateProcessW(nullptr, "trs8-no-such-program", 1));
    EXPECT_FALSE(WIN::CreateProcessW(name.c_str(), "x", "\\no\\such\\folder", 1));
    EXPECT_THROW(WIN::ExecApplication("\\tmp\\trs8 no such program", "x", 1), WIN::XLastError);
    EXPECT_EQ(WIN::FindExecutableW(name.c_str()), name);
}

TEST(NarrowSystemTest, AnswersInTheCodePage)
{
    AnsiString name;
    ASSERT_TRUE(WIN::GetUserNameW(name));
    EXPECT_EQ(name, AnsiString(WIN::GetUserNameW()));
    EXPECT_EQ(WIN::GetUserNameA(), name);
    EXPECT_EQ(WIN::GetUserNameATLE(), name);
    EXPECT_EQ(WIN::GetComputerNameA(), AnsiString(WIN::GetComputerNameW().SubString(1, 15).UpperCase()));

    const ScopedVariable variable("USERDNSDOMAIN", "\xC3\xA4.org");
    EXPECT_TRUE(WIN::GetDomainName(name));
    EXPECT_EQ(name, "\xE4.org");
    EXPECT_EQ(WIN::GetDomainNameA(), name);
    variable.Set(nullptr);
    EXPECT_FALSE(WIN::GetDomainName(name));
    EXPECT_EQ(name, "\xE4.org");

    EXPECT_EQ(WIN::GetUserShellFolderPathA("Desktop"), AnsiString(WIN::GetUserShellFolderPathW(u"Desktop")));
    EXPECT_EQ(WIN::GetUserShellFolderPathA("none"), "");
}

TEST(NarrowSystemTest, RaisesTheReason)
{
    try {
        WIN::ShellOpen("\\trs8 none");
        ADD_FAILURE() << "nothing is raised";
    } catch (const WIN::XWinError& error) {
        EXPECT_EQ(error.getError(), 2U);
        EXPECT_TRUE(error.getMessage().Pos(u"\\trs8 none") > 0);
    }
    EXPECT_THROW(WIN::ShellPrint("\\trs8 none"), WIN::XWinError);
    EXPECT_THROW(WIN::ShellExplore("\\trs8 none"), WIN::XWinError);
    EXPECT_THROW(WIN::ShellExplore("\\trs8 none", "x"), WIN::XWinError);
    EXPECT_THROW(WIN::ShellExecuteW(nullptr, "x", nullptr, "\\trs8 none", 1), WIN::XWinError);
}

} // namespace
