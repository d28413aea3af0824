// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

/// How this program was called, as one text that stays as long as the process: its name and its arguments as
/// they came, `/` included, parted by blanks and quoted where it takes that, so that `Host::SplitArguments`
/// gives them back. Empty if the host doesn't tell.
///
///     const auto arguments = Host::SplitArguments(GetCommandLineW());      // arguments[0] is the program
[[nodiscard]] TRS8_BTL_API const System::WideChar* GetCommandLineW();
