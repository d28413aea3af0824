// SPDX-License-Identifier: MIT
#include "platform/host/objects/Host_Mutex.h"

#include "platform/host/Host_Error.h"
#include "platform/host/objects/Host_FileMapping.h"
#include "support/ObjectNames.h"
#include "support/ScopedVariable.h"
#include "support/SecondProcess.h"
#include "support/Session.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>

namespace
{

using Support::OwnName;
using Support::SecondProcess;
using System::UnicodeString;

TEST(HostMutexTest, IsOwnedByThreadsAndOftenByOne)
{
    const UnicodeString name = OwnName(u"owned");
    const HANDLE first = CreateMutexW(nullptr, true, name);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    const HANDLE second = CreateMutexW(nullptr, true, name);
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(WaitForSingleObject(second, 0), WAIT_OBJECT_0);
    std::thread([&] {
        EXPECT_EQ(WaitForSingleObject(first, 0), WAIT_TIMEOUT);
        EXPECT_EQ(WaitForSingleObject(second, 30), WAIT_TIMEOUT);
        EXPECT_FALSE(ReleaseMutex(first));
        EXPECT_EQ(GetLastError(), ERROR_NOT_OWNER);
    }).join();
    EXPECT_TRUE(ReleaseMutex(first));
    EXPECT_TRUE(ReleaseMutex(first));
    EXPECT_FALSE(ReleaseMutex(first));
    std::thread([&] {
        EXPECT_EQ(WaitForSingleObject(first, 0), WAIT_OBJECT_0);
        EXPECT_TRUE(ReleaseMutex(second));
    }).join();
    EXPECT_TRUE(CloseHandle(first));
    EXPECT_TRUE(CloseHandle(second));
    EXPECT_EQ(Support::CountOwnNames(), 0);
}

TEST(HostMutexTest, TellsThatAThreadLeftIt)
{
    for (const UnicodeString& name : {OwnName(u"thread"), UnicodeString()}) {
        const HANDLE mutex = CreateMutexW(nullptr, false, name);
        std::thread([mutex] { EXPECT_EQ(WaitForSingleObject(mutex, 0), WAIT_OBJECT_0); }).join();
        EXPECT_EQ(WaitForSingleObject(mutex, INFINITE), WAIT_ABANDONED);
        EXPECT_TRUE(ReleaseMutex(mutex));
        EXPECT_EQ(WaitForSingleObject(mutex, 0), WAIT_OBJECT_0);
        EXPECT_TRUE(CloseHandle(mutex));
    }
}

TEST(HostMutexTest, KeepsThreadsApart)
{
    const HANDLE mutex = CreateMutexW(nullptr, false, OwnName(u"apart"));
    int count = 0;
    {
        std::vector<std::jthread> threads;
        threads.reserve(4);
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&] {
                for (int turn = 0; turn < 500; ++turn) {
                    ASSERT_EQ(WaitForSingleObject(mutex, INFINITE), WAIT_OBJECT_0);
                    ++count;
                    ASSERT_TRUE(ReleaseMutex(mutex));
                }
            });
        }
    }
    EXPECT_EQ(count, 2000);
    EXPECT_TRUE(CloseHandle(mutex));
}

