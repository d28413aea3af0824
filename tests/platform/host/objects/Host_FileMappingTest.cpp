// SPDX-License-Identifier: MIT
#include "platform/host/objects/Host_FileMapping.h"

#include "platform/host/Host_Error.h"
#include "support/ChildProgram.h"
#include "support/ObjectNames.h"
#include "support/SecondProcess.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>

#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>

namespace
{

using Support::OwnName;
using Support::SecondProcess;
using System::UnicodeString;

HANDLE Create(const UnicodeString& name, unsigned long size)
{
    return CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, size, name);
}

char* View(HANDLE mapping, unsigned long access = FILE_MAP_ALL_ACCESS, std::size_t size = 0)
{
    return static_cast<char*>(MapViewOfFile(mapping, access, 0, 0, size));
}

std::ptrdiff_t CountMaps()
{
    std::ifstream maps("/proc/self/maps");
    return std::count(std::istreambuf_iterator<char>(maps), {}, '\n');
}

TEST(FileMappingTest, SharesBytesUntilTheLastViewEnds)
{
    const UnicodeString name = OwnName(u"shared");
    const HANDLE first = Create(name, 100);
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    const HANDLE second = Create(name, 5000);
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    char* const a = View(first);
    const char* const b = View(second, FILE_MAP_READ);
    ASSERT_NE(a, nullptr);
    EXPECT_TRUE(std::all_of(a, a + 100, [](char byte) { return byte == 0; }));
    std::strcpy(a, "shared");
    EXPECT_STREQ(b, "shared");
    EXPECT_TRUE(CloseHandle(first));
    EXPECT_TRUE(CloseHandle(second));
    EXPECT_STREQ(b, "shared");
    EXPECT_TRUE(UnmapViewOfFile(a));
    EXPECT_FALSE(UnmapViewOfFile(a));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_ADDRESS);
    const HANDLE third = OpenFileMappingW(FILE_MAP_READ, false, name);
    EXPECT_NE(third, nullptr);
    EXPECT_TRUE(CloseHandle(third));
    EXPECT_TRUE(UnmapViewOfFile(b));
    EXPECT_EQ(OpenFileMappingW(FILE_MAP_READ, false, name), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

TEST(FileMappingTest, RefusesWhatDoesNotFit)
{
    const HANDLE mapping = Create(OwnName(u"fit"), 100'000);
    EXPECT_EQ(View(mapping, FILE_MAP_ALL_ACCESS, 100'001), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(MapViewOfFile(mapping, FILE_MAP_READ, 0, 4096, 10), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_MAPPED_ALIGNMENT);
    EXPECT_EQ(MapViewOfFile(mapping, FILE_MAP_READ, 1, 0, 0), nullptr);
    void* const rest = MapViewOfFile(mapping, FILE_MAP_READ, 0, 65536, 0);
    EXPECT_NE(rest, nullptr);
    EXPECT_TRUE(UnmapViewOfFile(rest));
    const HANDLE reader = OpenFileMappingW(FILE_MAP_READ, false, OwnName(u"fit"));
    EXPECT_EQ(View(reader), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(WaitForSingleObject(reader, 0), WAIT_FAILED);
    EXPECT_TRUE(CloseHandle(reader));
    EXPECT_TRUE(CloseHandle(mapping));

    EXPECT_EQ(Create(OwnName(u"empty"), 0), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(CreateFileMappingW(nullptr, nullptr, PAGE_READWRITE, 0, 10, UnicodeString()), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST(FileMappingTest, CopiesStayWithTheView)
{
    const HANDLE mapping = Create(UnicodeString(), 10);
    char* const shared = View(mapping);
    char* const copy = View(mapping, FILE_MAP_COPY);
    shared[0] = 'a';
    copy[0] = 'b';
    EXPECT_EQ(shared[0], 'a');
    EXPECT_TRUE(UnmapViewOfFile(copy));
    EXPECT_TRUE(UnmapViewOfFile(shared));
    EXPECT_TRUE(CloseHandle(mapping));
}

TEST(FileMappingTest, IsOpenToOtherUsersWithANullList)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "only the superuser can act for others";
    }
    SECURITY_DESCRIPTOR everybody;
    ASSERT_TRUE(InitializeSecurityDescriptor(&everybody, SECURITY_DESCRIPTOR_REVISION));
    ASSERT_TRUE(SetSecurityDescriptorDacl(&everybody, true, nullptr, false));
    const SECURITY_ATTRIBUTES attributes{12, &everybody, false};
    const mode_t mask = umask(077);
    const HANDLE open =
        CreateFileMappingW(INVALID_HANDLE_VALUE, &attributes, PAGE_READWRITE, 0, 10, OwnName(u"all"));
    const HANDLE closed = Create(OwnName(u"own"), 10);
    umask(mask);
    const UnicodeString all = OwnName(u"all");
    const UnicodeString own = OwnName(u"own");
    SecondProcess other([&](int tell) {
        const bool dropped = setgid(65534) == 0 && setuid(65534) == 0;
        const HANDLE mapping = OpenFileMappingW(FILE_MAP_ALL_ACCESS, false, all);
        char* const view = dropped ? View(mapping) : nullptr;
        if (view == nullptr || OpenFileMappingW(FILE_MAP_READ, false, own) != nullptr ||
            GetLastError() != ERROR_ACCESS_DENIED) {
            return;
        }
        view[0] = 'x';
        SecondProcess::Tell(tell);
    });
    EXPECT_TRUE(other.Await());
    other.Kill();
    const char* const view = View(open);
    EXPECT_EQ(view[0], 'x');
    EXPECT_TRUE(UnmapViewOfFile(view));
    EXPECT_TRUE(CloseHandle(open));
    EXPECT_TRUE(CloseHandle(closed));
}

TEST(FileMappingTest, TellsThatThereIsNoRoom)
{
    SecondProcess other([](int tell) {
        if (unshare(CLONE_NEWNS) != 0 || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("none", "/dev/shm", "tmpfs", 0, "size=64k,mode=1777") != 0) {
            SecondProcess::Tell(tell); // the host doesn't allow the experiment
            return;
        }
        if (Create(u"large", 1'000'000) != nullptr || GetLastError() != ERROR_DISK_FULL) {
            return;
        }
        if (HANDLE small = Create(u"small", 10'000); small != nullptr && View(small) != nullptr) {
            SecondProcess::Tell(tell);
        }
    });
    EXPECT_TRUE(other.Await());
}

TEST(FileMappingTest, LeavesNothingBehind)
{
    const UnicodeString name = OwnName(u"many");
    const auto round = [&] {
        const HANDLE first = Create(name, 10);
        const HANDLE second = OpenFileMappingW(FILE_MAP_ALL_ACCESS, false, name);
        void* const view = View(second);
        return UnmapViewOfFile(view) && CloseHandle(second) && CloseHandle(first);
    };
    ASSERT_TRUE(round());
    const auto descriptors = Support::CountEntries("/proc/self/fd");
    const auto maps = CountMaps();
    for (int i = 0; i < 10'000; ++i) {
        ASSERT_TRUE(round());
    }
    EXPECT_EQ(Support::CountEntries("/proc/self/fd"), descriptors);
    EXPECT_LE(CountMaps(), maps + 8);
    EXPECT_EQ(Support::CountOwnNames(), 0);
}

TEST(FileMappingTest, DISABLED_MakesSomething)
{
    EXPECT_TRUE(CloseHandle(Create(OwnName(u"something"), 10)));
    Support::PrintResult("made");
}

TEST(FileMappingTest, FreesWhatACrashLeftWithTheNextProcess)
{
    const UnicodeString name = OwnName(u"left");
    SecondProcess holder([&](int tell) {
        Create(name, 10);
        SecondProcess::Tell(tell);
        pause();
    });
    ASSERT_TRUE(holder.Await());
    EXPECT_EQ(Support::RunChildTest("FileMappingTest.DISABLED_MakesSomething"), "made");
    EXPECT_EQ(Support::CountOwnNames(), 1) << "it is in use";
    holder.Kill();
    EXPECT_EQ(Support::RunChildTest("FileMappingTest.DISABLED_MakesSomething"), "made");
    EXPECT_EQ(Support::CountOwnNames(), 0);
}

TEST(FileMappingTest, OutlivesWritersThatAreKilledAtAnyMoment)
{
    const char* const kills = std::getenv("TRS8_BTL_KILLS");
    const UnicodeString name = OwnName(u"killed");
    for (int i = 0; i < (kills == nullptr ? 60 : std::atoi(kills)); ++i) {
        SecondProcess writer([&](int tell) {
            SecondProcess::Tell(tell);
            for (;;) {
                const HANDLE mapping = Create(name, 1000);
                char* const view = View(mapping);
                std::memset(view, 'x', 1000);
                UnmapViewOfFile(view);
                CloseHandle(mapping);
            }
        });
        ASSERT_TRUE(writer.Await());
        usleep(static_cast<useconds_t>(std::rand() % 2000));
        writer.Kill();
        const HANDLE mapping = Create(name, 500);
        ASSERT_NE(mapping, nullptr);
        ASSERT_EQ(GetLastError(), ERROR_SUCCESS) << "what the killed one left was trusted";
        const char* const view = View(mapping, FILE_MAP_READ, 500);
        ASSERT_NE(view, nullptr);
        ASSERT_TRUE(std::all_of(view, view + 500, [](char byte) { return byte == 0; }));
        ASSERT_TRUE(UnmapViewOfFile(view));
        ASSERT_TRUE(CloseHandle(mapping));
    }
    EXPECT_EQ(Support::CountOwnNames(), 0);
}

} // namespace
