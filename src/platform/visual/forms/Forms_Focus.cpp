// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/visual/forms/Forms_Form.h"
#include "platform/visual/forms/Forms_Screen.h"
#include "platform/visual/menus/Menus.h"

// The keyboard of a form.

namespace Forms
{

using Classes::TComponentWatch;
using Controls::TWinControl;

void TCustomForm::setActiveControl(TWinControl* control)
{
    if (control == mActiveControl) {
        return;
    }
    const bool isOnForm = control == nullptr || (control != this && ContainsControl(control));
    if (!isOnForm || (control != nullptr && !IsLoading() && !control->CanFocus())) {
        throw Classes::EInvalidOperation(u"Cannot focus a disabled or invisible window");
    }
    mActiveControl = control;
    if (!IsLoading() && mIsActive) {
        FocusWindow();
    }
}

void TCustomForm::FocusControl(TWinControl* control)
{
    const TComponentWatch watch(this);
    const bool wasActive = mIsActive;
    setActiveControl(control == this ? nullptr : control);
    if (!watch.IsAlive()) {
        return;
    }
    if (!wasActive && getShowing()) {
        SetFocus();
    } else if (control == mActiveControl && !control->Focused() && control->GetWindow() != nullptr) {
        // It was chosen before it had a window, as one that lies deep is while its form is shown.
        control->GetWindow()->Focus();
    }
}

void TCustomForm::DefocusControl(TWinControl* control, bool isRemoving)
{
    if (isRemoving && control->ContainsControl(mFocusedControl)) {
        mFocusedControl = control->getParent() == nullptr ? this : control->getParent();
    }
    if (mActiveControl != nullptr && control->ContainsControl(mActiveControl)) {
        setActiveControl(nullptr);
    }
}

void TCustomForm::SetFocus()
{
    if (!getShowing() || !getEnabled()) {
        throw Classes::EInvalidOperation(u"Cannot focus a disabled or invisible window");
    }
    if (!mIsActive && GetWindow() != nullptr) {
        GetWindow()->Focus();
    }
}

void TCustomForm::FocusWindow()
{
    TWinControl* const target = mActiveControl == nullptr ? this : mActiveControl;
    const TComponentWatch watch(this);
    const TComponentWatch targetWatch(target);
    if (!SetFocusedControl(target) || !watch.IsAlive() || !targetWatch.IsAlive()) {
        return;
    }
    if (target != this && target->GetWindow() != nullptr) {
        target->GetWindow()->Focus();
    } else if (TWinControl* const focused = Controls::GetFocusedControl();
               focused != nullptr && ContainsControl(focused)) {
        focused->Perform(WM_KILLFOCUS);
    }
}

bool TCustomForm::SetFocusedControl(TWinControl* control)
{
    const unsigned ticket = ++mFocusTicket;
    const TComponentWatch watch(this);
    const TComponentWatch targetWatch(control);
    const auto isOvertaken = [&] {
        return !watch.IsAlive() || !targetWatch.IsAlive() || ticket != mFocusTicket;
    };
    while (mFocusedControl != this && !mFocusedControl->ContainsControl(control)) {
        TWinControl* const left = mFocusedControl;
        mFocusedControl = left->getParent();
        try {
            left->Perform(CM_EXIT);
        } catch (...) {
            // Whoever refuses to be left keeps the keyboard.
            if (!isOvertaken() && ContainsControl(left)) {
                mFocusedControl = left;
                mActiveControl = left;
            }
            throw;
        }
        if (isOvertaken()) {
            return false;
        }
    }
    while (mFocusedControl != control) {
        TWinControl* entered = control;
        while (entered->getParent() != mFocusedControl) {
            entered = entered->getParent();
        }
        mFocusedControl = entered;
        entered->Perform(CM_ENTER);
        if (isOvertaken()) {
            return false;
        }
    }
    Screen->FocusMoved(mActiveControl);
    if (isOvertaken()) {
        return false;
    }
    // Each control on the form may ask it who has the focus now, as the default button does.
    Perform(CM_FOCUSCHANGED, 0, reinterpret_cast<std::intptr_t>(control));
    return !isOvertaken();
}

void TCustomForm::ActivationChangedOnScreen(bool isActive)
{
    if (isActive == mIsActive || (isActive && IsDestroying())) {
        return;
    }
    mIsActive = isActive;
    const TComponentWatch watch(this);
    Screen->ActivationMoved(this, isActive);
    if (!isActive) {
        mFormState >> fsActivated;
        if (!IsDestroying()) {
            Deactivate();
        }
        return;
    }
    mFormState << fsActivated;
    if (mActiveControl == nullptr || !mActiveControl->CanFocus()) {
        FocusFirst();
    }
    if (watch.IsAlive() && mIsActive) {
        FocusWindow();
    }
    if (watch.IsAlive() && mIsActive) {
        Activate();
    }
}

void TCustomForm::FocusFirst()
{
    mActiveControl = FindNextControl(nullptr, true, true, false);
}

bool TCustomForm::PreviewKeyDown(System::Word& key, Classes::TShiftState shift)
{
    if (mKeyPreview && Controls::GetFocusedControl() != this) {
        KeyDown(key, shift);
    }
    return key == 0;
}

bool TCustomForm::PreviewKeyUp(System::Word& key, Classes::TShiftState shift)
{
    if (mKeyPreview && Controls::GetFocusedControl() != this) {
        KeyUp(key, shift);
    }
    return key == 0;
}

bool TCustomForm::PreviewKeyPress(System::WideChar& key)
{
    if (mKeyPreview && Controls::GetFocusedControl() != this) {
        KeyPress(key);
    }
    return key == 0;
}

bool TCustomForm::IsShortCut(System::Word key, Classes::TShiftState shift)
{
    const TComponentWatch watch(this);
    bool isHandled = false;
    if (OnShortCut) {
        OnShortCut(this, key, shift, isHandled);
    }
    if (isHandled || !watch.IsAlive()) {
        return true;
    }
    return mMenu != nullptr && mMenu->DispatchShortCut(Menus::ShortCut(key, shift));
}

bool TCustomForm::DialogKey(System::Word key, const Classes::TShiftState& shift)
{
    if (shift.Contains(Classes::ssAlt)) {
        return false;
    }
    switch (key) {
    case VK_F10:
        return shift == Classes::TShiftState() && OpenFirstMenu();
    case VK_TAB:
        if (shift.Contains(Classes::ssCtrl)) {
            return false;
        }
        SelectNext(mActiveControl, !shift.Contains(Classes::ssShift), true);
        return true;
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
        if (mActiveControl == nullptr) {
            return false;
        }
        mActiveControl->getParent()->SelectNext(mActiveControl, key == VK_RIGHT || key == VK_DOWN, false);
        return true;
    default:
        return false;
    }
}

} // namespace Forms
