// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintDevice.h"
#include "platform/toolkit/headless/internal/SpanFiller.h"

#include <algorithm>
#include <span>
#include <vector>

namespace Toolkits
{

// Shapes as rows of pixels. Co-ordinates are held to `FarthestPlace`.

/// A rectangle whose corners are quarters of an ellipse.
struct TRoundShape
{
    Types::TRect rect;
    Types::TSize corner;

    /// That which lies `by` pixels inside, with corners that fit.
    TRoundShape Inset(int by) const;
};

/// What the shape takes with its frame. A pen that is clear has none.
TRS8_BTL_API TRoundShape OuterEdge(const TRoundShape& shape, const TPenData& pen);

/// Calls `dot(x, y)` for each pixel of the dotted frame within a rectangle that lies in the limit.
template <class Dot>
void EachFocusDot(const Types::TRect& frame, const Types::TRect& clip, Dot dot)
{
    if (frame.Width() < 1 || frame.Height() < 1) {
        return;
    }
    const auto every = [&](int x, int y) {
        if (((x + y) & 1) != 0) {
            dot(x, y);
        }
    };
    for (int x = std::max(frame.Left, clip.Left); x < std::min(frame.Right, clip.Right); ++x) {
        every(x, frame.Top);
        if (frame.Height() > 1) {
            every(x, frame.Bottom - 1);
        }
    }
    for (int y = std::max(frame.Top + 1, clip.Top); y < std::min(frame.Bottom - 1, clip.Bottom); ++y) {
        every(frame.Left, y);
        if (frame.Width() > 1) {
            every(frame.Right - 1, y);
        }
    }
}

/// Fills the shape in the brush and frames it in the pen. A pen wider than 1 spreads to both sides of the
/// frame, unless its style keeps it inside.
void DrawRoundShape(CSpanFiller& line, CSpanFiller& area, const TRoundShape& shape, const TPenData& pen);

/// Fills what is within the closed line.
void FillPolygon(CSpanFiller& area, std::span<const Types::TPoint> points,
                 EFillRule rule = EFillRule::EvenOdd);

/// Lines from point to point, without the last point.
void DrawPolyline(CSpanFiller& line, std::span<const Types::TPoint> points, const TPenData& pen);

/// Lengths in pixels of the strokes and gaps of a pen in turn; none for one without gaps.
TRS8_BTL_API std::span<const int> StrokesOf(const TPenData& pen);

/// The points of an ellipse from the radius through `from` counterclockwise to that through `to`.
TRS8_BTL_API std::vector<Types::TPoint> ArcPoints(const Types::TRect& rect, const Types::TPoint& from,
                                                  const Types::TPoint& to);

} // namespace Toolkits
