// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"

namespace Graphics
{
class TCanvas;
} // namespace Graphics

namespace Grids
{

/// A bar at the edge of a grid, which stands at one of the positions from 0 to the last.
class CGridScrollBar
{
public:
    /// Its parts, which follow each other along it.
    enum class EPart
    {
        None,
        LineBack,
        PageBack,
        Thumb,
        PageOn,
        LineOn
    };

    /// How wide an upright one is, in pixels.
    static constexpr int Breadth = 17;

    /// `page` is how many positions are in sight at a time.
    CGridScrollBar(const Types::TRect& area, bool isVertical, int position, int last, int page) noexcept;

    bool isVertical() const noexcept { return mIsVertical; }
    int getPosition() const noexcept { return mPosition; }
    int getPage() const noexcept { return mPage; }
    const Types::TRect& getArea() const noexcept { return mArea; }
    /// The part at a place; none outside.
    EPart GetPartAt(Types::TPoint place) const noexcept;
    /// The position to which the thumb is dragged at a place.
    int GetPositionAt(Types::TPoint place) const noexcept;
    void Paint(Graphics::TCanvas& canvas) const;

private:
    /// Along the bar, from its begin.
    int GetLength() const noexcept;
    int GetThumbBegin() const noexcept;
    int GetThumbLength() const noexcept;
    int AlongBar(Types::TPoint place) const noexcept;
    Types::TRect PartRect(int begin, int end) const noexcept;
    void PaintArrow(Graphics::TCanvas& canvas, const Types::TRect& rect, bool isBack) const;

    Types::TRect mArea;
    bool mIsVertical;
    int mPosition;
    int mLast;
    int mPage;
};

} // namespace Grids
