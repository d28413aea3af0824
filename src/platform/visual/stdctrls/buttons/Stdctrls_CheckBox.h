// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/stdctrls/buttons/Stdctrls_ButtonControl.h"

namespace Stdctrls
{

/// The mark of a check box: grayed is neither of the two others.
enum TCheckBoxState
{
    cbUnchecked,
    cbChecked,
    cbGrayed
};

/// Base of check boxes.
///
///     box->setAllowGrayed(true);
///     box->setState(Stdctrls::cbGrayed);                          // calls OnClick, as every change does
///     if (box->getChecked()) { ... }
class TRS8_BTL_API TCustomCheckBox : public TButtonControl
{
    TRS8_BTL_CLASS(TCustomCheckBox, TButtonControl)

public:
    explicit TCustomCheckBox(Classes::TComponent* owner = nullptr);
    ~TCustomCheckBox() override;

    void Dispatch(void* message) override;

    /// A change by whatever means is a click.
    TCheckBoxState getState() const noexcept { return mState; }
    void setState(TCheckBoxState state);
    /// Whether the state is `cbChecked`.
    bool getChecked() const { return GetChecked(); }
    /// Grays nothing.
    void setChecked(bool isChecked) { SetChecked(isChecked); }
    /// Whether the user can make the state gray; off at first.
    bool getAllowGrayed() const noexcept { return mAllowGrayed; }
    void setAllowGrayed(bool isOn) noexcept { mAllowGrayed = isOn; }
    /// The side of the box that the text stands on: right of it at first. There is no middle.
    Classes::TAlignment getAlignment() const noexcept { return mAlignment; }
    void setAlignment(Classes::TAlignment alignment);

protected:
    /// As the user does: from checked to unchecked; from that to gray, if allowed, and on to checked.
    virtual void Toggle();
    void Press() override { Toggle(); }
    void PressMark() override;
    bool GetChecked() const override { return mState == cbChecked; }
    void SetChecked(bool isChecked) override { setState(isChecked ? cbChecked : cbUnchecked); }
    void CreateParams(Controls::TCreateParams& params) override;
    void TellWindow(Toolkits::Window& window) override;
    void Paint() override;

private:
    TCheckBoxState mState = cbUnchecked;
    Classes::TAlignment mAlignment = Classes::taRightJustify;
    bool mAllowGrayed = false;
};

/// A box that the user checks, with a caption.
class TRS8_BTL_API TCheckBox : public TCustomCheckBox
{
    TRS8_BTL_CLASS(TCheckBox, TCustomCheckBox)

public:
    explicit TCheckBox(Classes::TComponent* owner = nullptr) : TCustomCheckBox(owner) {}
    ~TCheckBox() override;
};

} // namespace Stdctrls

/// The states of a check box by their names.
template <>
struct TRS8_BTL_API Typinfo::GEnumType<Stdctrls::TCheckBoxState>
{
    static TTypeInfo Make();
};
