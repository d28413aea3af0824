// SPDX-License-Identifier: MIT
#include "platform/host/profile/internal/Host_ProfileWatch.h"

#include "../../Host_FileSupport.h"
#include "support/FailingCall.h"

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;

using Host::ProfileWatch;
using Host::QueryState;

/// Longer than the times of files stand still, and than the way along a path may have been followed before.
void Rest()
{
    std::this_thread::sleep_for(std::chrono::milliseconds(40));
}

void WriteTo(const fs::path& file, const std::string& text)
{
    std::ofstream(file, std::ios::binary) << text;
}

/// Looks until the file is held; false if this host doesn't hold it.
bool Hold(ProfileWatch& watch)
{
    for (int i = 0; i < 100'000 && !watch.IsHolding(); ++i) {
        static_cast<void>(watch.Look());
    }
    return watch.IsHolding();
}

/// In the folder of temporary files, and in memory.
class ProfileWatchTest : public testing::TestWithParam<const char*>
{
protected:
    ProfileWatchTest()
    {
        std::string path = std::string(GetParam()) + "/trs8_btl_XXXXXX";
        mFolder = fs::canonical(mkdtemp(path.data()));
        fs::create_directory(mFolder / "sub");
        mFile = mFolder / "sub" / "a.ini";
        WriteTo(mFile, "one");
        Rest();
    }
    ~ProfileWatchTest() override { fs::remove_all(mFolder); }

    fs::path mFolder;
    fs::path mFile;
};

INSTANTIATE_TEST_SUITE_P(, ProfileWatchTest, testing::Values("/tmp", "/dev/shm"),
                         [](const auto& test) { return test.index == 0 ? "Disk" : "Memory"; });

TEST_P(ProfileWatchTest, TellsAtTheNextLookWhatHappensToTheFile)
{
    const fs::path other = mFolder / "sub" / "b.ini";
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"written in place", [&] { WriteTo(mFile, "two"); }},
        {"longer", [&] { std::ofstream(mFile, std::ios::app) << "x"; }},
        {"read-only", [&] { fs::permissions(mFile, fs::perms::owner_read); }},
        {"replaced",
         [&] {
             WriteTo(other, "two");
             fs::rename(other, mFile);
         }},
        {"replaced, and kept by another name",
         [&] {
             fs::create_hard_link(mFile, mFolder / "kept");
             WriteTo(other, "two");
             fs::rename(other, mFile);
         }},
        {"replaced where it has two names",
         [&] {
             WriteTo(other, "two");
             fs::rename(other, mFile);
         }},
        {"deleted", [&] { fs::remove(mFile); }},
        {"moved away", [&] { fs::rename(mFile, mFolder / "moved"); }},
        {"exchanged",
         [&] {
             WriteTo(other, "two");
             ASSERT_EQ(renameat2(AT_FDCWD, other.c_str(), AT_FDCWD, mFile.c_str(), RENAME_EXCHANGE), 0);
         }},
        {"deleted and made again",
         [&] {
             fs::remove(mFile);
             WriteTo(mFile, "one");
         }},
        {"a link in its place",
         [&] {
             WriteTo(other, "two");
             fs::rename(mFile, mFolder / "moved");
             fs::create_symlink(other, mFile);
         }},
    };
    for (const auto& [name, change] : changes) {
        SCOPED_TRACE(name);
        fs::remove(mFile);
        WriteTo(mFile, "one");
        if (name == std::string_view("replaced where it has two names")) {
            fs::remove(mFolder / "kept");
            fs::create_hard_link(mFile, mFolder / "kept");
        }
        Rest();
        ProfileWatch watch(mFile);
        if (!Hold(watch)) {
            GTEST_SKIP() << "This file system is always asked by the path.";
        }
        const Host::FileState before = watch.Look();
        EXPECT_EQ(before, QueryState(mFile));
        change();
        const Host::FileState after = watch.Look();
        EXPECT_EQ(after, QueryState(mFile));
        EXPECT_NE(after, before);
        EXPECT_EQ(watch.Look(), after);
    }
}

TEST_P(ProfileWatchTest, TellsSoonThatAFolderWasExchanged)
{
    ProfileWatch watch(mFile);
    Hold(watch);
    fs::rename(mFolder / "sub", mFolder / "former");
    fs::create_directory(mFolder / "sub");
    WriteTo(mFile, "two");
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(watch.Look(), QueryState(mFile));
    fs::remove_all(mFolder / "sub");
    fs::rename(mFolder / "former", mFolder / "sub");
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(watch.Look(), QueryState(mFile));
}

TEST_P(ProfileWatchTest, TellsSoonThatAFolderBecameALinkThatLeadsElsewhere)
{
    fs::create_directory(mFolder / "other");
    WriteTo(mFolder / "other" / "a.ini", "other");
    ProfileWatch watch(mFile);
    Hold(watch);
    fs::rename(mFolder / "sub", mFolder / "former");
    for (const char* const target : {"former", "other", "former"}) {
        SCOPED_TRACE(target);
        fs::remove(mFolder / "sub");
        fs::create_directory_symlink(target, mFolder / "sub");
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        EXPECT_EQ(watch.Look(), QueryState(mFolder / target / "a.ini"));
        // Enough to hold it, were it not for the link.
        for (int i = 0; i < 64; ++i) {
            EXPECT_EQ(watch.Look(), QueryState(mFolder / target / "a.ini"));
        }
    }
}

