// SPDX-License-Identifier: MIT
#include "platform/toolkit/headless/internal/SpanFiller.h"

#include "platform/toolkit/internal/RasterOperation.h"

#include <algorithm>

namespace Toolkits
{

namespace
{

/// Where a place is in the period that begins at 0.
constexpr int PlaceIn(int place, int period)
{
    const int rest = place % period;
    return rest < 0 ? rest + period : rest;
}

} // namespace

CSpanFiller::CSpanFiller(Pixels& pixels, const Types::TRect& clip, const TBrushData& brush,
                         Graphics::TPenMode mode, const TBrushGrid& grid)
    : mPixels(pixels),
      mClip(clip),
      mBrush(brush),
      mMode(mode),
      mGrid(grid),
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

bool CSpanFiller::BrushAt(int pixelX, int pixelY, TPixel& color) const
{
    const int x = pixelX - mGrid.origin.X;
    const int y = pixelY - mGrid.origin.Y;
    if (mBrush.pattern) {
        color = AlphaBits | mBrush.pattern->At(PlaceIn(x, mBrush.pattern->getWidth()),
                                               PlaceIn(y, mBrush.pattern->getHeight()));
        return true;
    }
    color = mBrush.color;
    const auto isLine = [this](int place) { return PlaceIn(place, mGrid.lineDistance) < mGrid.lineWidth; };
    switch (mBrush.style) {
    case Graphics::bsHorizontal:
        return isLine(y);
    case Graphics::bsVertical:
        return isLine(x);
    case Graphics::bsFDiagonal:
        return isLine(x - y);
    case Graphics::bsBDiagonal:
        return isLine(x + y);
    case Graphics::bsCross:
        return isLine(x) || isLine(y);
    case Graphics::bsDiagCross:
        return isLine(x - y) || isLine(x + y);
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
