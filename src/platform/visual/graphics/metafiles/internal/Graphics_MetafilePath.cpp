// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafilePath.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace Graphics
{

using Types::TPoint;
using Types::TRect;

namespace
{

TMetafilePoint CenterOf(const TRect& box)
{
    return {.x = (1.0 * box.Left + box.Right) / 2, .y = (1.0 * box.Top + box.Bottom) / 2};
}

} // namespace

void CMetafilePath::MoveTo(const TPoint& point)
{
    // A figure that has only begun is left for this one.
    if (mIsOpen && mFigures.back().points.size() == 1) {
        mFigures.back().points.front() = point;
        return;
    }
    mFigures.push_back({.points = {point}});
    mIsOpen = true;
}

void CMetafilePath::Add(const TPoint& from, const std::vector<TPoint>& points)
{
    if (!mIsOpen) {
        MoveTo(from);
    }
    auto& figure = mFigures.back().points;
    figure.insert(figure.end(), points.begin(), points.end());
}

void CMetafilePath::Close()
{
    if (mIsOpen) {
        mFigures.back().isClosed = true;
        mIsOpen = false;
    }
}

void CMetafilePath::AddFigure(TMetafileFigure figure)
{
    mFigures.push_back(std::move(figure));
    mIsOpen = false;
}

std::vector<TPoint> JoinedFigures(const std::vector<TMetafileFigure>& figures)
{
    std::vector<TPoint> joined;
    for (const TMetafileFigure& figure : figures) {
        if (figure.points.empty()) {
            continue;
        }
        joined.insert(joined.end(), figure.points.begin(), figure.points.end());
        // The way to the next figure goes there and back, so that it bounds nothing.
        joined.push_back(figure.points.front());
        joined.push_back(joined.front());
    }
    return joined;
}

TRect BoundsOf(const std::vector<TPoint>& points)
{
    if (points.empty()) {
        return {};
    }
    const auto [left, right] = std::ranges::minmax(points, {}, &TPoint::X);
    const auto [top, bottom] = std::ranges::minmax(points, {}, &TPoint::Y);
    return {.Left = left.X, .Top = top.Y, .Right = right.X, .Bottom = bottom.Y};
}

double EllipseAngle(const TRect& box, const TPoint& through)
{
    const TMetafilePoint center = CenterOf(box);
    const double width = 1.0 * box.Right - box.Left;
    const double height = 1.0 * box.Bottom - box.Top;
    return width == 0 || height == 0
               ? 0
               : std::atan2((center.y - through.Y) / height, (through.X - center.x) / width);
}

std::vector<TMetafilePoint> EllipsePart(const TRect& box, double start, double sweep)
{
    constexpr double around = 2 * std::numbers::pi;
    constexpr double partsAround = 90;
    if (!std::isfinite(start) || !std::isfinite(sweep)) {
        return {};
    }
    const double held = std::clamp(sweep, -around, around);
    const int parts = 1 + static_cast<int>(std::abs(held) / around * partsAround);
    const TMetafilePoint center = CenterOf(box);
    std::vector<TMetafilePoint> points;
    for (int part = 0; part <= parts; ++part) {
        const double angle = start + held * part / parts;
        points.push_back({.x = center.x + std::cos(angle) * (1.0 * box.Right - box.Left) / 2,
                          .y = center.y - std::sin(angle) * (1.0 * box.Bottom - box.Top) / 2});
    }
    return points;
}

} // namespace Graphics
