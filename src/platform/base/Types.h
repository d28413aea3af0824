// SPDX-License-Identifier: MIT
#pragma once

namespace Types
{

struct TPoint
{
    int X = 0;
    int Y = 0;

    friend bool operator==(const TPoint&, const TPoint&) = default;
};

/// A rectangle of pixels; `Right` and `Bottom` lie outside it.
struct TRect
{
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;

    constexpr int Width() const { return Right - Left; }
    constexpr int Height() const { return Bottom - Top; }

    friend bool operator==(const TRect&, const TRect&) = default;
};

} // namespace Types
