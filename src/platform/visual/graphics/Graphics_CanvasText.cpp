// SPDX-License-Identifier: MIT
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_DrawText.h"

namespace Graphics
{

Types::TSize TCanvas::TextExtent(const System::UnicodeString& text) const
{
    return Toolkits::CurrentToolkit().TextExtent(mFont.getData(), text);
}

Toolkits::TTextMetrics TCanvas::GetTextMetrics() const
{
    return Toolkits::CurrentToolkit().FontMetrics(mFont.getData());
}

void TCanvas::DrawLine(const System::UnicodeString& text, const Types::TPoint& at, const Types::TRect* clip)
{
    RequiredDevice().Text(at, text, mFont.getData(),
                          {.color = ColorToPixel(mFont.getColor()),
                           .background = ColorToPixel(mBrush.getColor()),
                           .isOpaque = mBrush.IsSolid() && clip == nullptr,
                           .clip = clip});
}

void TCanvas::TextOut(int x, int y, const System::UnicodeString& text)
{
    Changing();
    DrawLine(text, {.X = x, .Y = y}, nullptr);
    // Whether anybody asks for the end of the text isn't known yet, and to measure takes as long as to draw.
    mPenPos = {.X = x, .Y = y};
    mTextAtPen = text;
    mFontAtPen = mFont.getBlock();
    Changed();
}

void TCanvas::TextRect(const Types::TRect& rect, int x, int y, const System::UnicodeString& text)
{
    Changing();
    if (mBrush.getStyle() != bsClear) {
        RequiredDevice().FillRect(rect, mBrush.getData());
    }
    DrawLine(text, {.X = x, .Y = y}, &rect);
    Changed();
}

void TCanvas::TextRect(Types::TRect& rect, System::UnicodeString& text, const TTextFormat& format)
{
    DrawText(text, rect, TextFlagsOf(format));
}

} // namespace Graphics
