// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/internal/Stdctrls_ButtonPainting.h"

#include "platform/visual/controls/Controls_Control.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_DrawText.h"

namespace Stdctrls
{

using Graphics::TColor;
using Types::TRect;

void CButtonPainter::Fill(const TRect& rect, TColor color)
{
    mCanvas.getBrush()->setColor(color);
    mCanvas.getBrush()->setStyle(Graphics::bsSolid);
    mCanvas.FillRect(rect);
}

void CButtonPainter::Edge(const TRect& rect, TColor upper, TColor lower)
{
    Graphics::TPen& pen = *mCanvas.getPen();
    pen.setColor(upper);
    mCanvas.MoveTo(rect.Left, rect.Bottom - 1);
    mCanvas.LineTo(rect.Left, rect.Top);
    mCanvas.LineTo(rect.Right - 1, rect.Top);
    pen.setColor(lower);
    mCanvas.LineTo(rect.Right - 1, rect.Bottom - 1);
    mCanvas.LineTo(rect.Left - 1, rect.Bottom - 1);
}

void CButtonPainter::Face(const TRect& rect, const TFaceLook& look)
{
    if (look.isFilled) {
        Fill(rect, Graphics::clBtnFace);
    }
    TRect edge = rect;
    if (look.isDefault) {
        Edge(edge, Graphics::clWindowFrame, Graphics::clWindowFrame);
        edge = {edge.Left + 1, edge.Top + 1, edge.Right - 1, edge.Bottom - 1};
    }
    if (look.isDown) {
        Edge(edge, Graphics::clBtnShadow, Graphics::clBtnHighlight);
    } else if (look.hasEdge) {
        Edge(edge, Graphics::clBtnHighlight, Graphics::cl3DDkShadow);
    }
}

void CButtonPainter::TextPass(TRect rect, unsigned flags, TColor color)
{
    mCanvas.getBrush()->setStyle(Graphics::bsClear);
    mCanvas.getFont()->setColor(color);
    Graphics::DrawText(&mCanvas, mControl.GetText(), rect, flags);
}

void CButtonPainter::Caption(TRect rect, Classes::TAlignment alignment, bool isWrapped, bool isDown)
{
    constexpr unsigned sides[] = {DT_LEFT, DT_RIGHT, DT_CENTER};
    unsigned flags = sides[alignment] | (isWrapped ? DT_WORDBREAK : DT_SINGLELINE | DT_VCENTER);
    if (mControl.UseRightToLeftReading()) {
        flags |= DT_RTLREADING;
    }
    const auto moved = [](const TRect& from, int by) {
        return TRect{from.Left + by, from.Top + by, from.Right + by, from.Bottom + by};
    };
    if (isDown) {
        rect = moved(rect, 1);
    }
    if (mControl.getEnabled()) {
        TextPass(rect, flags, mControl.GetShownFont().getColor());
        return;
    }
    TextPass(moved(rect, 1), flags, Graphics::clBtnHighlight);
    TextPass(rect, flags, Graphics::clBtnShadow);
}

void CButtonPainter::CheckBox(const TRect& rect, Toolkits::ECheck check)
{
    const bool isUsable = mControl.getEnabled() && check != Toolkits::ECheck::Grayed;
    Fill(rect, isUsable ? Graphics::clWindow : Graphics::clBtnFace);
    Edge(rect, Graphics::clBtnShadow, Graphics::clBtnHighlight);
    if (check == Toolkits::ECheck::Unchecked) {
        return;
    }
    mCanvas.getPen()->setColor(isUsable ? Graphics::clWindowText : Graphics::clBtnShadow);
    for (int thickness = 0; thickness < 3; ++thickness) {
        const int top = rect.Top + thickness;
        const Types::TPoint mark[] = {
            {rect.Left + 3, top + 5}, {rect.Left + 5, top + 7}, {rect.Left + 10, top + 2}};
        mCanvas.Polyline(mark);
    }
}

void CButtonPainter::RadioButton(const TRect& rect, bool isChecked)
{
    mCanvas.getBrush()->setColor(mControl.getEnabled() ? Graphics::clWindow : Graphics::clBtnFace);
    mCanvas.getPen()->setColor(Graphics::clBtnShadow);
    mCanvas.Ellipse(rect);
    if (isChecked) {
        const TColor color = mControl.getEnabled() ? Graphics::clWindowText : Graphics::clBtnShadow;
        mCanvas.getBrush()->setColor(color);
        mCanvas.getPen()->setColor(color);
        mCanvas.Ellipse(rect.Left + 4, rect.Top + 4, rect.Right - 4, rect.Bottom - 4);
    }
}

void CButtonPainter::Focus(const TRect& rect)
{
    mCanvas.DrawFocusRect(rect);
}

} // namespace Stdctrls
