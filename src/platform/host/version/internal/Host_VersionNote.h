// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <optional>
#include <string>

namespace Host
{

/// The version data in a program, a library or a module: the description of the ELF note "TRS8_BTL" of type
/// 1, which has pieces in UTF-8, `KEY=VALUE` each and ended by a zero.
///
/// Nothing if there is none, with the last error: that of the host for a file that can't be read, 11 for one
/// that is no ELF file or has more than 65,279 sections, 1168 for one without such a note among the first
/// 1 MB of its notes.
[[nodiscard]] std::optional<std::string> ReadVersionNote(const System::UnicodeString& file);

} // namespace Host
