// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

// The variables of the environment, as texts. A name is looked for as it stands and then without regard to
// case. Where they are unset, `USERPROFILE` is the user's own folder, `TEMP` and `TMP` are the folder of
// `TMPDIR`, or
// "\tmp".
//
//     System::WideChar folder[260];
//     if (GetEnvironmentVariableW(u"TEMP", folder, 260) == 0) { ... }
//     ExpandEnvironmentStringsW(u"%TEMP%\\log.txt", folder, 260);

/// Writes the variable with a zero behind it to `buffer`, which has room for `size` characters in all, and
/// gives the count of characters without the zero. With too little room the buffer stays, and the result is
/// the room that it takes. 0 with the last error 203 for a variable that isn't there, with 0 for an empty
/// one.
TRS8_BTL_API unsigned long GetEnvironmentVariableW(const System::WideChar* name, System::WideChar* buffer,
                                                   unsigned long size);

/// Writes `text` with the variables in place of their names between `%` to `buffer`, which has room for
/// `size` characters in all. A name without a variable stays as it stands. Gives the room that the result
/// takes, its zero counted; the buffer stays if that is more than `size`.
TRS8_BTL_API unsigned long ExpandEnvironmentStringsW(const System::WideChar* text, System::WideChar* buffer,
                                                     unsigned long size);

namespace Host
{

/// The variable; false if there is none, and `value` stays.
[[nodiscard]] TRS8_BTL_API bool FindVariable(const System::UnicodeString& name, System::UnicodeString& value);

/// As `ExpandEnvironmentStringsW`, of any length.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ExpandVariables(const System::UnicodeString& text);

} // namespace Host
