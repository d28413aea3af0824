// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/Stdctrls_GroupBox.h"

#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/controls/Forms_Accelerator.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_DrawText.h"

namespace Stdctrls
{

using Types::TRect;

System::TMetaClass* TCustomGroupBox::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCustomGroupBox>(u"TCustomGroupBox").Build();
    return record;
}

TCustomGroupBox::TCustomGroupBox(Classes::TComponent* owner) : TCustomControl(owner)
{
    setControlStyle({Controls::csAcceptsControls, Controls::csCaptureMouse, Controls::csClickEvents,
                     Controls::csSetCaption, Controls::csDoubleClicks, Controls::csReplicatable});
    SetBounds(0, 0, 185, 105);
}

TCustomGroupBox::~TCustomGroupBox() = default;

void TCustomGroupBox::AdjustClientRect(TRect& rect)
{
    TCustomControl::AdjustClientRect(rect);
    rect.Top += getCanvas()->TextHeight(u"0");
    rect = {rect.Left + 1, rect.Top + 1, rect.Right - 1, rect.Bottom - 1};
    if (getCtl3D()) {
        rect = {rect.Left + 1, rect.Top + 1, rect.Right - 1, rect.Bottom - 1};
    }
}

void TCustomGroupBox::Dispatch(void* record)
{
    auto& message = *static_cast<Messages::TMessage*>(record);
    switch (message.Msg) {
    case CM_DIALOGCHAR:
        if (Forms::IsAccel(static_cast<System::Word>(message.WParam), getCaption()) && CanFocus()) {
            message.Result = 1;
            SelectFirst();
            return;
        }
        break;
    case CM_FONTCHANGED:
    case CM_CTL3DCHANGED:
        TCustomControl::Dispatch(record);
        Invalidate();
        Realign();
        return;
    default:
        break;
    }
    TCustomControl::Dispatch(record);
}

void TCustomGroupBox::Paint()
{
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.FillRect(GetClientRect());
    const int height = canvas.TextHeight(u"0");
    const TRect frame{0, height / 2 - 1, getWidth(), getHeight()};
    Graphics::TBrush& brush = *canvas.getBrush();
    if (getCtl3D()) {
        brush.setColor(Graphics::clBtnHighlight);
        canvas.FrameRect({frame.Left + 1, frame.Top + 1, frame.Right, frame.Bottom});
        brush.setColor(Graphics::clBtnShadow);
        canvas.FrameRect({frame.Left, frame.Top, frame.Right - 1, frame.Bottom - 1});
    } else {
        brush.setColor(Graphics::clWindowFrame);
        canvas.FrameRect(frame);
    }
    if (!getCaption().IsEmpty()) {
        PaintCaption(height);
    }
}

void TCustomGroupBox::PaintCaption(int height)
{
    Graphics::TCanvas& canvas = *getCanvas();
    TRect rect{8, 0, 8, height};
    const unsigned flags = DT_SINGLELINE | (UseRightToLeftReading() ? DT_RTLREADING : 0);
    Graphics::DrawText(&canvas, getCaption(), rect, flags | DT_CALCRECT);
    if (UseRightToLeftAlignment()) {
        const int width = rect.Width();
        rect.Left = getWidth() - 8 - width;
        rect.Right = rect.Left + width;
    }
    canvas.getBrush()->setColor(getColor());
    if (!getEnabled()) {
        canvas.getFont()->setColor(Graphics::clGrayText);
    }
    Graphics::DrawText(&canvas, getCaption(), rect, flags);
}

System::TMetaClass* TGroupBox::ClassRecord()
{
    static System::TMetaClass* const record =
        Controls::PublishFocus(Controls::PublishControl(System::GClassBuilder<TGroupBox>(u"TGroupBox")),
                               false)
            .Property(u"Caption", &TGroupBox::getCaption, &TGroupBox::setCaption)
            .Property(u"Ctl3D", &TGroupBox::getCtl3D, &TGroupBox::setCtl3D)
            .Property(u"ParentCtl3D", &TGroupBox::getParentCtl3D, &TGroupBox::setParentCtl3D,
                      {.defaultValue = 1})
            .Build();
    return record;
}

TGroupBox::~TGroupBox() = default;

} // namespace Stdctrls
