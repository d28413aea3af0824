// SPDX-License-Identifier: MIT
#include "platform/toolkit/headless/internal/SpanFiller.h"

#include "platform/toolkit/internal/RasterOperation.h"

#include <algorithm>

namespace Toolkits
{

namespace
{

/// The distance of the lines of a brush.
constexpr int LineDistance = 8;

} // namespace

CSpanFiller::CSpanFiller(Pixels& pixels, const Types::TRect& clip, const TBrushData& brush,
                         Graphics::TPenMode mode)
    : mPixels(pixels),
      mClip(clip),
      mBrush(brush),
      mMode(mode),
      mIsClear(!brush.pattern && brush.style == Graphics::bsClear)
{
    if (mBrush.pattern && mBrush.pattern->IsEmpty()) {
        mBrush.pattern = {};
    }
}

CSpanFiller::CSpanFiller(Pixels& pixels, const Types::TRect& clip, const TPenData& pen)
    : mPixels(pixels),
      mClip(clip),
      mBrush{.color = pen.color, .style = Graphics::bsSolid, .pattern = {}},
      mMode(pen.mode),
      mIsClear(pen.style == Graphics::psClear)
{
}

bool CSpanFiller::BrushAt(int x, int y, TPixel& color) const
{
    if (mBrush.pattern) {
        color =
            AlphaBits | mBrush.pattern->At(x % mBrush.pattern->getWidth(), y % mBrush.pattern->getHeight());
        return true;
    }
    color = mBrush.color;
    switch (mBrush.style) {
    case Graphics::bsHorizontal:
        return y % LineDistance == 0;
    case Graphics::bsVertical:
        return x % LineDistance == 0;
    case Graphics::bsFDiagonal:
        return (x - y) % LineDistance == 0;
    case Graphics::bsBDiagonal:
        return (x + y) % LineDistance == 0;
    case Graphics::bsCross:
        return x % LineDistance == 0 || y % LineDistance == 0;
    case Graphics::bsDiagCross:
        return (x - y) % LineDistance == 0 || (x + y) % LineDistance == 0;
    case Graphics::bsSolid:
    case Graphics::bsClear:
        break;
    }
    return mBrush.style == Graphics::bsSolid;
}

void CSpanFiller::Span(int y, int first, int end)
{
    if (mIsClear || y < mClip.Top || y >= mClip.Bottom) {
        return;
    }
    const int from = std::max(first, mClip.Left);
    const int to = std::min(end, mClip.Right);
    if (from >= to) {
        return;
    }
    const auto row =
        mPixels.Row(y).subspan(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from));
    if (mMode == Graphics::pmCopy && mBrush.style == Graphics::bsSolid && !mBrush.pattern) {
        std::ranges::fill(row, mBrush.color);
        return;
    }
    int x = from;
    for (TPixel& pixel : row) {
        TPixel color = 0;
        if (BrushAt(x, y, color)) {
            pixel = ApplyPenMode(mMode, color, pixel);
        }
        ++x;
    }
}

} // namespace Toolkits
