// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/toolkit/Input.h"

namespace System
{
class TObject;
} // namespace System

namespace Controls
{

class TControl;
class TWinControl;

/// What a control asks of the form that it stands on.
class TRS8_BTL_API AFormHost
{
public:
    virtual ~AFormHost();

    /// Lets `control`, which stands on the form, have the keyboard while the form has it.
    virtual void FocusControl(TWinControl* control) = 0;
    /// `control` can no longer have it: it is hidden, disabled, or `isRemoving` from the form.
    virtual void DefocusControl(TWinControl* control, bool isRemoving) = 0;
    /// The control of the form that has the keyboard, or will have it; null for none.
    virtual TWinControl* getActiveControl() const = 0;

    /// The form looks at a key before its control does: true, or 0 in `key`, keeps it.
    virtual bool PreviewKeyDown(System::Word& key, Classes::TShiftState shift) = 0;
    virtual bool PreviewKeyUp(System::Word& key, Classes::TShiftState shift) = 0;
    virtual bool PreviewKeyPress(System::WideChar& key) = 0;
    /// Whether the key is a shortcut of the form's menus, which then was done.
    virtual bool IsShortCut(System::Word key, Classes::TShiftState shift) = 0;

    /// Ends a modal form with a result other than 0.
    virtual void setModalResult(int result) = 0;
    virtual int getModalResult() const = 0;
};

/// The form that `control` stands on, or is; null for none, and for null.
TRS8_BTL_API AFormHost* FindFormHost(const TControl* control) noexcept;

/// What controls ask of the application. The room of forms fills it in while the program starts; a null
/// pointer does nothing, but for `HandleException`, without which an exception ends the program.
struct TApplicationLinks
{
    /// Shows, or hands to the program, the exception that is being handled. Called in a handler.
    void (*HandleException)(System::TObject* sender) = nullptr;
    /// The mouse came over `control`, or over none for null.
    void (*MouseMoved)(TControl* control) = nullptr;
    /// The control is at its end; nobody may know it any more.
    void (*ControlDestroyed)(TControl* control) = nullptr;
};

/// The one table of the process.
TRS8_BTL_API TApplicationLinks& ApplicationLinks() noexcept;

} // namespace Controls
