// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"
#include "platform/base/System_Types.h"

#include <cstdint>

// Texts for a window of another process of the user's session, found by its title, and the answer to them.
//
//     const std::u16string text = u"-open a.chart";
//     COPYDATASTRUCT data{0xFFFFFFFF, (text.size() + 1) * 2, text.c_str()};
//     const HWND window = FindWindowW(nullptr, u"Station");
//     const std::intptr_t answer = SendMessageA(window, WM_COPYDATA, 0,
//     reinterpret_cast<std::intptr_t>(&data));
//
// With each message go the sender's current folder and the token by which the desktop lets a window come to
// the front, see `Toolkits::MessageWindow`, which is the receiver. Titles of other users are apart from
// these.

/// Stands for a window, or is null. That of a window which was found by its title stands for the next window
/// of this title when it is gone, and is never given back.
using HWND = void*;

/// The message that carries bytes to another process; its parameter is a `COPYDATASTRUCT`.
inline constexpr unsigned WM_COPYDATA = 74;

/// The bytes of a `WM_COPYDATA`.
struct COPYDATASTRUCT
{
    /// Any number.
    std::uintptr_t dwData = 0;
    /// How many bytes there are, at most 1 GiB.
    unsigned long cbData = 0;
    /// The bytes; of the caller.
    const void* lpData = nullptr;
};

/// The message window with this title, of any process of the user's session; if there are several, one of the
/// calling process, else the last one made. Null if there is none, for a null title, and for a class that
/// isn't null: no window has one.
TRS8_BTL_API HWND FindWindowW(const System::WideChar* className, const System::WideChar* title);

/// Sends the message and waits, without limit, until the window's process has handled it in its message loop;
/// gives the result. A control of this process, by its handle, gets any message, at once in the main thread.
/// From the thread that owns the window it is handled at once. 0 with the last error set: 1400 if there is no
/// such window (any more), also if its process ends meanwhile; 50 for another message than `WM_COPYDATA`; 87
/// for a null structure, null data of a length, and for more than 1 GiB.
///
/// A sender that ends before its turn came isn't served. A loop that waits for a sender of its own process's
/// other thread, or two processes that send to each other at once, wait for ever.
TRS8_BTL_API std::intptr_t SendMessageA(HWND window, unsigned message, std::uintptr_t wParam,
                                        std::intptr_t lParam);

/// As `SendMessageA`, but for at most `milliseconds`, 0xFFFFFFFF for no limit. True with the window's answer
/// in `result`, which may be null. Otherwise false, with the last error 1460 if it was the time; `result` is
/// 0 then. `flags` are not looked at.
TRS8_BTL_API bool SendMessageTimeoutA(HWND window, unsigned message, std::uintptr_t wParam,
                                      std::intptr_t lParam, unsigned flags, unsigned long milliseconds,
                                      std::uintptr_t* result);

namespace Host
{

/// Hands a message to the control of this process that `window` stands for; false if it stands for none. The
/// room of controls fills it in with the first handle.
using FSendToControl = bool (*)(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam,
                                std::intptr_t& result);
TRS8_BTL_API extern FSendToControl SendToControl;

} // namespace Host
