// SPDX-License-Identifier: MIT
#include "platform/visual/grids/internal/Grids_ScrollBar.h"

#include "platform/visual/graphics/Graphics_Canvas.h"

#include <algorithm>
#include <cstdint>

namespace Grids
{

using Types::TPoint;
using Types::TRect;

CGridScrollBar::CGridScrollBar(const TRect& area, bool isVertical, int position, int last, int page) noexcept
    : mArea(area),
      mIsVertical(isVertical),
      mPosition(std::clamp(position, 0, std::max(last, 0))),
      mLast(std::max(last, 0)),
      mPage(std::max(page, 1))
{
}

int CGridScrollBar::GetLength() const noexcept
{
    return mIsVertical ? mArea.Height() : mArea.Width();
}

int CGridScrollBar::GetThumbLength() const noexcept
{
    constexpr int least = 8;
    const int track = std::max(GetLength() - 2 * Breadth, 0);
    const std::int64_t all = std::int64_t{mLast} + mPage;
    return std::min(std::max(static_cast<int>(std::int64_t{track} * mPage / all), least), track);
}

int CGridScrollBar::GetThumbBegin() const noexcept
{
    const int way = std::max(GetLength() - 2 * Breadth, 0) - GetThumbLength();
    return Breadth + (mLast == 0 ? 0 : static_cast<int>(std::int64_t{way} * mPosition / mLast));
}

int CGridScrollBar::AlongBar(TPoint place) const noexcept
{
    return mIsVertical ? place.Y - mArea.Top : place.X - mArea.Left;
}

CGridScrollBar::EPart CGridScrollBar::GetPartAt(TPoint place) const noexcept
{
    const bool isInside =
        place.X >= mArea.Left && place.X < mArea.Right && place.Y >= mArea.Top && place.Y < mArea.Bottom;
    if (!isInside) {
        return EPart::None;
    }
    const int along = AlongBar(place);
    const int thumb = GetThumbBegin();
    if (along < std::min(Breadth, GetLength() / 2)) {
        return EPart::LineBack;
    }
    if (along >= GetLength() - Breadth) {
        return EPart::LineOn;
    }
    if (along < thumb) {
        return EPart::PageBack;
    }
    return along < thumb + GetThumbLength() ? EPart::Thumb : EPart::PageOn;
}

int CGridScrollBar::GetPositionAt(TPoint place) const noexcept
{
    const int thumb = GetThumbLength();
    const int way = std::max(GetLength() - 2 * Breadth, 0) - thumb;
    if (way <= 0) {
        return mPosition;
    }
    const std::int64_t along = std::clamp(AlongBar(place) - Breadth - thumb / 2, 0, way);
    return static_cast<int>((along * mLast + way / 2) / way);
}

TRect CGridScrollBar::PartRect(int begin, int end) const noexcept
{
    return mIsVertical ? TRect{mArea.Left, mArea.Top + begin, mArea.Right, mArea.Top + end}
                       : TRect{mArea.Left + begin, mArea.Top, mArea.Left + end, mArea.Bottom};
}

void CGridScrollBar::PaintArrow(Graphics::TCanvas& canvas, const TRect& rect, bool isBack) const
{
    constexpr int size = 3;
    const int x = (rect.Left + rect.Right) / 2;
    const int y = (rect.Top + rect.Bottom) / 2;
    const int tip = isBack ? -size / 2 : size / 2;
    const int base = isBack ? size / 2 : -size / 2;
    const TPoint upright[] = {{x, y + tip}, {x - size, y + base}, {x + size, y + base}};
    const TPoint lying[] = {{x + tip, y}, {x + base, y - size}, {x + base, y + size}};
    canvas.getBrush()->setColor(Graphics::clBtnText);
    canvas.getPen()->setColor(Graphics::clBtnText);
    canvas.Polygon(mIsVertical ? upright : lying);
}

void CGridScrollBar::Paint(Graphics::TCanvas& canvas) const
{
    const int length = GetLength();
    const int button = std::min(Breadth, length / 2);
    const int thumb = GetThumbBegin();
    const auto fill = [&](const TRect& rect, Graphics::TColor color) {
        canvas.getBrush()->setColor(color);
        canvas.FillRect(rect);
        canvas.getBrush()->setColor(Graphics::clBtnShadow);
        canvas.FrameRect(rect);
    };
    canvas.getBrush()->setColor(Graphics::clScrollBar);
    canvas.FillRect(mArea);
    const TRect back = PartRect(0, button);
    const TRect on = PartRect(length - button, length);
    fill(back, Graphics::clBtnFace);
    fill(on, Graphics::clBtnFace);
    fill(PartRect(thumb, thumb + GetThumbLength()), Graphics::clBtnFace);
    PaintArrow(canvas, back, true);
    PaintArrow(canvas, on, false);
}

} // namespace Grids
