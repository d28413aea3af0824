// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/stdctrls/buttons/Stdctrls_ButtonControl.h"

namespace Stdctrls
{

/// A button of which one alone is checked in its parent: checking it unchecks the others there. The user
/// checks it by a click, or by moving the focus to it. It stops the Tab key while it is checked.
///
///     slow->setParent(speedPanel);
///     fast->setParent(speedPanel);
///     fast->setChecked(true);                                     // calls OnClick, and unchecks `slow`
class TRS8_BTL_API TRadioButton : public TButtonControl
{
    TRS8_BTL_CLASS(TRadioButton, TButtonControl)

public:
    explicit TRadioButton(Classes::TComponent* owner = nullptr);
    ~TRadioButton() override;

    void Dispatch(void* message) override;

    /// Checking it by whatever means is a click; unchecking isn't.
    bool getChecked() const { return GetChecked(); }
    void setChecked(bool isChecked) { SetChecked(isChecked); }
    /// The side of the button that the text stands on: right of it at first. There is no middle.
    Classes::TAlignment getAlignment() const noexcept { return mAlignment; }
    void setAlignment(Classes::TAlignment alignment);

protected:
    bool GetChecked() const override { return mChecked; }
    void SetChecked(bool isChecked) override;
    void Press() override { SetChecked(true); }
    void PressMark() override { SetFocus(); }
    void CreateParams(Controls::TCreateParams& params) override;
    void TellWindow(Toolkits::Window& window) override;
    void Paint() override;

private:
    void UncheckOthers();
    void FocusCame(void* record);

    Classes::TAlignment mAlignment = Classes::taRightJustify;
    bool mChecked = false;
    bool mIsMouseDown = false;
};

} // namespace Stdctrls
