// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/host/Host_Path.h"

#include <optional>
#include <vector>

// Attributes of a file.

/// The owner has no permission to write.
inline constexpr System::LongWord FILE_ATTRIBUTE_READONLY = 0x01;
/// The name begins with a dot.
inline constexpr System::LongWord FILE_ATTRIBUTE_HIDDEN = 0x02;
/// Neither a file nor a folder: a device, a pipe or a socket.
inline constexpr System::LongWord FILE_ATTRIBUTE_SYSTEM = 0x04;
inline constexpr System::LongWord FILE_ATTRIBUTE_DIRECTORY = 0x10;
inline constexpr System::LongWord FILE_ATTRIBUTE_ARCHIVE = 0x20;
/// None of the others.
inline constexpr System::LongWord FILE_ATTRIBUTE_NORMAL = 0x80;
/// A symbolic link. Together with `FILE_ATTRIBUTE_DIRECTORY` it leads to a folder that lies elsewhere; alone
/// it leads to a file or nowhere.
inline constexpr System::LongWord FILE_ATTRIBUTE_REPARSE_POINT = 0x400;
inline constexpr System::LongWord INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;

inline constexpr System::LongWord MOVEFILE_REPLACE_EXISTING = 1;
inline constexpr System::LongWord MOVEFILE_COPY_ALLOWED = 2;

// All calls answer a failure with `false`, -1 or their invalid value and set the last error. A path with an
// embedded zero fails with 123; it is never cut.

/// `INVALID_FILE_ATTRIBUTES` on a failure. Attributes are those of the file that a link leads to, with the
/// bit of the link added.
TRS8_BTL_API System::LongWord GetFileAttributesW(const System::UnicodeString& file);
/// Sets or clears `FILE_ATTRIBUTE_READONLY`. The host has no place for the others, nor for this one on
/// folders, where it would mean something else: they are passed over.
TRS8_BTL_API bool SetFileAttributesW(const System::UnicodeString& file, System::LongWord attributes);

/// One level; 183 if the name is taken. `security` is not looked at.
TRS8_BTL_API bool CreateDirectoryW(const System::UnicodeString& folder, void* security = nullptr);
/// An empty folder, or a link to a folder, which leaves the folder itself alone.
TRS8_BTL_API bool RemoveDirectoryW(const System::UnicodeString& folder);
/// A file or link; a file with the read-only attribute is refused with 5.
TRS8_BTL_API bool DeleteFileW(const System::UnicodeString& file);

/// Fails with 183 if `to` exists.
TRS8_BTL_API bool MoveFileW(const System::UnicodeString& from, const System::UnicodeString& to);
/// With `MOVEFILE_COPY_ALLOWED` a file moves to another device too; without it, and for folders, that fails
/// with 17.
TRS8_BTL_API bool MoveFileExW(const System::UnicodeString& from, const System::UnicodeString& to,
                              System::LongWord flags);
/// Copies content, permissions and date. A copy onto the file itself fails with 32, onto an existing file
/// with `failIfExists` with 80. A new file that can't be written to its end is removed again.
TRS8_BTL_API bool CopyFileW(const System::UnicodeString& from, const System::UnicodeString& to,
                            bool failIfExists);

TRS8_BTL_API bool SetCurrentDirectoryW(const System::UnicodeString& folder);

namespace Host
{

/// What a file is opened for, and what others may have it open for meanwhile: a sum of these.
inline constexpr unsigned ReadAccess = 1;
inline constexpr unsigned WriteAccess = 2;

enum class Disposition
{
    /// The file must exist.
    Open,
    /// An existing file is emptied.
    Create,
    /// The file must not exist.
    CreateNew,
};

inline constexpr System::NativeInt InvalidHandle = -1;

/// Opens the file for `access`, while others may open it for `share`: fails with 32 if another opener of this
/// library, in whichever process, has it open in a way that `share` rules out, or doesn't share what `access`
/// wants. Programs beside this library aren't held off. Ends with `CloseFile` or with the process, however
/// that ends. Folders, and for writing files with the read-only attribute, are refused with 5.
/// The handle is the host's descriptor, always above 2 and not inherited by programs that are started.
TRS8_BTL_API System::NativeInt OpenFile(const System::UnicodeString& file, unsigned access, unsigned share,
                                        Disposition disposition);
TRS8_BTL_API bool CloseFile(System::NativeInt handle);

/// The count done, less than `count` only at the end or, for what is no plain file, when no more is there
/// yet; -1 on a failure.
TRS8_BTL_API System::Int64 ReadFile(System::NativeInt handle, void* buffer, System::Int64 count);
/// As `ReadFile`, but the position stays; fails for what has no position.
TRS8_BTL_API System::Int64 PeekFile(System::NativeInt handle, void* buffer, System::Int64 count);
/// The count done, less than `count` only if the host failed on the way; -1 on a failure at once.
TRS8_BTL_API System::Int64 WriteFile(System::NativeInt handle, const void* buffer, System::Int64 count);
/// The new position; -1 on a failure. `origin` is 0 for the beginning, 1 for the position, 2 for the end.
TRS8_BTL_API System::Int64 SeekFile(System::NativeInt handle, System::Int64 offset, int origin);
/// Cuts or lengthens the file; the position stays.
TRS8_BTL_API bool ResizeFile(System::NativeInt handle, System::Int64 size);
/// Waits until all that was written is on the disk.
TRS8_BTL_API bool FlushFile(System::NativeInt handle);

struct FileInfo
{
    System::LongWord attributes;
    /// In bytes; 0 for folders.
    System::Int64 size;
    /// The time of the last change of the content, in seconds since 1970 in universal time.
    System::Int64 modified;
};

/// Of the file that a link leads to, or of the link itself if that is nowhere.
TRS8_BTL_API std::optional<FileInfo> QueryFile(const System::UnicodeString& file);
TRS8_BTL_API std::optional<FileInfo> QueryFile(System::NativeInt handle);
/// Whether the name is a link that leads nowhere.
TRS8_BTL_API bool IsBrokenLink(const System::UnicodeString& file);
TRS8_BTL_API bool SetModified(const System::UnicodeString& file, System::Int64 seconds);
TRS8_BTL_API bool SetModified(System::NativeInt handle, System::Int64 seconds);

/// The names in a folder, with "." and "..", in the order of their characters.
TRS8_BTL_API std::optional<std::vector<System::UnicodeString>>
ListFolder(const System::UnicodeString& folder);

/// Without a final separator, unless it is the root; empty on a failure.
TRS8_BTL_API System::UnicodeString CurrentDirectory();

struct DiskSpace
{
    /// For this user, in bytes.
    System::Int64 free;
    System::Int64 total;
};

TRS8_BTL_API std::optional<DiskSpace> QueryDisk(const System::UnicodeString& folder);

/// Makes a new empty file in `folder` with a name of `prefix` and a random rest, only the user may read it,
/// and gives its path; empty on a failure.
TRS8_BTL_API System::UnicodeString MakeTempFile(const System::UnicodeString& folder,
                                                const System::UnicodeString& prefix);

/// A variable of the environment as a path of the library; empty if it is unset.
TRS8_BTL_API System::UnicodeString EnvironmentPath(const char* name);
/// The user's own folder without a final separator; `\` if the host knows none.
TRS8_BTL_API System::UnicodeString HomeFolder();

} // namespace Host
