// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileMapping.h"

#include "platform/toolkit/internal/DeviceState.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Graphics
{

namespace
{

using Types::TPoint;
using Types::TRect;
using Types::TSize;

/// Also for what is no number.
int Held(double place)
{
    constexpr double farthest = Toolkits::FarthestPlace;
    return place >= -farthest ? static_cast<int>(std::floor(std::min(place, farthest) + 0.5))
                              : -Toolkits::FarthestPlace;
}

/// The millimetres of a unit of fixed size.
double MillimetresOf(unsigned mode)
{
    static constexpr std::array sizes = {0.1, 0.01, 0.254, 0.0254, 25.4 / 1440};
    return sizes[mode - mmTenthMillimetre];
}

int Scaled(int extent, int factor, int divisor)
{
    return divisor == 0 ? extent : Held(1.0 * extent * factor / divisor);
}

TSize Scaled(const TSize& extent, const TPoint& factor, const TPoint& divisor)
{
    return {.cx = Scaled(extent.cx, factor.X, divisor.X), .cy = Scaled(extent.cy, factor.Y, divisor.Y)};
}

TPoint Moved(const TPoint& point, int dx, int dy)
{
    return {.X = Held(1.0 * point.X + dx), .Y = Held(1.0 * point.Y + dy)};
}

} // namespace

TMetafileTransform TMetafileTransform::Then(const TMetafileTransform& other) const
{
    return {.xx = xx * other.xx + xy * other.yx,
            .xy = xx * other.xy + xy * other.yy,
            .yx = yx * other.xx + yy * other.yx,
            .yy = yx * other.xy + yy * other.yy,
            .dx = dx * other.xx + dy * other.yx + other.dx,
            .dy = dx * other.xy + dy * other.yy + other.dy};
}

void CMetafileMapping::setDevice(const TMetafilePoint& origin, const TMetafilePoint& pixelsPerMillimetre)
{
    mOrigin = origin;
    mPixelsPerMillimetre = pixelsPerMillimetre;
    Refresh();
}

void CMetafileMapping::setMode(unsigned mode)
{
    if (mode >= mmText && mode <= mmAnisotropic) {
        mMode = mode;
        Refresh();
    }
}

void CMetafileMapping::setWindowOrigin(const TPoint& origin)
{
    mWindow = origin;
    Refresh();
}

void CMetafileMapping::setViewportOrigin(const TPoint& origin)
{
    mViewport = origin;
    Refresh();
}

void CMetafileMapping::MoveWindow(int dx, int dy)
{
    setWindowOrigin(Moved(mWindow, dx, dy));
}

void CMetafileMapping::MoveViewport(int dx, int dy)
{
    setViewportOrigin(Moved(mViewport, dx, dy));
}

void CMetafileMapping::setWindowExtent(const TSize& extent)
{
    if (extent.cx != 0 && extent.cy != 0) {
        mWindowExtent = extent;
        Refresh();
    }
}

void CMetafileMapping::setViewportExtent(const TSize& extent)
{
    if (extent.cx != 0 && extent.cy != 0) {
        mViewportExtent = extent;
        Refresh();
    }
}

void CMetafileMapping::ScaleWindow(const TPoint& factor, const TPoint& divisor)
{
    setWindowExtent(Scaled(mWindowExtent, factor, divisor));
}

void CMetafileMapping::ScaleViewport(const TPoint& factor, const TPoint& divisor)
{
    setViewportExtent(Scaled(mViewportExtent, factor, divisor));
}

void CMetafileMapping::setWorld(const TMetafileTransform& world)
{
    mWorld = world;
    Refresh();
}

void CMetafileMapping::Refresh()
{
    double x = 1;
    double y = 1;
    if (HasExtents()) {
        x = 1.0 * mViewportExtent.cx / mWindowExtent.cx;
        y = 1.0 * mViewportExtent.cy / mWindowExtent.cy;
        if (mMode == mmIsotropic) {
            const double both = std::min(std::abs(x), std::abs(y));
            x = std::copysign(both, x);
            y = std::copysign(both, y);
        }
    } else if (mMode != mmText) {
        // Their second axis points upwards.
        x = MillimetresOf(mMode) * mPixelsPerMillimetre.x;
        y = -MillimetresOf(mMode) * mPixelsPerMillimetre.y;
    }
    mAll = mWorld.Then({.xx = x,
                        .yy = y,
                        .dx = mViewport.X - mWindow.X * x - mOrigin.x,
                        .dy = mViewport.Y - mWindow.Y * y - mOrigin.y});
}

TPoint CMetafileMapping::ToPixel(const TMetafilePoint& point) const
{
    return {.X = Held(point.x * mAll.xx + point.y * mAll.yx + mAll.dx),
            .Y = Held(point.x * mAll.xy + point.y * mAll.yy + mAll.dy)};
}

TRect CMetafileMapping::ToPixels(const TRect& rect) const
{
    const TPoint first = ToPixel(TPoint{.X = rect.Left, .Y = rect.Top});
    const TPoint last = ToPixel(TPoint{.X = rect.Right, .Y = rect.Bottom});
    return {.Left = first.X, .Top = first.Y, .Right = last.X, .Bottom = last.Y};
}

TRect CMetafileMapping::FromDevice(const TRect& rect) const
{
    return {.Left = Held(rect.Left - mOrigin.x),
            .Top = Held(rect.Top - mOrigin.y),
            .Right = Held(rect.Right - mOrigin.x),
            .Bottom = Held(rect.Bottom - mOrigin.y)};
}

int CMetafileMapping::Across(double distance) const
{
    return std::abs(Held(std::hypot(mAll.xx, mAll.xy) * distance));
}

int CMetafileMapping::Down(double distance) const
{
    return std::abs(Held(std::hypot(mAll.yx, mAll.yy) * distance));
}

} // namespace Graphics
