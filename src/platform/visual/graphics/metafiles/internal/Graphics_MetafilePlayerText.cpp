// SPDX-License-Identifier: MIT
#include "platform/toolkit/Toolkit.h"
#include "platform/toolkit/internal/DeviceState.h"
#include "platform/visual/graphics/internal/Graphics_Place.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafilePlayer.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace Graphics
{

using Toolkits::PaintRecording;
using Types::TPoint;
using Types::TRect;

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

/// A part of a text, and how many pixels behind the beginning of it that is drawn.
struct TPiece
{
    System::UnicodeString text;
    int place;
};

/// Whether the unit belongs to the character before it.
bool IsContinued(System::WideChar unit)
{
    const bool isLowHalf = unit >= 0xDC00 && unit <= 0xDFFF;
    const bool isMark = unit >= 0x300 && unit < 0x370;
    const bool isSelector = unit >= 0xFE00 && unit <= 0xFE0F;
    return isLowHalf || isMark || isSelector || unit == 0x200D;
}

/// Whether the script has characters that join or change their order, which one drawn by itself can't tell.
bool IsJoined(System::WideChar unit)
{
    return (unit >= 0x590 && unit < 0x1100) || (unit >= 0x1780 && unit < 0x18B0);
}

/// Whether the characters are drawn where the file has them: those of a level line that can stand alone, and
/// that nothing runs through.
bool HasOwnPlaces(const TMetafileText& text, const Toolkits::TFontData& font)
{
    constexpr std::size_t longest = 4096;
    const auto units = text.text.AsView();
    const bool isPlain = font.orientation % 3600 == 0 && !font.styles.Contains(fsUnderline) &&
                         !font.styles.Contains(fsStrikeOut);
    return isPlain && units.size() == text.distances.size() && units.size() <= longest &&
           std::ranges::none_of(units, &IsJoined);
}

/// The text in as few pieces as have each character within a pixel of its place, which is told from the
/// beginning of the text on.
std::vector<TPiece> PiecesOf(const System::UnicodeString& text, const std::vector<int>& places,
                             const Toolkits::TFontData& font)
{
    const Toolkits::Toolkit& toolkit = Toolkits::CurrentToolkit();
    const auto units = text.AsView();
    std::vector<TPiece> pieces;
    long long end = 0;
    for (std::size_t i = 0; i < units.size(); ++i) {
        if (pieces.empty() || (std::abs(places[i] - end) > 1 && !IsContinued(units[i]))) {
            pieces.push_back({.text = {}, .place = places[i]});
            end = places[i];
        }
        pieces.back().text += units[i];
        end += toolkit.TextExtent(font, System::UnicodeString(units[i])).cx;
    }
    return pieces;
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

std::vector<int> CMetafilePlayer::PlacesOf(const std::vector<int>& distances) const
{
    std::vector<int> places{0};
    double end = 0;
    for (const int distance : distances) {
        end += distance;
        places.push_back(end < 0 ? -mState.mapping.Across(end) : mState.mapping.Across(end));
    }
    return places;
}

Toolkits::TTextOptions CMetafilePlayer::OptionsOf(const TMetafileText& text, const TRect& rect) const
{
    return {.color = mState.textColor,
            .background = mState.background,
            .isOpaque = mState.isOpaque,
            .isRightToLeft = (mState.textAlign & taRightToLeft) != 0 || (text.options & toRightToLeft) != 0,
            .clip = (text.options & toClipped) != 0 ? &rect : nullptr};
}

void CMetafilePlayer::Text(const TMetafileText& text)
{
    const TRect rect = Toolkits::Normalized(mState.mapping.ToPixels(text.rect));
    if ((text.options & toOpaque) != 0) {
        Draw(PixelsOfAPoint,
             [&](PaintRecording& target) { target.FillRect(rect, {.color = mState.background}); });
    }
    // What glyphs stand for only the font that they were taken of can tell.
    if (text.text.IsEmpty() || (text.options & toGlyphs) != 0) {
        return;
    }
    const Toolkits::TFontData font = Font();
    const Toolkits::TTextOptions options = OptionsOf(text, rect);
    const unsigned align = mState.textAlign;
    const std::vector<int> places =
        HasOwnPlaces(text, font) && !options.isRightToLeft ? PlacesOf(text.distances) : std::vector<int>{0};
    const bool isPlaced = places.size() > 1;
    // Without a need nothing is measured.
    const int width = isPlaced     ? places.back()
                      : align == 0 ? 0
                                   : Toolkits::CurrentToolkit().TextExtent(font, text.text).cx;
    const TPoint within{.X = WithinWidth(align, width), .Y = WithinHeight(align, font)};
    const bool isMoving = (align & taMoves) != 0;
    const TPoint at = mState.mapping.ToPixel(isMoving ? mState.at : text.at);
    const TPoint corner = CornerOf(at, within, font.orientation);
    if (isPlaced) {
        DrawPlaced(text.text, places, corner, font, options);
    } else {
        Draw(text.text.AsView().size(),
             [&](PaintRecording& target) { target.Text(corner, text.text, font, options); });
    }
    if (isMoving && (align & taCenter) != taCenter) {
        MoveBehind(width);
    }
}

void CMetafilePlayer::DrawPlaced(const System::UnicodeString& text, const std::vector<int>& places,
                                 const TPoint& corner, const Toolkits::TFontData& font,
                                 Toolkits::TTextOptions options)
{
    const std::vector<TPiece> pieces = PiecesOf(text, places, font);
    if (options.isOpaque && pieces.size() > 1) {
        // The ground of a piece would cover what stands before it, and leave gaps.
        const int height = Toolkits::CurrentToolkit().FontMetrics(font).height;
        const TRect ground = RectAt(corner.X, corner.Y, places.back(), height);
        const TRect seen = options.clip == nullptr ? ground : Toolkits::Intersection(ground, *options.clip);
        Draw(PixelsOfAPoint,
             [&](PaintRecording& target) { target.FillRect(seen, {.color = options.background}); });
        options.isOpaque = false;
    }
    for (const TPiece& piece : pieces) {
        const TPoint at{.X = Toolkits::HoldPlace(0LL + corner.X + piece.place), .Y = corner.Y};
        Draw(PixelsOfAPoint, [&](PaintRecording& target) { target.Text(at, piece.text, font, options); });
    }
}

void CMetafilePlayer::MoveBehind(int width)
{
    // Back from pixels by the share of the unit.
    constexpr int probe = 1'000'000;
    const int pixels = mState.mapping.Across(probe);
    const double distance = pixels == 0 ? 0 : 1.0 * width * probe / pixels;
    const double sign = (mState.textAlign & taRight) != 0 ? -1 : 1;
    mState.at.X = Toolkits::HoldPlace(std::llround(mState.at.X + sign * distance));
}

} // namespace Graphics
