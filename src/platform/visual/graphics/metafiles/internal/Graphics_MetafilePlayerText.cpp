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
    const Toolkits::Toolkit& toolkit = Toolkits::CurrentToolkit();
    const Toolkits::TFontData font = Font();
    const int width = toolkit.TextExtent(font, text.text).cx;
    const unsigned align = mState.textAlign;
    TPoint within;
    if ((align & taCenter) == taCenter) {
        within.X = width / 2;
    } else if ((align & taRight) != 0) {
        within.X = width;
    }
    if ((align & taBaseline) == taBaseline) {
        within.Y = toolkit.FontMetrics(font).ascent;
    } else if ((align & taBottom) != 0) {
        within.Y = toolkit.FontMetrics(font).height;
    }
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
