// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_CustomControl.h"

namespace Stdctrls
{

/// Base of all that is pressed: by the mouse, by the space bar, by the character that its caption marks with
/// `&`. A press focuses the control first; the mouse presses where it is let go, before `OnMouseUp`.
class TRS8_BTL_API TButtonControl : public Controls::TCustomControl
{
    TRS8_BTL_CLASS(TButtonControl, Controls::TCustomControl)

public:
    explicit TButtonControl(Classes::TComponent* owner = nullptr);
    ~TButtonControl() override;

    void Dispatch(void* message) override;

    /// Whether a long caption takes several lines; off at first.
    bool getWordWrap() const noexcept { return mWordWrap; }
    void setWordWrap(bool isOn);

protected:
    /// The mark of a box or of a radio button; a button has none.
    bool getChecked() const { return GetChecked(); }
    void setChecked(bool isChecked) { SetChecked(isChecked); }
    virtual bool GetChecked() const { return false; }
    virtual void SetChecked(bool isChecked);
    /// Whether a change of the mark isn't a click.
    bool getClicksDisabled() const noexcept { return mClicksDisabled; }
    void setClicksDisabled(bool isOn) noexcept { mClicksDisabled = isOn; }

    /// The user pressed it: by itself a click.
    virtual void Press();
    /// The marked character was typed: by itself a press.
    virtual void PressMark();
    /// Whether the mouse or the space bar holds it down just now.
    bool IsHeldDown() const noexcept { return mIsMouseInside || mIsSpaceDown; }
    /// What is told the native window when it has just been made.
    virtual void TellWindow(Toolkits::Window&) {}

    bool WantsChars() const override { return false; }
    bool ActOnKey(System::Word key, Classes::TShiftState shift) override;
    void ChosenInWindow(int index) override;
    void CreateWnd() override;

private:
    bool DispatchMouse(void* record);
    /// The window acts on the mouse, but who has the focus is the form's to know; true if the control is
    /// gone.
    bool FocusByMouse(const Messages::TMessage& message);
    void MouseLetGo(void* record);
    void SpaceLetGo(void* record);
    void FollowMouse(const Messages::TMessage& message);
    void CharacterMarked(Messages::TMessage& message);

    bool mIsMouseDown = false;
    bool mIsMouseInside = false;
    bool mIsSpaceDown = false;
    bool mClicksDisabled = false;
    bool mWordWrap = false;
};

} // namespace Stdctrls
