// SPDX-License-Identifier: MIT
#include "environment/files/BTL_SYS_InstalledPrograms.h"

#include "support/ScopedVariable.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace
{

TEST(InstalledProgramsTest, AreReadFromTheMachinesRegistry)
{
    const Support::TempFolder folder;
    const Support::ScopedVariable machine("XDG_CONFIG_DIRS", folder.Path().string());
    std::filesystem::create_directory(folder.Path() / "TRS8_BTL");
    std::ofstream(folder.Path() / "TRS8_BTL/registry")
        << "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\{2F-6A}_is1]\n"
        << "Inno Setup: App Path=\\opt\\station\n";
    EXPECT_EQ(BTL::AppRegInstalledPath(u"{2F-6A}"), u"\\opt\\station\\");
    EXPECT_TRUE(BTL::AppIsInstalled(u"{2F-6A}"));
    EXPECT_EQ(BTL::AppRegInstalledPath(u"{2F-6B}"), u"");
    EXPECT_FALSE(BTL::AppIsInstalled(u"{2F-6B}"));
    EXPECT_FALSE(BTL::AppIsInstalled(u""));
}

} // namespace
