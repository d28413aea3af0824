// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

namespace Toolkits
{

/// Called in a handler, for what a posted action or a tick raised in a message loop that isn't the library's,
/// as that of a program that runs Qt itself, and that lets no exception through. The application shows it;
/// null ends the program.
TRS8_BTL_API extern void (*HandleLoopException)();

/// Called once when the screen is lost, as by the end of the display's server, by a toolkit whose windows go
/// with it and the program as well. No box can be seen any more, so the headless toolkit is in use. The
/// application has the program save its data; null does nothing.
TRS8_BTL_API extern void (*HandleScreenLoss)();

/// For a toolkit that noticed it: tells it on the standard error stream, puts the headless toolkit in place
/// of the current one, which stays for the windows that are left, and calls `HandleScreenLoss`. What that
/// raises is told, too.
TRS8_BTL_API void TellScreenLoss() noexcept;

} // namespace Toolkits
