// SPDX-License-Identifier: MIT
#include "os/Win_sys_utilitiesw.h"

#include "os/WIN_LastError.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_Path.h"
#include "platform/host/processes/Host_Process.h"
#include "support/ScopedVariable.h"
#include "support/Script.h"
#include "support/TempFolder.h"
#include "support/WaitUntil.h"

#include <gtest/gtest.h>

namespace
{

using Support::ReadText;
using Support::ScopedVariable;
using Support::WriteScript;
using System::UnicodeString;

/// A folder with a program that waits for a while, then writes its folder and arguments to "out".
class SystemUtilitiesTest : public testing::Test
{
protected:
    SystemUtilitiesTest() { WriteScript(mProgram, Writing("sleep 0.1; pwd; echo \"$@\"")); }

    /// Commands whose output appears in "out" at once.
    std::string Writing(const std::string& commands) const
    {
        const std::string part = mOut.string() + ".part";
        return "{ " + commands + "; } > '" + part + "'; mv '" + part + "' '" + mOut.string() + "'";
    }

    std::string AwaitOut() const
    {
        EXPECT_TRUE(Support::WaitUntil([&] { return std::filesystem::exists(mOut); }));
        return ReadText(mOut);
    }

    Support::TempFolder mFolder;
    std::filesystem::path mProgram = mFolder.Path() / "program";
    std::filesystem::path mOut = mFolder.Path() / "out";
    UnicodeString mName = mProgram;
    UnicodeString mCommand = mName + u" a \"b c\"";
};

TEST_F(SystemUtilitiesTest, StartsProgramsAndGoesOn)
{
    const UnicodeString folder = mFolder.Path();
    ASSERT_TRUE(WIN::CreateProcessW(nullptr, mCommand.c_str(), folder.c_str(), 1));
    EXPECT_EQ(AwaitOut(), mFolder.Path().string() + "\na b c\n");
    std::filesystem::remove(mOut);
    ASSERT_TRUE(WIN::CreateProcessW(mName.c_str(), u"called", 1));
    EXPECT_EQ(AwaitOut(), std::filesystem::current_path().string() + "\n\n");
    EXPECT_FALSE(WIN::CreateProcessW(u"\\no\\such\\program", nullptr, 1));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
}

TEST_F(SystemUtilitiesTest, HandsOutTheHandles)
{
    PROCESS_INFORMATION info;
    ASSERT_TRUE(WIN::CreateProcessW(nullptr, mCommand.c_str(), info));
    EXPECT_EQ(WaitForSingleObject(info.hProcess, 20'000), WAIT_OBJECT_0);
    EXPECT_TRUE(std::filesystem::exists(mOut));
    EXPECT_TRUE(CloseHandle(info.hThread));
    EXPECT_TRUE(CloseHandle(info.hProcess));
}

TEST_F(SystemUtilitiesTest, StartsAProgramInItsOwnFolder)
{
    WIN::ExecApplication(mName.c_str(), mCommand.c_str(), SW_SHOWNORMAL);
    EXPECT_EQ(AwaitOut(), mFolder.Path().string() + "\na b c\n");
    EXPECT_THROW(WIN::ExecApplication(u"\\tmp\\trs8 no such program", u"x", SW_SHOWNORMAL), WIN::XLastError);
    EXPECT_THROW(WIN::ExecApplication(nullptr, u"trs8-no-such-program", SW_SHOWNORMAL), WIN::XLastError);
}

TEST_F(SystemUtilitiesTest, WaitsForTheEnd)
{
    EXPECT_TRUE(WIN::WinExecAndWait(mCommand.c_str()));
    EXPECT_TRUE(std::filesystem::exists(mOut));
    std::filesystem::remove(mOut);
    EXPECT_TRUE(WIN::ExecAndWait(mName.c_str(), mCommand.c_str(), 0));
    EXPECT_TRUE(std::filesystem::exists(mOut));
    EXPECT_TRUE(WIN::WinExecAndWait(u"false", 0)) << "the exit code isn't looked at";
    EXPECT_THROW(WIN::WinExecAndWait(u"trs8-no-such-program"), WIN::XLastError);
}

TEST(SystemNamesTest, TellsUserAndComputer)
{
    UnicodeString name;
    ASSERT_TRUE(WIN::GetUserNameW(name));
    EXPECT_FALSE(name.IsEmpty());
    EXPECT_EQ(WIN::GetUserNameW(), name);
    EXPECT_EQ(WIN::GetUserNameWTLE(), name);
    EXPECT_FALSE(WIN::GetComputerNameW().IsEmpty());
    EXPECT_EQ(WIN::GetComputerNameW().Pos(u"."), 0);
}

TEST(SystemNamesTest, TakesTheDomainFromTheEnvironment)
{
    const ScopedVariable variable("USERDNSDOMAIN", nullptr);
    UnicodeString name = u"stays";
    EXPECT_FALSE(WIN::GetDomainName(name));
    variable.Set(std::string(257, 'x').c_str());
    EXPECT_FALSE(WIN::GetDomainName(name));
    EXPECT_EQ(name, u"stays");
    EXPECT_EQ(WIN::GetDomainNameW(), u"");
    variable.Set(std::string(256, 'x').c_str());
    EXPECT_TRUE(WIN::GetDomainName(name));
    EXPECT_EQ(WIN::GetDomainNameW(), name);
    EXPECT_EQ(name.Length(), 256);
}

TEST(ShellFolderTest, ComesFromTheRegistry)
{
    const Support::TempFolder folder;
    const ScopedVariable config("XDG_CONFIG_HOME", folder.Path());
    const ScopedVariable home("HOME", "/home/u");
    const ScopedVariable profile("USERPROFILE", nullptr);
    std::ofstream(folder.Path() / "user-dirs.dirs") << "XDG_DOCUMENTS_DIR=\"$HOME/Texts\"\n";
    std::filesystem::create_directory(folder.Path() / "TRS8_BTL");
    EXPECT_EQ(WIN::GetUserShellFolderPathW(u"Personal"), u"\\home\\u\\Texts");
    EXPECT_EQ(WIN::GetUserShellFolderPathW(u"personal"), u"") << "names count by their case";
    EXPECT_EQ(WIN::GetUserShellFolderPathW(u"No such folder"), u"");
    EXPECT_EQ(WIN::GetUserShellFolderPathW(nullptr), u"");
}

/// A desktop that opens and prints what doesn't end in "none", and writes what it got to "out".
class ShellTest : public SystemUtilitiesTest
{
protected:
    ShellTest()
    {
        const std::string refuse = "case \"$1\" in *none) exit 3;; esac; ";
        WriteScript(mFolder.Path() / "xdg-open", refuse + Writing("echo \"open $*\""));
        WriteScript(mFolder.Path() / "lp", refuse + Writing("echo \"print $*\""));
        std::ofstream(mFile) << "x";
        std::ofstream(mFolder.Path() / "a.none") << "x";
    }

    std::string TakeOut() const
    {
        std::string text = AwaitOut();
        std::filesystem::remove(mOut);
        return text;
    }

    std::filesystem::path mFile = mFolder.Path() / "a b.txt";
    ScopedVariable mPath{"PATH", mFolder.Path().string() + ":" + std::getenv("PATH")};
};

TEST_F(ShellTest, HandsFilesAndFoldersOn)
{
    EXPECT_GT(WIN::ShellOpen(mFile), 32);
    EXPECT_EQ(TakeOut(), "open " + mFile.string() + "\n");
    EXPECT_GT(WIN::ShellPrint(mFile), 32);
    EXPECT_EQ(TakeOut(), "print " + mFile.string() + "\n");
    EXPECT_GT(WIN::ShellExplore(mFolder.Path()), 32);
    EXPECT_EQ(TakeOut(), "open " + mFolder.Path().string() + "\n");
    EXPECT_GT(WIN::ShellExplore(mFolder.Path(), u"parameters"), 32);
    EXPECT_EQ(TakeOut(), "open " + mFolder.Path().string() + "\n");
    const UnicodeString folder = mFolder.Path();
    EXPECT_GT(WIN::ShellExecuteW(nullptr, u"program", u"a b", folder.c_str(), 1), 32);
    EXPECT_EQ(TakeOut(), mFolder.Path().string() + "\na b\n");
    BTL::ExecHttp(u"example.org/?a=b;c");
    EXPECT_EQ(TakeOut(), "open http://example.org/?a=b;c\n");
    EXPECT_NO_THROW(BTL::ExecHttp(u"none"));
}

TEST_F(ShellTest, RaisesTheReason)
{
    const std::pair<std::filesystem::path, unsigned long> cases[] = {
        {mFolder.Path() / "a.none", 31}, {mFolder.Path() / "gone", 2}, {mFolder.Path() / "gone" / "x", 3}};
    for (const auto& [file, code] : cases) {
        SCOPED_TRACE(file);
        try {
            WIN::ShellOpen(file);
            ADD_FAILURE() << "nothing is raised";
        } catch (const WIN::XWinError& error) {
            EXPECT_EQ(error.getError(), code);
            EXPECT_EQ(error.getSection(), u"ShellExecute");
            EXPECT_EQ(error.getMessage(),
                      WIN::GetErrorMessage(code, u"ShellExecute") + u'\n' + UnicodeString(file));
        }
    }
    EXPECT_THROW(WIN::ShellExplore(mFile), WIN::XWinError);
    EXPECT_THROW(WIN::ShellPrint(mFolder.Path() / "a.none"), WIN::XWinError);
}

TEST_F(ShellTest, FindsTheProgramOfAFile)
{
    EXPECT_EQ(WIN::FindExecutableW(mName), Sysutils::FromHostPath(mProgram.string()));
    WriteScript(mFolder.Path() / "xdg-mime", "exit 1");
    try {
        EXPECT_EQ(WIN::FindExecutableW(mFile), u"nothing");
    } catch (const WIN::XWinError& error) {
        EXPECT_EQ(error.getError(), 31U);
        EXPECT_EQ(error.getMessage(), WIN::GetErrorMessage(31));
    }
    EXPECT_THROW((void)WIN::FindExecutableW(u"trs8 no such file"), WIN::XWinError);
}

} // namespace
