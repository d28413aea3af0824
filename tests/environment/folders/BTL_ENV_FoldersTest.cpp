// SPDX-License-Identifier: MIT
#include "environment/folders/BTL_ENV_Folders.h"

#include "platform/host/Host_Path.h"
#include "support/ChildProgram.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace
{

namespace fs = std::filesystem;
using System::UnicodeString;

void Touch(const fs::path& file)
{
    std::ofstream(file) << 'x';
}

TEST(FoldersChild, DISABLED_PrintFolders)
{
    std::string lines;
    for (const UnicodeString& folder :
         {BTL::GetApplicationPath(), BTL::GetBinPath(), BTL::GetRootPath(), BTL::GetHelpPath(),
          BTL::GetAddInsPath(), BTL::GetUserRightsManagerAddInPath(), BTL::GetPrintingAddInsPath(),
          BTL::GetPluginsPath(), BTL::GetProgramDataPath(), BTL::GetProductPath(), BTL::GetProgramIDSPath(),
          BTL::GetProgramIniPath(), BTL::GetProgramDBDefPath(), BTL::GetProgramDBDefPath(u"One"),
          BTL::GetProgramDBDefPath(u"Two"), BTL::GetProgramDBDefPath(u"Two")}) {
        lines += System::ToUtf8(folder) + '\n';
    }
    Support::PrintResult(lines);
}

TEST(FoldersTest, FollowFromThePlaceOfTheProgram)
{
    const Support::TempFolder temp;
    const fs::path bin = temp.Path() / "A" / "Bin";
    fs::create_directories(bin);
    const UnicodeString root = Sysutils::FromHostPath((temp.Path() / "A").string()) + u"\\";
    std::string expected;
    for (const char* folder :
         {"Bin\\", "Bin\\", "", "Bin\\Help\\", "AddIns\\", "UserRightsManager\\", "PrintingAddIns\\",
          "Plugins\\", "ProgramData\\", "ProgramData\\Product\\", "ProgramData\\IDS\\", "ProgramData\\Ini\\",
          "ProgramData\\DBDef\\", "ProgramData\\DBDef\\One\\", "ProgramData\\DBDef\\Two\\",
          "ProgramData\\DBDef\\Two\\"}) {
        expected += System::ToUtf8(root + folder) + '\n';
    }
    EXPECT_EQ(Support::RunChildTest("FoldersChild.DISABLED_PrintFolders", bin / "program"), expected);
    EXPECT_FALSE(fs::exists(temp.Path() / "A" / "ProgramData")) << "no folder is made";
}

TEST(FoldersTest, AddsAndDeletesOneDelimiter)
{
    EXPECT_EQ(BTL::AddPathDelimiter(u""), u"");
    EXPECT_EQ(BTL::AddPathDelimiter(u"a"), u"a\\");
    EXPECT_EQ(BTL::AddPathDelimiter(u"a\\"), u"a\\");
    EXPECT_EQ(BTL::AddPathDelimiter(u"a/"), u"a/");
    EXPECT_EQ(BTL::DelPathDelimiter(u""), u"");
    EXPECT_EQ(BTL::DelPathDelimiter(u"a\\\\"), u"a\\");
    EXPECT_EQ(BTL::DelPathDelimiter(u"a/"), u"a");
    EXPECT_EQ(BTL::DelPathDelimiter(u"a"), u"a");
}

TEST(FoldersTest, ResolvesPaths)
{
    EXPECT_EQ(BTL::GetFullPath(u""), u"");
    EXPECT_EQ(BTL::GetFullPath(u"file.txt"), u"file.txt");
    EXPECT_EQ(BTL::GetFullPath(u"\\a\\.\\b\\..\\c"), u"\\a\\c");
    EXPECT_EQ(BTL::ExtractFilePath(u""), u"");
    EXPECT_EQ(BTL::ExtractFilePath(u"file.txt"), u"");
    EXPECT_EQ(BTL::ExtractFilePath(u"\\a\\b\\..\\file.txt"), u"\\a\\");
}

TEST(FoldersTest, TakesThePartsAtTheEnd)
{
    const struct
    {
        const char16_t* path;
        int count;
        const char16_t* expected;
    } cases[] = {
        {u"C:\\a\\b\\c", 2, u"b\\c\\"},
        {u"C:\\a\\b\\c", 0, u""},
        {u"C:\\a\\b\\c", -1, u""},
        {u"C:\\a\\b\\c\\", 3, u"a\\b\\c\\"},
        {u"C:\\a\\b\\c", 4, u"C:\\a\\b\\c\\"},
        {u"C:\\a\\b\\c", INT_MAX, u"C:\\a\\b\\c\\"},
        {u"C:\\a\\x\\..\\c", 2, u"a\\c\\"},
        {u"\\a\\b", 9, u"a\\b\\"},
        {u"name", 1, u"name\\"},
        {u"", 1, u""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(BTL::GetEndSubPath(c.path, c.count), c.expected) << UnicodeString(c.path) << ' ' << c.count;
    }
}

TEST(FoldersTest, TellsReadOnlyFiles)
{
    const Support::TempFolder temp;
    const fs::path file = temp.Path() / "file";
    const UnicodeString name = Sysutils::FromHostPath(file.string());
    EXPECT_FALSE(BTL::FileReadOnly(name)) << "a missing file";
    Touch(file);
    EXPECT_FALSE(BTL::FileReadOnly(name));
    fs::permissions(file, fs::perms::owner_write, fs::perm_options::remove);
    EXPECT_TRUE(BTL::FileReadOnly(name));
}

TEST(FoldersTest, ListsFilesWithoutFolders)
{
    const Support::TempFolder temp;
    const UnicodeString folder = Sysutils::FromHostPath(temp.Path().string());
    Classes::TStringList list;
    list.Add(u"former");
    EXPECT_FALSE(BTL::GetFiles(folder, u"*", &list));
    EXPECT_EQ(list.getCount(), 0);
    Touch(temp.Path() / "a.txt");
    Touch(temp.Path() / "ä.txt");
    Touch(temp.Path() / "b.ini");
    fs::create_directory(temp.Path() / "c.txt");
    EXPECT_TRUE(BTL::GetFiles(folder + u"\\", u"*.txt", &list));
    list.Sort();
    EXPECT_EQ(list.getCommaText(), u"a.txt,ä.txt");
    EXPECT_FALSE(BTL::GetFiles(folder + u"\\missing", u"*", &list));
    EXPECT_FALSE(BTL::GetFiles(folder, u"*", nullptr));
}

} // namespace