TEST(HostMutexTest, TakesAnyTextForAName)
{
    const UnicodeString longName = UnicodeString::StringOfChar(u'x', 1000);
    const UnicodeString names[] = {u".",
                                   u"..",
                                   u"../../tmp/x",
                                   u"a/b",
                                   u"a\\b",
                                   u"a b",
                                   u"Ärger",
                                   u"ärger",
                                   u"%0041",
                                   u"A",
                                   u"a",
                                   u"Global\\a",
                                   UnicodeString(u"\xD800"),
                                   UnicodeString(u"\xD801"),
                                   longName,
                                   longName + u'x',
                                   longName + u'y'};
    std::vector<HANDLE> handles;
    for (const UnicodeString& name : names) {
        handles.push_back(CreateMutexW(nullptr, false, name + OwnName(u"name")));
        EXPECT_NE(handles.back(), nullptr) << System::ToUtf8(name);
        EXPECT_EQ(GetLastError(), ERROR_SUCCESS) << System::ToUtf8(name);
    }
    for (const UnicodeString& name : names) {
        const HANDLE again = OpenMutexW(MUTEX_ALL_ACCESS, false, name + OwnName(u"name"));
        EXPECT_NE(again, nullptr) << System::ToUtf8(name);
        EXPECT_TRUE(CloseHandle(again));
    }
    for (const HANDLE handle : handles) {
        EXPECT_TRUE(CloseHandle(handle));
    }
    EXPECT_EQ(OpenMutexW(MUTEX_ALL_ACCESS, false, OwnName(u"missing")), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

TEST(HostMutexTest, RefusesTheNameOfAnotherKind)
{
    const UnicodeString name = OwnName(u"kind");
    const HANDLE mutex = CreateMutexW(nullptr, false, name);
    EXPECT_EQ(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, 10, name), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(OpenFileMappingW(FILE_MAP_READ, false, name), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_TRUE(CloseHandle(mutex));
}

TEST(HostMutexTest, FollowsNoLinkAndTakesNobodysFile)
{
    // The file that stands for the name, as the first holder shows it.
    const UnicodeString name = OwnName(u"planted");
    const std::string path = "/dev/shm/TRS8_BTL/n.test%002f" + std::to_string(getpid()) + "%002fplanted";
    EXPECT_TRUE(CloseHandle(CreateMutexW(nullptr, false, name)));
    const std::string victim = path + ".victim";
    const int file = open(victim.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
    ASSERT_EQ(write(file, "data", 4), 4);
    ASSERT_EQ(symlink(victim.c_str(), path.c_str()), 0);
    EXPECT_EQ(CreateMutexW(nullptr, false, name), nullptr);
    ASSERT_EQ(unlink(path.c_str()), 0);
    ASSERT_EQ(link(victim.c_str(), path.c_str()), 0);
    EXPECT_EQ(CreateMutexW(nullptr, false, name), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    ASSERT_EQ(unlink(path.c_str()), 0);
    struct stat status;
    ASSERT_EQ(fstat(file, &status), 0);
    EXPECT_EQ(status.st_size, 4);
    close(file);
    unlink(victim.c_str());
}

TEST(HostMutexTest, PassesFromAKilledProcessToWhoWaits)
{
    const UnicodeString name = OwnName(u"waiting");
    SecondProcess owner([&](int tell) {
        CreateMutexW(nullptr, true, name);
        SecondProcess::Tell(tell);
        pause();
    });
    ASSERT_TRUE(owner.Await());
    const HANDLE mutex = CreateMutexW(nullptr, true, name);
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(WaitForSingleObject(mutex, 10), WAIT_TIMEOUT);
    unsigned long result = WAIT_FAILED;
    {
        const std::jthread waiter([&] { result = WaitForSingleObject(mutex, INFINITE); });
        owner.Kill();
    }
    EXPECT_EQ(result, WAIT_ABANDONED);
    EXPECT_TRUE(CloseHandle(mutex));
    EXPECT_EQ(Support::CountOwnNames(), 0);
}

TEST(HostMutexTest, OfTheSessionIsApartFromThatOfTheMachine)
{
    const Support::Session session;
    const UnicodeString name = OwnName(u"session");
    const HANDLE machine = CreateMutexW(nullptr, true, name);
    EXPECT_EQ(Host::OpenSessionMutex(name), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    const HANDLE first = Host::CreateSessionMutex(name);
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    const HANDLE second = Host::CreateSessionMutex(name);
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    const HANDLE opened = Host::OpenSessionMutex(name);
    EXPECT_EQ(WaitForSingleObject(opened, 0), WAIT_OBJECT_0) << "that of the machine is owned, not this one";
    EXPECT_TRUE(ReleaseMutex(first));
    EXPECT_EQ(session.CountNames(), 1);
    for (const HANDLE handle : {machine, first, second, opened}) {
        EXPECT_TRUE(CloseHandle(handle));
    }
    EXPECT_EQ(session.CountNames(), 0);
    EXPECT_EQ(Support::CountOwnNames(), 0);
}

TEST(HostMutexTest, OfTheSessionMayHaveTheEmptyName)
{
    const Support::Session session;
    const HANDLE first = Host::CreateSessionMutex(u"");
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    const HANDLE second = Host::CreateSessionMutex(u"");
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    SecondProcess other([](int tell) {
        if (Host::OpenSessionMutex(u"") != nullptr) {
            SecondProcess::Tell(tell);
        }
    });
    EXPECT_TRUE(other.Await());
    for (const HANDLE handle : {first, second}) {
        EXPECT_TRUE(CloseHandle(handle));
    }
    EXPECT_EQ(Host::OpenSessionMutex(u""), nullptr);
}

TEST(HostMutexTest, OfTheSessionLeaveRoomForTheNext)
{
    const Support::Session session;
    for (const auto* const name : {u"first", u"second"}) {
        SecondProcess holder([&](int tell) {
            if (Host::CreateSessionMutex(name) != nullptr) {
                SecondProcess::Tell(tell);
                pause();
            }
        });
        EXPECT_TRUE(holder.Await());
        holder.Kill();
        EXPECT_EQ(session.CountNames(), 1) << "what a process left isn't there for ever";
    }
}

TEST(HostMutexTest, OfTheSessionNeedsNoRunTimeFolder)
{
    const Support::TempFolder open;
    std::filesystem::permissions(open.Path(), std::filesystem::perms::all);
    const std::string missing = (open.Path() / "missing").string();
    const UnicodeString name = OwnName(u"no folder");
    // None, one that isn't there, one that is no path of the root, one that others may write to.
    for (const char* const folder : {"", missing.c_str(), "run", open.Path().c_str()}) {
        SCOPED_TRACE(folder);
        const Support::ScopedVariable variable("XDG_RUNTIME_DIR", folder);
        const HANDLE mutex = Host::CreateSessionMutex(name);
        EXPECT_NE(mutex, nullptr);
        EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
        struct stat status;
        ASSERT_EQ(lstat(("/dev/shm/TRS8_BTL-" + std::to_string(geteuid())).c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, 0700U);
        EXPECT_TRUE(CloseHandle(mutex));
    }
    EXPECT_EQ(Support::CountEntries(open.Path()), 0);
}

/// How often a process is killed; all of the 500 by `TRS8_BTL_KILLS=500`.
int Kills()
{
    const char* const kills = std::getenv("TRS8_BTL_KILLS");
    return kills == nullptr ? 60 : std::atoi(kills);
}

TEST(HostMutexTest, OutlivesHoldersThatAreKilledAtAnyMoment)
{
    const UnicodeString name = OwnName(u"killed");
    for (int i = 0; i < Kills(); ++i) {
        SecondProcess holder([&](int tell) {
            SecondProcess::Tell(tell);
            for (;;) {
                const HANDLE mutex = CreateMutexW(nullptr, true, name);
                WaitForSingleObject(mutex, INFINITE);
                ReleaseMutex(mutex);
                CloseHandle(mutex);
            }
        });
        ASSERT_TRUE(holder.Await());
        usleep(static_cast<useconds_t>(std::rand() % 2000));
        holder.Kill();
        const HANDLE mutex = CreateMutexW(nullptr, false, name);
        ASSERT_NE(mutex, nullptr);
        ASSERT_EQ(GetLastError(), ERROR_SUCCESS) << "what the killed one left was trusted";
        ASSERT_EQ(WaitForSingleObject(mutex, 1000), WAIT_OBJECT_0);
        ASSERT_TRUE(ReleaseMutex(mutex));
        ASSERT_TRUE(CloseHandle(mutex));
    }
    EXPECT_EQ(Support::CountOwnNames(), 0);
}

} // namespace
