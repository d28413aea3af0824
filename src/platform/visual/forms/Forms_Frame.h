// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/filer/Classes_FormResource.h"
#include "platform/visual/controls/Controls_CustomControl.h"

namespace Forms
{

/// Base of frames: a part of a form that is designed by itself and put onto forms, or other frames, as one
/// control. It owns what its design holds.
///
///     TLimitsFrame::TLimitsFrame(Classes::TComponent* owner) : TFrame(owner)
///     {
///         ReadDesign();                                           // what LimitsFrame.form says
///     }
///     auto* const limits = new TLimitsFrame(form);                // or: inline Limits: TLimitsFrame
///     limits->setParent(form);
class TRS8_BTL_API TCustomFrame : public Controls::TCustomControl
{
    TRS8_BTL_CLASS(TCustomFrame, Controls::TCustomControl)

public:
    explicit TCustomFrame(Classes::TComponent* owner = nullptr);
    ~TCustomFrame() override;

protected:
    /// As `TCustomForm::ReadDesign`.
    bool ReadDesign() { return Classes::ReadOwnDesign(*this); }

    void GetChildren(const Classes::TGetChildProc& proc, Classes::TComponent* root) override;
};

/// A frame of a program.
class TRS8_BTL_API TFrame : public TCustomFrame
{
    TRS8_BTL_CLASS(TFrame, TCustomFrame)

public:
    explicit TFrame(Classes::TComponent* owner = nullptr) : TCustomFrame(owner) {}
    ~TFrame() override;
};

} // namespace Forms
