// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"
#include "platform/base/System_Types.h"

// The flags of a box: a set of buttons, plus an icon.
inline constexpr unsigned MB_OK = 0;
inline constexpr unsigned MB_OKCANCEL = 1;
inline constexpr unsigned MB_ABORTRETRYIGNORE = 2;
inline constexpr unsigned MB_YESNOCANCEL = 3;
inline constexpr unsigned MB_YESNO = 4;
inline constexpr unsigned MB_RETRYCANCEL = 5;
inline constexpr unsigned MB_TYPEMASK = 15;
inline constexpr unsigned MB_ICONSTOP = 16;
inline constexpr unsigned MB_ICONQUESTION = 32;
inline constexpr unsigned MB_ICONWARNING = 48;
inline constexpr unsigned MB_ICONINFORMATION = 64;
inline constexpr unsigned MB_ICONMASK = 240;

// The answers: the button that closed the box.
inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDABORT = 3;
inline constexpr int IDRETRY = 4;
inline constexpr int IDIGNORE = 5;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;

/// Shows a box through the current toolkit and waits for its answer. `owner` is the window it belongs to, or
/// null. A null `text` counts as empty; a null `caption` as "Error".
///
///     if (MessageBoxW(nullptr, u"Overwrite?", u"Station", MB_YESNO | MB_ICONQUESTION) == IDYES) { ... }
TRS8_BTL_API int MessageBoxW(void* owner, const System::WideChar* text, const System::WideChar* caption,
                             unsigned flags);
