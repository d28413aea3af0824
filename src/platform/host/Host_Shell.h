// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <vector>

inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr int SW_SHOWDEFAULT = 10;

/// Results of `ShellExecuteW` beside the numbers of `GetLastError`.
inline constexpr System::NativeInt SE_ERR_NOASSOC = 31;

/// Hands `file` to the desktop: a file or folder, or an address such as "http://..." or "mailto:...", which
/// opens a mail to write. No shell reads any of the texts, which arrive as they are, line ends too. A program
/// is started itself, with `parameters` parted at blanks outside of quotes. The verbs are "open", which an
/// empty `verb` means too, "explore" for folders, and "print", which gives a file to the printer that is the
/// user's usual one. Null texts count as empty.
///
/// The result is above 32 on success, else 2 for a missing file, 3 for a missing folder, 5 for a program that
/// may not be started, 8 for more text than a program takes, 31 if the host has nothing that opens the file
/// or knows the verb, or another error up to 32. `directory` is the folder to start in, and that from which a
/// relative `file` counts. What was started runs apart from the caller and outlives it. Whether the desktop
/// opens a file at last is known only if it refuses within half a second; what becomes of an address isn't
/// awaited. `owner` and `show` are not looked at.
///
///     if (ShellExecuteW(nullptr, u"open", u"help.html", nullptr, nullptr, SW_SHOWNORMAL) <= 32) { ... }
TRS8_BTL_API System::NativeInt ShellExecuteW(void* owner, const System::WideChar* verb,
                                             const System::WideChar* file, const System::WideChar* parameters,
                                             const System::WideChar* directory, int show);

namespace Host
{

/// The arguments in a text: parted at blanks and tabs outside of double quotes. Of backslashes in front of a
/// quote each pair is one, and one left over makes the quote a plain character; elsewhere they are plain.
[[nodiscard]] TRS8_BTL_API std::vector<System::UnicodeString>
SplitArguments(const System::UnicodeString& text);

/// The reverse of `SplitArguments`: parted by blanks, with quotes around an argument that is empty or has a
/// quote or white space in it.
[[nodiscard]] TRS8_BTL_API System::UnicodeString
JoinArguments(const std::vector<System::UnicodeString>& arguments);

} // namespace Host
