// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/System_String.h"

namespace UTL
{

/// What the foundation asks of the layers above it. A higher layer fills in its functions while the program
/// starts, before threads do; until then a pointer is null, and its caller manages without.
struct TLinks
{
    /// Reads a float with `.` or `,`; false if `text` is none, which leaves `value` alone.
    bool (*ToDouble)(const System::AnsiString& text, double& value) = nullptr;
    /// The folder of the running program, where log files go; with a separator behind it.
    System::UnicodeString (*BinPath)() = nullptr;
};

/// The one table of the process; it is ready before any static initialisation.
TRS8_BTL_API TLinks& Links() noexcept;

} // namespace UTL
