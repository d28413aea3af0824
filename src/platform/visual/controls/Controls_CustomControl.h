// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_WinControl.h"

namespace Graphics
{
class TCanvas;
} // namespace Graphics

namespace Controls
{

/// A control that paints itself and has no window: a part of its parent's. It can't have the focus.
///
///     class TGauge : public Controls::TGraphicControl
///     {
///         void Paint() override { getCanvas()->FillRect(GetClientRect()); }
///     };
class TRS8_BTL_API TGraphicControl : public TControl
{
    TRS8_BTL_CLASS(TGraphicControl, TControl)

public:
    explicit TGraphicControl(Classes::TComponent* owner = nullptr);
    ~TGraphicControl() override;

    /// What `Paint` draws on, with the control's font and the brush of its colour.
    Graphics::TCanvas* getCanvas() const noexcept { return mCanvas.get(); }
    void Dispatch(void* message) override;

protected:
    /// Paints the control; the canvas begins at its corner and ends at its edges.
    virtual void Paint() {}

private:
    std::unique_ptr<Graphics::TCanvas> mCanvas;
};

/// A control with a window that paints itself, and so can have the focus and hold other controls.
class TRS8_BTL_API TCustomControl : public TWinControl
{
    TRS8_BTL_CLASS(TCustomControl, TWinControl)

public:
    explicit TCustomControl(Classes::TComponent* owner = nullptr);
    ~TCustomControl() override;

    /// What `Paint` draws on, with the control's font and brush.
    Graphics::TCanvas* getCanvas() const noexcept { return mCanvas.get(); }
    void Dispatch(void* message) override;

protected:
    /// Paints the control; those in it are painted over it.
    virtual void Paint() {}
    void PaintWindow(Toolkits::PaintDevice& device) override;

private:
    std::unique_ptr<Graphics::TCanvas> mCanvas;
};

} // namespace Controls
