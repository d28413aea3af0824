// SPDX-License-Identifier: MIT
#include "platform/host/Host_SpecialFolder.h"

#include "platform/host/Host_Path.h"
#include "support/ChildProgram.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace
{

namespace fs = std::filesystem;

// The environment is that of a process, so each case runs in one of its own.

void PrintFolders()
{
    std::string lines;
    for (const int number : {0, 5, 16, 13, 39, 26, 28, 40, 35, 46, 38, -1, 1000}) {
        lines += System::ToUtf8(Host::SpecialFolder(number)) + '\n';
    }
    Support::PrintResult(lines);
}

TEST(SpecialFolderChild, DISABLED_Usual)
{
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
        unsetenv(variable);
    }
    setenv("HOME", "/nowhere/me", 1);
    PrintFolders();
}

TEST(SpecialFolderChild, DISABLED_Named)
{
    const Support::TempFolder temp;
    setenv("HOME", "/nowhere/me", 1);
    setenv("XDG_CONFIG_HOME", temp.Path().c_str(), 1);
    setenv("XDG_DATA_HOME", "not/absolute", 1);
    std::ofstream(temp.Path() / "user-dirs.dirs") << "# a remark\n"
                                                     "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n"
                                                     "XDG_DOCUMENTS_DIR=\"/srv/d\"\n"
                                                     "XDG_MUSIC_DIR=\"\n"
                                                     "XDG_PICTURES_DIR=relative\n";
    PrintFolders();
}

TEST(SpecialFolderTest, FollowsTheHomeFolder)
{
    EXPECT_EQ(Support::RunChildTest("SpecialFolderChild.DISABLED_Usual"),
              "\\nowhere\\me\\Desktop\n\\nowhere\\me\\Documents\n\\nowhere\\me\\Desktop\n"
              "\\nowhere\\me\\Music\n\\nowhere\\me\\Pictures\n\\nowhere\\me\\.config\n"
              "\\nowhere\\me\\.local\\share\n\\nowhere\\me\n"
              "\\var\\lib\n\\var\\lib\n\\opt\n\n\n");
}

TEST(SpecialFolderTest, FollowsWhatTheUserNamed)
{
    const std::string result = Support::RunChildTest("SpecialFolderChild.DISABLED_Named");
    EXPECT_EQ(result.find("\\nowhere\\me\\Schreibtisch\n\\srv\\d\n\\nowhere\\me\\Schreibtisch\n"
                          "\\nowhere\\me\\Music\n\\nowhere\\me\\Pictures\n\\"),
              0U)
        << result;
    EXPECT_NE(result.find("\n\\nowhere\\me\\.local\\share\n"), std::string::npos)
        << "a folder that isn't a full path doesn't count: " << result;
}

} // namespace
