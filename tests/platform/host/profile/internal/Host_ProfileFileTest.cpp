// SPDX-License-Identifier: MIT
#include "platform/host/profile/internal/Host_ProfileFile.h"

#include "../../Host_FileSupport.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_OpenFile.h"
#include "platform/host/profile/Host_Profile.h"
#include "support/FailingCall.h"
#include "support/FileSizeLimit.h"
#include "support/SecondProcess.h"

#include <cerrno>
#include <cstdlib>
#include <set>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>

namespace
{

using Support::ExitOfFork;
using Support::SecondProcess;
using System::UnicodeString;

class ProfileFileTest : public Support::FolderTest
{
protected:
    UnicodeString mFile = Name(u"a.ini");

    std::set<std::string> Entries() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(Host(""))) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }
};

/// 0, or the error.
int ErrorOfWrite(const UnicodeString& file, const UnicodeString& key, const UnicodeString& value)
{
    SetLastError(0);
    if (Host::WriteProfileValue(file, u"s", key, value)) {
        return 0;
    }
    return GetLastError() == 0 ? 254 : static_cast<int>(std::min(GetLastError(), 253UL));
}

/// How often a process is killed, and how much it writes; all by `TRS8_BTL_KILLS=1000`.
int Kills()
{
    const char* const kills = std::getenv("TRS8_BTL_KILLS");
    return kills == nullptr ? 20 : std::atoi(kills);
}

TEST_F(ProfileFileTest, ALostCallOfTheHostLosesNothing)
{
    if (!Support::CanFailCalls) {
        GTEST_SKIP() << "The calls of this processor can't be failed.";
    }
    const std::string old = "[s]\nk=1\n";
    // What a sanitizer asks the host for at the first time.
    ASSERT_EQ(ErrorOfWrite(Name(u"b.ini"), u"k", u"1"), 0);
    ASSERT_EQ(ErrorOfWrite(mFile, u"k", u"\n"), static_cast<int>(ERROR_INVALID_PARAMETER));
    for (const bool exists : {true, false}) {
        for (const int error : exists ? std::vector{EIO, ENOSPC, EACCES, EMFILE} : std::vector{EIO}) {
            for (int number = 0;; ++number) {
                for (const std::string& name : Entries()) {
                    std::filesystem::remove(Host(name));
                }
                if (exists) {
                    Write("a.ini", old);
                }
                const auto run = Support::RunWithFailingCall(number, error,
                                                             [&] { return ErrorOfWrite(mFile, u"k", u"2"); });
                if (!run.isReached) {
                    EXPECT_EQ(run.exit, 0);
                    EXPECT_GT(number, 12);
                    break;
                }
                SCOPED_TRACE(testing::Message() << "call " << run.call << ", the " << number << "th, error "
                                                << error << ", result " << run.exit);
                EXPECT_TRUE(run.exit >= 0 && run.exit != 254);
                std::set<std::string> entries = Entries();
                if (entries.erase("a.ini.unreadable1") == 1) {
                    EXPECT_EQ(Read("a.ini.unreadable1"), old);
                    EXPECT_EQ(Read("a.ini"), "[s]\r\nk=2\r\n");
                } else if (run.exit == 0) {
                    EXPECT_EQ(Read("a.ini"), exists ? "[s]\nk=2\n" : "[s]\r\nk=2\r\n");
                } else if (entries.contains("a.ini")) {
                    EXPECT_TRUE(Read("a.ini") == (exists ? old : "[s]\r\nk=2\r\n") ||
                                Read("a.ini") == "[s]\nk=2\n")
                        << Read("a.ini");
                }
                entries.erase("a.ini");
                EXPECT_TRUE(entries.empty()) << *entries.begin();
                // Nothing stops the next writer.
                EXPECT_EQ(ErrorOfWrite(mFile, u"k", u"3"), 0);
                EXPECT_EQ(Host::ReadProfileValue(mFile, u"s", u"k"), UnicodeString(u"3"));
            }
        }
    }
}

