// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_CustomControl.h"

namespace Stdctrls
{

/// Base of boxes that frame controls which belong together, with a caption in the upper edge. The character
/// that the caption marks with `&` focuses the first control in it.
class TRS8_BTL_API TCustomGroupBox : public Controls::TCustomControl
{
    TRS8_BTL_CLASS(TCustomGroupBox, Controls::TCustomControl)

public:
    explicit TCustomGroupBox(Classes::TComponent* owner = nullptr);
    ~TCustomGroupBox() override;

    void Dispatch(void* message) override;

protected:
    /// Inside of the frame and below the caption.
    void AdjustClientRect(Types::TRect& rect) override;
    void Paint() override;

private:
    void PaintCaption(int height);
};

/// A frame with a caption, for controls.
class TRS8_BTL_API TGroupBox : public TCustomGroupBox
{
    TRS8_BTL_CLASS(TGroupBox, TCustomGroupBox)

public:
    explicit TGroupBox(Classes::TComponent* owner = nullptr) : TCustomGroupBox(owner) {}
    ~TGroupBox() override;
};

} // namespace Stdctrls
