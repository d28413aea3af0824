// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"
#include "platform/base/System_String.h"
#include "platform/toolkit/Input.h"

namespace Toolkits
{

class Window;

/// Plays the part of the user: keys and mouse go the way of the toolkit's own events. Tests of forms use it
/// (`Testing::CFormDriver`), so that they see what a user would.
class TRS8_BTL_API InputPlayer
{
public:
    virtual ~InputPlayer();

    /// Does what the windows of the program wait for, such as to be shown or activated.
    virtual void Settle() = 0;
    /// Presses a key and lets it go, in the window that has the keyboard; `character` is what it types, 0 for
    /// nothing.
    virtual void PressKey(Window& window, System::Word key, System::WideChar character,
                          const Classes::TShiftState& shift) = 0;
    /// Brings a text in one piece to the window, as an input method does.
    virtual void InsertText(Window& window, const System::UnicodeString& text) = 0;
    /// Does one thing with the mouse in the window.
    virtual void UseMouse(Window& window, const TMouseInput& mouse) = 0;
};

} // namespace Toolkits
