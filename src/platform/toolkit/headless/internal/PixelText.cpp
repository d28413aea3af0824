// SPDX-License-Identifier: MIT
#include "platform/toolkit/headless/internal/FontTable.h"
#include "platform/toolkit/headless/internal/PixelDevice.h"
#include "platform/toolkit/headless/internal/Shapes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>

namespace Toolkits
{

namespace
{

using Types::TPoint;
using Types::TRect;

/// Fills rectangles along a line of text, which may be turned about its corner.
class CTextBlocks
{
public:
    CTextBlocks(CSpanFiller& filler, const TPoint& corner, int orientation)
        : mFiller(filler), mCorner(corner), mIsTurned(orientation % 3600 != 0)
    {
        const double angle = orientation * std::numbers::pi / 1800;
        mAcross = std::cos(angle);
        mDown = std::sin(angle);
    }

    /// A rectangle, from the corner of the text.
    void Fill(const TRect& block)
    {
        if (mIsTurned) {
            FillPolygon(mFiller,
                        std::array{Turned(block.Left, block.Top), Turned(block.Right, block.Top),
                                   Turned(block.Right, block.Bottom), Turned(block.Left, block.Bottom)});
            return;
        }
        for (int y = block.Top; y < block.Bottom; ++y) {
            mFiller.Span(mCorner.Y + y, mCorner.X + block.Left, mCorner.X + block.Right);
        }
    }

private:
    TPoint Turned(int x, int y) const
    {
        return {.X = mCorner.X + static_cast<int>(std::lround(x * mAcross + y * mDown)),
                .Y = mCorner.Y + static_cast<int>(std::lround(y * mAcross - x * mDown))};
    }

    CSpanFiller& mFiller;
    TPoint mCorner;
    bool mIsTurned;
    double mAcross;
    double mDown;
};

} // namespace

void CPixelDevice::Text(const TPoint& at, const System::UnicodeString& text, const TFontData& font,
                        const TTextOptions& options)
{
    const TRect clip =
        options.clip == nullptr ? mState.Clip() : Intersection(mState.Clip(), mState.ToDevice(*options.clip));
    const CFontTable table(font);
    const TTextMetrics metrics = table.Metrics();
    const TPoint corner = mState.ToDevice(at);
    const int end = HoldPlace(table.Width(text.AsView()));
    if (options.isOpaque) {
        CSpanFiller ground(mPixels, clip, TBrushData{.color = options.background});
        CTextBlocks(ground, corner, font.orientation)
            .Fill({.Left = 0, .Top = 0, .Right = end, .Bottom = metrics.height});
    }
    CSpanFiller ink(mPixels, clip, TBrushData{.color = options.color});
    CTextBlocks blocks(ink, corner, font.orientation);
    const bool isLevel = font.orientation % 3600 == 0;
    std::u16string units(text.AsView());
    if (options.isRightToLeft) {
        std::ranges::reverse(units);
    }
    int x = 0;
    for (const System::WideChar unit : units) {
        if (isLevel && corner.X + x >= clip.Right) {
            break;
        }
        const int advance = table.Advance(unit);
        if (unit > u' ' && advance > 0) {
            // The last column and the space above stay free, so that characters and lines stand apart.
            const int right = HoldPlace(0LL + x + std::max(1, advance - 1));
            blocks.Fill(
                {.Left = x, .Top = metrics.internalLeading, .Right = right, .Bottom = metrics.ascent});
        }
        x = HoldPlace(0LL + x + advance);
    }
    if (font.styles.Contains(Graphics::fsUnderline)) {
        blocks.Fill({.Left = 0, .Top = metrics.ascent + 1, .Right = end, .Bottom = metrics.ascent + 2});
    }
    if (font.styles.Contains(Graphics::fsStrikeOut)) {
        const int middle = (metrics.internalLeading + metrics.ascent) / 2;
        blocks.Fill({.Left = 0, .Top = middle, .Right = end, .Bottom = middle + 1});
    }
}

} // namespace Toolkits
