// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/panels/Extctrls_Panel.h"

#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_DrawText.h"
#include "platform/visual/stdctrls/panels/Extctrls_Frame3D.h"
#include "platform/visual/stdctrls/panels/internal/Extctrls_PublishPanel.h"

#include <algorithm>

namespace Extctrls
{

using Types::TRect;

namespace
{

TRect Shrunk(const TRect& rect, int by)
{
    return {rect.Left + by, rect.Top + by, rect.Right - by, rect.Bottom - by};
}

/// The flags of `Graphics::DrawText` for a caption.
unsigned FlagsOf(Classes::TAlignment alignment, Classes::TVerticalAlignment vertical)
{
    constexpr unsigned across[] = {DT_LEFT, DT_RIGHT, DT_CENTER};
    constexpr unsigned down[] = {DT_TOP, DT_BOTTOM, DT_VCENTER};
    return DT_EXPANDTABS | DT_SINGLELINE | across[alignment] | down[vertical];
}

} // namespace

System::TMetaClass* TCustomPanel::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TCustomPanel>(u"TCustomPanel").Build();
    return record;
}

TCustomPanel::TCustomPanel(Classes::TComponent* owner) : TCustomControl(owner)
{
    setControlStyle({Controls::csAcceptsControls, Controls::csCaptureMouse, Controls::csClickEvents,
                     Controls::csSetCaption, Controls::csOpaque, Controls::csDoubleClicks,
                     Controls::csReplicatable, Controls::csParentBackground});
    setColor(Graphics::clBtnFace);
    SetBounds(0, 0, 185, 41);
}

TCustomPanel::~TCustomPanel() = default;

void TCustomPanel::setBevelWidth(int width)
{
    Change(mBevelWidth, std::max(width, 1));
}

bool TCustomPanel::getParentBackground() const
{
    return getControlStyle().Contains(Controls::csParentBackground);
}

void TCustomPanel::setParentBackground(bool isOn)
{
    Controls::TControlStyle style = getControlStyle();
    isOn ? style << Controls::csParentBackground : style >> Controls::csParentBackground;
    setControlStyle(style);
    Invalidate();
}

void TCustomPanel::EdgesChanged()
{
    Invalidate();
    Realign();
}

int TCustomPanel::GetFrameWidth() const
{
    if (mBorderStyle == Forms::bsNone) {
        return 0;
    }
    return getCtl3D() ? 2 : 1;
}

void TCustomPanel::AdjustClientRect(TRect& rect)
{
    TCustomControl::AdjustClientRect(rect);
    const int bevels = (mBevelInner == Controls::bvNone ? 0 : 1) + (mBevelOuter == Controls::bvNone ? 0 : 1);
    rect = Shrunk(rect, bevels * mBevelWidth + GetFrameWidth());
}

bool TCustomPanel::CanAutoSize(int& width, int& height)
{
    TRect inner = GetClientRect();
    AdjustClientRect(inner);
    int right = 0;
    int bottom = 0;
    for (int i = 0; i < GetControlCount(); ++i) {
        const Controls::TControl* const control = GetControl(i);
        if (control->getVisible()) {
            right = std::max(right, control->getLeft() + control->getWidth());
            bottom = std::max(bottom, control->getTop() + control->getHeight());
        }
    }
    if (GetControlCount() == 0) {
        return false;
    }
    width = right + getWidth() - inner.Right;
    height = bottom + getHeight() - inner.Bottom;
    return true;
}

void TCustomPanel::Resize()
{
    if (mFullRepaint) {
        Invalidate();
    }
    TCustomControl::Resize();
}

void TCustomPanel::Dispatch(void* record)
{
    TCustomControl::Dispatch(record);
    switch (static_cast<Messages::TMessage*>(record)->Msg) {
    case CM_CTL3DCHANGED:
        return EdgesChanged();
    case CM_TEXTCHANGED:
    case CM_ENABLEDCHANGED:
        return Invalidate();
    default:
        return;
    }
}

void TCustomPanel::Paint()
{
    Graphics::TCanvas& canvas = *getCanvas();
    TRect rect = GetClientRect();
    canvas.FillRect(rect);
    if (GetFrameWidth() > 1) {
        Frame3D(&canvas, rect, Graphics::clBtnShadow, Graphics::clBtnHighlight, 1);
        Frame3D(&canvas, rect, Graphics::cl3DDkShadow, Graphics::cl3DLight, 1);
    } else {
        Frame3D(&canvas, rect, Graphics::clWindowFrame, Graphics::clWindowFrame, GetFrameWidth());
    }
    FrameBevel(&canvas, rect, mBevelOuter, getColor(), mBevelWidth);
    rect = Shrunk(rect, getBorderWidth());
    FrameBevel(&canvas, rect, mBevelInner, getColor(), mBevelWidth);
    if (mShowCaption && !getCaption().IsEmpty()) {
        PaintCaption(rect);
    }
}

void TCustomPanel::PaintCaption(TRect rect)
{
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.getBrush()->setStyle(Graphics::bsClear);
    if (!getEnabled()) {
        canvas.getFont()->setColor(Graphics::clGrayText);
    }
    Classes::TAlignment alignment = mAlignment;
    if (UseRightToLeftAlignment() && alignment != Classes::taCenter) {
        alignment = alignment == Classes::taLeftJustify ? Classes::taRightJustify : Classes::taLeftJustify;
    }
    const unsigned reading = UseRightToLeftReading() ? DT_RTLREADING : 0;
    Graphics::DrawText(&canvas, getCaption(), rect, FlagsOf(alignment, mVerticalAlignment) | reading);
}

System::TMetaClass* TPanel::ClassRecord()
{
    static System::TMetaClass* const record = PublishPanel(System::GClassBuilder<TPanel>(u"TPanel")).Build();
    return record;
}

TPanel::~TPanel() = default;

} // namespace Extctrls
