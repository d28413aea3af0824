// SPDX-License-Identifier: MIT
#pragma once

#include "forms/labels/BTL_LabelExtension.h"
#include "platform/visual/stdctrls/Stdctrls_Label.h"

/// A label whose text may have attributes.
///
///     auto* const label = new TCTL_Label(form);
///     label->setParent(form);
///     label->setTextHasAttributes(true);
class TRS8_BTL_API TCTL_Label : public Stdctrls::TLabel
{
    TRS8_BTL_CLASS(TCTL_Label, Stdctrls::TLabel)

public:
    explicit TCTL_Label(Classes::TComponent* owner = nullptr) : TLabel(owner), mExtension(this) {}
    ~TCTL_Label() override;

    /// Off at first.
    bool getTextHasAttributes() const noexcept { return mExtension.getTextHasAttributes(); }
    void setTextHasAttributes(bool isOn) { mExtension.SetTextHasAttributes(isOn); }

protected:
    void Paint() override;

private:
    BTL::CLabelExtension mExtension;
};
