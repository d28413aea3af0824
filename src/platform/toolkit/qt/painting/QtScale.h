// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/internal/DeviceState.h"

#include <QPoint>
#include <QRect>

#include <algorithm>
#include <cmath>

namespace Toolkits
{

/// Where the places of a widget are among the pixels that a part of it has on its screen. Each edge is
/// brought to the nearest pixel of the window, whatever part it is drawn with, so that neighbours have
/// neither a gap nor a blurred edge between them.
class CQtScale
{
public:
    /// `factor` is pixels of the screen to one of the library's, `place` that of the widget in its window.
    CQtScale(double factor, const QPoint& place, const Types::TRect& part)
        : mFactor(factor), mPlace(place), mFirst(Pixel(mPlace.x(), part.Left), Pixel(mPlace.y(), part.Top))
    {
    }

    double Factor() const noexcept { return mFactor; }
    bool IsOne() const noexcept { return mFactor == 1.0; }
    /// The first pixel of the part, from the corner of the widget.
    QPointF First() const noexcept
    {
        return {mFirst.x() - mPlace.x() * mFactor, mFirst.y() - mPlace.y() * mFactor};
    }

    int X(int place) const noexcept { return Pixel(mPlace.x(), place) - mFirst.x(); }
    int Y(int place) const noexcept { return Pixel(mPlace.y(), place) - mFirst.y(); }
    Types::TPoint Map(const Types::TPoint& point) const noexcept
    {
        return {.X = X(point.X), .Y = Y(point.Y)};
    }
    Types::TRect Map(const Types::TRect& rect) const noexcept
    {
        return {.Left = X(rect.Left), .Top = Y(rect.Top), .Right = X(rect.Right), .Bottom = Y(rect.Bottom)};
    }
    /// The pixel that stands for one of the library's: the one at its middle.
    Types::TPoint Middle(const Types::TPoint& point) const noexcept
    {
        const auto middle = [this](int place, int pixel, int first) {
            return Held(std::floor((place + pixel + 0.5) * mFactor)) - first;
        };
        return {.X = middle(mPlace.x(), point.X, mFirst.x()), .Y = middle(mPlace.y(), point.Y, mFirst.y())};
    }
    /// A length that is the same wherever it lies; none becomes 0.
    int Length(int length) const noexcept
    {
        return length <= 0 ? length : std::max(1, Held(length * mFactor + 0.5));
    }

private:
    static int Held(double pixel) noexcept
    {
        return static_cast<int>(std::clamp<double>(pixel, -FarthestPlace, FarthestPlace));
    }
    int Pixel(int place, int pixel) const noexcept
    {
        return Held(std::floor((0.0 + place + pixel) * mFactor + 0.5));
    }

    double mFactor;
    QPoint mPlace;
    QPoint mFirst;
};

} // namespace Toolkits
