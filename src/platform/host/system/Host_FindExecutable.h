// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Host
{

/// Finds the program that the desktop opens `file` with, by the associations of the user; a program stands
/// for itself. A relative file counts from `folder`, the current one if it is empty. `program` gets the full
/// path.
///
/// The result is above 32 on success, else that of `ShellExecuteW`: 2 for a missing file, 3 for a missing
/// folder, 31 if the desktop knows no program that is there. `program` stays on a failure.
///
///     System::UnicodeString program;
///     if (Host::FindExecutable(u"manual.pdf", UnicodeString(), program) > 32) { ... }
[[nodiscard]] TRS8_BTL_API System::NativeInt FindExecutable(const System::UnicodeString& file,
                                                            const System::UnicodeString& folder,
                                                            System::UnicodeString& program);

} // namespace Host
