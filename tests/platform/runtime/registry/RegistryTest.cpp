// SPDX-License-Identifier: MIT
#include "platform/runtime/registry/Registry.h"

#include "platform/host/Host_Error.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "support/ChildProgram.h"
#include "support/ScopedVariable.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <thread>
#include <vector>

namespace
{

using Registry::TRegistry;
using System::UnicodeString;

/// The files of the user and of the machine in a folder of the test.
class RegistryTest : public testing::Test
{
protected:
    static std::vector<UnicodeString> Names(const Classes::TStringList& list)
    {
        return {list.begin(), list.end()};
    }

    Support::TempFolder mFolder;

private:
    Support::ScopedVariable mUser{"XDG_CONFIG_HOME", (mFolder.Path() / "user").c_str()};
    Support::ScopedVariable mMachine{"XDG_CONFIG_DIRS", (mFolder.Path() / "machine").c_str()};
};

TEST_F(RegistryTest, KeepsValuesOfAllTypes)
{
    {
        TRegistry registry;
        EXPECT_FALSE(registry.OpenKey(u"Software\\Station", false));
        EXPECT_EQ(registry.getCurrentPath(), u"");
        ASSERT_TRUE(registry.OpenKey(u"\\Software\\Station", true));
        registry.WriteString(u"Title", u"\u00D6fen; [5 %]\r\n");
        registry.WriteInteger(u"Count", -7);
        registry.WriteBool(u"On", true);
        registry.WriteFloat(u"Gain", 0.1);
        registry.WriteBinaryData(u"Raw", "a\0b", 3);
    }
    TRegistry registry;
    ASSERT_TRUE(registry.OpenKeyReadOnly(u"SOFTWARE\\station"));
    EXPECT_EQ(registry.ReadString(u"title"), u"\u00D6fen; [5 %]\r\n");
    EXPECT_EQ(registry.ReadInteger(u"Count"), -7);
    EXPECT_TRUE(registry.ReadBool(u"On"));
    EXPECT_EQ(registry.ReadFloat(u"Gain"), 0.1);
    char raw[3] = {};
    EXPECT_EQ(registry.ReadBinaryData(u"Raw", raw, 3), 3);
    EXPECT_EQ(std::string(raw, 3), std::string("a\0b", 3));
    EXPECT_EQ(registry.GetDataType(u"Raw"), Registry::rdBinary);
    EXPECT_EQ(registry.GetDataSize(u"Count"), 4);
    EXPECT_EQ(registry.GetDataSize(u"None"), -1);
    Classes::TStringList names;
    registry.GetValueNames(&names);
    EXPECT_EQ(Names(names), (std::vector<UnicodeString>{u"Count", u"Gain", u"On", u"Raw", u"Title"}));

    EXPECT_EQ(registry.ReadString(u"None"), u"");
    EXPECT_THROW(registry.ReadInteger(u"None"), Registry::ERegistryException);
    EXPECT_THROW(registry.ReadInteger(u"Title"), Registry::ERegistryException);
    EXPECT_THROW(registry.ReadString(u"Count"), Registry::ERegistryException);
    EXPECT_THROW(registry.ReadFloat(u"Raw"), Registry::ERegistryException);
    EXPECT_THROW(registry.ReadBinaryData(u"Raw", raw, 2), Registry::ERegistryException);
    EXPECT_THROW(registry.WriteInteger(u"Count", 1), Registry::ERegistryException);
}

TEST_F(RegistryTest, WalksTheTree)
{
    TRegistry registry;
    ASSERT_TRUE(registry.CreateKey(u"A\\B"));
    ASSERT_TRUE(registry.OpenKey(u"A", false));
    ASSERT_TRUE(registry.CreateKey(u"C"));
    EXPECT_TRUE(registry.KeyExists(u"B"));
    EXPECT_TRUE(registry.KeyExists(u"\\A\\C"));
    EXPECT_FALSE(registry.KeyExists(u"A"));
    Classes::TStringList names;
    registry.GetKeyNames(&names);
    EXPECT_EQ(Names(names), (std::vector<UnicodeString>{u"B", u"C"}));
    EXPECT_TRUE(registry.DeleteKey(u"B"));
    EXPECT_FALSE(registry.DeleteKey(u"B"));
    registry.CloseKey();
    EXPECT_FALSE(registry.DeleteKey(u""));
    registry.WriteString(u"x", u"y");
    EXPECT_TRUE(registry.DeleteValue(u"X"));
    EXPECT_FALSE(registry.DeleteValue(u"X"));
    registry.setRootKey(Registry::HKEY_LOCAL_MACHINE);
    EXPECT_FALSE(registry.KeyExists(u"A"));
    ASSERT_TRUE(registry.OpenKey(u"A", true));
    const auto folder = mFolder.Path() / "machine" / "TRS8_BTL";
    EXPECT_TRUE(std::filesystem::exists(folder / "registry"));
    EXPECT_EQ(std::filesystem::status(folder / "registry.lock").permissions() &
                  std::filesystem::perms::others_all,
              std::filesystem::perms::none)
        << "everybody could keep the administrator from writing";
}

TEST_F(RegistryTest, ShowsTheHost)
{
    std::filesystem::create_directories(mFolder.Path() / "user");
    std::ofstream(mFolder.Path() / "user" / "user-dirs.dirs")
        << "# of the user\nXDG_DESKTOP_DIR=\"/srv/desk\"\n"
           "XDG_DOCUMENTS_DIR=\"$HOME/Papers\"\n";
    TRegistry registry;
    ASSERT_TRUE(registry.OpenKeyReadOnly(u"Software\\Explorer\\User Shell Folders"));
    EXPECT_EQ(registry.ReadString(u"Desktop"), u"\\srv\\desk");
    EXPECT_TRUE(registry.ReadString(u"Personal").AsView().ends_with(u"\\Papers"));
    EXPECT_TRUE(registry.ReadString(u"My Music").AsView().ends_with(u"\\Music"));
    registry.setRootKey(Registry::HKEY_LOCAL_MACHINE);
    EXPECT_TRUE(registry.OpenKeyReadOnly(u"HARDWARE\\DEVICEMAP\\SERIALCOMM"));
}

TEST_F(RegistryTest, TheHostStandsAboveTheFileOfTheMachine)
{
    const Support::ScopedVariable port("TRS8_BTL_COM77", "/dev/null");
    TRegistry registry;
    registry.setRootKey(Registry::HKEY_LOCAL_MACHINE);
    ASSERT_TRUE(registry.OpenKey(u"HARDWARE\\DEVICEMAP\\SERIALCOMM", true));
    Classes::TStringList names;
    registry.GetValueNames(&names);
    const auto name = std::find_if(names.begin(), names.end(), [&](const UnicodeString& candidate) {
        return registry.ReadString(candidate) == u"COM77";
    });
    ASSERT_NE(name, names.end());
    registry.WriteString(*name, u"COM99");
    registry.WriteString(u"Own", u"COM98");
    EXPECT_EQ(registry.ReadString(*name), u"COM77");
    EXPECT_EQ(registry.ReadString(u"Own"), u"COM98");
}

TEST_F(RegistryTest, TakesTheFirstFileOfTheMachine)
{
    const std::string folders = mFolder.Path().string();
    const Support::ScopedVariable variable("XDG_CONFIG_DIRS", folders + "/machine");
    const auto install = [](const UnicodeString& id, const UnicodeString& folder) {
        TRegistry registry;
        registry.setRootKey(Registry::HKEY_LOCAL_MACHINE);
        ASSERT_TRUE(registry.OpenKey(u"SOFTWARE\\Installed\\" + id, true));
        registry.WriteString(u"Path", folder);
    };
    const auto find = [](const UnicodeString& id) {
        TRegistry registry(Registry::KEY_READ);
        registry.setRootKey(Registry::HKEY_LOCAL_MACHINE);
        return registry.OpenKeyReadOnly(u"\\Software\\installed\\" + id) ? registry.ReadString(u"Path")
                                                                         : UnicodeString(u"none");
    };
    install(u"station", u"\\opt\\Station");
    // A desktop puts its own folder in front.
    variable.Set(("none::" + folders + "/desktop:" + folders + "/machine:").c_str());
    EXPECT_EQ(find(u"Station"), u"\\opt\\Station");
    install(u"other", u"\\opt\\Other");
    EXPECT_FALSE(std::filesystem::exists(mFolder.Path() / "desktop"));
    variable.Set((folders + "/desktop:" + folders + "/none").c_str());
    EXPECT_EQ(find(u"station"), u"none");
    install(u"station", u"\\opt\\New");
    EXPECT_TRUE(std::filesystem::exists(mFolder.Path() / "desktop"));
}

TEST_F(RegistryTest, DISABLED_WritesManyValues)
{
    const Support::ScopedVariable user("XDG_CONFIG_HOME", std::getenv("REGISTRY_TEST_FOLDER"));
    TRegistry registry;
    for (int i = 0; i < 20; ++i) {
        registry.WriteInteger(u"child" + UnicodeString(i), i);
    }
    Support::PrintResult("done");
}

TEST_F(RegistryTest, LosesNothingToOtherProcesses)
{
    const Support::ScopedVariable user("REGISTRY_TEST_FOLDER", (mFolder.Path() / "user").c_str());
    {
        const std::jthread child([] { Support::RunChildTest("RegistryTest.DISABLED_WritesManyValues"); });
        TRegistry registry;
        for (int i = 0; i < 20; ++i) {
            registry.WriteInteger(u"own" + UnicodeString(i), i);
        }
    }
    Classes::TStringList names;
    TRegistry().GetValueNames(&names);
    EXPECT_EQ(names.getCount(), 40);
}

} // namespace
