// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <string>

// What the shell asks of a file before it hands it on.

namespace Host
{

/// The host's path of `file`, absolute, counted from `folder` or, if that is empty, from the current one;
/// empty with the last error set on a failure.
[[nodiscard]] std::string AbsolutePath(const System::UnicodeString& file, const std::string& folder);

/// Whether the host can start the file: it has the permission, and the first bytes of a program or a script.
[[nodiscard]] bool IsProgram(const std::string& path);

} // namespace Host
