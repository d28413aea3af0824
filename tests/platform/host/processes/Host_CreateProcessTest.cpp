// SPDX-License-Identifier: MIT
#include "platform/host/processes/Host_CreateProcess.h"

#include "platform/base/System_String.h"
#include "platform/host/Host_Error.h"
#include "platform/host/processes/Host_Process.h"
#include "support/ScopedVariable.h"
#include "support/Script.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

using Support::WriteScript;
using System::UnicodeString;

/// A script that writes its arguments, a line each, to the file in `OUT`.
class CreateProcessTest : public testing::Test
{
protected:
    CreateProcessTest()
    {
        std::filesystem::create_directory(mBlanks);
        WriteScript(mScript, "for a in \"$@\"; do printf '%s\\n' \"$a\"; done > '" + mOut.string() + "'");
    }

    static UnicodeString Quoted(const std::filesystem::path& file)
    {
        return u'"' + UnicodeString(file) + u'"';
    }

    /// The exit code of the program, or 1000 + the last error if it doesn't start.
    static unsigned long Run(const UnicodeString& command, const System::WideChar* folder = nullptr,
                             bool inherit = false)
    {
        STARTUPINFOW start;
        PROCESS_INFORMATION info;
        if (!CreateProcessW(nullptr, command.c_str(), nullptr, nullptr, inherit, 0, nullptr, folder, &start,
                            &info)) {
            return 1000 + GetLastError();
        }
        EXPECT_EQ(WaitForSingleObject(info.hThread, 20'000), WAIT_OBJECT_0);
        unsigned long code = 0;
        EXPECT_TRUE(GetExitCodeProcess(info.hProcess, &code));
        EXPECT_TRUE(CloseHandle(info.hThread));
        EXPECT_TRUE(CloseHandle(info.hProcess));
        return code;
    }

    std::string Written() const
    {
        std::ostringstream text;
        text << std::ifstream(mOut).rdbuf();
        return text.str();
    }

    Support::TempFolder mFolder;
    std::filesystem::path mBlanks = mFolder.Path() / "with blanks";
    std::filesystem::path mScript = mBlanks / "write";
    std::filesystem::path mOut = mFolder.Path() / "out";
};

TEST_F(CreateProcessTest, CutsTheArgumentsAndLeavesThemAsTheyAre)
{
    EXPECT_EQ(Run(Quoted(mScript) + u" a \"b c\" $HOME ; `x` \\a\\b \"d\\\"e\" \"\" Ä *"), 0U);
    EXPECT_EQ(Written(), "a\nb c\n$HOME\n;\n`x`\n\\a\\b\nd\"e\n\nÄ\n*\n");
    EXPECT_EQ(Run(UnicodeString(mScript) + u" a"), 1000 + ERROR_FILE_NOT_FOUND) << "blanks need quotes";
}

TEST_F(CreateProcessTest, TellsWhyAProgramCannotStart)
{
    const std::filesystem::path plain = mFolder.Path() / "plain";
    std::ofstream(plain) << "echo no program\n";
    EXPECT_EQ(Run(Quoted(plain)), 1000 + ERROR_ACCESS_DENIED);
    std::filesystem::permissions(plain, std::filesystem::perms::owner_all);
    EXPECT_EQ(Run(Quoted(plain)), 1000 + ERROR_BAD_FORMAT) << "no shell reads it";
    EXPECT_EQ(Run(Quoted(mFolder.Path() / "missing")), 1000 + ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(Run(Quoted(mFolder.Path() / "no" / "folder")), 1000 + ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(Run(u"trs8-no-such-program"), 1000 + ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(Run(u""), 1000 + ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(Run(u" true"), 1000 + ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(Run(u"true", u"\\no\\such\\folder"), 1000 + ERROR_DIRECTORY);
}

TEST_F(CreateProcessTest, NeverSearchesTheCurrentFolder)
{
    WriteScript(mFolder.Path() / "trs8-here", "exit 5");
    const std::string path = std::getenv("PATH");
    const std::string former = std::filesystem::current_path();
    ASSERT_EQ(chdir(mFolder.Path().c_str()), 0);
    const Support::ScopedVariable searched("PATH", path);
    for (const char* const front : {"", ":", ".:"}) {
        searched.Set((front + path).c_str());
        EXPECT_EQ(Run(u"trs8-here"), 1000 + ERROR_FILE_NOT_FOUND) << front;
    }
    EXPECT_EQ(Run(u".\\trs8-here"), 5U);
    searched.Set((mFolder.Path().string() + ':' + path).c_str());
    EXPECT_EQ(Run(u"trs8-here"), 5U);
    ASSERT_EQ(chdir(former.c_str()), 0);
}

TEST_F(CreateProcessTest, StartsInAFolder)
{
    WriteScript(mScript, "pwd > '" + mOut.string() + "'");
    EXPECT_EQ(Run(Quoted(mScript), UnicodeString(mBlanks).c_str()), 0U);
    EXPECT_EQ(Written(), mBlanks.string() + '\n');
}

TEST_F(CreateProcessTest, PassesOpenFilesOnlyWhereAsked)
{
    const int file = open("/dev/null", O_RDONLY);
    WriteScript(mScript, "test -e /proc/self/fd/" + std::to_string(file));
    EXPECT_EQ(Run(Quoted(mScript)), 1U);
    EXPECT_EQ(Run(Quoted(mScript), nullptr, true), 0U);
    close(file);
}

TEST_F(CreateProcessTest, LeavesSearchPathsOfABundleInIt)
{
    const std::string path = std::getenv("PATH");
    const std::filesystem::path bundle = mFolder.Path() / "bundle";
    std::filesystem::create_directory(bundle);
    WriteScript(mScript, "echo \"$LD_LIBRARY_PATH-$XDG_DATA_DIRS-$APPDIR\" > '" + mOut.string() + "'");
    std::filesystem::copy(mScript, bundle / "inside");
    const Support::ScopedVariable own("APPDIR", bundle.c_str());
    const Support::ScopedVariable data("XDG_DATA_DIRS", bundle.string() + "/share:/usr/share");
    EXPECT_EQ(Run(Quoted(mScript)), 0U);
    EXPECT_EQ(Written(), "-/usr/share-" + bundle.string() + "\n");
    EXPECT_EQ(Run(Quoted(bundle / "inside")), 0U);
    EXPECT_EQ(Written(), "-" + bundle.string() + "/share:/usr/share-" + bundle.string() + "\n");
}

} // namespace
