// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"
#include "platform/toolkit/WindowItems.h"
#include "platform/visual/controls/Controls_Types.h"
#include "platform/visual/graphics/Graphics_Color.h"

namespace Controls
{
class TControl;
} // namespace Controls

namespace Graphics
{
class TCanvas;
} // namespace Graphics

namespace Stdctrls
{

/// How a button's face is drawn.
struct TFaceLook
{
    bool isDown = false;
    bool isDefault = false;
    /// Without an edge, unless the mouse is over it or it is down.
    bool hasEdge = true;
    bool isFilled = true;
};

/// The side of the square of a check box or radio button, and what is empty between that and the text.
inline constexpr int BoxSize = 13;
inline constexpr int BoxGap = 3;

/// Draws what buttons and boxes look like where the screen doesn't draw them.
class CButtonPainter
{
public:
    CButtonPainter(const Controls::TControl& control, Graphics::TCanvas& canvas)
        : mControl(control), mCanvas(canvas)
    {
    }

    void Face(const Types::TRect& rect, const TFaceLook& look);
    /// The control's caption in the middle of the height; pressed down it stands a pixel further.
    void Caption(Types::TRect rect, Classes::TAlignment alignment, bool isWrapped, bool isDown);
    /// A box with its mark at the left edge of the rectangle, and a round one.
    void CheckBox(const Types::TRect& rect, Toolkits::ECheck check);
    void RadioButton(const Types::TRect& rect, bool isChecked);
    /// A box on the side of the control that the alignment tells, its caption, and a frame for the focus.
    template <class DrawBox>
    void BoxWithCaption(const Types::TRect& rect, bool isTextRight, bool isWrapped, bool isFocused,
                        DrawBox drawBox)
    {
        const bool isBoxLeft = isTextRight;
        const Types::TRect text =
            isBoxLeft ? Types::TRect{rect.Left + BoxSize + BoxGap, rect.Top, rect.Right, rect.Bottom}
                      : Types::TRect{rect.Left, rect.Top, rect.Right - BoxSize - BoxGap, rect.Bottom};
        const int top = rect.Top + (rect.Height() - BoxSize) / 2;
        const int left = isBoxLeft ? rect.Left : rect.Right - BoxSize;
        drawBox(Types::TRect{left, top, left + BoxSize, top + BoxSize});
        Caption(text, Classes::taLeftJustify, isWrapped, false);
        if (isFocused) {
            Focus(text);
        }
    }
    void Focus(const Types::TRect& rect);

private:
    void Edge(const Types::TRect& rect, Graphics::TColor upper, Graphics::TColor lower);
    void Fill(const Types::TRect& rect, Graphics::TColor color);
    void TextPass(Types::TRect rect, unsigned flags, Graphics::TColor color);

    const Controls::TControl& mControl;
    Graphics::TCanvas& mCanvas;
};

} // namespace Stdctrls
