// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/messages/Host_Messages.h"

namespace Controls
{

class TWinControl;

// Windowed controls as opaque handles. `::SendMessageA` to one goes through the control's `Dispatch`.
//
//     const HWND window = Controls::GetHandle(*form);             // makes the window if there is none
//     Controls::FindControl(window) == form;                      // true until the form is gone

/// The handle of a control, which is valid as long as the control is there. `Classes::EInvalidOperation` as
/// of `TWinControl::HandleNeeded`.
[[nodiscard]] TRS8_BTL_API HWND GetHandle(TWinControl& control);
/// The control that the handle was given for; null if there is none, or none any more.
[[nodiscard]] TRS8_BTL_API TWinControl* FindControl(HWND window);

} // namespace Controls
