// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/toolkit/Input.h"
#include "platform/visual/forms/Forms_Form.h"

#include <string>

namespace Testing
{

/// Uses a form as its user does: by the names of its controls, with keys and mouse. What an event's handler
/// raises goes to the application, as it does on a screen. On a toolkit with windows, keys and mouse go by
/// way of its own events.
///
///     Testing::CFormDriver driver(*form);
///     driver.Focus(u"fEdit");
///     driver.Type(u"12,5");
///     driver.Press(VK_TAB);
///     driver.Click(u"fBtn_Ok");
///     std::cout << driver.Print();
class TRS8_BTL_API CFormDriver
{
public:
    /// `form` outlives the driver.
    explicit CFormDriver(Forms::TCustomForm& form) noexcept : mForm(form) {}

    /// The control of that name path: "fEdit", or "fFrame.fEdit" within a frame. `std::invalid_argument` if
    /// there is none.
    Controls::TControl& Find(const System::UnicodeString& name) const;

    /// Presses and lets go the left button of the mouse in the middle of the control, or at a place in it.
    /// `std::logic_error` for one that can't be seen or used.
    void Click(const System::UnicodeString& name);
    void Click(const System::UnicodeString& name, Types::TPoint place);
    void DoubleClick(const System::UnicodeString& name);
    /// Clicks on a cell of a grid. `std::logic_error` for any other control and for a cell out of sight.
    void ClickCell(const System::UnicodeString& name, int col, int row);
    /// As `Click`, once the message loop comes to it; nothing happens if the form has no window by then.
    void ClickSoon(const System::UnicodeString& name);
    /// Picks an item of a list or a combo box, as by a click on it in the open list. `std::logic_error` for a
    /// control that can't be seen or used.
    void Choose(const System::UnicodeString& name, int index);
    /// One thing that the mouse does over the control.
    void Mouse(const System::UnicodeString& name, const Toolkits::TMouseInput& mouse);

    /// Chooses an item of the form's menu by the captions on the way to it, without marks, with a `|`
    /// between: "File|Open...". `std::invalid_argument` for one that isn't there, `std::logic_error` for one
    /// that can't be seen or used.
    void ChooseMenu(const System::UnicodeString& path);

    /// Gives the control the focus by a click of the mouse in no place, as `SetFocus` does.
    void Focus(const System::UnicodeString& name);
    /// The name path of the control that has the focus; empty for none.
    System::UnicodeString Focused() const;
    /// Presses a key and lets it go, in the control that has the focus; keys that make a character type it
    /// too.
    void Press(System::Word key, const Classes::TShiftState& shift = {});
    /// Types each character of the text by a key of its own.
    void Type(const System::UnicodeString& text);
    /// Brings a text in one piece to the edit that has the focus, in place of its selection, as an input
    /// method or a drop does. `std::logic_error` if what has the focus is no edit.
    void Insert(const System::UnicodeString& text);

    /// The form and its controls, one a line, each level two blanks to the right: class, name, bounds, text
    /// and what isn't usual of its state. Below a grid of strings stand its cells in sight.
    std::string Print() const;

private:
    Controls::TWinControl* KeyTarget() const;
    /// False if the toolkit has nobody who plays the user.
    bool PlayKey(System::Word key, System::WideChar character, const Classes::TShiftState& shift);
    void TypeCharacter(System::WideChar character);

    Forms::TCustomForm& mForm;
};

} // namespace Testing
