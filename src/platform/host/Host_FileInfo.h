// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <optional>

// What the host tells of a file beside its content: attributes, size and the time of the last change.
//
// All calls answer a failure with `false`, -1 or their invalid value and set the last error. A path with an
// embedded zero fails with 123; it is never cut.
//
//     if (const auto info = Host::QueryFile(u"a.txt")) {
//         const bool isFolder = (info->attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
//         Use(info->size, isFolder);
//     }

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

/// `INVALID_FILE_ATTRIBUTES` on a failure. Attributes are those of the file that a link leads to, with the
/// bit of the link added.
TRS8_BTL_API System::LongWord GetFileAttributesW(const System::UnicodeString& file);
/// Sets or clears `FILE_ATTRIBUTE_READONLY`. The host has no place for the others, nor for this one on
/// folders, where it would mean something else: they are passed over.
TRS8_BTL_API bool SetFileAttributesW(const System::UnicodeString& file, System::LongWord attributes);

namespace Host
{

/// What the host tells of a file.
struct FileInfo
{
    System::LongWord attributes;
    /// In bytes; 0 for folders.
    System::Int64 size;
    /// The time of the last change of the content, in seconds since 1970 in universal time.
    System::Int64 modified;
};

/// What the host tells of the file that a link leads to, or of the link itself if that is nowhere.
[[nodiscard]] TRS8_BTL_API std::optional<FileInfo> QueryFile(const System::UnicodeString& file);
/// What the host tells of an open file; the name, and with it `FILE_ATTRIBUTE_HIDDEN`, isn't known.
[[nodiscard]] TRS8_BTL_API std::optional<FileInfo> QueryFile(System::NativeInt handle);
/// Whether the name is a link that leads nowhere.
[[nodiscard]] TRS8_BTL_API bool IsBrokenLink(const System::UnicodeString& file);
/// Sets the time of the last change of the content, in seconds since 1970 in universal time.
[[nodiscard]] TRS8_BTL_API bool SetModified(const System::UnicodeString& file, System::Int64 seconds);
/// As `SetModified` of a path, but of an open file.
[[nodiscard]] TRS8_BTL_API bool SetModified(System::NativeInt handle, System::Int64 seconds);

} // namespace Host
