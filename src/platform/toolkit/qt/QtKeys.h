// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/Input.h"

#include <Qt>

class QKeyEvent;

namespace Toolkits
{

/// The number of the key; `VK_PACKET` for one that has none but types something, 0 for any other.
System::Word KeyOf(const QKeyEvent& event);

/// The toolkit's key of a number; 0 where it has none.
int ToQtKey(System::Word key);

/// What is held.
Classes::TShiftState ShiftOf(Qt::KeyboardModifiers modifiers, Qt::MouseButtons buttons = Qt::NoButton);
Qt::KeyboardModifiers ToQtModifiers(const Classes::TShiftState& shift);
Qt::MouseButtons ToQtButtons(const Classes::TShiftState& shift);

/// A button by its number and back; any further button of the mouse counts as the middle one.
Controls::TMouseButton ButtonOf(Qt::MouseButton button);
Qt::MouseButton ToQtButton(Controls::TMouseButton button);

} // namespace Toolkits
