// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintDevice.h"

namespace Toolkits
{

/// Where the lines and patterns of brushes begin, how far the lines are apart and how wide they are.
struct TBrushGrid
{
    Types::TPoint origin = {};
    int lineDistance = 8;
    int lineWidth = 1;
};

/// Colours pixels row by row, within a limit.
class CSpanFiller
{
public:
    /// `clip` lies within the pixels.
    CSpanFiller(Pixels& pixels, const Types::TRect& clip, const TBrushData& brush,
                Graphics::TPenMode mode = Graphics::pmCopy, const TBrushGrid& grid = {});
    CSpanFiller(Pixels& pixels, const Types::TRect& clip, const TPenData& pen);

    /// Whether nothing would be coloured.
    bool IsClear() const noexcept { return mIsClear; }
    const Types::TRect& Clip() const noexcept { return mClip; }

    /// The pixels from `first` to the one before `end`.
    void Span(int y, int first, int end);
    void Point(int x, int y) { Span(y, x, x + 1); }

private:
    /// What the brush has for the pixel; false for a gap between its lines.
    bool BrushAt(int pixelX, int pixelY, TPixel& color) const;

    Pixels& mPixels;
    Types::TRect mClip;
    TBrushData mBrush;
    Graphics::TPenMode mMode;
    TBrushGrid mGrid;
    bool mIsClear;
};

} // namespace Toolkits
