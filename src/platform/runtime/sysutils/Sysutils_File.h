// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/dates/System_DateTime.h"
#include "platform/host/Host_Path.h"
#include "platform/runtime/sysutils/Sysutils_FileName.h"
#include "platform/runtime/sysutils/Sysutils_FindFile.h"

// Files, open and closed, drives and the errors of the host. It includes what else deals with files:
// - `Sysutils_FileName.h`: the parts of a path, by its text,
// - `Sysutils_FindFile.h`: searches by mask and along a list of folders.
//
// A path is text with `\` as separator, `/` counts as the same; names compare exactly.
// Calls on the host that fail set the last error, see `::GetLastError`; a path with an embedded zero is an
// invalid name to all of them and is never cut.
//
//     if (FileExists(u"a.txt") && !RenameFile(u"a.txt", u"b.txt")) {
//         RaiseLastOSError();                                     // `EOSError` with the host's words
//     }
//     ForceDirectories(u"out/2022/02");

namespace Sysutils
{

// The mode word of a file: how it is opened ...
inline constexpr System::Word fmOpenRead = 0;
inline constexpr System::Word fmOpenWrite = 1;
inline constexpr System::Word fmOpenReadWrite = 2;
/// Created anew, or emptied, for reading and writing.
inline constexpr System::Word fmCreate = 0xFF00;

// ... plus what other openers of this library may do with it meanwhile, in this process and in others.
/// As `fmShareExclusive`.
inline constexpr System::Word fmShareCompat = 0;
inline constexpr System::Word fmShareExclusive = 0x10;
inline constexpr System::Word fmShareDenyWrite = 0x20;
inline constexpr System::Word fmShareDenyRead = 0x30;
inline constexpr System::Word fmShareDenyNone = 0x40;

/// The attributes of a file that nobody may write.
inline constexpr int faReadOnly = 0x01;
/// Names that begin with a dot.
inline constexpr int faHidden = 0x02;
/// Devices, pipes and sockets.
inline constexpr int faSysFile = 0x04;
/// No file of the host is one.
inline constexpr int faVolumeID = 0x08;
inline constexpr int faDirectory = 0x10;
/// No file of the host has it.
inline constexpr int faArchive = 0x20;
/// What a file has that has none of the others.
inline constexpr int faNormal = 0x80;
/// A symbolic link; with `faDirectory` it leads to a folder elsewhere, so that who removes a tree must not
/// walk into it.
inline constexpr int faSymLink = 0x400;
/// For `FindFirst`: entries of all kinds.
inline constexpr int faAnyFile = 0x1FF;

/// What stands for no handle.
inline constexpr System::NativeInt INVALID_HANDLE_VALUE = -1;

// Open files. A handle is above 2, so that 0 can mean "no file"; -1 is the failed one, on which all calls
// fail.

/// `mode` is an open mode plus a share mode. The result is -1 and the last error 32 if another opener stands
/// against it, 5 for a folder and for writing to a read-only file.
[[nodiscard]] TRS8_BTL_API System::NativeInt FileOpen(const System::UnicodeString& file, unsigned mode);
/// Creates the file, or empties it, for reading and writing by this opener alone.
[[nodiscard]] TRS8_BTL_API System::NativeInt FileCreate(const System::UnicodeString& file);
/// As `FileCreate` of the name alone; `rights` are not looked at, a new file gets the user's usual
/// permissions.
[[nodiscard]] TRS8_BTL_API System::NativeInt FileCreate(const System::UnicodeString& file, int rights);
/// Creates or empties the file with the share mode of `mode`; the rest of `mode` is not looked at but must be
/// a mode word.
[[nodiscard]] TRS8_BTL_API System::NativeInt FileCreate(const System::UnicodeString& file, unsigned mode,
                                                        int rights);

/// The count of bytes read, less than `count` at the end of the file; -1 on a failure, and for a null buffer
/// or a `count` above 2^31-1.
TRS8_BTL_API int FileRead(System::NativeInt handle, void* buffer, unsigned count);
/// The count of bytes written, less than `count` if the host failed on the way; -1 as for `FileRead`.
TRS8_BTL_API int FileWrite(System::NativeInt handle, const void* buffer, unsigned count);
/// The new position; `origin` is 0 for the beginning, 1 for the position, 2 for the end. -1 on a failure, in
/// the `int` form also if the position is above 2^31-1; the position then stays.
TRS8_BTL_API int FileSeek(System::NativeInt handle, int offset, int origin);
TRS8_BTL_API System::Int64 FileSeek(System::NativeInt handle, System::Int64 offset, int origin);
inline System::Int64 FileSeek(System::NativeInt handle, long offset, int origin)
{
    return FileSeek(handle, System::Int64{offset}, origin);
}
/// Closes the file; the handle is none from then on.
TRS8_BTL_API void FileClose(System::NativeInt handle);

/// Whether there is such a file, or what a link leads to is one; a folder is none.
[[nodiscard]] TRS8_BTL_API bool FileExists(const System::UnicodeString& file);
[[nodiscard]] TRS8_BTL_API bool DirectoryExists(const System::UnicodeString& folder);

// File dates are local times packed in 32 bits: from the top 7 bits of years since 1980, 4 of the month, 5 of
// the day, 5 of the hour, 6 of the minute, 5 of the seconds halved. A time before 1980 or after 2107 gives
// the first or last date of this range.

/// The date of the file's last change; -1 if there is no such file.
[[nodiscard]] TRS8_BTL_API int FileAge(const System::UnicodeString& file);
/// The time of the file's last change in local time to the second; `false`, and `modified` stays, if there is
/// no such file. A time outside the years 1 to 9999 gives an infinite value.
TRS8_BTL_API bool FileAge(const System::UnicodeString& file, System::TDateTime& modified);
[[nodiscard]] TRS8_BTL_API int FileGetDate(System::NativeInt handle);
/// 0, or the error; 87 for a date that doesn't exist.
TRS8_BTL_API int FileSetDate(const System::UnicodeString& file, int age);
TRS8_BTL_API int FileSetDate(System::NativeInt handle, int age);
/// The time of the file's last change in whole seconds since 1970 in universal time; `false`, and `seconds`
/// stays, if there is no such file.
TRS8_BTL_API bool FileModified(const System::UnicodeString& file, System::Int64& seconds);

/// A sum of the `fa` bits, `faNormal` for none; -1 on a failure.
[[nodiscard]] TRS8_BTL_API int FileGetAttr(const System::UnicodeString& file);
/// 0, or the error. Only `faReadOnly` of files can be changed, the other bits are passed over.
TRS8_BTL_API int FileSetAttr(const System::UnicodeString& file, int attributes);
/// `false` also for a missing file.
[[nodiscard]] TRS8_BTL_API bool FileIsReadOnly(const System::UnicodeString& file);
TRS8_BTL_API bool FileSetReadOnly(const System::UnicodeString& file, bool readOnly);

/// A read-only file is refused.
TRS8_BTL_API bool DeleteFile(const System::UnicodeString& file);
/// Of files and folders; `false` if `newName` is taken.
TRS8_BTL_API bool RenameFile(const System::UnicodeString& oldName, const System::UnicodeString& newName);
/// An empty folder.
TRS8_BTL_API bool RemoveDir(const System::UnicodeString& folder);
/// One level.
TRS8_BTL_API bool CreateDir(const System::UnicodeString& folder);
/// Makes all missing levels; `true` if the folder exists in the end. `EInOutError` for the empty text.
TRS8_BTL_API bool ForceDirectories(const System::UnicodeString& folder);
/// Without a final separator, unless it is the root.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetCurrentDir();
TRS8_BTL_API bool SetCurrentDir(const System::UnicodeString& folder);

/// Free and whole bytes of a drive: 0 the current one, 1 `A:` and so on; -1 on a failure.
[[nodiscard]] TRS8_BTL_API System::Int64 DiskFree(System::Byte drive);
[[nodiscard]] TRS8_BTL_API System::Int64 DiskSize(System::Byte drive);

/// The host's text for the error, without blanks and line ends behind it; empty for an unknown one.
[[nodiscard]] TRS8_BTL_API System::UnicodeString SysErrorMessage(unsigned long error);
/// As `SysErrorMessage` of the last error, which a call with `file` has just set and which stays, but tells
/// where the name is refused because it is a folder.
[[nodiscard]] TRS8_BTL_API System::UnicodeString FileErrorMessage(const System::UnicodeString& file);
/// Raises `EOSError` with the text of the thread's last error.
[[noreturn]] TRS8_BTL_API void RaiseLastOSError();
[[noreturn]] TRS8_BTL_API void RaiseLastOSError(unsigned long error);

} // namespace Sysutils
