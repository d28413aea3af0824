// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_DrawText.h"

#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/internal/Graphics_TextLayout.h"

#include <algorithm>
#include <array>

namespace Graphics
{

namespace
{

using System::UnicodeString;
using Types::TRect;

/// Draws lines that were laid out.
class CLinePainter
{
public:
    CLinePainter(const TCanvas& canvas, Toolkits::PaintDevice& device, const CTextLayout& layout,
                 const TRect& rect, unsigned flags)
        : mDevice(device), mFont(canvas.getFont()->getData()), mLayout(layout), mRect(rect), mFlags(flags)
    {
        mOptions.color = ColorToPixel(canvas.getFont()->getColor());
        mOptions.background = ColorToPixel(canvas.getBrush()->getColor());
        mOptions.isOpaque = canvas.getBrush()->IsSolid();
        mOptions.isRightToLeft = (flags & DT_RTLREADING) != 0;
        mOptions.clip = (flags & DT_NOCLIP) == 0 ? &mRect : nullptr;
    }

    void Draw(const TTextLine& line, int y) const
    {
        const int x = LeftOf(line);
        if ((mFlags & DT_PREFIXONLY) == 0) {
            DrawPieces(line.text, x, y);
        }
        if (line.underlined >= 0 && (mFlags & DT_HIDEPREFIX) == 0) {
            Underline(line, x, y);
        }
    }

private:
    int LeftOf(const TTextLine& line) const
    {
        if ((mFlags & DT_CENTER) != 0) {
            return mRect.Left + (mRect.Width() - line.width) / 2;
        }
        return (mFlags & DT_RIGHT) != 0 ? mRect.Right - line.width : mRect.Left;
    }

    /// The text, cut at tabulators where they lead somewhere.
    void DrawPieces(const UnicodeString& text, int x, int y) const
    {
        const auto view = text.AsView();
        auto tab = mLayout.ExpandsTabs() ? view.find(u'\t') : std::u16string_view::npos;
        if (tab == std::u16string_view::npos) {
            mDevice.Text({.X = x, .Y = y}, text, mFont, mOptions);
            return;
        }
        int place = 0;
        std::size_t from = 0;
        while (true) {
            const UnicodeString piece(view.substr(from, tab - from));
            if (!piece.IsEmpty()) {
                mDevice.Text({.X = x + place, .Y = y}, piece, mFont, mOptions);
            }
            if (tab == std::u16string_view::npos) {
                return;
            }
            place = mLayout.NextStop(place + mLayout.WidthOf(piece));
            from = tab + 1;
            tab = view.find(u'\t', from);
        }
    }

    void Underline(const TTextLine& line, int x, int y) const
    {
        const UnicodeString before = line.text.SubString(1, line.underlined);
        const UnicodeString with = line.text.SubString(1, line.underlined + 1);
        const int top = y + mLayout.Metrics().ascent + 1;
        TRect stroke{.Left = x + mLayout.WidthOf(before),
                     .Top = top,
                     .Right = x + mLayout.WidthOf(with),
                     .Bottom = top + 1};
        if (mOptions.clip != nullptr) {
            stroke = {.Left = std::max(stroke.Left, mRect.Left),
                      .Top = std::max(stroke.Top, mRect.Top),
                      .Right = std::min(stroke.Right, mRect.Right),
                      .Bottom = std::min(stroke.Bottom, mRect.Bottom)};
        }
        if (stroke.Left < stroke.Right && stroke.Top < stroke.Bottom) {
            mDevice.FillRect(stroke, {.color = mOptions.color, .style = bsSolid, .pattern = {}});
        }
    }

