// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileMapping.h"

#include <vector>

namespace Graphics
{

/// A row of points in pixels, of which the last may lead to the first.
struct TMetafileFigure
{
    std::vector<Types::TPoint> points;
    bool isClosed = false;
};

/// Figures that are gathered before they are drawn.
class CMetafilePath
{
public:
    /// What follows begins at the point.
    void MoveTo(const Types::TPoint& point);
    /// Lines from where the figure is; a new one begins at `from`.
    void Add(const Types::TPoint& from, const std::vector<Types::TPoint>& points);
    void Close();
    void AddFigure(TMetafileFigure figure);
    const std::vector<TMetafileFigure>& getFigures() const { return mFigures; }

private:
    std::vector<TMetafileFigure> mFigures;
    bool mIsOpen = false;
};

/// All figures as one row of points, which fills what they fill together.
std::vector<Types::TPoint> JoinedFigures(const std::vector<TMetafileFigure>& figures);
/// The smallest rectangle that has all points in it; an empty one for none.
Types::TRect BoundsOf(const std::vector<Types::TPoint>& points);

/// The angle of the radius of the ellipse in `box` through a point, counterclockwise from the right.
double EllipseAngle(const Types::TRect& box, const Types::TPoint& through);
/// Points close to each other on the ellipse from an angle on, as far as `sweep`; at most all around.
std::vector<TMetafilePoint> EllipsePart(const Types::TRect& box, double start, double sweep);

} // namespace Graphics
