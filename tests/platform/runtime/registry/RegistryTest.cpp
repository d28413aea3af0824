// SPDX-License-Identifier: MIT
#include "platform/runtime/registry/Registry.h"

#include "platform/host/Host_Error.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "support/ChildProgram.h"
#include "support/ScopedVariable.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

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
    EXPECT_TRUE(std::filesystem::exists(mFolder.Path() / "machine" / "TRS8_BTL" / "registry"));
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
