// SPDX-License-Identifier: MIT
#include "environment/files/BTL_SYS_CopyPath.h"

#include "environment/files/BTL_SYS_Folders.h"
#include "environment/files/FileProgress.h"
#include "os/WIN_LastError.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileSupport.h"
#include "support/FailingCall.h"
#include "support/OtherFileSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

using System::UnicodeString;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

namespace fs = std::filesystem;

using CopyPathTest = Support::FolderTest;

TEST_F(CopyPathTest, CopiesAndMakesAllLevels)
{
    MakeFolder("a/sub");
    Write("a/f", "f");
    Write("a/sub/g", "g");
    EXPECT_TRUE(BTL::CopyPath(Name(u"a\\"), Name(u"to\\1\\2\\")));
    EXPECT_EQ(Read("to/1/2/f"), "f");
    EXPECT_EQ(Read("to/1/2/sub/g"), "g");
    Write("a/f", "newer");
    EXPECT_TRUE(BTL::CopyPath(Name(u"a"), Name(u"to\\1\\2"))) << "without the separators";
    EXPECT_EQ(Read("to/1/2/f"), "newer");
    MakeFolder("empty");
    EXPECT_TRUE(BTL::CopyPath(Name(u"empty\\"), Name(u"made\\")));
    EXPECT_TRUE(fs::is_directory(Host("made")));
}

TEST_F(CopyPathTest, ListsWhatItPassesOver)
{
    MakeFolder("a/sub");
    Write("a/f", "f");
    Write("a/sub/g", "g");
    mkfifo(Host("a/pipe").c_str(), 0666);
    std::vector<BTL::TPassedOver> rest{{u"from before", 1}};
    EXPECT_TRUE(BTL::CopyPath(Name(u"a\\sub\\"), Name(u"to\\"), rest));
    EXPECT_TRUE(rest.empty());
    EXPECT_TRUE(BTL::CopyPath(Name(u"a"), Name(u"to\\"), rest));
    ASSERT_EQ(rest.size(), 1U);
    EXPECT_EQ(rest[0].Path, Name(u"a\\pipe"));
    EXPECT_EQ(rest[0].Error, ERROR_ACCESS_DENIED);
    EXPECT_TRUE(BTL::CopyPath(Name(u"gone\\"), Name(u"made\\"), rest));
    ASSERT_EQ(rest.size(), 1U);
    EXPECT_EQ(rest[0].Path, Name(u"gone\\"));
    Write("file", "");
    EXPECT_TRUE(BTL::CopyPath(Name(u"a\\sub\\"), Name(u"file\\to\\"), rest));
    ASSERT_EQ(rest.size(), 2U) << "the file and its folder";
    EXPECT_TRUE(BTL::CopyPath(Name(u"a\\"), UnicodeString(u"\0", 1), rest));
    EXPECT_EQ(rest.size(), 1U);
}

TEST_F(CopyPathTest, GoesOnWhereTheDiskIsFull)
{
    MakeFolder("a");
    MakeFolder("disk");
    Write("a/large", std::string(4 << 20, 'l'));
    Write("a/small", "s");
    const int exit = Support::ExitOfFork([&] {
        if (!Support::MountSmallDisk(Host("disk"), 1 << 20)) {
            return 77;
        }
        std::vector<BTL::TPassedOver> rest;
        BTL::CopyPath(Name(u"a\\"), Name(u"disk\\to\\"), rest);
        return rest.size() == 1 && rest[0].Path == Name(u"a\\large") && rest[0].Error == ERROR_DISK_FULL &&
                       !fs::exists(Host("disk/to/large")) && Read("disk/to/small") == "s"
                   ? 0
                   : 1;
    });
    if (exit == 77) {
        GTEST_SKIP() << "No file system can be mounted.";
    }
    EXPECT_EQ(exit, 0);
}

