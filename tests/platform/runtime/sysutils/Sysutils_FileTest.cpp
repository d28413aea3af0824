// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_File.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileInfo.h"
#include "platform/host/Host_FileMove.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <climits>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Sysutils;
using System::NativeInt;
using System::UnicodeString;

namespace
{

class SysutilsFileTest : public testing::Test
{
protected:
    UnicodeString Name(const UnicodeString& name) const
    {
        return FromHostPath(mFolder.Path().string()) + u"\\" + name;
    }
    std::filesystem::path Host(const std::string& name) const { return mFolder.Path() / name; }

    void Write(const std::string& name, const std::string& text) const
    {
        std::ofstream(Host(name), std::ios::binary) << text;
    }
    std::string Read(const std::string& name) const
    {
        std::ifstream file(Host(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::vector<UnicodeString> Find(const UnicodeString& mask, int attributes) const
    {
        std::vector<UnicodeString> names;
        TSearchRec found;
        for (int error = FindFirst(Name(mask), attributes, found); error == 0; error = FindNext(found)) {
            names.push_back(found.Name);
        }
        FindClose(found);
        return names;
    }

private:
    Support::TempFolder mFolder;
};

using Names = std::vector<UnicodeString>;

TEST_F(SysutilsFileTest, ReadsAndWritesOpenFiles)
{
    const NativeInt file = FileCreate(Name(u"f"));
    ASSERT_GT(file, 2);
    EXPECT_EQ(FileWrite(file, "hello", 5), 5);
    EXPECT_EQ(FileSeek(file, 1, 0), 1);
    char buffer[10] = {};
    EXPECT_EQ(FileRead(file, buffer, 10), 4);
    EXPECT_STREQ(buffer, "ello");
    EXPECT_EQ(FileRead(file, buffer, 10), 0);
    EXPECT_EQ(FileSeek(file, System::Int64{1} << 40, 0), System::Int64{1} << 40);
    EXPECT_EQ(FileSeek(file, 0, 1), -1);
    EXPECT_EQ(FileSeek(file, 0L, 1), System::Int64{1} << 40);
    EXPECT_EQ(FileSeek(file, -1, 0), -1);
    EXPECT_EQ(GetLastError(), ERROR_NEGATIVE_SEEK);
    EXPECT_EQ(FileRead(file, nullptr, 1), -1);
    EXPECT_EQ(FileWrite(file, buffer, UINT_MAX), -1);
    FileClose(file);
    EXPECT_EQ(Read("f"), "hello");
    for (const NativeInt bad : {NativeInt{-1}, NativeInt{0}, NativeInt{1} << 40, file}) {
        SetLastError(0);
        EXPECT_EQ(FileWrite(bad, "x", 1), -1);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    }
    FileClose(-1);
}

TEST_F(SysutilsFileTest, TellsWhyAFileDoesNotOpen)
{
    Write("readonly", "x");
    ASSERT_TRUE(FileSetReadOnly(Name(u"readonly"), true));
    const struct
    {
        UnicodeString name;
        unsigned mode;
        unsigned long error;
    } cases[] = {{Name(u"gone"), fmOpenRead, ERROR_FILE_NOT_FOUND},
                 {Name(u"gone\\f"), fmOpenRead, ERROR_PATH_NOT_FOUND},
                 {Name(u""), fmOpenRead, ERROR_ACCESS_DENIED},
                 {Name(u"readonly"), fmOpenReadWrite, ERROR_ACCESS_DENIED},
                 {Name(u"readonly"), 3, ERROR_INVALID_PARAMETER},
                 {Name(u"readonly"), 0x50, ERROR_INVALID_PARAMETER},
                 {Name(UnicodeString(u"readonly\0x", 10)), fmOpenRead, ERROR_INVALID_NAME},
                 {UnicodeString(), fmOpenRead, ERROR_PATH_NOT_FOUND}};
    for (const auto& test : cases) {
        SetLastError(0);
        EXPECT_EQ(FileOpen(test.name, test.mode), -1) << test.name;
        EXPECT_EQ(GetLastError(), test.error) << test.name;
    }
    EXPECT_EQ(FileCreate(Name(u"readonly")), -1);
    EXPECT_EQ(Read("readonly"), "x");
    const NativeInt file = FileOpen(Name(u"readonly"), fmOpenRead);
    EXPECT_NE(file, -1);
    FileClose(file);
}

TEST_F(SysutilsFileTest, DoesNotWaitForTheOtherEndOfAPipe)
{
    ASSERT_EQ(mkfifo(Host("pipe").c_str(), 0600), 0);
    const NativeInt pipe = FileOpen(Name(u"pipe"), fmOpenRead | fmShareDenyNone);
    EXPECT_NE(pipe, -1);
    FileClose(pipe);
    EXPECT_FALSE(CopyFileW(Name(u"pipe"), Name(u"copy"), true));
    EXPECT_FALSE(FileExists(Name(u"copy")));
}

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
TEST_F(SysutilsFileTest, SharesAsTheModesTell)
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
        for (const unsigned second : modes) {
            const bool clash = (wants(second) & denies(first)) != 0 || (wants(first) & denies(second)) != 0;
            const int expected = clash ? static_cast<int>(ERROR_SHARING_VIOLATION) : 0;
            EXPECT_EQ(OpenError(name, second), expected) << first << " then " << second;
            EXPECT_EQ(InSecondProcess([&] { return OpenError(name, second); }), expected)
                << first << " then in another process " << second;
        }
        FileClose(holder);
    }
}

TEST_F(SysutilsFileTest, WriteOnlyOpenersShareWithEachOther)
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

TEST_F(SysutilsFileTest, ACreatedFileIsNotEmptiedUnderAnotherOpener)
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

TEST_F(SysutilsFileTest, AKilledHolderFreesTheFile)
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

TEST_F(SysutilsFileTest, OneOfRacingProcessesGetsTheFile)
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

TEST_F(SysutilsFileTest, AttributesAreThoseOfTheHost)
{
    Write("f", "x");
    Write(".dot", "x");
    std::filesystem::create_directory(Host("d"));
    std::filesystem::create_directory_symlink(Host("d"), Host("link"));
    std::filesystem::create_symlink("nowhere", Host("broken"));
    chmod(Host("f").c_str(), 0664);
    EXPECT_EQ(FileGetAttr(Name(u"f")), faNormal);
    EXPECT_EQ(FileGetAttr(Name(u".dot")), faHidden);
    EXPECT_EQ(FileGetAttr(Name(u"d\\")), faDirectory);
    EXPECT_EQ(FileGetAttr(Name(u"link")), faDirectory | faSymLink);
    EXPECT_EQ(FileGetAttr(Name(u"broken")) & ~faReadOnly, faSymLink);
    EXPECT_EQ(FileGetAttr(Name(u"gone")), -1);
    EXPECT_TRUE(FileExists(Name(u"f")));
    EXPECT_FALSE(FileExists(Name(u"d")));
    EXPECT_FALSE(FileExists(Name(u"broken")));
    EXPECT_TRUE(DirectoryExists(Name(u"link")));

    EXPECT_EQ(FileSetAttr(Name(u"f"), faReadOnly | faArchive), 0);
    EXPECT_TRUE(FileIsReadOnly(Name(u"f")));
    EXPECT_FALSE(DeleteFile(Name(u"f")));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(FileSetReadOnly(Name(u"f"), false));
    struct stat status;
    ASSERT_EQ(stat(Host("f").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0664U);
    EXPECT_TRUE(DeleteFile(Name(u"f")));
    EXPECT_EQ(FileSetAttr(Name(u"f"), 0), 2);
    EXPECT_FALSE(FileIsReadOnly(Name(u"f")));
}

TEST_F(SysutilsFileTest, PacksFileDates)
{
    Write("f", "x");
    const int date = (2024 - 1980) << 25 | 2 << 21 | 29 << 16 | 13 << 11 | 45 << 5 | 20;
    EXPECT_EQ(FileSetDate(Name(u"f"), date), 0);
    EXPECT_EQ(FileAge(Name(u"f")), date);
    System::Int64 seconds = 0;
    ASSERT_TRUE(FileModified(Name(u"f"), seconds));
    const auto time = static_cast<time_t>(seconds);
    EXPECT_EQ(std::localtime(&time)->tm_mday, 29);
    EXPECT_EQ(std::localtime(&time)->tm_sec, 40);
    const int noDate = (2023 - 1980) << 25 | 2 << 21 | 29 << 16;
    EXPECT_EQ(FileSetDate(Name(u"f"), noDate), 87);
    EXPECT_EQ(FileSetDate(Name(u"f"), -1), 87);
    EXPECT_EQ(FileSetDate(Name(u"f"), 0), 87);
    EXPECT_EQ(FileAge(Name(u"f")), date);
    EXPECT_EQ(FileAge(Name(u"gone")), -1);
    EXPECT_FALSE(FileModified(Name(u"gone"), seconds));
    // Older than the packed form reaches.
    ASSERT_TRUE(Host::SetModified(Name(u"f"), 0));
    EXPECT_EQ(FileAge(Name(u"f")), 1 << 21 | 1 << 16);
}

TEST_F(SysutilsFileTest, MovesAndRemovesWithoutLoss)
{
    Write("a", "a");
    Write("b", "b");
    EXPECT_FALSE(RenameFile(Name(u"a"), Name(u"b")));
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(Read("b"), "b");
    EXPECT_TRUE(RenameFile(Name(u"a"), Name(u"a")));
    EXPECT_FALSE(CopyFileW(Name(u"a"), Name(u"b"), true));
    EXPECT_EQ(GetLastError(), ERROR_FILE_EXISTS);
    EXPECT_FALSE(CopyFileW(Name(u"a"), Name(u"a"), false));
    std::filesystem::create_hard_link(Host("a"), Host("a2"));
    EXPECT_FALSE(CopyFileW(Name(u"a"), Name(u"a2"), false));
    EXPECT_EQ(Read("a"), "a");
    EXPECT_TRUE(CopyFileW(Name(u"a"), Name(u"b"), false));
    EXPECT_EQ(Read("b"), "a");
    EXPECT_TRUE(MoveFileExW(Name(u"b"), Name(u"a"), MOVEFILE_REPLACE_EXISTING));
    EXPECT_FALSE(FileExists(Name(u"b")));
    EXPECT_FALSE(RenameFile(Name(u"b"), Name(u"c")));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(RenameFile(Name(u"a"), Name(u"gone\\c")));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);

    std::filesystem::create_directory(Host("d"));
    Write("d/f", "x");
    std::filesystem::create_directory_symlink(Host("d"), Host("link"));
    EXPECT_FALSE(RemoveDir(Name(u"d")));
    EXPECT_EQ(GetLastError(), ERROR_DIR_NOT_EMPTY);
    EXPECT_TRUE(RemoveDir(Name(u"link")));
    EXPECT_EQ(Read("d/f"), "x");
    EXPECT_FALSE(RemoveDir(Name(u"a")));
    EXPECT_EQ(GetLastError(), ERROR_DIRECTORY);
    EXPECT_FALSE(DeleteFile(Name(u"d")));
}

TEST_F(SysutilsFileTest, ForcesAllLevels)
{
    EXPECT_TRUE(ForceDirectories(Name(u"1\\2/3\\\\4\\")));
    EXPECT_TRUE(ForceDirectories(Name(u"1\\2")));
    EXPECT_TRUE(DirectoryExists(Name(u"1\\2\\3\\4")));
    EXPECT_FALSE(CreateDir(Name(u"1")));
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_FALSE(CreateDir(Name(u"x\\y")));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    Write("file", "");
    EXPECT_FALSE(ForceDirectories(Name(u"file\\x")));
    EXPECT_FALSE(ForceDirectories(Name(u"file")));
    EXPECT_FALSE(ForceDirectories(Name(UnicodeString(u"a\0b", 3))));
    EXPECT_FALSE(DirectoryExists(Name(u"a")));
    EXPECT_THROW(ForceDirectories(UnicodeString()), EInOutError);
}

TEST_F(SysutilsFileTest, FindsByMaskAndAttributes)
{
    for (const char* name : {"a.txt", "b.TXT", "c", ".h.txt", "d.txt.bak"}) {
        Write(name, "123");
    }
    std::filesystem::create_directory(Host("e.txt"));
    EXPECT_EQ(Find(u"*.*", faAnyFile),
              (Names{u".", u"..", u".h.txt", u"a.txt", u"b.TXT", u"c", u"d.txt.bak", u"e.txt"}));
    EXPECT_EQ(Find(u"*.txt", 0), (Names{u"a.txt"}));
    EXPECT_EQ(Find(u"*.txt", faDirectory), (Names{u"a.txt", u"e.txt"}));
    EXPECT_EQ(Find(u"*", 4), (Names{u"a.txt", u"b.TXT", u"c", u"d.txt.bak"}));
    EXPECT_EQ(Find(u"?.t*t*", faHidden), (Names{u"a.txt", u"d.txt.bak"}));
    EXPECT_EQ(Find(u"c.*", 0), (Names{u"c"}));
    EXPECT_EQ(Find(u"a.txt", 0), (Names{u"a.txt"}));
    EXPECT_EQ(Find(u"A.txt", 0), Names{});

    TSearchRec found;
    EXPECT_EQ(FindFirst(Name(u"a.txt"), faAnyFile, found), 0);
    EXPECT_EQ(found.Size, 3);
    EXPECT_EQ(found.Attr, faNormal);
    EXPECT_EQ(found.Time, FileAge(Name(u"a.txt")));
    EXPECT_EQ(FindNext(found), 18);
    FindClose(found);
    EXPECT_EQ(FindNext(found), 6);
    EXPECT_EQ(FindFirst(Name(u"e.txt"), 0, found), 18);
    EXPECT_EQ(FindFirst(Name(u"x*"), faAnyFile, found), 2);
    EXPECT_EQ(FindFirst(Name(u"gone\\*"), faAnyFile, found), 3);
    EXPECT_EQ(FindFirst(Name(u""), faAnyFile, found), 2);
}

TEST_F(SysutilsFileTest, ATreeGoesWhileItIsSearched)
{
    for (int i = 0; i < 300; ++i) {
        Write("f" + std::to_string(i), "");
    }
    TSearchRec found;
    int deleted = 0;
    for (int error = FindFirst(Name(u"*"), 0, found); error == 0; error = FindNext(found)) {
        deleted += DeleteFile(Name(found.Name)) ? 1 : 0;
    }
    EXPECT_EQ(deleted, 300);
}

TEST_F(SysutilsFileTest, ReachesFilesWithStrangeNames)
{
    for (const char* name : {"b\xFF.txt", "b\\c", "C:d"}) {
        Write(name, "x");
    }
    const Names names = Find(u"*", 0);
    ASSERT_EQ(names.size(), 3U);
    for (const UnicodeString& name : names) {
        EXPECT_EQ(ExtractFileName(Name(name)), name);
        EXPECT_TRUE(DeleteFile(Name(name)));
    }
    EXPECT_EQ(Find(u"*", 0), Names{});
}

TEST(SysutilsErrorTest, RaisesTheLastError)
{
    SetLastError(ERROR_FILE_NOT_FOUND);
    try {
        RaiseLastOSError();
        FAIL();
    } catch (const EOSError& error) {
        EXPECT_EQ(error.ErrorCode, 2U);
        EXPECT_EQ(error.getMessage(), u"System Error.  Code: 2.\r\n" + SysErrorMessage(2));
    }
    EXPECT_THROW(RaiseLastOSError(0), EOSError);
    EXPECT_EQ(SysErrorMessage(60000), UnicodeString());
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

} // namespace