TEST_P(ProfileWatchTest, FollowsLinksAtEachLook)
{
    fs::create_directory(mFolder / "other");
    WriteTo(mFolder / "other" / "a.ini", "other");
    fs::create_symlink(mFile, mFolder / "file");
    fs::create_directory_symlink("sub", mFolder / "folder");
    ProfileWatch file(mFolder / "file");
    ProfileWatch inFolder(mFolder / "folder" / "a.ini");
    ProfileWatch folder(mFolder);
    ProfileWatch nothing(mFolder / "none");
    for (ProfileWatch* const watch : {&file, &inFolder, &folder, &nothing}) {
        SCOPED_TRACE(watch->getPath());
        for (int i = 0; i < 100; ++i) {
            EXPECT_EQ(watch->Look(), QueryState(watch->getPath()));
        }
        EXPECT_FALSE(watch->IsHolding());
    }
    for (const char* const link : {"file", "folder"}) {
        fs::remove(mFolder / link);
    }
    fs::create_symlink(mFolder / "other" / "a.ini", mFolder / "file");
    fs::create_directory_symlink("other", mFolder / "folder");
    EXPECT_EQ(file.Look(), QueryState(mFolder / "other" / "a.ini"));
    EXPECT_EQ(inFolder.Look(), file.Look());
}

TEST_P(ProfileWatchTest, HoldsNoFileThatChangedJustNow)
{
    for (int i = 0; i < 20; ++i) {
        fs::remove(mFile);
        WriteTo(mFile, "one");
        ProfileWatch watch(mFile);
        Host::FileState state;
        for (int look = 0; look < 64; ++look) {
            state = watch.Look();
        }
        // A test that had to wait may have come to its end.
        EXPECT_TRUE(!watch.IsHolding() || state.IsSettled());
        fs::rename(mFile, mFolder / "moved");
        EXPECT_EQ(watch.Look(), QueryState(mFile));
    }
}

TEST_P(ProfileWatchTest, LetsGoOfAFileThatIsSeldomAskedFor)
{
    ProfileWatch watch(mFile);
    Hold(watch);
    for (int i = 0; i < 3; ++i) {
        Rest();
        EXPECT_EQ(watch.Look(), QueryState(mFile));
    }
    EXPECT_FALSE(watch.IsHolding());
}

TEST_P(ProfileWatchTest, NeedsNoDescriptor)
{
    // Asked before, since a sanitizer needs descriptors of its own to look at this object.
    const std::string path = mFile;
    const Host::FileState state = QueryState(path);
    rlimit limit;
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
    const rlimit none{0, limit.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    ProfileWatch watch(path);
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(watch.Look(), state);
    }
    EXPECT_FALSE(watch.IsHolding());
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
}

TEST_P(ProfileWatchTest, TouchesNoLock)
{
    const int mine = open(mFile.c_str(), O_RDWR | O_CLOEXEC);
    struct flock whole = {};
    whole.l_type = F_WRLCK;
    ASSERT_EQ(fcntl(mine, F_SETLK, &whole), 0);
    ASSERT_EQ(flock(mine, LOCK_EX), 0);
    {
        ProfileWatch watch(mFile);
        Hold(watch);
        watch.LetGo();
        Hold(watch);
    }
    EXPECT_EQ(Support::ExitOfFork([&] {
                  const int other = open(mFile.c_str(), O_RDWR | O_CLOEXEC);
                  const bool isFree = flock(other, LOCK_EX | LOCK_NB) == 0;
                  return !isFree && fcntl(other, F_GETLK, &whole) == 0 && whole.l_type == F_WRLCK ? 0 : 1;
              }),
              0);
    close(mine);
}

TEST_P(ProfileWatchTest, LeavesADescriptorThatIsNotItsOwnAlone)
{
    for (const fs::path& another : {mFolder, mFile}) {
        SCOPED_TRACE(another);
        EXPECT_EQ(Support::ExitOfFork([&] {
                      auto watch = std::make_unique<ProfileWatch>(mFile);
                      Hold(*watch);
                      // As a program does that goes into the background.
                      close_range(3, ~0U, 0);
                      int last = 0;
                      for (int i = 0; i < 64; ++i) {
                          last = open(another.c_str(), O_RDONLY | O_CLOEXEC);
                      }
                      const bool isRight = watch->Look() == QueryState(mFile);
                      watch.reset();
                      for (int i = 3; i <= last; ++i) {
                          if (fcntl(i, F_GETFD) < 0) {
                              return 1;
                          }
                      }
                      return isRight ? 0 : 2;
                  }),
                  0);
    }
}

} // namespace