TEST_F(CopyPathTest, TellsItsProgress)
{
    MakeFolder("a/sub");
    Write("a/f", "f");
    Write("a/z", "z");
    Write("a/sub/g", "g");
    fs::create_directory_symlink("sub", Host("a/link"));
    Support::FileProgress progress;
    EXPECT_TRUE(BTL::CopyPathExt(Name(u"a\\"), Name(u"to\\"), &progress));
    EXPECT_THAT(progress.texts, ElementsAre(Name(u"a\\"), Name(u"a\\sub\\")));
    EXPECT_EQ(progress.position, BTL::CountFiles(Name(u"a\\"), true));

    Support::FileProgress cancelled;
    cancelled.cancelAt = 2;
    EXPECT_THROW(BTL::CopyPathExt(Name(u"a\\"), Name(u"part\\"), &cancelled), std::runtime_error);
    EXPECT_EQ(Read("part/sub/g"), "g");
    EXPECT_FALSE(fs::exists(Host("part/z")));
    EXPECT_EQ(fs::status(Host("part/sub")).permissions(), fs::status(Host("a/sub")).permissions());

    TProgressDLG* const none = nullptr;
    EXPECT_TRUE(BTL::CopyPathExt(Name(u"a\\"), Name(u"again\\"), none));
    EXPECT_TRUE(BTL::CopyPathExt(Name(u"a\\"), Name(u"again\\"), nullptr));
    EXPECT_EQ(Read("again/z"), "z");
}

TEST_F(CopyPathTest, ReportsToADialogByTheHook)
{
    struct Adapter : Support::FileProgress
    {
        explicit Adapter(System::Int64* value) : sum(value) {}
        ~Adapter() override { *sum = position; }
        System::Int64* sum;
    };
    MakeFolder("a");
    Write("a/f", "f");
    System::Int64 sum = 0;
    BTL::MakeProgressOf = [](TProgressDLG* dialog) -> BTL::AProgressInfo* {
        return new Adapter(reinterpret_cast<System::Int64*>(dialog));
    };
    EXPECT_TRUE(BTL::CopyPathExt(Name(u"a"), Name(u"to"), reinterpret_cast<TProgressDLG*>(&sum)));
    BTL::MakeProgressOf = nullptr;
    EXPECT_EQ(sum, 1);
}

TEST_F(CopyPathTest, MovesFilesOfATreeIntoOneFolder)
{
    MakeFolder("a/sub");
    Write("a/f", "f");
    Write("a/.hidden", "h");
    Write("a/sub/g", "g");
    EXPECT_EQ(BTL::MoveFiles(Name(u"a\\"), Name(u"to\\new\\"), false), 2);
    EXPECT_EQ(Read("to/new/f"), "f");
    EXPECT_EQ(Read("to/new/g"), "g");
    EXPECT_TRUE(fs::exists(Host("a/.hidden")));
    EXPECT_EQ(BTL::MoveFiles(Name(u"a"), Name(u"to\\new"), false), 0);

    Write("a/f", "second");
    EXPECT_EQ(BTL::MoveFiles(Name(u"a"), Name(u"to\\new"), false), -2);
    EXPECT_THROW(BTL::MoveFiles(Name(u"a"), Name(u"to\\new"), true), WIN::XLastError);
    EXPECT_EQ(Read("to/new/f"), "f");
    EXPECT_EQ(BTL::MoveFiles(Name(u"gone"), Name(u"none"), true), -1);
    EXPECT_FALSE(fs::exists(Host("none")));
    EXPECT_EQ(BTL::MoveFiles(u"", Name(u"none"), true), -1);
    EXPECT_EQ(BTL::MoveFiles(Name(u"a"), u"", true), -1);
}

TEST_F(CopyPathTest, MovesFolders)
{
    MakeFolder("a/sub");
    Write("a/sub/g", "g");
    EXPECT_TRUE(BTL::MoveDir(Name(u"a"), Name(u"p\\q\\b")));
    EXPECT_EQ(Read("p/q/b/sub/g"), "g");
    EXPECT_TRUE(BTL::MovePath(Name(u"p\\q\\b\\"), Name(u"c\\")));
    EXPECT_TRUE(BTL::MovePath(Name(u"c"), Name(u"d"))) << "without the separators";
    EXPECT_EQ(Read("d/sub/g"), "g");
    MakeFolder("e");
    EXPECT_FALSE(BTL::MoveDir(Name(u"d"), Name(u"e")));
    EXPECT_FALSE(BTL::MoveDir(Name(u"gone"), Name(u"f")));
    EXPECT_FALSE(BTL::MoveDir(Name(u"d"), Name(u"d\\in itself")));
    EXPECT_EQ(Read("d/sub/g"), "g");

    const Support::OtherFileSystem other;
    if (!other.IsThere()) {
        GTEST_SKIP() << "There is but one file system.";
    }
    const auto there = Sysutils::FromHostPath(other.Path().string()) + u"\\new\\d";
    EXPECT_TRUE(BTL::MoveDir(Name(u"d"), there));
    EXPECT_EQ(Support::OnTheHost(other.Path() / "new/d/sub/g"), "g");
    EXPECT_FALSE(fs::exists(Host("d")));
}

} // namespace
