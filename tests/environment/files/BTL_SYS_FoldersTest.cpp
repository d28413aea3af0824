// SPDX-License-Identifier: MIT
#include "environment/files/BTL_SYS_Folders.h"

#include "environment/files/BTL_SYS_CopyPath.h"
#include "environment/files/BTL_SYS_Files.h"
#include "platform/host/Host_FileSupport.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/visual/Forms.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using System::UnicodeString;

namespace
{

namespace fs = std::filesystem;

class MakeFoldersTest : public Support::FolderTest
{
protected:
    ~MakeFoldersTest() override { fs::current_path(mFormer); }

private:
    const fs::path mFormer = fs::current_path();
};

TEST_F(MakeFoldersTest, MakesAllLevels)
{
    EXPECT_TRUE(BTL::CreatePath(Name(u"1\\2/3")));
    EXPECT_TRUE(fs::is_directory(Host("1/2/3")));
    EXPECT_TRUE(BTL::CreatePath(Name(u"1\\2\\\\4\\")));
    EXPECT_TRUE(fs::is_directory(Host("1/2/4")));
    EXPECT_TRUE(BTL::CreatePath(u"C:" + Name(u"drive\\x")));
    EXPECT_TRUE(fs::is_directory(Host("drive/x")));
    EXPECT_TRUE(BTL::CreatePath(Name(u"a:b\\c")));
    EXPECT_TRUE(fs::is_directory(Host("a:b/c"))) << "no drive elsewhere";
    EXPECT_TRUE(BTL::CreatePath(Name(u"1\\?"))) << "no mask";
    EXPECT_TRUE(fs::is_directory(Host("1/?")));
    EXPECT_TRUE(BTL::CreatePath(u"\\"));
    EXPECT_TRUE(BTL::CreatePath(u""));

    Write("file", "");
    EXPECT_TRUE(BTL::CreatePath(Name(u"file"))) << "a name that is there";
    EXPECT_FALSE(BTL::CreatePath(Name(u"file\\x")));
    EXPECT_FALSE(BTL::CreatePath(u"\\dev\\null"));
    EXPECT_FALSE(BTL::CreatePath(u"Q:\\x"));
    EXPECT_FALSE(BTL::CreatePath(Name(UnicodeString(u"z\0", 2))));

    EXPECT_TRUE(BTL::CreateDirectoryW(Name(u"one")));
    EXPECT_FALSE(BTL::CreateDirectoryW(Name(u"one")));
    EXPECT_FALSE(BTL::CreateDirectoryW(Name(u"two\\three")));
}

TEST_F(MakeFoldersTest, MakesLevelsBelowABase)
{
    EXPECT_TRUE(BTL::CreatePath(Name(u"base"), u"1\\2\\"));
    EXPECT_TRUE(fs::is_directory(Host("base/1/2")));
    EXPECT_TRUE(BTL::CreatePath(Name(u"base\\"), u"3"));
    EXPECT_TRUE(fs::is_directory(Host("base/3")));
    EXPECT_TRUE(BTL::CreatePath(u"\\", Name(u"root").Delete(1, 1)));
    EXPECT_TRUE(fs::is_directory(Host("root")));
    EXPECT_FALSE(BTL::CreatePath(Name(u"no\\base"), u"1")) << "one level of the base alone";
    fs::current_path(Host(""));
    EXPECT_TRUE(BTL::CreatePath(u"", u"current\\1"));
    EXPECT_TRUE(fs::is_directory(Host("current/1")));
}

TEST_F(MakeFoldersTest, DeletesFilesOfOneFolder)
{
    MakeFolder("a/sub");
    Write("a/f", "");
    Write("a/.hidden", "");
    Write("a/sub/g", "");
    fs::create_directory_symlink("sub", Host("a/link"));
    EXPECT_TRUE(BTL::DeleteAllFiles(Name(u"a")));
    EXPECT_FALSE(fs::exists(Host("a/f")));
    EXPECT_FALSE(fs::exists(Host("a/.hidden")));
    EXPECT_TRUE(fs::exists(Host("a/link/g")));
    EXPECT_TRUE(BTL::DeleteAllFiles(Name(u"gone")));
    EXPECT_TRUE(BTL::DeleteAllFiles(Name(u"gone\\gone\\")));
    Write("a/sub/kept", "");
    fs::permissions(Host("a/sub/kept"), fs::perms(0444));
    EXPECT_FALSE(BTL::DeleteAllFiles(Name(u"a\\sub\\")));
    EXPECT_FALSE(fs::exists(Host("a/sub/g")));

    fs::current_path(Host("a/sub"));
    EXPECT_TRUE(BTL::DeleteAllFiles(u""));
    EXPECT_FALSE(BTL::DeleteFolder(u""));
    EXPECT_TRUE(fs::exists(Host("a/sub/kept")));
}

TEST_F(MakeFoldersTest, DeletesTrees)
{
    MakeFolder("a/1/2");
    MakeFolder("b/1");
    Write("a/1/2/f", "");
    EXPECT_TRUE(BTL::DeleteFolder(Name(u"a")));
    EXPECT_FALSE(fs::exists(Host("a")));
    EXPECT_TRUE(BTL::RemovePath(Name(u"b\\")));
    EXPECT_FALSE(fs::exists(Host("b")));
    EXPECT_FALSE(BTL::DeleteFolder(Name(u"a")));
}

TEST_F(MakeFoldersTest, CountsFiles)
{
    MakeFolder("a/empty");
    Write("a/f", "");
    Write("a/g", "");
    fs::create_directory_symlink("..", Host("a/empty/loop"));
    for (const char16_t* const folder : {u"a\\", u"a"}) {
        EXPECT_EQ(BTL::CountFiles(Name(folder), true), 2);
        EXPECT_EQ(BTL::CountFiles(Name(folder), false), 5);
    }
    EXPECT_EQ(BTL::CountFiles(Name(u"gone"), true), 0);
    EXPECT_EQ(Forms::Screen->getCursor(), Controls::crDefault);
}

TEST_F(MakeFoldersTest, ADriveAloneIsItsRoot)
{
    MakeFolder("current");
    Write("f", "");
    Write("current/g", "");
    Write("current/h", "");
    fs::current_path(Host("current"));
    ASSERT_TRUE(Sysutils::SetDrive(u'T', Host("").string()));
    EXPECT_EQ(BTL::CountFiles(u"T:", true), 3);
    EXPECT_TRUE(BTL::CopyPath(u"T:", Name(u"current\\copy")));
    EXPECT_TRUE(fs::exists(Host("current/copy/f")));
    EXPECT_TRUE(BTL::DeleteAllFiles(u"T:"));
    EXPECT_FALSE(fs::exists(Host("f")));
    EXPECT_TRUE(fs::exists(Host("current/g")));
    EXPECT_TRUE(Sysutils::SetDrive(u'T', ""));
}

TEST_F(MakeFoldersTest, SwitchesAttributesOfATree)
{
    MakeFolder("a/sub");
    Write("a/f", "");
    Write("a/sub/g", "");
    Write("outside", "");
    fs::create_symlink(Host("outside"), Host("a/link"));
    fs::create_directory_symlink("..", Host("a/sub/loop"));
    fs::current_path(Host(""));
    EXPECT_EQ(BTL::DirSetAttrOn(u"a", Sysutils::faReadOnly), 0);
    EXPECT_TRUE(Sysutils::FileIsReadOnly(Name(u"a\\f")));
    EXPECT_TRUE(Sysutils::FileIsReadOnly(Name(u"a\\sub\\g")));
    EXPECT_FALSE(Sysutils::FileIsReadOnly(Name(u"outside")));
    EXPECT_EQ(fs::current_path(), fs::canonical(Host("a")));
    EXPECT_EQ(BTL::DirSetAttrOff(Name(u"a\\"), Sysutils::faReadOnly), 0);
    EXPECT_FALSE(Sysutils::FileIsReadOnly(Name(u"a\\sub\\g")));
    MakeFolder("empty");
    EXPECT_EQ(BTL::DirSetAttrOn(Name(u"empty"), Sysutils::faReadOnly), 0);
    EXPECT_EQ(BTL::DirSetAttr(Name(u"gone"), Sysutils::faReadOnly, true), 3);
    EXPECT_EQ(BTL::DirSetAttr(u"", Sysutils::faReadOnly, true), 3);
    EXPECT_FALSE(Sysutils::FileIsReadOnly(Name(u"a\\f")));
}

} // namespace
