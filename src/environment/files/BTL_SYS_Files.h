// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Single files: whether they are there, their size and attributes, and deleting one by the user's consent.
//
//     if (!BTL::FileExistsEx(file, true)) {                        // a box tells that it is missing
//         return;
//     }
//     const System::Int64 size = BTL::GetFileSize(file);           // in bytes
//     BTL::FileSetAttrOn(file, Sysutils::faReadOnly);

/// Whether there is such a file, or what a link leads to is one; a folder is none.
[[nodiscard]] TRS8_BTL_API bool FileExists(const System::UnicodeString& file);
/// As `FileExists`; with `message` a box tells that the file is missing.
TRS8_BTL_API bool FileExistsEx(const System::UnicodeString& file, bool message);
/// Raises `Sysutils::Exception`, which names the file, if it is missing.
TRS8_BTL_API void CheckFileExists(const System::UnicodeString& file);
/// In bytes. `Classes::EFOpenError` for a file that is missing or can't be read.
[[nodiscard]] TRS8_BTL_API System::Int64 GetFileSize(const System::UnicodeString& file);
/// Whether the path is there, with or without its final separator: a folder, a file, or a link of any kind,
/// but no device, pipe or socket. The root, of the host or a drive, is there. False for the empty text. The
/// last part may be a mask as in `Sysutils::FindFirst`, which is there if anything fits it.
[[nodiscard]] TRS8_BTL_API bool PathExists(const System::UnicodeString& path);

/// Adds the bits of `attr`, a sum of the `fa` values of `Sysutils`, to the attributes of a file. 0, or the
/// error, see `Sysutils::FileSetAttr`.
TRS8_BTL_API int FileSetAttrOn(const System::UnicodeString& file, int attr);
/// As `FileSetAttrOn`, but takes the bits away.
TRS8_BTL_API int FileSetAttrOff(const System::UnicodeString& file, int attr);

/// Asks by a box whether the file is to be deleted, and does it on Yes. True only if it was deleted.
TRS8_BTL_API bool DeleteFileW(const System::UnicodeString& file);

} // namespace BTL
