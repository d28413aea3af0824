// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"
#include "platform/runtime/classes/Classes_Component.h"
#include "platform/visual/graphics/Controls_Cursor.h"

#include <vector>

namespace Classes
{
class TDataModule;
} // namespace Classes

namespace Controls
{
class TControl;
class TWinControl;
} // namespace Controls

namespace Forms
{

class TCustomForm;
class TForm;

/// The screens of the machine, as one rectangle in pixels, the forms and the mouse cursor on them, and the
/// data modules beside. Of the main thread. Its forms and data modules are what
/// `Classes::FindGlobalComponent` finds there by their names, but for those that are at their end.
///
///     for (int i = 0; i < Forms::Screen->getFormCount(); ++i) { Forms::Screen->getForms(i)->Hide(); }
class TRS8_BTL_API TScreen : public Classes::TComponent
{
    TRS8_BTL_CLASS(TScreen, Classes::TComponent)

public:
    TScreen();
    ~TScreen() override;

    Types::TRect getDesktopRect() const;
    int getDesktopLeft() const { return getDesktopRect().Left; }
    int getDesktopTop() const { return getDesktopRect().Top; }
    int getDesktopWidth() const { return getDesktopRect().Width(); }
    int getDesktopHeight() const { return getDesktopRect().Height(); }
    /// The size of the first screen.
    int getWidth() const;
    int getHeight() const;

    /// The cursor over all windows of the program, `crDefault` at first: each control then has its own.
    Controls::TCursor getCursor() const noexcept { return mCursor; }
    void setCursor(Controls::TCursor cursor);

    /// All forms that there are, shown or not, the last active one first; `Classes::EListError` for an index
    /// out of range.
    int getCustomFormCount() const noexcept { return static_cast<int>(mForms.size()); }
    TCustomForm* getCustomForms(int index) const;
    /// As `getCustomForms`, of those that are a `TForm`.
    int getFormCount() const;
    TForm* getForms(int index) const;

    /// All data modules that were made in the main thread, in their order; `Classes::EListError` for an index
    /// out of range.
    int getDataModuleCount() const noexcept { return static_cast<int>(mDataModules.size()); }
    Classes::TDataModule* getDataModules(int index) const;

    /// The form or data module of that name, case aside, that isn't at its end; null if there is none.
    Classes::TComponent* FindRoot(const System::UnicodeString& name) const;

    /// The form that the user works in, or worked in last; null if there is none.
    TCustomForm* getActiveCustomForm() const noexcept { return mActiveForm; }
    TForm* getActiveForm() const;
    /// The control of that form that has the keyboard; null for none.
    Controls::TWinControl* getActiveControl() const noexcept { return mActiveControl; }

    Classes::TNotifyEvent OnActiveFormChange;
    Classes::TNotifyEvent OnActiveControlChange;

    // For forms and data modules.

    void AddForm(TCustomForm* form);
    void RemoveForm(TCustomForm* form) noexcept;
    void AddDataModule(Classes::TDataModule* module);
    void RemoveDataModule(Classes::TDataModule* module) noexcept;
    void ActivationMoved(TCustomForm* form, bool isActive);
    void FocusMoved(Controls::TWinControl* control);
    /// The control is at its end.
    void Forget(const Controls::TControl* control) noexcept;
    /// Destroys the form from the message loop.
    void DestroyLater(TCustomForm* form);

private:
    std::vector<TCustomForm*> mForms;
    std::vector<Classes::TDataModule*> mDataModules;
    TCustomForm* mActiveForm = nullptr;
    Controls::TWinControl* mActiveControl = nullptr;
    Controls::TCursor mCursor = Controls::crDefault;
};

/// The program's screen; stands and stays as `Application` does.
TRS8_BTL_API extern TScreen* Screen;

} // namespace Forms
