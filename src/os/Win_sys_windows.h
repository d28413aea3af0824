// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/messages/Host_Messages.h"

namespace Classes
{
class TStrings;
} // namespace Classes

namespace Controls
{
struct TDroppedFiles;
} // namespace Controls

namespace WIN
{

/// Lets the user work in the window, as `::SetForegroundWindow`. Of the main thread, to which all windows
/// belong.
///
///     WIN::SetForegroundWindowEx(Controls::GetHandle(*form));
TRS8_BTL_API bool SetForegroundWindowEx(HWND window);

/// Takes the full paths of the dropped files, as `WM_DROPFILES` has them, in place of all that was in `list`,
/// and gives the handle up by `::DragFinish`. A null list gets nothing.
TRS8_BTL_API void DragQueryFiles(Controls::TDroppedFiles* drop, Classes::TStrings* list);

} // namespace WIN
