// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/messages/Host_Messages.h"

/// The window of the program that the user works in; null if there is none.
///
///     const HWND former = GetForegroundWindow();
///     SetForegroundWindow(Controls::GetHandle(*form));
TRS8_BTL_API HWND GetForegroundWindow();
/// Lets the user work in the form that `window` is, or stands on: brings it in front of the program's others
/// and gives it the keyboard. False with the last error set if it is none of this program's, isn't shown or
/// enabled, or the user is kept from it, as by a modal form.
TRS8_BTL_API bool SetForegroundWindow(HWND window);
