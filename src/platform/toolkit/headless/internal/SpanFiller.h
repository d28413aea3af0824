// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintDevice.h"

namespace Toolkits
{

/// Colours pixels row by row, within a limit.
class CSpanFiller
{
public:
    /// `clip` lies within the pixels.
    CSpanFiller(Pixels& pixels, const Types::TRect& clip, const TBrushData& brush,
                Graphics::TPenMode mode = Graphics::pmCopy);
    CSpanFiller(Pixels& pixels, const Types::TRect& clip, const TPenData& pen);

    /// Whether nothing would be coloured.
    bool IsClear() const noexcept { return mIsClear; }
    const Types::TRect& Clip() const noexcept { return mClip; }

    /// The pixels from `first` to the one before `end`.
    void Span(int y, int first, int end);
    void Point(int x, int y) { Span(y, x, x + 1); }

private:
    /// What the brush has for the pixel; false for a gap between its lines.
    bool BrushAt(int x, int y, TPixel& color) const;

    Pixels& mPixels;
    Types::TRect mClip;
    TBrushData mBrush;
    Graphics::TPenMode mMode;
    bool mIsClear;
};

} // namespace Toolkits
