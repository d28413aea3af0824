// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/panels/Extctrls_Frame3D.h"

#include "platform/visual/graphics/Graphics_Canvas.h"

#include <algorithm>

namespace Extctrls
{

using Graphics::TColor;
using Types::TRect;

namespace
{

void FrameOnce(Graphics::TCanvas& canvas, const TRect& rect, TColor top, TColor bottom)
{
    const int right = rect.Right - 1;
    const int lower = rect.Bottom - 1;
    canvas.getPen()->setColor(top);
    canvas.MoveTo(rect.Left, lower);
    canvas.LineTo(rect.Left, rect.Top);
    canvas.LineTo(right, rect.Top);
    canvas.getPen()->setColor(bottom);
    canvas.LineTo(right, lower);
    canvas.LineTo(rect.Left - 1, lower);
}

} // namespace

void Frame3D(Graphics::TCanvas* canvas, TRect& rect, TColor top, TColor bottom, int width)
{
    if (canvas == nullptr) {
        return;
    }
    canvas->getPen()->setWidth(1);
    canvas->getPen()->setStyle(Graphics::psSolid);
    const int room = (std::min(rect.Width(), rect.Height()) + 1) / 2;
    for (int i = 0; i < std::min(width, room); ++i) {
        FrameOnce(*canvas, rect, top, bottom);
        rect = {rect.Left + 1, rect.Top + 1, rect.Right - 1, rect.Bottom - 1};
    }
}

void FrameBevel(Graphics::TCanvas* canvas, TRect& rect, Controls::TBevelCut bevel, TColor face, int width)
{
    using Graphics::clBtnHighlight;
    using Graphics::clBtnShadow;
    switch (bevel) {
    case Controls::bvLowered:
        return Frame3D(canvas, rect, clBtnShadow, clBtnHighlight, width);
    case Controls::bvRaised:
        return Frame3D(canvas, rect, clBtnHighlight, clBtnShadow, width);
    case Controls::bvSpace:
        return Frame3D(canvas, rect, face, face, width);
    case Controls::bvNone:
        return;
    }
}

} // namespace Extctrls