    Toolkits::PaintDevice& mDevice;
    const Toolkits::TFontData& mFont;
    const CTextLayout& mLayout;
    TRect mRect;
    unsigned mFlags;
    Toolkits::TTextOptions mOptions;
};

/// The distance from the top of the rectangle to the first line.
int OffsetOf(const TRect& rect, int height, unsigned flags)
{
    if ((flags & DT_SINGLELINE) == 0) {
        return 0;
    }
    if ((flags & DT_VCENTER) != 0) {
        return (rect.Height() - height) / 2;
    }
    return (flags & DT_BOTTOM) != 0 ? rect.Height() - height : 0;
}

int WidestOf(const std::vector<TTextLine>& lines)
{
    const auto widest = std::ranges::max_element(lines, {}, &TTextLine::width);
    return widest == lines.end() ? 0 : widest->width;
}

int Held(long long place)
{
    return static_cast<int>(std::clamp<long long>(place, -FarthestText, FarthestText));
}

/// Draws the lines from `top` on; those outside a rectangle that cuts them are passed over.
void PaintLines(const CLinePainter& painter, const std::vector<TTextLine>& lines, const TRect& rect, int top,
                int lineHeight, unsigned flags)
{
    const bool isClipped = (flags & DT_NOCLIP) == 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const long long y = top + static_cast<long long>(i) * lineHeight;
        const long long end = y + lineHeight;
        const bool isHidden =
            (isClipped && end <= rect.Top) || ((flags & DT_EDITCONTROL) != 0 && end > rect.Bottom);
        if (isClipped && y >= rect.Bottom) {
            return;
        }
        if (!isHidden) {
            painter.Draw(lines[i], Held(y));
        }
    }
}

} // namespace

int TCanvas::DrawText(UnicodeString& text, TRect& rect, unsigned flags)
{
    const TRect area{Held(rect.Left), Held(rect.Top), Held(rect.Right), Held(rect.Bottom)};
    const CTextLayout layout(mFont.getData(), flags, area.Width());
    const unsigned set = WithoutTabStop(flags);
    std::vector<TTextLine> lines = layout.LinesOf(text);
    bool isShortened = false;
    for (TTextLine& line : lines) {
        isShortened |= layout.Shorten(line, &line == &lines.back());
    }
    const int height = Held(static_cast<long long>(lines.size()) * layout.LineHeight());
    const int offset = OffsetOf(area, height, set);
    if ((set & DT_CALCRECT) != 0) {
        rect.Right = area.Left + WidestOf(lines);
        rect.Bottom = area.Top + height;
    } else {
        Changing();
        PaintLines(CLinePainter(*this, RequiredDevice(), layout, area, set), lines, area, area.Top + offset,
                   layout.LineHeight(), set);
        Changed();
    }
    if (isShortened && (set & DT_MODIFYSTRING) != 0 && lines.size() == 1) {
        text = lines[0].text;
    }
    return offset + height;
}

int DrawText(TCanvas* canvas, UnicodeString& text, TRect& rect, unsigned flags)
{
    return canvas->DrawText(text, rect, flags);
}

int DrawText(TCanvas* canvas, const UnicodeString& text, TRect& rect, unsigned flags)
{
    UnicodeString copy = text;
    return canvas->DrawText(copy, rect, flags);
}

unsigned TextFlagsOf(const TTextFormat& format)
{
    static constexpr std::array<unsigned, tfComposited + 1> flags = {DT_BOTTOM,        DT_CALCRECT,
                                                                     DT_CENTER,        DT_EDITCONTROL,
                                                                     DT_END_ELLIPSIS,  DT_PATH_ELLIPSIS,
                                                                     DT_EXPANDTABS,    DT_EXTERNALLEADING,
                                                                     DT_LEFT,          DT_MODIFYSTRING,
                                                                     DT_NOCLIP,        DT_NOPREFIX,
                                                                     DT_RIGHT,         DT_RTLREADING,
                                                                     DT_SINGLELINE,    DT_TOP,
                                                                     DT_VCENTER,       DT_WORDBREAK,
                                                                     DT_HIDEPREFIX,    0,
                                                                     DT_PREFIXONLY,    0,
                                                                     DT_WORD_ELLIPSIS, 0};
    unsigned all = 0;
    for (const TTextFormats part : format) {
        all |= flags[part];
    }
    return all;
}

} // namespace Graphics
