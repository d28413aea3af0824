// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <optional>
#include <string>
#include <string_view>

// A profile file as a whole, for who keeps its content in memory.
//
//     const auto bytes = LoadProfileContent(file);
//     ProfileText text(bytes.value_or(std::string()));
//     // ... changes ...
//     if (!SaveProfileContent(file, text.Compose(), bytes ? FormerContent::Read : FormerContent::Unread)) {
//     ... }

namespace Host
{

/// The bytes of the file, which are no bytes if it is missing; none if it can't be read.
[[nodiscard]] std::optional<std::string> LoadProfileContent(const System::UnicodeString& file);

/// Whether what is saved was made of what the file held.
enum class FormerContent
{
    Read,
    /// It couldn't be read, and would be lost.
    Unread,
};

/// Makes `bytes` the whole file in one step, under the lock against other writers; on the disk when the call
/// returns. False with the last error, and the file as it was, on a failure. An existing file that
/// wasn't read, or that the user has no right to read, is kept beside, as by `WritePrivateProfileStringW`.
[[nodiscard]] bool SaveProfileContent(const System::UnicodeString& file, std::string_view bytes,
                                      FormerContent former);

} // namespace Host
