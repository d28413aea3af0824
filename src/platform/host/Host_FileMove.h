// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

// Files are moved, copied and deleted.
//
// All calls answer a failure with `false`, -1 or their invalid value and set the last error. A path with an
// embedded zero fails with 123; it is never cut.
//
//     if (!MoveFileExW(u"a.txt.new", u"a.txt", MOVEFILE_REPLACE_EXISTING)) {
//         WIN::ThrowLastError();
//     }

/// A file takes the place of one that exists; on the same device in one step.
inline constexpr System::LongWord MOVEFILE_REPLACE_EXISTING = 1;
/// A file may go to another device, by a copy.
inline constexpr System::LongWord MOVEFILE_COPY_ALLOWED = 2;

/// Deletes a file or link; a file with the read-only attribute is refused with 5.
TRS8_BTL_API bool DeleteFileW(const System::UnicodeString& file);

/// Moves a file, link or folder, the first two also to another device, by a copy, of which nothing is left if
/// the source can't go; fails with 183 if `to` exists, and with 32 if somebody writes to the file while it is
/// copied.
TRS8_BTL_API bool MoveFileW(const System::UnicodeString& from, const System::UnicodeString& to);
/// As `MoveFileW`, but with `MOVEFILE_REPLACE_EXISTING` the file moves onto one that exists, and without
/// `MOVEFILE_COPY_ALLOWED` another device fails with 17, which it always does for folders.
TRS8_BTL_API bool MoveFileExW(const System::UnicodeString& from, const System::UnicodeString& to,
                              System::LongWord flags);
/// Copies content, holes, permissions and times of a file, or of that which the link `from` leads to. An
/// existing file stays as it was if it fails, unless its folder takes no file beside it, and else keeps its
/// owner; one with `failIfExists` fails with 80, one that is read-only with 5. A copy onto the file itself
/// fails with 32. A new file that can't be written to its end is removed again.
TRS8_BTL_API bool CopyFileW(const System::UnicodeString& from, const System::UnicodeString& to,
                            bool failIfExists);
