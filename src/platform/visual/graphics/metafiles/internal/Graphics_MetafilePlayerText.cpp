// SPDX-License-Identifier: MIT
#include "platform/toolkit/Toolkit.h"
#include "platform/toolkit/internal/DeviceState.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafilePlayer.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Graphics
{

using Types::TPoint;

namespace
{

/// How far from its left edge the place of a text lies.
int WithinWidth(unsigned align, int width)
{
    if ((align & taCenter) == taCenter) {
        return width / 2;
    }
    return (align & taRight) != 0 ? width : 0;
}

/// How far from its upper edge the place of a text lies.
int WithinHeight(unsigned align, const Toolkits::TFontData& font)
{
    if ((align & taBottom) == 0) {
        return 0;
    }
    const Toolkits::TTextMetrics metrics = Toolkits::CurrentToolkit().FontMetrics(font);
    return (align & taBaseline) == taBaseline ? metrics.ascent : metrics.height;
}

/// The corner of a text that is turned around its place, which lies by so much within the level text.
TPoint CornerOf(const TPoint& at, const TPoint& within, int orientation)
{
    const double angle = orientation * std::numbers::pi / 1800;
    const double x = within.X * std::cos(angle) + within.Y * std::sin(angle);
    const double y = within.Y * std::cos(angle) - within.X * std::sin(angle);
    return {.X = Toolkits::HoldPlace(at.X - std::lround(x)), .Y = Toolkits::HoldPlace(at.Y - std::lround(y))};
}

} // namespace

Toolkits::TFontData CMetafilePlayer::Font() const
{
    Toolkits::TFontData font = mState.font;
    if (font.height != 0) {
        const int pixels = std::max(1, mState.mapping.Down(font.height));
        font.height = font.height < 0 ? -pixels : pixels;
    }
    return font;
}

void CMetafilePlayer::Text(const TMetafileText& text)
{
    const CMetafileMapping& mapping = mState.mapping;
    const Types::TRect rect = Toolkits::Normalized(mapping.ToPixels(text.rect));
    if ((text.options & toOpaque) != 0) {
        Target().FillRect(rect, {.color = mState.background});
    }
    // What glyphs stand for only the font that they were taken of can tell.
    if (text.text.IsEmpty() || (text.options & toGlyphs) != 0) {
        return;
    }
    const Toolkits::TFontData font = Font();
    // Without a need nothing is measured.
    const int width = mState.textAlign == 0 ? 0 : Toolkits::CurrentToolkit().TextExtent(font, text.text).cx;
    const TPoint within{.X = WithinWidth(mState.textAlign, width), .Y = WithinHeight(mState.textAlign, font)};
    const unsigned align = mState.textAlign;
    const bool isMoving = (align & taMoves) != 0;
    const TPoint at = mapping.ToPixel(isMoving ? mState.at : text.at);
    Target().Text(CornerOf(at, within, font.orientation), text.text, font,
                  {.color = mState.textColor,
                   .background = mState.background,
                   .isOpaque = mState.isOpaque,
                   .isRightToLeft = (align & taRightToLeft) != 0 || (text.options & toRightToLeft) != 0,
                   .clip = (text.options & toClipped) != 0 ? &rect : nullptr});
    if (isMoving && (align & taCenter) != taCenter) {
        // Back from pixels by the share of the unit.
        constexpr int probe = 1'000'000;
        const int pixels = mapping.Across(probe);
        const double distance = pixels == 0 ? 0 : 1.0 * width * probe / pixels;
        const double sign = (align & taRight) != 0 ? -1 : 1;
        mState.at.X = Toolkits::HoldPlace(std::llround(mState.at.X + sign * distance));
    }
}

} // namespace Graphics
