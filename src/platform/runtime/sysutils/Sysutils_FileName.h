// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Sysutils
{

// Parts of a path, by its text alone. A `:` ends a drive only behind the first letter; elsewhere it is part
// of a name.
//
//     ExtractFileName(u"/data/a.b.txt");                          // "a.b.txt"
//     ExtractFileExt(u"/data/a.b.txt");                           // ".txt"
//     ChangeFileExt(u"a.b.txt", u".log");                         // "a.b.log"
//     ExpandFileName(u"../x.txt");                                // from the root on, with "\"

/// Up to and with the last separator or the drive's colon.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ExtractFilePath(const System::UnicodeString& path);
/// As `ExtractFilePath`, but without the final separator, unless it is the root.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ExtractFileDir(const System::UnicodeString& path);
/// "X:", "\\server\share" or empty.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ExtractFileDrive(const System::UnicodeString& path);
[[nodiscard]] TRS8_BTL_API System::UnicodeString ExtractFileName(const System::UnicodeString& path);
/// The last dot of the name and what follows, or empty.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ExtractFileExt(const System::UnicodeString& path);
/// `extension` begins with its dot; empty removes the extension.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ChangeFileExt(const System::UnicodeString& path,
                                                               const System::UnicodeString& extension);
/// The full path from the current directory on, with `\` as separator and `.`, `..` and double separators
/// resolved by the text. `..` ends at the root; a final separator stays. The empty text stays empty.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ExpandFileName(const System::UnicodeString& path);
/// `path` as it is told from the folder part of `base`, with `..` for the way up. `path` itself if the two
/// have different drives.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ExtractRelativePath(const System::UnicodeString& base,
                                                                     const System::UnicodeString& path);
[[nodiscard]] TRS8_BTL_API System::UnicodeString
IncludeTrailingPathDelimiter(const System::UnicodeString& path);
[[nodiscard]] TRS8_BTL_API System::UnicodeString
ExcludeTrailingPathDelimiter(const System::UnicodeString& path);
/// Whether the character at the 1-based `index` is a separator.
[[nodiscard]] TRS8_BTL_API bool IsPathDelimiter(const System::UnicodeString& path, int index);

} // namespace Sysutils
