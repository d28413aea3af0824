// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

/// The texts that the stores show, by their positions in the library's language table. Each is a format whose
/// `%s` takes the name of the file.
enum class EIniText
{
    /// The message of a write that fails.
    CannotWrite = 10,
    /// The warning of a file that is read-only.
    ReadOnly = 11,
};

/// Where the stores get a text. The language table takes its place; until then the texts are English ones.
using FGetIniText = System::UnicodeString (*)(EIniText text);
TRS8_BTL_API extern FGetIniText GetIniText;

} // namespace BTL
