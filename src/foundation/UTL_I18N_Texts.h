// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

namespace UTL
{

/// The keys of the foundation's own texts.
enum class EXStrings
{
    /// Opens the text of every internal fault.
    InternalError = 0,
    /// The warning of a read-only ini file; its `%s` takes the file name.
    IniFileReadOnly = 1,
};

/// The fixed texts of the foundation. They are German in every language setting: this layer stands below the
/// language files.
///
///     const System::UnicodeString title = UTL::Ci18n::GetString(UTL::EXStrings::InternalError);
class Ci18n
{
public:
    /// The text of `key` in the system's code page, the same pointer at each call; "" for an unknown key.
    TRS8_BTL_API static const char* GetString(EXStrings key);
};

} // namespace UTL
