// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_File.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_Calendar.h"
#include "platform/base/dates/Sysutils_FileDate.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileInfo.h"
#include "platform/host/Host_FileMove.h"
#include "platform/host/Host_FileSupport.h"

#include <gtest/gtest.h>

#include <climits>
#include <ctime>
#include <filesystem>

#include <sys/stat.h>

using namespace Sysutils;
using System::NativeInt;
using System::UnicodeString;

namespace
{

using SysutilsFileTest = Support::FolderTest;

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

TEST_F(SysutilsFileTest, TellsTheTimeOfFiles)
{
    Write("f", "x");
    const UnicodeString name = Name(u"f");
    const System::TDateTime value = EncodeDate(2022, 7, 22) + EncodeTime(10, 5, 8, 0);
    ASSERT_EQ(FileSetDate(name, DateTimeToFileDate(value)), 0);
    System::TDateTime modified;
    ASSERT_TRUE(FileAge(name, modified));
    EXPECT_EQ(modified, value);
    EXPECT_FALSE(FileAge(name + u"x", modified));
    EXPECT_EQ(modified, value);
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
