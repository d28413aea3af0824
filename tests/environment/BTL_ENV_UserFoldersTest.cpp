// SPDX-License-Identifier: MIT
#include "environment/BTL_ENV_UserFolders.h"

#include "environment/BTL_ENV_PathMacros.h"
#include "environment/BTL_ENV_ReplicationFolders.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "languages/BTL_I18N_Language.h"
#include "platform/host/Host_Path.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "support/ChildProgram.h"
#include "support/ScopedVariable.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace
{

namespace fs = std::filesystem;
using System::UnicodeString;

// Results are kept for the run, so each case runs in a process of its own, in a program tree of its own.

std::string Lines(std::initializer_list<UnicodeString> texts)
{
    std::string lines;
    for (const UnicodeString& text : texts) {
        lines += System::ToUtf8(text) + '\n';
    }
    return lines;
}

class UserFoldersTest : public testing::Test
{
protected:
    UserFoldersTest() { fs::create_directories(Root() / "Bin"); }

    fs::path Root() const { return mTemp.Path() / "Station"; }
    UnicodeString RootText() const { return Sysutils::FromHostPath(Root().string()) + u"\\"; }

    void Describe(const std::string& lines) const
    {
        fs::create_directories(Root() / "ProgramData/Product");
        std::ofstream(Root() / "ProgramData/Product/Application.ini") << "[Application]\n" << lines;
    }

    std::string Run(const std::string& test) const
    {
        return Support::RunChildTest(test, Root() / "Bin/program");
    }

    Support::TempFolder mTemp;
};

TEST(UserFoldersChild, DISABLED_All)
{
    Support::PrintResult(Lines({BTL::GetUserDataPath(),
                                BTL::GetUserIniPath(),
                                BTL::GetUserI18NPath(),
                                BTL::GetUserSisulizerPath(),
                                BTL::GetUserFilterPath(),
                                BTL::GetUserDBColumnsPath(),
                                BTL::GetUserDBColumnsPath(u"N"),
                                BTL::GetUserFormIniPath(),
                                BTL::GetUserDBGridPath(),
                                BTL::GetUserAddInDataPath(),
                                BTL::GetLogPath(),
                                BTL::GetProfilerPath(),
                                BTL::GetTempPathW(),
                                UnicodeString(BTL::GetTempPathA()),
                                BTL::GetCustomDBDefPath(u"N"),
                                BTL::GetCustomFormDefPath(u"N"),
                                BTL::GetDBSchemaCacheDir(u"N"),
                                BTL::GetExportPath(),
                                BTL::GetTempUnitTestPath(),
                                BTL::GetReplicationTempPath(),
                                BTL::GetUserFRPath(),
                                BTL::GetUserDBPath(),
                                BTL::GetTestDataPath()}));
}

TEST_F(UserFoldersTest, AreMadeBelowTheRootOfAProgramThatIsNotInstalled)
{
    const std::vector<std::string> made = {"UserData\\Ini\\",
                                           "UserData\\I18N\\",
                                           "UserData\\Sisulizer\\",
                                           "UserData\\Filter\\",
                                           "UserData\\Columns\\",
                                           "UserData\\Columns\\N\\",
                                           "UserData\\FormIni\\",
                                           "UserData\\Grd\\",
                                           "UserData\\AddIns\\",
                                           "UserData\\Log\\",
                                           "UserData\\Profiler\\",
                                           "UserData\\Temp\\",
                                           "UserData\\Temp\\",
                                           "UserData\\DB\\N\\CustDBDef\\",
                                           "UserData\\DB\\N\\CustFormDef\\",
                                           "UserData\\DB\\SchemaCache_N",
                                           "UserData\\Temp\\Export\\",
                                           "UserData\\Temp\\UnitTest\\",
                                           "UserData\\Temp\\Replica\\"};
    const std::string root = System::ToUtf8(RootText());
    std::string expected = root + "UserData\\\n";
    for (const std::string& folder : made) {
        expected += root + folder + '\n';
    }
    expected += root + "UserData\\FR\\\n" + root + "UserData\\DB\\\n" + root + "TestData\\\n";
    EXPECT_EQ(Run("UserFoldersChild.DISABLED_All"), expected);
    for (const std::string& folder : made) {
        EXPECT_TRUE(Sysutils::DirectoryExists(RootText() + UnicodeString(folder.c_str()))) << folder;
    }
    EXPECT_FALSE(fs::exists(Root() / "UserData/FR"));
    EXPECT_FALSE(fs::exists(Root() / "TestData"));
}

TEST(UserFoldersChild, DISABLED_UserData)
{
    Support::PrintResult(System::ToUtf8(BTL::GetUserDataPath()));
}

TEST_F(UserFoldersTest, FollowTheDescriptionWhereItsFolderExists)
{
    const fs::path mine = mTemp.Path() / "mine";
    const fs::path settings = mTemp.Path() / "settings";
    const struct
    {
        std::string lines;
        std::string expected;
    } cases[] = {
        {"UserDataPath=" + mine.string(), mine.string() + "\\"},
        {"UserDataPath=" + (mine / "missing").string(), System::ToUtf8(RootText()) + "UserData\\"},
        // 1A is 26, the folder of settings.
        {"UserDataLocation=1A\nUserDataSubPath=Own\\Data",
         System::ToUtf8(Sysutils::FromHostPath((settings / "Own/Data").string())) + "\\"},
        {"UserDataLocation=1A",
         System::ToUtf8(Sysutils::FromHostPath((settings / "TARMIS/Station").string())) + "\\"},
        {"UserDataLocation=1A\nUserDataSubPath=Missing", System::ToUtf8(RootText()) + "UserData\\"},
        {"UserDataLocation=FFF\nUserDataSubPath=Missing", System::ToUtf8(RootText()) + "UserData\\"},
    };
    for (const fs::path& folder : {mine, settings / "Own/Data", settings / "TARMIS/Station"}) {
        fs::create_directories(folder);
    }
    const Support::ScopedVariable user("XDG_CONFIG_HOME", settings.c_str());
    for (const auto& c : cases) {
        Describe(c.lines + "\n");
        EXPECT_EQ(Run("UserFoldersChild.DISABLED_UserData"), c.expected) << c.lines;
    }
    EXPECT_FALSE(fs::exists(Root() / "UserData")) << "the folder itself is not made";
}

TEST(UserFoldersChild, DISABLED_Named)
{
    const UnicodeString one = BTL::GetUserDBColumnsPath(u"one");
    EXPECT_TRUE(Sysutils::RemoveDir(one));
    (void)BTL::GetUserDBColumnsPath(u"one");
    EXPECT_FALSE(Sysutils::DirectoryExists(one)) << "kept as long as no other is asked for";
    (void)BTL::GetUserDBColumnsPath(u"two");
    (void)BTL::GetUserDBColumnsPath(u"one");
    EXPECT_TRUE(Sysutils::DirectoryExists(one));
    for (const auto& path : {static_cast<UnicodeString (*)(const UnicodeString&)>(BTL::GetUserDBColumnsPath),
                             BTL::GetCustomDBDefPath, BTL::GetCustomFormDefPath}) {
        EXPECT_THROW((void)path(UnicodeString()), UTL::XAssert);
    }
    const UnicodeString english = BTL::GetI18NLanguageDataPath(BTL::ELanguage::English);
    EXPECT_EQ(english, BTL::GetUserDataPath() + u"I18N\\English\\");
    EXPECT_EQ(BTL::GetI18NLanguageDataPath(), BTL::GetUserDataPath() + u"I18N\\German\\");
    EXPECT_TRUE(Sysutils::RemoveDir(english));
    (void)BTL::GetI18NLanguageDataPath(BTL::ELanguage::English);
    EXPECT_TRUE(Sysutils::DirectoryExists(english)) << "made anew, since another was asked for between";

    const UnicodeString sub = BTL::GetUserDataPath(u"Some\\Where");
    EXPECT_TRUE(Sysutils::DirectoryExists(sub));
    EXPECT_EQ(sub, BTL::GetUserDataPath() + u"Some\\Where");
    Support::PrintResult("");
}

TEST_F(UserFoldersTest, KeepTheFolderOfTheLastName)
{
    EXPECT_EQ(Run("UserFoldersChild.DISABLED_Named"), "");
}

TEST(UserFoldersChild, DISABLED_Replication)
{
    const UnicodeString standard = BTL::GetReplicationPath();
    EXPECT_EQ(standard, BTL::GetUserDataPath() + u"Replication\\");
    EXPECT_TRUE(Sysutils::DirectoryExists(standard));

    const UnicodeString other = BTL::GetRootPath() + u"Exchange";
    BTL::SetReplicationPath(u"  " + other + u"  ");
    EXPECT_EQ(BTL::GetReplicationPath(), other + u"\\");
    EXPECT_FALSE(Sysutils::DirectoryExists(other)) << "only made with what lies below";
    EXPECT_EQ(BTL::GetReplicationDir(u"In"), other + u"\\In");
    EXPECT_TRUE(Sysutils::DirectoryExists(other + u"\\In"));
    EXPECT_EQ(BTL::GetReplicationPath(u"Out"), other + u"\\Out\\");
    EXPECT_EQ(BTL::GetReplicationTemp2Path(), other + u"\\Temp\\");
    BTL::SetReplicationPath(u"/srv/x/");
    EXPECT_EQ(BTL::GetReplicationPath(), u"/srv/x/");
    BTL::SetReplicationPath(u"  ");
    EXPECT_EQ(BTL::GetReplicationPath(), standard);
    Support::PrintResult("");
}

TEST_F(UserFoldersTest, ReplicateThroughABaseFolder)
{
    EXPECT_EQ(Run("UserFoldersChild.DISABLED_Replication"), "");
}

TEST(UserFoldersChild, DISABLED_Macros)
{
    const struct
    {
        UnicodeString stored;
        UnicodeString path;
    } cases[] = {
        {u"%ProgramData\\a.txt", BTL::GetProgramDataPath() + u"a.txt"},
        {u"%Bin\\a", BTL::GetBinPath() + u"a"},
        {u"%AddIns\\a", BTL::GetAddInsPath() + u"a"},
        {u"%TestData\\a", BTL::GetTestDataPath() + u"a"},
        {u"%UserData\\a", BTL::GetUserDataPath() + u"a"},
        {u"plain", u"plain"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::ReplaceMacroToPath(c.stored), c.path);
    }
    EXPECT_EQ(BTL::ReplaceMacroToPath(u"%DATA\\a"), BTL::GetUserDataPath() + u"a");
    EXPECT_EQ(BTL::ReplaceMacroToPath(u"%PDATA\\a"), BTL::GetProgramDataPath() + u"a");
    EXPECT_EQ(BTL::ReplaceMacroToPath(u"%TDATA\\a"), BTL::GetTestDataPath() + u"a");
    for (const UnicodeString& folder : {BTL::GetUserDataPath(), BTL::GetTempPathW(), BTL::GetProductPath()}) {
        const UnicodeString stored = BTL::ReplacePathToMacro(folder + u"x.ini");
        EXPECT_TRUE(stored.AsView().starts_with(u'%')) << System::ToUtf8(stored);
        EXPECT_EQ(BTL::ReplaceMacroToPath(stored), folder + u"x.ini");
    }
    Support::PrintResult("");
}

TEST_F(UserFoldersTest, StandBehindMacros)
{
    EXPECT_EQ(Run("UserFoldersChild.DISABLED_Macros"), "");
}

} // namespace
