// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtKeys.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <span>

namespace Toolkits
{

namespace
{

struct TKey
{
    int qtKey;
    System::Word key;
};

/// Of two rows with one number the first is the key that it stands for.
constexpr std::array Keys = {
    TKey{Qt::Key_Backspace, VK_BACK},   TKey{Qt::Key_Tab, VK_TAB},       TKey{Qt::Key_Backtab, VK_TAB},
    TKey{Qt::Key_Return, VK_RETURN},    TKey{Qt::Key_Enter, VK_RETURN},  TKey{Qt::Key_Shift, VK_SHIFT},
    TKey{Qt::Key_Control, VK_CONTROL},  TKey{Qt::Key_Alt, VK_MENU},      TKey{Qt::Key_Pause, VK_PAUSE},
    TKey{Qt::Key_CapsLock, VK_CAPITAL}, TKey{Qt::Key_Escape, VK_ESCAPE}, TKey{Qt::Key_Space, VK_SPACE},
    TKey{Qt::Key_PageUp, VK_PRIOR},     TKey{Qt::Key_PageDown, VK_NEXT}, TKey{Qt::Key_End, VK_END},
    TKey{Qt::Key_Home, VK_HOME},        TKey{Qt::Key_Left, VK_LEFT},     TKey{Qt::Key_Up, VK_UP},
    TKey{Qt::Key_Right, VK_RIGHT},      TKey{Qt::Key_Down, VK_DOWN},     TKey{Qt::Key_Insert, VK_INSERT},
    TKey{Qt::Key_Delete, VK_DELETE},    TKey{Qt::Key_Menu, VK_APPS}};

/// Keys of the block of digits whose numbers are their own.
constexpr std::array PadKeys = {TKey{Qt::Key_Asterisk, VK_MULTIPLY}, TKey{Qt::Key_Plus, VK_ADD},
                                TKey{Qt::Key_Minus, VK_SUBTRACT},    TKey{Qt::Key_Period, VK_DECIMAL},
                                TKey{Qt::Key_Comma, VK_DECIMAL},     TKey{Qt::Key_Slash, VK_DIVIDE}};

constexpr bool IsDigit(int key)
{
    return key >= Qt::Key_0 && key <= Qt::Key_9;
}

constexpr bool IsLetter(int key)
{
    return key >= Qt::Key_A && key <= Qt::Key_Z;
}

System::Word PadKeyOf(int key)
{
    if (IsDigit(key)) {
        return static_cast<System::Word>(VK_NUMPAD0 + key - Qt::Key_0);
    }
    const auto* const found = std::ranges::find(PadKeys, key, &TKey::qtKey);
    return found == PadKeys.end() ? System::Word{0} : found->key;
}

} // namespace

System::Word KeyOf(const QKeyEvent& event)
{
    const int key = event.key();
    if (event.modifiers().testFlag(Qt::KeypadModifier)) {
        if (const System::Word pad = PadKeyOf(key)) {
            return pad;
        }
    }
    if (IsDigit(key) || IsLetter(key)) {
        return static_cast<System::Word>(key);
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) {
        return static_cast<System::Word>(VK_F1 + key - Qt::Key_F1);
    }
    const auto* const found = std::ranges::find(Keys, key, &TKey::qtKey);
    if (found != Keys.end()) {
        return found->key;
    }
    return event.text().isEmpty() ? System::Word{0} : VK_PACKET;
}

int ToQtKey(System::Word key)
{
    if (IsDigit(key) || IsLetter(key)) {
        return key;
    }
    if (key >= VK_F1 && key <= VK_F24) {
        return Qt::Key_F1 + key - VK_F1;
    }
    if (key >= VK_NUMPAD0 && key < VK_MULTIPLY) {
        return Qt::Key_0 + key - VK_NUMPAD0;
    }
    for (const auto& keys : {std::span<const TKey>(Keys), std::span<const TKey>(PadKeys)}) {
        const auto found = std::ranges::find(keys, key, &TKey::key);
        if (found != keys.end()) {
            return found->qtKey;
        }
    }
    return 0;
}

Classes::TShiftState ShiftOf(Qt::KeyboardModifiers modifiers, Qt::MouseButtons buttons)
{
    Classes::TShiftState shift;
    const auto add = [&](bool isHeld, Classes::TShiftStateFlag flag) {
        if (isHeld) {
            shift << flag;
        }
    };
    add(modifiers.testFlag(Qt::ShiftModifier), Classes::ssShift);
    add(modifiers.testFlag(Qt::AltModifier), Classes::ssAlt);
    add(modifiers.testFlag(Qt::ControlModifier), Classes::ssCtrl);
    add(buttons.testFlag(Qt::LeftButton), Classes::ssLeft);
    add(buttons.testFlag(Qt::RightButton), Classes::ssRight);
    add(buttons.testFlag(Qt::MiddleButton), Classes::ssMiddle);
    return shift;
}

Qt::KeyboardModifiers ToQtModifiers(const Classes::TShiftState& shift)
{
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, shift.Contains(Classes::ssShift));
    modifiers.setFlag(Qt::AltModifier, shift.Contains(Classes::ssAlt));
    modifiers.setFlag(Qt::ControlModifier, shift.Contains(Classes::ssCtrl));
    return modifiers;
}

Qt::MouseButtons ToQtButtons(const Classes::TShiftState& shift)
{
    Qt::MouseButtons buttons;
    buttons.setFlag(Qt::LeftButton, shift.Contains(Classes::ssLeft));
    buttons.setFlag(Qt::RightButton, shift.Contains(Classes::ssRight));
    buttons.setFlag(Qt::MiddleButton, shift.Contains(Classes::ssMiddle));
    return buttons;
}

Controls::TMouseButton ButtonOf(Qt::MouseButton button)
{
    switch (button) {
    case Qt::NoButton:
    case Qt::LeftButton:
        return Controls::mbLeft;
    case Qt::RightButton:
        return Controls::mbRight;
    default:
        return Controls::mbMiddle;
    }
}

Qt::MouseButton ToQtButton(Controls::TMouseButton button)
{
    constexpr std::array buttons = {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
    return buttons[static_cast<std::size_t>(button)];
}

} // namespace Toolkits
