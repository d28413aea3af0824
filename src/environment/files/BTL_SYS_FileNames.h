// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Names of files by their text alone. They are judged so that a file can go to any other machine of the user,
// whatever the host itself would bear.
//
//     BTL::IsFileNameValid(u"a:b.txt");                            // false
//     BTL::GetValidFileName(u"12:30 <run>", '_');                  // "12_30 _run_"
//     BTL::ExtractFileName(u"\\data\\a.b.txt", true);              // "a.b"

/// False for a carriage return, a line feed and for `\`, `/`, `:`, `*`, `?`, `"`, `<`, `>`, `|`.
[[nodiscard]] TRS8_BTL_API bool IsFileNameCharValid(System::WideChar c);
/// Whether all characters are valid by `IsFileNameCharValid`, and the name without its extension is none that
/// stands for a device somewhere: "CON", "PRN", "AUX", "NUL", "COM1" to "COM9", "LPT1" to "LPT9", in
/// capitals. A path with folders is no valid name; the empty text is one.
[[nodiscard]] TRS8_BTL_API bool IsFileNameValid(const System::UnicodeString& name);
/// As `IsFileNameValid`; if it is false, a box with the stop icon shows `format`, filled with the name.
TRS8_BTL_API bool IsFileNameValidOrMessageBox(const System::UnicodeString& name,
                                              const System::UnicodeString& format);
/// The name with `replacement` in place of each character that isn't valid by `IsFileNameCharValid`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetValidFileName(const System::UnicodeString& name,
                                                                  char replacement);
/// The last part of the path, on request without its last dot and what follows that.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ExtractFileName(const System::UnicodeString& path,
                                                                 bool withoutExtension);
/// Whether a path looks like one to another machine: it begins with two separators, has a `:` behind the
/// second character without beginning with a drive, or begins with "\\?\", unless a `:` follows that at once.
/// False for a path of a drive and for a bare name.
[[nodiscard]] TRS8_BTL_API bool IsNetPath(const System::UnicodeString& path);

} // namespace BTL
