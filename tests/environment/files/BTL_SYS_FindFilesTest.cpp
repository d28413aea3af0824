// SPDX-License-Identifier: MIT
#include "environment/files/BTL_SYS_FindFiles.h"

#include "environment/files/FileProgress.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/host/Host_FileSupport.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/classes/Classes_StringsSupport.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/toolkit/MessageBox.h"
#include "support/ScriptedBoxes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using Support::LinesOf;
using System::UnicodeString;
using testing::ElementsAre;

namespace
{

namespace fs = std::filesystem;

class FindFilesTest : public Support::FolderTest
{
protected:
    FindFilesTest()
    {
        fs::create_directories(Host("b/c"));
        fs::create_directories(Host(".dark"));
        for (const char* const name : {"z.log", "a.txt", ".h.log", "b/m.log", "b/c/n.log", ".dark/x.log"}) {
            Write(name, "");
        }
        fs::create_directory_symlink("..", Host("b/loop"));
        fs::create_directory_symlink("nowhere", Host("broken"));
    }
};

TEST_F(FindFilesTest, ListsOneFolder)
{
    Classes::TStringList list;
    EXPECT_TRUE(BTL::FindFiles(Name(u"*.*"), &list, false));
    EXPECT_THAT(LinesOf(list), ElementsAre(u".dark", u".h.log", u"a.txt", u"b", u"broken", u"z.log"));
    EXPECT_TRUE(BTL::FindFiles(Name(u"*.log"), 0, &list, true));
    EXPECT_THAT(LinesOf(list), ElementsAre(u"z.log"));
    EXPECT_TRUE(BTL::FindFiles(Name(u"a.*"), &list, false));
    EXPECT_THAT(LinesOf(list), ElementsAre(u"z.log", u"a.txt"));
    EXPECT_FALSE(BTL::FindFiles(Name(u"*.none"), &list, false));
    EXPECT_EQ(list.getCount(), 2);
    EXPECT_FALSE(BTL::FindFiles(Name(u"gone\\*"), &list, true));
    EXPECT_EQ(list.getCount(), 0);
    Support::ScriptedBoxes boxes({IDYES, IDNO});
    EXPECT_THROW(BTL::FindFiles(Name(u"*"), nullptr, true), UTL::XAssert);
    EXPECT_FALSE(BTL::FindFiles(Name(u"*"), nullptr, true)) << "the user goes on";
}

TEST_F(FindFilesTest, SearchesAFileUntilItIsFound)
{
    UnicodeString found;
    EXPECT_TRUE(BTL::SearchDirForFile(Name(u"b").SubString(1, Name(u"b").Length() - 2), u"n.log", found));
    EXPECT_EQ(found, Name(u"b\\c"));
    EXPECT_TRUE(BTL::SearchDirForFile(Name(u""), u"z.log", found)) << "with the final separator";
    EXPECT_EQ(found, Name(u""));
    EXPECT_TRUE(BTL::SearchDirForFile(Name(u""), u"x.log", found)) << "hidden folders too";
    EXPECT_FALSE(BTL::SearchDirForFile(Name(u"b"), u"N.LOG", found));
    EXPECT_FALSE(BTL::SearchDirForFile(Name(u"b"), u"c", found)) << "a folder";
    EXPECT_FALSE(BTL::SearchDirForFile(Name(u"gone"), u"x", found));
    EXPECT_FALSE(BTL::SearchDirForFile(u"", u"x", found));

    Support::FileProgress progress;
    EXPECT_TRUE(BTL::SearchDirForFileExt(Name(u"b"), u"n.log", found, &progress));
    EXPECT_THAT(progress.texts, ElementsAre(Name(u"b"), Name(u"b\\c")));
    EXPECT_EQ(progress.position, 2) << "the file and its folder; what comes behind isn't looked at";
}

TEST_F(FindFilesTest, SearchesAllFiles)
{
    const UnicodeString root = Name(u"").Delete(Name(u"").Length(), 1);
    Classes::TStringList list;
    list.Add(u"first");
    Support::FileProgress progress;
    EXPECT_TRUE(BTL::SearchDirForFilesExt(root, u"*.log", &list, &progress));
    EXPECT_THAT(LinesOf(list),
                ElementsAre(u"first", Name(u"z.log"), Name(u"b\\m.log"), Name(u"b\\c\\n.log")));
    EXPECT_THAT(progress.texts, ElementsAre(root, Name(u"b"), Name(u"b\\c")));
    EXPECT_EQ(progress.position, 3) << "m once, n on the way to b and to the root";
    EXPECT_FALSE(BTL::SearchDirForFiles(root, u"*.none", &list));
    EXPECT_FALSE(BTL::SearchDirForFiles(Name(u"gone"), u"*", &list));
    EXPECT_FALSE(BTL::SearchDirForFiles(u"", u"*", &list));
    EXPECT_FALSE(BTL::SearchDirForFiles(root, u"*", nullptr));
    EXPECT_EQ(list.getCount(), 4);
}

} // namespace
