// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/base/Types.h"
#include "platform/visual/controls/Controls_Types.h"

namespace Graphics
{
class TCanvas;
} // namespace Graphics

namespace Stdctrls
{
class TCustomLabel;
} // namespace Stdctrls

namespace BTL
{

/// Draws a text with attributes within the rectangle, in the font and on the brush of the canvas. What draws
/// charts fills it in while the program starts; null draws the text as it is.
TRS8_BTL_API extern void (*PaintAttributeText)(Graphics::TCanvas* canvas, const Types::TRect& rect,
                                               const System::UnicodeString& text,
                                               Classes::TAlignment alignment, bool isTransparent);

/// What a label does with a text that has attributes.
///
///     void TMyLabel::Paint()
///     {
///         if (!mExtension.Paint()) { TLabel::Paint(); }
///     }
class TRS8_BTL_API CLabelExtension
{
public:
    /// `label` outlives the extension.
    explicit CLabelExtension(Stdctrls::TCustomLabel* label) noexcept : mLabel(label) {}

    /// Paints a label whose text has attributes; false for any other, and where nothing draws them.
    bool Paint();
    /// Off at first.
    bool getTextHasAttributes() const noexcept { return mTextHasAttributes; }
    void SetTextHasAttributes(bool isOn);

private:
    Stdctrls::TCustomLabel* mLabel;
    bool mTextHasAttributes = false;
};

} // namespace BTL