TEST_F(ProfileFileTest, HoldsEachReturnedWriteOfAKilledProcess)
{
    for (int i = 0; i < Kills(); ++i) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        SecondProcess writer([&](int tell) {
            SecondProcess::Tell(tell);
            for (int number = 0;; ++number) {
                if (ErrorOfWrite(mFile, UnicodeString(i) + u'_' + UnicodeString(number),
                                 UnicodeString(number)) != 0 ||
                    write(ends[1], &number, sizeof number) != sizeof number) {
                    _exit(1);
                }
            }
        });
        ASSERT_TRUE(writer.Await());
        usleep(static_cast<useconds_t>(std::rand() % 20'000));
        writer.Kill();
        close(ends[1]);
        int written = 0;
        for (int number = 0; read(ends[0], &number, sizeof number) == sizeof number;) {
            ASSERT_EQ(Host::ReadProfileValue(mFile, u"s", UnicodeString(i) + u'_' + UnicodeString(number)),
                      UnicodeString(number));
            ++written;
        }
        close(ends[0]);
        // At most the one that was under way comes on top.
        const auto keys = Host::ListProfileKeys(mFile, u"s");
        EXPECT_LE(static_cast<int>(keys.size()), written + 1);
        ASSERT_EQ(ErrorOfWrite(mFile, u"alive", UnicodeString(i)), 0);
        EXPECT_EQ(Entries(), std::set<std::string>{"a.ini"});
        ASSERT_TRUE(WritePrivateProfileStringW(u"s", nullptr, nullptr, mFile.c_str()));
        if (i % 2 == 0) {
            std::filesystem::remove(Host("a.ini"));
        }
    }
}

TEST_F(ProfileFileTest, TwoWritersLoseNothing)
{
    // All of the 10,000 by `TRS8_BTL_KILLS=1000`.
    const int count = Kills() * 10;
    const auto writeAll = [&](const UnicodeString& who) {
        for (int i = 0; i < count; ++i) {
            if (const int error = ErrorOfWrite(mFile, who + UnicodeString(i), UnicodeString(i)); error != 0) {
                return error;
            }
        }
        return 0;
    };
    const pid_t other = Support::Fork([&] { return writeAll(u"a"); });
    EXPECT_EQ(ExitOfFork([&] { return writeAll(u"b"); }), 0);
    EXPECT_EQ(Support::ExitOf(other), 0);
    EXPECT_EQ(Host::ListProfileKeys(mFile, u"s").size(), static_cast<std::size_t>(2 * count));
    for (int i = 0; i < count; ++i) {
        ASSERT_EQ(Host::ReadProfileValue(mFile, u"s", u"a" + UnicodeString(i)), UnicodeString(i));
        ASSERT_EQ(Host::ReadProfileValue(mFile, u"s", u"b" + UnicodeString(i)), UnicodeString(i));
    }
    EXPECT_EQ(Entries(), std::set<std::string>{"a.ini"});
}

TEST_F(ProfileFileTest, ThreadsWriteAndReadOneFile)
{
    constexpr int count = 50;
    const auto work = [&](const UnicodeString& who) {
        for (int i = 0; i < count; ++i) {
            EXPECT_EQ(ErrorOfWrite(mFile, who + UnicodeString(i), UnicodeString(i)), 0);
            EXPECT_EQ(Host::ReadProfileValue(mFile, u"s", who + UnicodeString(i)), UnicodeString(i));
        }
    };
    {
        const std::jthread a([&] { work(u"a"); });
        const std::jthread b([&] { work(u"b"); });
        const std::jthread bundled([&] {
            Host::ProfileBundle bundle(mFile);
            work(u"c");
            EXPECT_TRUE(bundle.End());
        });
    }
    EXPECT_EQ(Host::ListProfileKeys(mFile, u"s").size(), 3U * count);
}

TEST_F(ProfileFileTest, ThreadsReadSeveralFilesOften)
{
    for (const char16_t* const name : {u"a.ini", u"b.ini"}) {
        ASSERT_TRUE(Host::WriteProfileValue(Name(name), u"s", u"k", u"1"));
        ASSERT_TRUE(Host::WriteProfileValue(Name(name), u"s", u"l", u"2"));
    }
    const auto read = [&](const UnicodeString& file) {
        for (int i = 0; i < 2000; ++i) {
            EXPECT_GE(Host::ReadProfileNumber(file, u"s", u"k", 0), 1);
            EXPECT_EQ(Host::ReadProfileNumber(file, u"s", u"l", 0), 2);
        }
    };
    const std::jthread a([&] { read(mFile); });
    const std::jthread again([&] { read(mFile); });
    const std::jthread b([&] { read(Name(u"b.ini")); });
    for (int i = 2; i < 20; ++i) {
        EXPECT_EQ(ErrorOfWrite(mFile, u"k", UnicodeString(i)), 0);
        EXPECT_EQ(Host::ReadProfileNumber(mFile, u"s", u"k", 0), i);
    }
}

TEST_F(ProfileFileTest, WaitsForALockAsLongAsItIsWorth)
{
    Write("a.ini", "[s]\nk=1\n");
    SecondProcess owner([&](int tell) {
        const int file = open(Host("a.ini").c_str(), O_RDONLY);
        flock(file, LOCK_EX);
        SecondProcess::Tell(tell);
        pause();
    });
    ASSERT_TRUE(owner.Await());
    EXPECT_EQ(ErrorOfWrite(mFile, u"k", u"2"), static_cast<int>(ERROR_LOCK_VIOLATION));
    EXPECT_EQ(Host::ReadProfileValue(mFile, u"s", u"k"), UnicodeString(u"1"));
    owner.Kill();
    EXPECT_EQ(ErrorOfWrite(mFile, u"k", u"2"), 0);
}

TEST_F(ProfileFileTest, TakesTheLeftoversOfADeadWriterAway)
{
    Write("a.ini", "[s]\nk=1\n");
    Write(".a.ini.profile-new", "half");
    EXPECT_EQ(ErrorOfWrite(mFile, u"k", u"2"), 0);
    EXPECT_EQ(Entries(), std::set<std::string>{"a.ini"});
    EXPECT_EQ(Read("a.ini"), "[s]\nk=2\n");
    const std::string longest(255, 'x');
    EXPECT_EQ(ErrorOfWrite(Name(System::FromUtf8(longest)), u"k", u"2"), 0);
    EXPECT_EQ(Read(longest), "[s]\r\nk=2\r\n");
}

TEST_F(ProfileFileTest, RespectsWhoReservedTheFile)
{
    Write("a.ini", "[s]\nk=1\n");
    const auto handle = Host::OpenFile(mFile, Host::ReadAccess | Host::WriteAccess, Host::ReadAccess,
                                       Host::Disposition::Open);
    EXPECT_EQ(ErrorOfWrite(mFile, u"k", u"2"), static_cast<int>(ERROR_SHARING_VIOLATION));
    Host::CloseFile(handle);
    EXPECT_EQ(ErrorOfWrite(mFile, u"k", u"2"), 0);
}

TEST_F(ProfileFileTest, AFullDiskKeepsTheOldContent)
{
    Write("a.ini", "[s]\nk=1\n");
    EXPECT_EQ(ExitOfFork([&] {
                  Support::LimitFileSize(100);
                  return ErrorOfWrite(mFile, u"k", UnicodeString::StringOfChar(u'x', 200));
              }),
              static_cast<int>(ERROR_FILE_TOO_LARGE));
    EXPECT_EQ(Read("a.ini"), "[s]\nk=1\n");
    EXPECT_EQ(Entries(), std::set<std::string>{"a.ini"});

    std::filesystem::create_directory(Host("disk"));
    if (mount("tmpfs", Host("disk").c_str(), "tmpfs", 0, "size=80k") != 0) {
        GTEST_SKIP() << "Only the host's administrator may mount a disk.";
    }
    const UnicodeString file = Name(u"disk\\a.ini");
    EXPECT_EQ(ErrorOfWrite(file, u"k", u"1"), 0);
    EXPECT_EQ(ErrorOfWrite(file, u"l", UnicodeString::StringOfChar(u'x', 100'000)),
              static_cast<int>(ERROR_DISK_FULL));
    EXPECT_EQ(Read("disk/a.ini"), "[s]\r\nk=1\r\n");
    EXPECT_EQ(Host::ReadProfileValue(file, u"s", u"l"), std::nullopt);
    EXPECT_EQ(ErrorOfWrite(file, u"l", u"2"), 0);
    EXPECT_EQ(Read("disk/a.ini"), "[s]\r\nk=1\r\nl=2\r\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Host("disk")), {}), 1);
    umount(Host("disk").c_str());
}

/// As a plain user, whom rights stop.
template <class Body>
int ExitOfUser(Body body)
{
    return ExitOfFork(
        [&] { return geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0) ? 255 : body(); });
}

TEST_F(ProfileFileTest, RightsAreNoWayToLoseAFile)
{
    chmod(Host("").c_str(), 0777);
    Write("foreign.ini", "[s]\nk=1\n");
    chmod(Host("foreign.ini").c_str(), 0666);
    const bool isRoot = geteuid() == 0;
    if (isRoot) {
        // It can be written to, but not given a new content that belongs to the same owner.
        EXPECT_EQ(ExitOfUser([&] { return ErrorOfWrite(Name(u"foreign.ini"), u"k", u"2"); }),
                  static_cast<int>(ERROR_ACCESS_DENIED));
        EXPECT_EQ(Read("foreign.ini"), "[s]\nk=1\n");
    }
    EXPECT_EQ(ExitOfUser([&] { return ErrorOfWrite(mFile, u"k", u"1"); }), 0);
    chmod(Host("a.ini").c_str(), 0200);
    EXPECT_EQ(ExitOfUser([&] {
                  return Host::ReadProfileValue(mFile, u"s", u"k") ? 1 : ErrorOfWrite(mFile, u"l", u"2");
              }),
              0);
    EXPECT_EQ(Read("a.ini.unreadable1"), "[s]\r\nk=1\r\n");
    EXPECT_EQ(ExitOfUser([&] { return chmod(Host("a.ini").c_str(), 0600); }), 0);
    EXPECT_EQ(Read("a.ini"), "[s]\r\nl=2\r\n");
    EXPECT_EQ(Entries(), (std::set<std::string>{"a.ini", "a.ini.unreadable1", "foreign.ini"}));

    chmod(Host("").c_str(), 0555);
    EXPECT_EQ(ExitOfUser([&] { return ErrorOfWrite(mFile, u"k", u"1"); }),
              static_cast<int>(ERROR_ACCESS_DENIED));
    EXPECT_EQ(ExitOfUser([&] { return ErrorOfWrite(Name(u"new.ini"), u"k", u"1"); }),
              static_cast<int>(ERROR_ACCESS_DENIED));
    chmod(Host("").c_str(), 0777);
    EXPECT_EQ(Read("a.ini"), "[s]\r\nl=2\r\n");
    EXPECT_EQ(Entries().size(), 3U);
}

} // namespace
