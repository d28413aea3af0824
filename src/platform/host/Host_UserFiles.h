// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

// Where a user's own files lie: the home folder, folders that the environment names, new temporary files.
//
//     const auto file = Host::MakeTempFile(Host::HomeFolder(), u"copy");
//     const auto folder = Host::EnvironmentPath("XDG_CONFIG_HOME");       // empty if it is unset

namespace Host
{

/// Makes a new empty file in `folder`, with or without a final separator, with a name of `prefix` and a
/// random rest, which only the user may read, and gives its path; empty on a failure, with the last error
/// set.
[[nodiscard]] TRS8_BTL_API System::UnicodeString MakeTempFile(const System::UnicodeString& folder,
                                                              const System::UnicodeString& prefix);

/// A variable of the environment as a path of the library; empty if it is unset.
[[nodiscard]] TRS8_BTL_API System::UnicodeString EnvironmentPath(const char* name);
/// The user's own folder without a final separator; `\` if the host knows none.
[[nodiscard]] TRS8_BTL_API System::UnicodeString HomeFolder();

} // namespace Host
