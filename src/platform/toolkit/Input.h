// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Set.h"
#include "platform/base/System_Types.h"
#include "platform/base/Types.h"

namespace Classes
{

/// A key or button that is held, or that a click was a double one.
enum TShiftStateFlag
{
    ssShift,
    ssAlt,
    ssCtrl,
    ssLeft,
    ssRight,
    ssMiddle,
    ssDouble
};

/// What is held while something happens: `shift.Contains(ssCtrl)`.
using TShiftState = System::Set<TShiftStateFlag, ssShift, ssDouble>;

} // namespace Classes

namespace Controls
{

/// A button of the mouse.
enum TMouseButton
{
    mbLeft,
    mbRight,
    mbMiddle
};

} // namespace Controls

// Keys by number, as events give them; letters and digits are those of their characters in capitals.
inline constexpr System::Word VK_BACK = 8;
inline constexpr System::Word VK_TAB = 9;
inline constexpr System::Word VK_RETURN = 13;
inline constexpr System::Word VK_SHIFT = 16;
inline constexpr System::Word VK_CONTROL = 17;
inline constexpr System::Word VK_MENU = 18;
inline constexpr System::Word VK_PAUSE = 19;
inline constexpr System::Word VK_CAPITAL = 20;
inline constexpr System::Word VK_ESCAPE = 27;
inline constexpr System::Word VK_SPACE = 32;
inline constexpr System::Word VK_PRIOR = 33;
inline constexpr System::Word VK_NEXT = 34;
inline constexpr System::Word VK_END = 35;
inline constexpr System::Word VK_HOME = 36;
inline constexpr System::Word VK_LEFT = 37;
inline constexpr System::Word VK_UP = 38;
inline constexpr System::Word VK_RIGHT = 39;
inline constexpr System::Word VK_DOWN = 40;
inline constexpr System::Word VK_INSERT = 45;
inline constexpr System::Word VK_DELETE = 46;
inline constexpr System::Word VK_APPS = 93;
inline constexpr System::Word VK_NUMPAD0 = 96;
inline constexpr System::Word VK_MULTIPLY = 106;
inline constexpr System::Word VK_ADD = 107;
inline constexpr System::Word VK_SUBTRACT = 109;
inline constexpr System::Word VK_DECIMAL = 110;
inline constexpr System::Word VK_DIVIDE = 111;
/// The keys F1 to F24 follow each other from here.
inline constexpr System::Word VK_F1 = 112;
inline constexpr System::Word VK_F2 = 113;
inline constexpr System::Word VK_F4 = 115;
inline constexpr System::Word VK_F5 = 116;
inline constexpr System::Word VK_F10 = 121;
inline constexpr System::Word VK_F11 = 122;
inline constexpr System::Word VK_F12 = 123;
inline constexpr System::Word VK_F24 = 135;
/// Text that no key of its own makes is about to come: from an input method or in one piece, or a character.
inline constexpr System::Word VK_PROCESSKEY = 229;
inline constexpr System::Word VK_PACKET = 231;

namespace Toolkits
{

/// What the mouse does.
enum class EMouseAction
{
    Move,
    Down,
    Up,
    DoubleClick,
    Wheel,
    /// The mouse leaves the window; the place says nothing then.
    Leave
};

/// One thing that the mouse does in a window.
struct TMouseInput
{
    EMouseAction action = EMouseAction::Move;
    Controls::TMouseButton button = Controls::mbLeft;
    /// What is held, the buttons of the mouse among it.
    Classes::TShiftState shift = {};
    /// In the window's client area.
    Types::TPoint place = {};
    /// Of the wheel: 120 for a notch away from the user.
    int wheelDelta = 0;
};

} // namespace Toolkits
