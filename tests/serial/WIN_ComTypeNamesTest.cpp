// SPDX-License-Identifier: MIT
#include "serial/WIN_ComTypeNames.h"

#include "serial/WIN_Com.h"
#include "support/ScopedVariable.h"
#include "support/TempFolder.h"
#include "testing/PortSimulator.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <utility>

namespace
{

using WIN::GetComTypeName;
using WIN::Int2Com;

/// A registry of the machine that a test writes.
class ComTypeNamesTest : public testing::Test
{
protected:
    ComTypeNamesTest()
    {
        std::filesystem::create_directory(mFolder.Path() / "TRS8_BTL");
        std::ofstream(mFolder.Path() / "TRS8_BTL" / "registry")
            << "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\n"
               "\\Device\\Bench12=COM201\n\\Device\\3=COM202\n\\Device\\Zero0=COM0\n"
               "\\Device\\Printer=LPT1\nOther=COM203\n\\Device\\Number=int:204\n";
    }

    Support::TempFolder mFolder;

private:
    Support::ScopedVariable mMachine{"XDG_CONFIG_DIRS", mFolder.Path().c_str()};
};

TEST_F(ComTypeNamesTest, ReadsTheRegistry)
{
    // The number that isn't a text is told in a box and passed over.
    testing::internal::CaptureStderr();
    WIN::CComTypeNameList list;
    WIN::ReadComTypeNames(list);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("GetPortTypeNames()::Part2::(size="),
              std::string::npos);
    EXPECT_EQ(list[Int2Com(201)], "Bench12");
    EXPECT_FALSE(list.contains(Int2Com(0)));
    EXPECT_FALSE(list.contains(Int2Com(203)));
    EXPECT_FALSE(list.contains(Int2Com(204)));

    testing::internal::CaptureStderr();
    EXPECT_EQ(GetComTypeName(Int2Com(201), true), "Bench12");
    EXPECT_EQ(GetComTypeName(Int2Com(201), false), "Bench");
    EXPECT_EQ(GetComTypeName(Int2Com(202), true), "3");
    EXPECT_EQ(GetComTypeName(Int2Com(202), false), "");
    EXPECT_EQ(GetComTypeName(Int2Com(250), true), "");
    testing::internal::GetCapturedStderr();
}

TEST_F(ComTypeNamesTest, TellsTheDevicesOfTheHost)
{
    const Testing::CPortSimulator instrument(199);
    const WIN::CCom port(Int2Com(199), 0);
    testing::internal::CaptureStderr();
    EXPECT_EQ(port.GetTypeName(false), "Pseudo");
    EXPECT_TRUE(port.GetTypeName(true).AsView().starts_with("Pseudo"));
    testing::internal::GetCapturedStderr();
}

} // namespace
