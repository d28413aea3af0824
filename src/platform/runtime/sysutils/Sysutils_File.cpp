// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_File.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_FileDate.h"
#include "platform/base/dates/internal/Sysutils_DateParts.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileInfo.h"
#include "platform/host/Host_FileMove.h"
#include "platform/host/Host_Folder.h"
#include "platform/host/Host_OpenFile.h"
#include "platform/runtime/sysutils/internal/Sysutils_FileParts.h"

#include <algorithm>
#include <climits>
#include <limits>
#include <optional>

using System::Int64;
using System::NativeInt;
using System::TDateTime;
using System::UnicodeString;

namespace Sysutils
{

namespace
{

using View = std::u16string_view;

// Files

/// The share bits of a mode word for `Host::OpenFile`; -1 for no share mode.
int ShareOf(unsigned mode)
{
    switch (mode & 0xF0) {
    case fmShareCompat:
    case fmShareExclusive:
        return 0;
    case fmShareDenyWrite:
        return Host::ReadAccess;
    case fmShareDenyRead:
        return Host::WriteAccess;
    case fmShareDenyNone:
        return Host::ReadAccess | Host::WriteAccess;
    default:
        return -1;
    }
}

NativeInt Refuse(unsigned long error)
{
    SetLastError(error);
    return INVALID_HANDLE_VALUE;
}

int ErrorOf(bool done)
{
    return done ? 0 : static_cast<int>(GetLastError());
}

bool IsCountValid(unsigned count)
{
    return count <= static_cast<unsigned>(INT_MAX) || Host::Fail(ERROR_INVALID_PARAMETER);
}

// Dates

/// What the clock can't show any more lies beyond all years, what it can't show yet before them.
TDateTime LocalTime(Int64 seconds)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    return Detail::LocalTimeOf(seconds).value_or(seconds < 0 ? -infinity : infinity);
}

template <class File>
int SetDate(const File& file, int age)
{
    const auto date = Detail::UnpackFileDate(age);
    if (!date) {
        return static_cast<int>(ERROR_INVALID_PARAMETER);
    }
    return ErrorOf(Host::SetModified(file, Detail::SecondsOfLocalTime(*date)));
}

// Drives

std::optional<Host::DiskSpace> QueryDrive(System::Byte drive)
{
    if (drive == 0) {
        return Host::QueryDisk(u".");
    }
    const std::string root = drive <= 26 ? GetDrive(static_cast<char16_t>(u'A' + drive - 1)) : std::string();
    if (root.empty()) {
        SetLastError(ERROR_INVALID_DRIVE);
        return std::nullopt;
    }
    return Host::QueryDisk(FromHostPath(root));
}

} // namespace

int Detail::FileDateOf(Int64 seconds)
{
    return DateTimeToFileDate(LocalTime(seconds));
}

// Open files

NativeInt FileOpen(const UnicodeString& file, unsigned mode)
{
    const unsigned access = mode & 3;
    const int share = ShareOf(mode);
    if (access > fmOpenReadWrite || share < 0) {
        return Refuse(ERROR_INVALID_PARAMETER);
    }
    // The words 0 to 2 name the three sums of the access bits in their order.
    return Host::OpenFile(file, access + 1, static_cast<unsigned>(share), Host::Disposition::Open);
}

NativeInt FileCreate(const UnicodeString& file)
{
    return FileCreate(file, fmShareExclusive, 0);
}

NativeInt FileCreate(const UnicodeString& file, int rights)
{
    return FileCreate(file, fmShareExclusive, rights);
}

NativeInt FileCreate(const UnicodeString& file, unsigned mode, int /*rights*/)
{
    const int share = ShareOf(mode);
    if ((mode & 3) > fmOpenReadWrite || share < 0) {
        return Refuse(ERROR_INVALID_PARAMETER);
    }
    return Host::OpenFile(file, Host::ReadAccess | Host::WriteAccess, static_cast<unsigned>(share),
                          Host::Disposition::Create);
}

int FileRead(NativeInt handle, void* buffer, unsigned count)
{
    return IsCountValid(count) ? static_cast<int>(Host::ReadFile(handle, buffer, count)) : -1;
}

int FileWrite(NativeInt handle, const void* buffer, unsigned count)
{
    return IsCountValid(count) ? static_cast<int>(Host::WriteFile(handle, buffer, count)) : -1;
}

int FileSeek(NativeInt handle, int offset, int origin)
{
    const Int64 before = Host::SeekFile(handle, 0, 1);
    const Int64 position = Host::SeekFile(handle, offset, origin);
    if (position <= INT_MAX) {
        return static_cast<int>(position);
    }
    Host::SeekFile(handle, before, 0);
    SetLastError(ERROR_ARITHMETIC_OVERFLOW);
    return -1;
}

Int64 FileSeek(NativeInt handle, Int64 offset, int origin)
{
    return Host::SeekFile(handle, offset, origin);
}

