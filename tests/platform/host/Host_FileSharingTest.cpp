// SPDX-License-Identifier: MIT
#include "platform/host/Host_FileSharing.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileSupport.h"
#include "platform/runtime/classes/Classes.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "support/ChildProgram.h"

#include <algorithm>
#include <csignal>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

using namespace Sysutils;
using System::NativeInt;
using System::UnicodeString;

namespace
{

using FileSharingTest = Support::FolderTest;

/// Runs `child` in a second process, ends it after `body`, and gives its result.
int InSecondProcess(const std::function<int()>& child)
{
    const pid_t process = fork();
    if (process == 0) {
        _exit(child());
    }
    int status = 0;
    waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int OpenError(const UnicodeString& name, unsigned mode)
{
    const NativeInt file = FileOpen(name, mode);
    if (file == -1) {
        return static_cast<int>(GetLastError());
    }
    FileClose(file);
    return 0;
}

// Each pair of modes clashes when one opener denies what the other wants, whichever of them came first, in
// one process and between two.
TEST_F(FileSharingTest, SharesAsTheModesTell)
{
    Write("f", "x");
    const UnicodeString name = Name(u"f");
    const auto wants = [](unsigned mode) { return (mode & 3) + 1; };
    const auto denies = [](unsigned mode) {
        switch (mode & 0xF0) {
        case fmShareDenyWrite:
            return 2U;
        case fmShareDenyRead:
            return 1U;
        case fmShareDenyNone:
            return 0U;
        default:
            return 3U;
        }
    };
    std::vector<unsigned> modes;
    for (const unsigned share : {0x00U, 0x10U, 0x20U, 0x30U, 0x40U}) {
        for (const unsigned access : {0U, 1U, 2U}) {
            modes.push_back(share | access);
        }
    }
    for (const unsigned first : modes) {
        const NativeInt holder = FileOpen(name, first);
        ASSERT_NE(holder, -1) << first;
        const auto meetsTheRule = [&](unsigned second) {
            const bool clash = (wants(second) & denies(first)) != 0 || (wants(first) & denies(second)) != 0;
            return OpenError(name, second) == (clash ? static_cast<int>(ERROR_SHARING_VIOLATION) : 0);
        };
        for (const unsigned second : modes) {
            EXPECT_TRUE(meetsTheRule(second)) << first << " then " << second;
        }
        const auto modesThatFit = [&] {
            return static_cast<int>(std::ranges::find_if_not(modes, meetsTheRule) - modes.begin());
        };
        EXPECT_EQ(InSecondProcess(modesThatFit), static_cast<int>(modes.size()))
            << first << " then in another process the one mode of this index";
        FileClose(holder);
    }
}

TEST_F(FileSharingTest, AForkedChildNeitherKeepsNorTakesAClaim)
{
    Write("f", "x");
    const NativeInt file = FileOpen(Name(u"f"), fmOpenReadWrite | fmShareExclusive);
    ASSERT_NE(file, -1);
    EXPECT_EQ(InSecondProcess([&] {
                  FileClose(file);
                  return 0;
              }),
              0);
    EXPECT_EQ(OpenError(Name(u"f"), fmOpenRead), 32) << "the child closed its own copy";

    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        close(ends[1]);
        char byte = 0;
        _exit(read(ends[0], &byte, 1) == 0 ? 0 : 1);
    }
    FileClose(file);
    EXPECT_EQ(OpenError(Name(u"f"), fmOpenReadWrite | fmShareExclusive), 0) << "the child is still there";
    close(ends[0]);
    close(ends[1]);
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
}

TEST_F(FileSharingTest, WriteOnlyOpenersShareWithEachOther)
{
    Write("f", "x");
    std::vector<NativeInt> files;
    for (int i = 0; i < 20; ++i) {
        files.push_back(FileOpen(Name(u"f"), fmOpenWrite | fmShareDenyNone));
        EXPECT_NE(files.back(), -1);
    }
    EXPECT_EQ(OpenError(Name(u"f"), fmOpenRead | fmShareDenyWrite), 32);
    std::for_each(files.begin(), files.end(), FileClose);
    EXPECT_EQ(OpenError(Name(u"f"), fmOpenRead | fmShareDenyWrite), 0);
}

TEST_F(FileSharingTest, ACreatedFileIsNotEmptiedUnderAnotherOpener)
{
    Write("f", "kept");
    const NativeInt reader = FileOpen(Name(u"f"), fmOpenRead | fmShareDenyWrite);
    EXPECT_EQ(FileCreate(Name(u"f")), -1);
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(Read("f"), "kept");
    FileClose(reader);

    const NativeInt log = FileCreate(Name(u"f"), 65312, 0);
    EXPECT_EQ(Read("f"), "");
    EXPECT_EQ(OpenError(Name(u"f"), fmOpenRead | fmShareDenyNone), 0);
    EXPECT_EQ(OpenError(Name(u"f"), fmOpenWrite | fmShareDenyNone), 32);
    FileClose(log);
    const NativeInt alone = FileCreate(Name(u"f"));
    EXPECT_EQ(OpenError(Name(u"f"), fmOpenRead | fmShareDenyNone), 32);
    FileClose(alone);
}

TEST_F(FileSharingTest, AKilledHolderFreesTheFile)
{
    Write("f", "x");
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t holder = fork();
    if (holder == 0) {
        const char opened = FileOpen(Name(u"f"), fmOpenReadWrite | fmShareExclusive) == -1 ? '0' : '1';
        if (write(ready[1], &opened, 1) == 1) {
            pause();
        }
        _exit(1);
    }
    char opened = 0;
    ASSERT_EQ(read(ready[0], &opened, 1), 1);
    EXPECT_EQ(opened, '1');
    EXPECT_EQ(OpenError(Name(u"f"), fmOpenRead | fmShareDenyNone), 32);
    kill(holder, SIGKILL);
    waitpid(holder, nullptr, 0);
    EXPECT_EQ(OpenError(Name(u"f"), fmOpenReadWrite | fmShareExclusive), 0);
    close(ready[0]);
    close(ready[1]);
}

TEST_F(FileSharingTest, OneOfRacingProcessesGetsTheFile)
{
    Write("f", "x");
    int start[2];
    int results[2];
    int release[2];
    ASSERT_EQ(pipe(start), 0);
    ASSERT_EQ(pipe(results), 0);
    ASSERT_EQ(pipe(release), 0);
    constexpr int Racers = 6;
    std::vector<pid_t> racers;
    for (int i = 0; i < Racers; ++i) {
        const pid_t racer = fork();
        if (racer == 0) {
            close(start[1]);
            close(release[1]);
            char ignored = 0;
            const ssize_t started = read(start[0], &ignored, 1);
            const char result = FileOpen(Name(u"f"), fmOpenReadWrite) == -1 ? '0' : '1';
            const bool told = write(results[1], &result, 1) == 1;
            _exit(started == 0 && told && read(release[0], &ignored, 1) == 0 ? 0 : 1);
        }
        racers.push_back(racer);
    }
    close(start[1]);
    std::string winners;
    for (int i = 0; i < Racers; ++i) {
        char result = 0;
        ASSERT_EQ(read(results[0], &result, 1), 1);
        winners += result;
    }
    close(release[1]);
    EXPECT_EQ(std::count(winners.begin(), winners.end(), '1'), 1) << winners;
    for (const pid_t racer : racers) {
        int status = 0;
        waitpid(racer, &status, 0);
        EXPECT_EQ(status, 0);
    }
    for (const int end : {start[0], results[0], results[1], release[0]}) {
        close(end);
    }
}

TEST(FileSharingChildTest, DISABLED_ChildThatOpens)
{
    const UnicodeString path = Support::PathOfChild();
    std::string told;
    for (const System::Word mode : {fmOpenRead, fmOpenWrite, fmOpenReadWrite}) {
        try {
            const Classes::TFileStream stream(path, static_cast<System::Word>(mode | fmShareDenyNone));
            told += "opened ";
        } catch (const Classes::EFOpenError&) {
            told += std::to_string(GetLastError()) + " ";
        }
    }
    Support::PrintResult(told);
}

TEST_F(FileSharingTest, ExclusiveFilesAreRefusedToAnotherProcess)
{
    Support::TellChildren(Host("data"));
    const UnicodeString path = Name(u"data");
    auto stream = std::make_unique<Classes::TFileStream>(path, fmCreate | fmShareExclusive);
    EXPECT_THROW(Classes::TFileStream(path, fmOpenRead | fmShareDenyNone), Classes::EFOpenError);
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    EXPECT_EQ(Support::RunChildTest("FileSharingChildTest.DISABLED_ChildThatOpens"), "32 32 32 ");
    stream.reset();
    EXPECT_EQ(Support::RunChildTest("FileSharingChildTest.DISABLED_ChildThatOpens"), "opened opened opened ");
}

} // namespace
