// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <string>
#include <string_view>

// A profile file as a whole, for who keeps its content in memory.
//
//     ProfileText text(LoadProfileContent(file));
//     // ... changes ...
//     if (!SaveProfileContent(file, text.Compose())) { ... }

namespace Host
{

/// The bytes of the file; none if it can't be read.
[[nodiscard]] std::string LoadProfileContent(const System::UnicodeString& file);

/// Makes `bytes` the whole file in one step, under the lock against other writers; on the disk when the call
/// returns. False with the last error, and the file as it was, on a failure. An existing file that the user
/// has no right to read is kept beside, as by `WritePrivateProfileStringW`.
[[nodiscard]] bool SaveProfileContent(const System::UnicodeString& file, std::string_view bytes);

} // namespace Host