void FileClose(NativeInt handle)
{
    Host::CloseFile(handle);
}

// Closed files

bool FileExists(const UnicodeString& file)
{
    const auto info = Host::QueryFile(file);
    if (!info || (info->attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return false;
    }
    // A link that leads nowhere is no file; one that leads to a file has a name behind it.
    return (info->attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0 || !Host::IsBrokenLink(file);
}

bool DirectoryExists(const UnicodeString& folder)
{
    const auto info = Host::QueryFile(folder);
    return info && (info->attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

int FileAge(const UnicodeString& file)
{
    Int64 seconds = 0;
    return FileModified(file, seconds) ? Detail::FileDateOf(seconds) : -1;
}

bool FileAge(const UnicodeString& file, TDateTime& modified)
{
    Int64 seconds = 0;
    if (!FileModified(file, seconds)) {
        return false;
    }
    modified = LocalTime(seconds);
    return true;
}

int FileGetDate(NativeInt handle)
{
    const auto info = Host::QueryFile(handle);
    return info ? Detail::FileDateOf(info->modified) : -1;
}

int FileSetDate(const UnicodeString& file, int age)
{
    return SetDate(file, age);
}

int FileSetDate(NativeInt handle, int age)
{
    return SetDate(handle, age);
}

bool FileModified(const UnicodeString& file, Int64& seconds)
{
    const auto info = Host::QueryFile(file);
    if (!info || (info->attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return false;
    }
    seconds = info->modified;
    return true;
}

int FileGetAttr(const UnicodeString& file)
{
    return static_cast<int>(GetFileAttributesW(file));
}

int FileSetAttr(const UnicodeString& file, int attributes)
{
    return ErrorOf(SetFileAttributesW(file, static_cast<System::LongWord>(attributes)));
}

bool FileIsReadOnly(const UnicodeString& file)
{
    const int attributes = FileGetAttr(file);
    return attributes != -1 && (attributes & faReadOnly) != 0;
}

bool FileSetReadOnly(const UnicodeString& file, bool readOnly)
{
    const int attributes = FileGetAttr(file);
    return attributes != -1 &&
           FileSetAttr(file, readOnly ? attributes | faReadOnly : attributes & ~faReadOnly) == 0;
}

bool DeleteFile(const UnicodeString& file)
{
    return DeleteFileW(file);
}

bool RenameFile(const UnicodeString& oldName, const UnicodeString& newName)
{
    return MoveFileW(oldName, newName);
}

bool RemoveDir(const UnicodeString& folder)
{
    return RemoveDirectoryW(folder);
}

bool CreateDir(const UnicodeString& folder)
{
    return CreateDirectoryW(folder);
}

bool ForceDirectories(const UnicodeString& folder)
{
    if (folder.IsEmpty()) {
        throw EInOutError(u"Unable to create directory");
    }
    if (DirectoryExists(folder)) {
        return true;
    }
    const View path = folder.AsView();
    for (std::size_t end = Detail::VolumeLength(path); end < path.size(); ++end) {
        end = std::min(path.find_first_of(u"\\/", end + 1), path.size());
        const UnicodeString level(path.substr(0, end));
        // Another process may be making the same levels.
        if (!DirectoryExists(level) && !CreateDirectoryW(level) && !DirectoryExists(level)) {
            return false;
        }
    }
    return DirectoryExists(folder);
}

UnicodeString GetCurrentDir()
{
    return Host::CurrentDirectory();
}

bool SetCurrentDir(const UnicodeString& folder)
{
    return SetCurrentDirectoryW(folder);
}

// Drives and errors

Int64 DiskFree(System::Byte drive)
{
    const auto space = QueryDrive(drive);
    return space ? space->free : -1;
}

Int64 DiskSize(System::Byte drive)
{
    const auto space = QueryDrive(drive);
    return space ? space->total : -1;
}

UnicodeString SysErrorMessage(unsigned long error)
{
    const unsigned long former = GetLastError();
    System::WideChar buffer[1024];
    const unsigned long length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, error, 0, buffer, std::size(buffer), nullptr);
    SetLastError(former);
    return UnicodeString(buffer, static_cast<int>(length)).TrimRight();
}

UnicodeString FileErrorMessage(const UnicodeString& file)
{
    const unsigned long error = GetLastError();
    const bool isFolder = error == ERROR_ACCESS_DENIED && DirectoryExists(file);
    SetLastError(error);
    return isFolder ? UnicodeString(u"It is a folder") : SysErrorMessage(error);
}

void RaiseLastOSError()
{
    RaiseLastOSError(GetLastError());
}

void RaiseLastOSError(unsigned long error)
{
    if (error == ERROR_SUCCESS) {
        throw EOSError(u"A call to an OS function failed", error);
    }
    throw EOSError(u"System Error.  Code: " + UnicodeString(error) + u".\r\n" + SysErrorMessage(error),
                   error);
}

} // namespace Sysutils
