// SPDX-License-Identifier: MIT
#pragma once

namespace Types
{

/// A place on a plane, `Y` downwards.
struct TPoint
{
    int X = 0;
    int Y = 0;

    friend bool operator==(const TPoint&, const TPoint&) = default;
};

/// An extent on a plane: width and height.
struct TSize
{
    int cx = 0;
    int cy = 0;

    friend bool operator==(const TSize&, const TSize&) = default;
};

/// A rectangle of pixels; `Right` and `Bottom` lie outside it.
struct TRect
{
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;

    /// The extent; negative where the edges are the wrong way round.
    constexpr int Width() const { return Right - Left; }
    constexpr int Height() const { return Bottom - Top; }
    /// Whether the point lies inside; the right and lower edges don't.
    constexpr bool Contains(const TPoint& point) const
    {
        return point.X >= Left && point.X < Right && point.Y >= Top && point.Y < Bottom;
    }

    friend bool operator==(const TRect&, const TRect&) = default;
};

} // namespace Types
