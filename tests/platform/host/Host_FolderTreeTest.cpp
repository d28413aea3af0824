// SPDX-License-Identifier: MIT
#include "platform/host/Host_FolderTree.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileSupport.h"
#include "support/FailingCall.h"
#include "support/OtherFileSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <cstdio>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

using System::UnicodeString;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace
{

namespace fs = std::filesystem;

/// What a copy told.
struct Told
{
    std::vector<UnicodeString> entered;
    std::vector<std::pair<UnicodeString, unsigned long>> passedOver;
    int done = 0;
};

class Listener : public Host::CopyWatcher
{
public:
    explicit Listener(Told& told) : mTold(told) {}

    void Enter(const UnicodeString& folder) override { mTold.entered.push_back(folder); }
    void Done() override { ++mTold.done; }
    void PassOver(const UnicodeString& path, unsigned long error) override
    {
        mTold.passedOver.emplace_back(path, error);
    }

private:
    Told& mTold;
};

class HostFolderTreeTest : public Support::FolderTest
{
protected:
    Told Copy(const UnicodeString& source, const UnicodeString& target) const
    {
        Told told;
        Listener listener(told);
        Host::CopyTree(Name(source), Name(target), listener);
        return told;
    }
    bool Delete(const UnicodeString& folder) const
    {
        return Host::DeleteTree(Name(folder), Host::ReadOnly::Kept);
    }
};

mode_t ModeOf(const fs::path& file)
{
    struct stat status = {};
    EXPECT_EQ(lstat(file.c_str(), &status), 0) << file;
    return status.st_mode & 07777;
}

TEST_F(HostFolderTreeTest, CopiesWithTimesModesAndLinks)
{
    MakeFolder("from/b/deep");
    MakeFolder("outside");
    Write("outside/secret", "s");
    Write("from/a", "a");
    Write("from/b/deep/c", "c");
    fs::create_directory_symlink("..", Host("from/b/loop"));
    fs::create_directory_symlink(Host("outside"), Host("from/out"));
    fs::create_symlink("a", Host("from/to a"));
    fs::create_symlink("nowhere", Host("from/broken"));
    fs::permissions(Host("from/a"), fs::perms(0604));
    fs::permissions(Host("from/b"), fs::perms(0750));
    fs::permissions(Host("from/b/deep"), fs::perms(0555));
    const timespec times[] = {{1'000'000'000, 1}, {1'000'000'000, 2}};
    for (const char* const name : {"from/a", "from/b/loop", "from/b", "from"}) {
        utimensat(AT_FDCWD, Host(name).c_str(), times, AT_SYMLINK_NOFOLLOW);
    }

    const Told told = Copy(u"from", u"to");
    EXPECT_THAT(told.passedOver, IsEmpty());
    EXPECT_THAT(told.entered, ElementsAre(Name(u"from\\b\\"), Name(u"from\\b\\deep\\")));
    EXPECT_EQ(told.done, 4) << "a, to a, broken, c";
    EXPECT_EQ(told.done, Host::CountTree(Name(u"from")));
    EXPECT_EQ(Read("to/a"), "a");
    EXPECT_EQ(Read("to/b/deep/c"), "c");
    for (const auto& [link, target] : {std::pair<const char*, std::string>("to/b/loop", ".."),
                                       {"to/out", Host("outside").string()},
                                       {"to/to a", "a"},
                                       {"to/broken", "nowhere"}}) {
        EXPECT_EQ(fs::read_symlink(Host(link)).string(), target);
    }
    EXPECT_EQ(ModeOf(Host("to/a")), 0604U);
    EXPECT_EQ(ModeOf(Host("to/b")), 0750U);
    EXPECT_EQ(ModeOf(Host("to/b/deep")), 0555U);
    for (const char* const name : {"to/a", "to/b/loop", "to/b", "to"}) {
        struct stat status = {};
        lstat(Host(name).c_str(), &status);
        EXPECT_EQ(status.st_mtim.tv_sec, 1'000'000'000) << name;
        EXPECT_EQ(status.st_mtim.tv_nsec, 2) << name;
    }
    for (const char* const name : {"from/b/deep", "to/b/deep"}) {
        fs::permissions(Host(name), fs::perms(0755));
    }
}

TEST_F(HostFolderTreeTest, TakesNamesThatArentText)
{
    const std::vector<std::string> names = {"line\nbreak", "back\\slash",         "a:b", "star*?", "\xFF\xFE",
                                            "\xC3(half",   std::string(255, 'n'), "..."};
    MakeFolder("from");
    for (const std::string& name : names) {
        fs::create_directory(Host("from") / ("d" + name.substr(1)));
        std::ofstream(Host("from") / ("d" + name.substr(1)) / name) << name;
    }
    EXPECT_THAT(Copy(u"from\\", u"to\\").passedOver, IsEmpty());
    for (const std::string& name : names) {
        EXPECT_EQ(Support::OnTheHost(Host("to") / ("d" + name.substr(1)) / name), name);
    }
    EXPECT_EQ(Host::CountTree(Name(u"to")), static_cast<System::Int64>(names.size()));
    EXPECT_TRUE(Delete(u"from\\"));
    EXPECT_FALSE(fs::exists(Host("from")));
}

TEST_F(HostFolderTreeTest, PassesOverWhatItCantCopy)
{
    MakeFolder("from/taken/sub");
    Write("from/taken/f", "f");
    mkfifo(Host("from/pipe").c_str(), 0666);
    Write("from/read only", "new");
    Write("from/z", "z");
    MakeFolder("to/z");
    Write("to/taken", "a file");
    Write("to/read only", "old");
    fs::permissions(Host("to/read only"), fs::perms(0444));
    const Told told = Copy(u"from", u"to");
    EXPECT_THAT(told.passedOver, ElementsAre(Pair(Name(u"from\\pipe"), ERROR_ACCESS_DENIED),
                                             Pair(Name(u"from\\read only"), ERROR_ACCESS_DENIED),
                                             Pair(Name(u"from\\taken\\f"), ERROR_PATH_NOT_FOUND),
                                             Pair(Name(u"from\\taken\\sub\\"), ERROR_PATH_NOT_FOUND),
                                             Pair(Name(u"from\\taken\\"), ERROR_DIRECTORY),
                                             Pair(Name(u"from\\z"), ERROR_ACCESS_DENIED)));
    EXPECT_EQ(told.done, 4);
    EXPECT_EQ(Read("to/taken"), "a file");
    EXPECT_EQ(Read("to/read only"), "old");

    EXPECT_THAT(Copy(u"gone", u"made").passedOver, ElementsAre(Pair(Name(u"gone\\"), ERROR_FILE_NOT_FOUND)));
    EXPECT_EQ(ModeOf(Host("made")), ModeOf(Host("to"))) << "as any other new folder";
}

TEST_F(HostFolderTreeTest, CopyIntoItselfEnds)
{
    MakeFolder("a/sub");
    Write("a/f", "f");
    const Told told = Copy(u"a", u"a\\sub\\in");
    EXPECT_THAT(told.passedOver, ElementsAre(Pair(Name(u"a\\sub\\in\\"), ERROR_INVALID_PARAMETER)));
    EXPECT_EQ(Read("a/sub/in/f"), "f");
    EXPECT_TRUE(fs::is_empty(Host("a/sub/in/sub")));
    EXPECT_THAT(Copy(u"a\\sub\\in", u"a\\sub\\in").passedOver,
                ElementsAre(Pair(Name(u"a\\sub\\in\\f"), ERROR_SHARING_VIOLATION)));
    EXPECT_EQ(Read("a/sub/in/f"), "f");
}

TEST_F(HostFolderTreeTest, WritesNothingThroughLinksOfTheTarget)
{
    MakeFolder("from/sub");
    Write("from/sub/f", "new");
    Write("from/g", "new");
    MakeFolder("outside");
    Write("outside/g", "old");
    MakeFolder("to");
    fs::create_directory_symlink(Host("outside"), Host("to/sub"));
    fs::create_symlink(Host("outside/g"), Host("to/g"));
    EXPECT_THAT(Copy(u"from", u"to").passedOver,
                ElementsAre(Pair(Name(u"from\\sub\\f"), ERROR_PATH_NOT_FOUND),
                            Pair(Name(u"from\\sub\\"), ERROR_DIRECTORY)));
    EXPECT_EQ(Read("outside/g"), "old");
    EXPECT_FALSE(fs::exists(Host("outside/f")));
    EXPECT_EQ(Read("to/g"), "new");
    EXPECT_FALSE(fs::is_symlink(Host("to/g")));
}

TEST_F(HostFolderTreeTest, DeletesLinksNotWhereTheyLead)
{
    MakeFolder("outside/sub");
    Write("outside/f", "f");
    MakeFolder("a/b");
    fs::create_directory_symlink(Host("outside"), Host("a/b/out"));
    fs::create_directory_symlink("../..", Host("a/b/loop"));
    fs::create_symlink(Host("outside/f"), Host("a/f"));
    fs::create_directory_symlink(Host("a"), Host("link"));
    EXPECT_TRUE(Delete(u"link\\"));
    EXPECT_TRUE(fs::exists(Host("a/b"))) << "of a link the link alone";
    EXPECT_TRUE(Delete(u"a"));
    EXPECT_FALSE(fs::exists(Host("a")));
    EXPECT_EQ(Read("outside/f"), "f");
    EXPECT_TRUE(fs::exists(Host("outside/sub")));
    EXPECT_FALSE(Delete(u"a"));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(Delete(u"outside\\f"));
    EXPECT_EQ(Read("outside/f"), "f");
}

TEST_F(HostFolderTreeTest, ReadOnlyFilesStayUnlessAsked)
{
    MakeFolder("a/b");
    Write("a/keep", "k");
    Write("a/b/gone", "g");
    fs::permissions(Host("a/keep"), fs::perms(0444));
    EXPECT_FALSE(Host::DeleteFilesIn(Name(u"a")));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(Delete(u"a"));
    EXPECT_EQ(GetLastError(), ERROR_DIR_NOT_EMPTY);
    EXPECT_EQ(Read("a/keep"), "k");
    EXPECT_FALSE(fs::exists(Host("a/b"))) << "the rest is gone";
    EXPECT_TRUE(Host::DeleteTree(Name(u"a"), Host::ReadOnly::Deleted));
    EXPECT_FALSE(fs::exists(Host("a")));
}

TEST_F(HostFolderTreeTest, TheRootIsRefused)
{
    Write("f", "f");
    const int exit = Support::ExitOfFork([&] {
        if ((geteuid() != 0 && unshare(CLONE_NEWUSER) != 0) || chroot(Host("").c_str()) != 0 ||
            chdir("/") != 0) {
            return 77;
        }
        for (const char16_t* const root : {u"\\", u"/", u"C:\\", u"\\.", u"\\..\\", u"."}) {
            if (Host::DeleteTree(root, Host::ReadOnly::Deleted) || GetLastError() != ERROR_ACCESS_DENIED) {
                return 1;
            }
        }
        return fs::exists("/f") ? 0 : 2;
    });
    if (exit == 77) {
        GTEST_SKIP() << "The root can't be another one.";
    }
    EXPECT_EQ(exit, 0);
    EXPECT_EQ(Read("f"), "f");
}

TEST_F(HostFolderTreeTest, FoldersWithoutPermissionStopNothing)
{
    MakeFolder("from/locked");
    Write("from/locked/f", "f");
    Write("from/z", "z");
    MakeFolder("to");
    fs::permissions(Host(""), fs::perms(0777));
    for (const char* const name : {"from", "to"}) {
        fs::permissions(Host(name), fs::perms(0777));
    }
    fs::permissions(Host("from/locked"), fs::perms(0));
    EXPECT_EQ(Support::ExitOfFork([&] {
                  if (!Support::BecomeNobody()) {
                      return 1;
                  }
                  const Told told = Copy(u"from", u"to");
                  if (told.passedOver.size() != 1 || told.passedOver[0].first != Name(u"from\\locked\\") ||
                      told.passedOver[0].second != ERROR_ACCESS_DENIED || Read("to/z") != "z") {
                      return 2;
                  }
                  if (Host::CountTree(Name(u"from")) != 1) {
                      return 3;
                  }
                  return !Delete(u"from") && !fs::exists(Host("from/z")) ? 0 : 4;
              }),
              0);
    fs::permissions(Host("from/locked"), fs::perms(0755));
    EXPECT_EQ(Read("from/locked/f"), "f");
}

TEST_F(HostFolderTreeTest, GoesDeeperThanAPathIsLong)
{
    constexpr int Depth = 300;
    const std::string level(20, 'd');
    int folder = open(Host("").c_str(), O_RDONLY | O_DIRECTORY);
    for (int i = 0; i < Depth; ++i) {
        ASSERT_EQ(mkdirat(folder, level.c_str(), 0777), 0);
        const int next = openat(folder, level.c_str(), O_RDONLY | O_DIRECTORY);
        close(std::exchange(folder, next));
    }
    close(openat(folder, "f", O_CREAT | O_WRONLY, 0666));
    close(folder);
    const auto source = System::FromUtf8(level);
    EXPECT_EQ(Host::CountTree(Name(source)), 1);
    EXPECT_THAT(Copy(source, u"copy").passedOver, IsEmpty());
    EXPECT_EQ(Host::CountTree(Name(u"copy")), 1);
    EXPECT_TRUE(Delete(source));
    EXPECT_TRUE(Delete(u"copy"));
}

/// Puts a link in the place of a folder and back, all the time.
class Exchanger
{
public:
    Exchanger(const fs::path& folder, const fs::path& link)
        : mThread([=, this] {
              while (!mIsOver) {
                  renameat2(AT_FDCWD, folder.c_str(), AT_FDCWD, link.c_str(), RENAME_EXCHANGE);
              }
          })
    {
    }
    Exchanger(const Exchanger&) = delete;
    Exchanger& operator=(const Exchanger&) = delete;
    ~Exchanger()
    {
        mIsOver = true;
        mThread.join();
    }

private:
    std::atomic<bool> mIsOver = false;
    std::thread mThread;
};

TEST_F(HostFolderTreeTest, ExchangedFoldersLeadNowhere)
{
    MakeFolder("outside");
    Write("outside/f", "f");
    for (int round = 0; round < 100; ++round) {
        MakeFolder("a/sub");
        fs::create_directory_symlink(Host("outside"), Host("a/link"));
        Write("a/sub/x", "x");
        {
            const Exchanger exchanger(Host("a/sub"), Host("a/link"));
            Copy(u"a", u"copy");
            static_cast<void>(Delete(u"a"));
        }
        ASSERT_EQ(Read("outside/f"), "f");
        ASSERT_FALSE(fs::exists(Host("outside/x")));
        ASSERT_FALSE(fs::is_regular_file(Host("copy/sub/f")) && !fs::is_symlink(Host("copy/sub")));
        fs::remove_all(Host("a"));
        fs::remove_all(Host("copy"));
    }
}

TEST_F(HostFolderTreeTest, CountsWhatAFolderHas)
{
    MakeFolder("a/b/c");
    Write("a/f", "");
    Write("a/.hidden", "");
    Write("a/b/g", "");
    fs::create_directory_symlink("b", Host("a/link"));
    EXPECT_EQ(Host::CountTree(Name(u"a")), 3);
    EXPECT_EQ(Host::CountEntries(Name(u"a\\")), 6);
    EXPECT_EQ(Host::CountTree(Name(u"gone")), 0);
    EXPECT_EQ(Host::CountEntries(Name(u"gone")), 0);
    EXPECT_EQ(Host::CountEntries(u""), 0);
}

TEST_F(HostFolderTreeTest, MovesToAnotherFileSystemAsAWhole)
{
    const Support::OtherFileSystem other;
    if (!other.IsThere()) {
        GTEST_SKIP() << "There is but one file system.";
    }
    const auto there = [&](const char16_t* name) {
        return Sysutils::FromHostPath(other.Path().string()) + u"\\" + name;
    };
    MakeFolder("a/b");
    Write("a/b/f", "f");
    fs::permissions(Host("a/b/f"), fs::perms(0444));
    EXPECT_TRUE(Host::MoveTree(Name(u"a"), there(u"a")));
    EXPECT_FALSE(fs::exists(Host("a")));
    EXPECT_EQ(Support::OnTheHost(other.Path() / "a/b/f"), "f");

    MakeFolder("p/q");
    Write("p/q/f", "f");
    mkfifo(Host("p/pipe").c_str(), 0666);
    EXPECT_FALSE(Host::MoveTree(Name(u"p"), there(u"a")));
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_FALSE(Host::MoveTree(Name(u"p"), there(u"p")));
    EXPECT_FALSE(fs::exists(other.Path() / "p")) << "half a copy";
    EXPECT_EQ(Read("p/q/f"), "f");
}

TEST_F(HostFolderTreeTest, AMoveLosesNothingThatComesMeanwhile)
{
    const Support::OtherFileSystem other;
    if (!other.IsThere()) {
        GTEST_SKIP() << "There is but one file system.";
    }
    for (int round = 0; round < 20; ++round) {
        MakeFolder("a/sub");
        MakeFolder("ready");
        for (int i = 0; i < 100; ++i) {
            Write("a/sub/former" + std::to_string(i), "f");
        }
        std::vector<std::string> come;
        std::atomic<bool> isOver = false;
        std::thread writer([&] {
            while (!isOver) {
                const std::string name = std::to_string(come.size());
                Write("ready/" + name, name);
                if (std::rename(Host("ready/" + name).c_str(), Host("a/sub/" + name).c_str()) != 0) {
                    return;
                }
                come.push_back(name);
            }
        });
        const bool isMoved =
            Host::MoveTree(Name(u"a"), Sysutils::FromHostPath((other.Path() / "a").string()));
        isOver = true;
        writer.join();
        EXPECT_EQ(isMoved, !fs::exists(Host("a")));
        for (const std::string& name : come) {
            ASSERT_TRUE(fs::exists(Host("a/sub/" + name)) || fs::exists(other.Path() / "a/sub" / name));
        }
        for (const fs::path& used : {Host("a"), Host("ready"), other.Path() / "a"}) {
            fs::remove_all(used);
        }
    }
}

} // namespace
