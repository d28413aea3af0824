// SPDX-License-Identifier: MIT
#include "platform/host/Host_FileMove.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileSupport.h"
#include "support/FailingCall.h"
#include "support/FileSizeLimit.h"
#include "support/OtherFileSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>

namespace
{

namespace fs = std::filesystem;

struct stat StatusOf(const fs::path& file)
{
    struct stat status = {};
    EXPECT_EQ(lstat(file.c_str(), &status), 0) << file;
    return status;
}

void Date(const fs::path& file, long seconds, long nanoseconds)
{
    const timespec times[] = {{seconds + 1, 7}, {seconds, nanoseconds}};
    EXPECT_EQ(utimensat(AT_FDCWD, file.c_str(), times, AT_SYMLINK_NOFOLLOW), 0) << file;
}

/// Without the zeros, and where each run of other bytes begins.
std::vector<std::pair<std::size_t, std::string>> Content(const fs::path& file)
{
    std::string bytes(fs::file_size(file), ' ');
    std::ifstream(file).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    std::vector<std::pair<std::size_t, std::string>> runs;
    for (std::size_t end = 0, start = 0; (start = bytes.find_first_not_of('\0', end)) != std::string::npos;) {
        end = std::min(bytes.find('\0', start), bytes.size());
        runs.emplace_back(start, bytes.substr(start, end - start));
    }
    return runs;
}

using HostFileMoveTest = Support::FolderTest;

TEST_F(HostFileMoveTest, CopyKeepsPermissionsTimesAndHoles)
{
    constexpr off_t Size = 8 << 20;
    constexpr off_t Place = 3 << 20;
    Write("sparse", "");
    fs::resize_file(Host("sparse"), Size);
    std::fstream(Host("sparse")).seekp(Place) << "in the middle";
    fs::permissions(Host("sparse"), fs::perms(0640));
    Date(Host("sparse"), 1'000'000'000, 123'456'789);
    ASSERT_TRUE(CopyFileW(Name(u"sparse"), Name(u"copy"), true));

    const struct stat copy = StatusOf(Host("copy"));
    EXPECT_EQ(copy.st_size, Size);
    EXPECT_EQ(copy.st_mode & 07777, 0640U);
    EXPECT_EQ(copy.st_mtim.tv_sec, 1'000'000'000);
    EXPECT_EQ(copy.st_mtim.tv_nsec, 123'456'789);
    EXPECT_EQ(copy.st_atim.tv_sec, 1'000'000'001);
    EXPECT_LT(copy.st_blocks * 512, 1 << 20) << "the holes are filled";
    EXPECT_EQ(Content(Host("copy")), Content(Host("sparse")));
}

TEST_F(HostFileMoveTest, CopiesFilesThatTellNoSize)
{
    ASSERT_TRUE(CopyFileW(u"\\proc\\self\\limits", Name(u"copy"), true));
    EXPECT_EQ(Read("copy"), Support::OnTheHost("/proc/self/limits"));
}

TEST_F(HostFileMoveTest, CopyOfAGrowingFileHasAnEnd)
{
    Write("log", std::string(1 << 20, 'x'));
    std::atomic<bool> isOver = false;
    std::thread writer([&] {
        std::ofstream stream(Host("log"), std::ios::app);
        while (!isOver) {
            stream << std::string(1 << 16, 'x');
        }
    });
    EXPECT_TRUE(CopyFileW(Name(u"log"), Name(u"copy"), true));
    isOver = true;
    writer.join();
    EXPECT_GE(fs::file_size(Host("copy")), 1U << 20);
    EXPECT_EQ(Read("copy").find_first_not_of('x'), std::string::npos);
}

TEST_F(HostFileMoveTest, ASecretStaysOneWhileItIsCopied)
{
    Write("secret", std::string(16 << 20, 's'));
    fs::permissions(Host("secret"), fs::perms(0600));
    std::atomic<bool> isOver = false;
    mode_t ofOthers = 0;
    std::thread observer([&] {
        while (!isOver) {
            if (struct stat status; lstat(Host("copy").c_str(), &status) == 0) {
                ofOthers |= status.st_mode & 077;
            }
        }
    });
    EXPECT_TRUE(CopyFileW(Name(u"secret"), Name(u"copy"), true));
    isOver = true;
    observer.join();
    EXPECT_EQ(ofOthers, 0U);
}

TEST_F(HostFileMoveTest, ReplacesInOneStepAndKeepsWhatALinkIs)
{
    Write("new", "new");
    Write("old", "old");
    fs::create_hard_link(Host("old"), Host("other name"));
    fs::create_symlink("old", Host("link"));
    EXPECT_TRUE(CopyFileW(Name(u"new"), Name(u"link"), false));
    EXPECT_EQ(Read("old"), "new");
    EXPECT_TRUE(fs::is_symlink(Host("link")));
    EXPECT_EQ(Read("other name"), "old");

    fs::permissions(Host("old"), fs::perms(0444));
    EXPECT_FALSE(CopyFileW(Name(u"other name"), Name(u"old"), false));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Read("old"), "new");
    fs::create_directory(Host("folder"));
    EXPECT_FALSE(CopyFileW(Name(u"new"), Name(u"folder"), false));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(std::distance(fs::directory_iterator(fs::path(Host("new")).parent_path()), {}), 5);
}

TEST_F(HostFileMoveTest, FileTooLargeLeavesNoHalf)
{
    Write("large", std::string(1 << 20, 'l'));
    Write("old", "old");
    EXPECT_EQ(Support::ExitOfFork([&] {
                  Support::LimitFileSize(1 << 16);
                  const bool isRefused = !CopyFileW(Name(u"large"), Name(u"new"), true) &&
                                         GetLastError() == ERROR_FILE_TOO_LARGE &&
                                         !CopyFileW(Name(u"large"), Name(u"old"), false) &&
                                         GetLastError() == ERROR_FILE_TOO_LARGE;
                  return isRefused ? 0 : 1;
              }),
              0);
    EXPECT_FALSE(fs::exists(Host("new")));
    EXPECT_EQ(Read("old"), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(fs::path(Host("old")).parent_path()), {}), 2);
}

TEST_F(HostFileMoveTest, FullDiskLeavesNoHalf)
{
    Write("large", std::string(4 << 20, 'l'));
    fs::create_directory(Host("disk"));
    const int exit = Support::ExitOfFork([&] {
        if (!Support::MountSmallDisk(Host("disk"), 1 << 20)) {
            return 77;
        }
        std::ofstream(Host("disk/old")) << "old";
        const bool isRefused =
            !CopyFileW(Name(u"large"), Name(u"disk\\new"), true) && GetLastError() == ERROR_DISK_FULL &&
            !CopyFileW(Name(u"large"), Name(u"disk\\old"), false) && GetLastError() == ERROR_DISK_FULL &&
            !fs::exists(Host("disk/new")) && Read("disk/old") == "old";
        return isRefused ? 0 : 1;
    });
    if (exit == 77) {
        GTEST_SKIP() << "No file system can be mounted.";
    }
    EXPECT_EQ(exit, 0);
}

TEST_F(HostFileMoveTest, MovesFilesAndLinksToAnotherFileSystem)
{
    const Support::OtherFileSystem other;
    if (!other.IsThere()) {
        GTEST_SKIP() << "There is but one file system.";
    }
    const auto there = [&](const char16_t* name) {
        return Sysutils::FromHostPath(other.Path().string()) + u"\\" + name;
    };
    Write("a", "content");
    Date(Host("a"), 1'000'000'000, 5);
    fs::create_symlink("nowhere", Host("link"));
    fs::create_directory(Host("folder"));
    EXPECT_TRUE(MoveFileW(Name(u"a"), there(u"a")));
    EXPECT_FALSE(fs::exists(Host("a")));
    EXPECT_EQ(Support::OnTheHost(other.Path() / "a"), "content");
    EXPECT_EQ(StatusOf(other.Path() / "a").st_mtim.tv_nsec, 5);
    EXPECT_TRUE(MoveFileW(Name(u"link"), there(u"link")));
    EXPECT_EQ(fs::read_symlink(other.Path() / "link"), "nowhere");
    EXPECT_FALSE(fs::is_symlink(Host("link")));

    Write("a", "second");
    EXPECT_FALSE(MoveFileW(Name(u"a"), there(u"a")));
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_FALSE(MoveFileExW(Name(u"a"), there(u"b"), 0));
    EXPECT_EQ(GetLastError(), ERROR_NOT_SAME_DEVICE);
    EXPECT_FALSE(MoveFileW(Name(u"folder"), there(u"folder")));
    EXPECT_EQ(GetLastError(), ERROR_NOT_SAME_DEVICE);
    EXPECT_EQ(Read("a"), "second");
    EXPECT_TRUE(MoveFileExW(Name(u"a"), there(u"a"), MOVEFILE_COPY_ALLOWED | MOVEFILE_REPLACE_EXISTING));
    EXPECT_EQ(Support::OnTheHost(other.Path() / "a"), "second");
}

TEST_F(HostFileMoveTest, WhatCantGoLeavesNoCopy)
{
    const Support::OtherFileSystem other;
    if (!other.IsThere()) {
        GTEST_SKIP() << "There is but one file system.";
    }
    fs::create_directory(Host("kept"));
    Write("kept/a", "content");
    fs::permissions(Host("kept/a"), fs::perms(0644));
    fs::permissions(Host(""), fs::perms(0755));
    fs::permissions(Host("kept"), fs::perms(0555));
    fs::permissions(other.Path(), fs::perms(0777));
    const auto there = Sysutils::FromHostPath((other.Path() / "a").string());
    EXPECT_EQ(Support::ExitOfFork([&] {
                  return Support::BecomeNobody() && !MoveFileW(Name(u"kept\\a"), there) &&
                                 GetLastError() == ERROR_ACCESS_DENIED
                             ? 0
                             : 1;
              }),
              0);
    EXPECT_FALSE(fs::exists(other.Path() / "a"));
    EXPECT_EQ(Read("kept/a"), "content");
    fs::permissions(Host("kept"), fs::perms(0755));
}

} // namespace
