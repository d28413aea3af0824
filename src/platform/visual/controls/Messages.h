// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/messages/Host_Messages.h" // IWYU pragma: export

#include <cstdint>

// The messages that controls send themselves and each other, by number. What the user does and what changes
// in a control reaches it as one of them, so a class that overrides `Dispatch` sees it first.
//
//     void TProbe::Dispatch(void* message)
//     {
//         if (static_cast<Messages::TMessage*>(message)->Msg == CM_ENABLEDCHANGED) { ... }
//         TEdit::Dispatch(message);
//     }

// Of windows.
inline constexpr unsigned WM_MOVE = 3;
inline constexpr unsigned WM_SIZE = 5;
inline constexpr unsigned WM_ACTIVATE = 6;
inline constexpr unsigned WM_SETFOCUS = 7;
inline constexpr unsigned WM_KILLFOCUS = 8;
inline constexpr unsigned WM_PAINT = 15;
inline constexpr unsigned WM_CLOSE = 16;
/// Of a box: its mark. Both give or take 0, 1 and 2.
inline constexpr unsigned BM_GETCHECK = 240;
inline constexpr unsigned BM_SETCHECK = 241;
inline constexpr unsigned BM_CLICK = 245;
inline constexpr unsigned WM_KEYDOWN = 256;
inline constexpr unsigned WM_KEYUP = 257;
inline constexpr unsigned WM_CHAR = 258;
inline constexpr unsigned WM_TIMER = 275;
/// Of a combo box: what the names say. An item that isn't there gives -1.
inline constexpr unsigned CB_GETCOUNT = 326;
inline constexpr unsigned CB_GETCURSEL = 327;
inline constexpr unsigned CB_SETCURSEL = 334;
inline constexpr unsigned CB_SHOWDROPDOWN = 335;
inline constexpr unsigned CB_GETITEMDATA = 336;
inline constexpr unsigned CB_SETITEMDATA = 337;
inline constexpr unsigned CB_GETDROPPEDSTATE = 343;
/// Of a list box, as those of a combo box.
inline constexpr unsigned LB_SETCURSEL = 390;
inline constexpr unsigned LB_GETSEL = 391;
inline constexpr unsigned LB_GETCURSEL = 392;
inline constexpr unsigned LB_GETCOUNT = 395;
inline constexpr unsigned LB_GETITEMDATA = 409;
inline constexpr unsigned LB_SETITEMDATA = 410;
inline constexpr unsigned WM_MOUSEMOVE = 512;
inline constexpr unsigned WM_LBUTTONDOWN = 513;
inline constexpr unsigned WM_LBUTTONUP = 514;
inline constexpr unsigned WM_LBUTTONDBLCLK = 515;
inline constexpr unsigned WM_RBUTTONDOWN = 516;
inline constexpr unsigned WM_RBUTTONUP = 517;
inline constexpr unsigned WM_RBUTTONDBLCLK = 518;
inline constexpr unsigned WM_MBUTTONDOWN = 519;
inline constexpr unsigned WM_MBUTTONUP = 520;
inline constexpr unsigned WM_MBUTTONDBLCLK = 521;
inline constexpr unsigned WM_MOUSEWHEEL = 522;
inline constexpr unsigned WM_DROPFILES = 563;
inline constexpr unsigned WM_CUT = 768;
inline constexpr unsigned WM_COPY = 769;
inline constexpr unsigned WM_PASTE = 770;
inline constexpr unsigned WM_CLEAR = 771;
inline constexpr unsigned WM_UNDO = 772;
/// The first number that a program may use as it likes.
inline constexpr unsigned WM_USER = 1024;

// Of controls, to themselves or from parent to child.
inline constexpr unsigned CM_BASE = 45056;
inline constexpr unsigned CM_ACTIVATE = CM_BASE + 0;
inline constexpr unsigned CM_DEACTIVATE = CM_BASE + 1;
inline constexpr unsigned CM_DIALOGKEY = CM_BASE + 5;
inline constexpr unsigned CM_DIALOGCHAR = CM_BASE + 6;
inline constexpr unsigned CM_FOCUSCHANGED = CM_BASE + 7;
inline constexpr unsigned CM_PARENTFONTCHANGED = CM_BASE + 8;
inline constexpr unsigned CM_PARENTCOLORCHANGED = CM_BASE + 9;
inline constexpr unsigned CM_PARENTCTL3DCHANGED = CM_BASE + 10;
inline constexpr unsigned CM_VISIBLECHANGED = CM_BASE + 11;
inline constexpr unsigned CM_ENABLEDCHANGED = CM_BASE + 12;
inline constexpr unsigned CM_COLORCHANGED = CM_BASE + 13;
inline constexpr unsigned CM_FONTCHANGED = CM_BASE + 14;
inline constexpr unsigned CM_CURSORCHANGED = CM_BASE + 15;
inline constexpr unsigned CM_CTL3DCHANGED = CM_BASE + 16;
inline constexpr unsigned CM_TEXTCHANGED = CM_BASE + 18;
inline constexpr unsigned CM_MOUSEENTER = CM_BASE + 19;
inline constexpr unsigned CM_MOUSELEAVE = CM_BASE + 20;
inline constexpr unsigned CM_BUTTONPRESSED = CM_BASE + 21;
inline constexpr unsigned CM_SHOWINGCHANGED = CM_BASE + 23;
inline constexpr unsigned CM_ENTER = CM_BASE + 26;
inline constexpr unsigned CM_EXIT = CM_BASE + 27;
inline constexpr unsigned CM_SHOWHINTCHANGED = CM_BASE + 33;
inline constexpr unsigned CM_PARENTSHOWHINTCHANGED = CM_BASE + 34;
/// The control in `WParam` is about to come into the receiver, with 1 in `LParam`, which a handler may refuse
/// by an exception; or it is gone, and nothing but its address is of use then.
inline constexpr unsigned CM_CONTROLLISTCHANGE = CM_BASE + 36;
/// The control in `WParam` came into the receiver, with 1 in `LParam`, or is about to be put elsewhere; one
/// that is destroyed isn't told of.
inline constexpr unsigned CM_CONTROLCHANGE = CM_BASE + 37;
inline constexpr unsigned CM_MOUSEWHEEL = CM_BASE + 66;
inline constexpr unsigned CM_TABSTOPCHANGED = CM_BASE + 40;
inline constexpr unsigned CM_HINTSHOW = CM_BASE + 46;
inline constexpr unsigned CM_BIDIMODECHANGED = CM_BASE + 52;
inline constexpr unsigned CM_PARENTBIDIMODECHANGED = CM_BASE + 53;

namespace Messages
{

/// A message on its way through `Dispatch`. The meaning of the two parameters and of the result is the
/// number's; a message that nobody handles keeps the result 0.
struct TMessage
{
    unsigned Msg = 0;
    std::uintptr_t WParam = 0;
    std::intptr_t LParam = 0;
    std::intptr_t Result = 0;
};

/// `WM_COPYDATA` as a message: bytes that another process sends.
struct TWMCopyData
{
    unsigned Msg = WM_COPYDATA;
    /// What the sender gave for its window.
    std::uintptr_t From = 0;
    /// Valid during the call.
    const COPYDATASTRUCT* CopyDataStruct = nullptr;
    std::intptr_t Result = 0;
};

} // namespace Messages
