// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"

namespace Graphics
{

/// A plane moved, stretched and turned: x * xx + y * yx + dx, x * xy + y * yy + dy.
struct TMetafileTransform
{
    double xx = 1;
    double xy = 0;
    double yx = 0;
    double yy = 1;
    double dx = 0;
    double dy = 0;

    /// This one first, then `other`.
    TMetafileTransform Then(const TMetafileTransform& other) const;
};

/// The units of a drawing, by their numbers in files.
enum EMapMode : unsigned
{
    mmText = 1,
    mmTenthMillimetre,
    mmHundredthMillimetre,
    mmHundredthInch,
    mmThousandthInch,
    mmTwip,
    mmIsotropic,
    mmAnisotropic
};

/// A place of a drawing, in its own units.
struct TMetafilePoint
{
    double x = 0;
    double y = 0;
};

/// Where the places of a drawing lie in the picture: the window, which is in units of the drawing, covers the
/// viewport, which is in pixels.
///
///     CMetafileMapping mapping;
///     mapping.setMode(mmAnisotropic);
///     mapping.setWindowExtent({.cx = 1000, .cy = 1000});
///     mapping.setViewportExtent({.cx = 50, .cy = 50});
///     mapping.ToPixel({.x = 500, .y = 0});                        // 25, 0
class CMetafileMapping
{
public:
    /// The pixel of the device that is the first of the picture, and the pixels of a millimetre.
    void setDevice(const TMetafilePoint& origin, const TMetafilePoint& pixelsPerMillimetre);
    /// One that isn't known is passed over.
    void setMode(unsigned mode);
    void setWindowOrigin(const Types::TPoint& origin);
    void setViewportOrigin(const Types::TPoint& origin);
    void MoveWindow(int dx, int dy);
    void MoveViewport(int dx, int dy);
    // Extents without a size are passed over, and factors that aren't any. Units of a fixed size have none.
    void setWindowExtent(const Types::TSize& extent);
    void setViewportExtent(const Types::TSize& extent);
    void ScaleWindow(const Types::TPoint& factor, const Types::TPoint& divisor);
    void ScaleViewport(const Types::TPoint& factor, const Types::TPoint& divisor);
    const TMetafileTransform& getWorld() const { return mWorld; }
    void setWorld(const TMetafileTransform& world);

    /// Held to what a device can have, whatever the numbers of the file are.
    Types::TPoint ToPixel(const TMetafilePoint& point) const;
    Types::TPoint ToPixel(const Types::TPoint& point) const
    {
        return ToPixel(TMetafilePoint{.x = 1.0 * point.X, .y = 1.0 * point.Y});
    }
    /// The edges may come out the wrong way round.
    Types::TRect ToPixels(const Types::TRect& rect) const;
    /// The place in the picture of pixels of the device.
    Types::TRect FromDevice(const Types::TRect& rect) const;
    /// How many pixels a distance across and down has, at least 0.
    int Across(double distance) const;
    int Down(double distance) const;
    /// Whether upright rectangles aren't any in the picture.
    bool IsTurned() const { return mWorld.xy != 0 || mWorld.yx != 0; }

private:
    void Refresh();
    bool HasExtents() const { return mMode == mmIsotropic || mMode == mmAnisotropic; }

    unsigned mMode = mmText;
    Types::TPoint mWindow;
    Types::TPoint mViewport;
    Types::TSize mWindowExtent{.cx = 1, .cy = 1};
    Types::TSize mViewportExtent{.cx = 1, .cy = 1};
    TMetafilePoint mOrigin;
    TMetafilePoint mPixelsPerMillimetre{.x = 96 / 25.4, .y = 96 / 25.4};
    TMetafileTransform mWorld;
    /// From the units of the drawing to the pixels of the picture.
    TMetafileTransform mAll;
};

} // namespace Graphics
