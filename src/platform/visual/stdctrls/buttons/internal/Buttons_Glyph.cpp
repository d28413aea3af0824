// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/buttons/internal/Buttons_Glyph.h"

#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_DrawText.h"

#include <algorithm>
#include <span>

namespace Buttons
{

using Graphics::TBitmap;
using Graphics::TCanvas;
using Types::TPoint;
using Types::TRect;
using Types::TSize;

CButtonGlyph::CButtonGlyph() : mBitmap(std::make_unique<TBitmap>())
{
    mBitmap->setTransparent(true);
    mBitmap->setOnChange({this, &CButtonGlyph::BitmapChanged});
}

CButtonGlyph::~CButtonGlyph() = default;

void CButtonGlyph::Assign(TBitmap* bitmap)
{
    if (bitmap == mBitmap.get()) {
        return;
    }
    mBitmap->Assign(bitmap);
    mBitmap->setTransparent(true);
    const int height = mBitmap->getHeight();
    if (height > 0 && mBitmap->getWidth() % height == 0) {
        const int parts = mBitmap->getWidth() / height;
        setParts(parts > 4 ? 1 : parts);
    }
}

void CButtonGlyph::setParts(int parts)
{
    if (parts != mParts && parts >= 1 && parts <= 4) {
        mParts = parts;
        BitmapChanged(nullptr);
    }
}

void CButtonGlyph::BitmapChanged(System::TObject*)
{
    if (mOnChange) {
        mOnChange(nullptr);
    }
}

TSize CButtonGlyph::PartSize() const
{
    return {mBitmap->getWidth() / mParts, mBitmap->getHeight()};
}

std::pair<TPoint, TRect> CButtonGlyph::Place(const TRect& rect, const TPlacing& placing, const TSize& glyph,
                                             const TSize& text)
{
    const bool isBeside = placing.layout == blGlyphLeft || placing.layout == blGlyphRight;
    const bool isBoth = glyph.cx > 0 && text.cx > 0;
    const int glyphLength = isBeside ? glyph.cx : glyph.cy;
    const int textLength = isBeside ? text.cx : text.cy;
    const int room = isBeside ? rect.Width() : rect.Height();
    int spacing = isBoth ? placing.spacing : 0;
    int margin = placing.margin;
    if (margin < 0 && spacing < 0) {
        // Three gaps of the same width.
        margin = (room - glyphLength - textLength) / (isBoth ? 3 : 2);
        spacing = isBoth ? margin : 0;
    } else if (margin < 0) {
        margin = (room - glyphLength - textLength - spacing) / 2;
    } else if (spacing < 0) {
        spacing = (room - margin - glyphLength - textLength) / 2;
    }
    const bool isGlyphFirst = placing.layout == blGlyphLeft || placing.layout == blGlyphTop;
    const int glyphAt = isGlyphFirst ? margin : room - margin - glyphLength;
    const int textAt = isGlyphFirst ? margin + glyphLength + spacing : glyphAt - spacing - textLength;
    const auto middle = [](int length, int own) { return (length - own) / 2; };
    const TPoint glyphPlace = isBeside
                                  ? TPoint{rect.Left + glyphAt, rect.Top + middle(rect.Height(), glyph.cy)}
                                  : TPoint{rect.Left + middle(rect.Width(), glyph.cx), rect.Top + glyphAt};
    const TPoint textPlace = isBeside ? TPoint{rect.Left + textAt, rect.Top + middle(rect.Height(), text.cy)}
                                      : TPoint{rect.Left + middle(rect.Width(), text.cx), rect.Top + textAt};
    return {glyphPlace, {textPlace.X, textPlace.Y, textPlace.X + text.cx, textPlace.Y + text.cy}};
}

namespace
{

TRect Moved(const TRect& rect, int by)
{
    return {rect.Left + by, rect.Top + by, rect.Right + by, rect.Bottom + by};
}

} // namespace

void CButtonGlyph::Draw(const Controls::TControl& control, TCanvas& canvas, const TRect& rect,
                        const TPlacing& placing, TButtonState state, bool isWrapped) const
{
    const System::UnicodeString caption = control.GetText();
    const unsigned flags =
        control.DrawTextBiDiModeFlags(isWrapped ? DT_CENTER | DT_WORDBREAK : DT_CENTER | DT_SINGLELINE);
    TRect measured{0, 0, rect.Width(), 0};
    if (!caption.IsEmpty()) {
        Graphics::DrawText(&canvas, caption, measured, flags | DT_CALCRECT);
    }
    const TSize text = caption.IsEmpty() ? TSize() : TSize{measured.Width(), measured.Height()};
    auto [glyphPlace, textRect] = Place(rect, placing, PartSize(), text);
    if (state == bsDown || state == bsExclusive) {
        glyphPlace = {glyphPlace.X + 1, glyphPlace.Y + 1};
        textRect = Moved(textRect, 1);
    }
    if (!mBitmap->getEmpty()) {
        DrawPart(canvas, glyphPlace, state);
    }
    canvas.getBrush()->setStyle(Graphics::bsClear);
    if (state == bsDisabled) {
        TRect shifted = Moved(textRect, 1);
        canvas.getFont()->setColor(Graphics::clBtnHighlight);
        Graphics::DrawText(&canvas, caption, shifted, flags);
        canvas.getFont()->setColor(Graphics::clBtnShadow);
    }
    Graphics::DrawText(&canvas, caption, textRect, flags);
}

void CButtonGlyph::DrawPart(TCanvas& canvas, const TPoint& place, TButtonState state) const
{
    const TSize size = PartSize();
    if (size.cx <= 0 || size.cy <= 0) {
        return;
    }
    const int part = static_cast<int>(state) < mParts ? static_cast<int>(state) : 0;
    TBitmap shown(size.cx, size.cy);
    shown.getCanvas()->CopyRect({0, 0, size.cx, size.cy}, mBitmap->getCanvas(),
                                {part * size.cx, 0, (part + 1) * size.cx, size.cy});
    shown.setTransparent(true);
    shown.setTransparentColor(mBitmap->getTransparentColor());
    // Without a part for it, a button that can't be used shows its picture pale.
    constexpr unsigned char pale = 96;
    const bool isPale = state == bsDisabled && mParts < 2;
    canvas.Draw(place.X, place.Y, &shown, isPale ? pale : 255);
}

namespace
{

constexpr int KindSize = 18;
constexpr Graphics::TColor Background = Graphics::clFuchsia;

/// Lines through points of a square of `KindSize`, two pixels thick.
void DrawLines(TCanvas& canvas, Graphics::TColor color, int left, std::initializer_list<TPoint> points)
{
    canvas.getPen()->setColor(color);
    for (int shift = 0; shift < 2; ++shift) {
        std::vector<TPoint> moved;
        for (const TPoint& point : points) {
            moved.push_back({left + point.X + shift, point.Y});
        }
        canvas.Polyline(moved);
    }
}

void DrawKind(TCanvas& canvas, TBitBtnKind kind, int left, bool isUsable)
{
    const auto color = [&](Graphics::TColor usual) { return isUsable ? usual : Graphics::clGray; };
    switch (kind) {
    case bkOK:
    case bkYes:
    case bkAll:
        DrawLines(canvas, color(Graphics::clGreen), left, {{3, 9}, {7, 13}, {14, 4}});
        break;
    case bkCancel:
    case bkNo:
    case bkAbort:
        DrawLines(canvas, color(Graphics::clRed), left, {{4, 4}, {13, 14}});
        DrawLines(canvas, color(Graphics::clRed), left, {{13, 4}, {4, 14}});
        break;
    case bkHelp:
        DrawLines(canvas, color(Graphics::clBlue), left, {{5, 6}, {8, 3}, {11, 6}, {8, 10}, {8, 12}});
        DrawLines(canvas, color(Graphics::clBlue), left, {{8, 14}, {8, 16}});
        break;
    case bkClose:
        DrawLines(canvas, color(Graphics::clMaroon), left, {{4, 3}, {12, 3}, {12, 15}, {4, 15}, {4, 2}});
        break;
    case bkRetry:
        DrawLines(canvas, color(Graphics::clTeal), left,
                  {{12, 4}, {6, 3}, {3, 9}, {6, 14}, {12, 13}, {14, 9}});
        break;
    default:
        DrawLines(canvas, color(Graphics::clNavy), left, {{4, 9}, {13, 9}, {9, 5}});
        DrawLines(canvas, color(Graphics::clNavy), left, {{13, 9}, {9, 14}});
        break;
    }
}

} // namespace

std::unique_ptr<TBitmap> MakeKindGlyph(TBitBtnKind kind)
{
    if (kind == bkCustom) {
        return nullptr;
    }
    auto bitmap = std::make_unique<TBitmap>(2 * KindSize, KindSize);
    TCanvas& canvas = *bitmap->getCanvas();
    canvas.getBrush()->setColor(Background);
    canvas.FillRect({0, 0, 2 * KindSize, KindSize});
    DrawKind(canvas, kind, 0, true);
    DrawKind(canvas, kind, KindSize, false);
    return bitmap;
}

} // namespace Buttons
