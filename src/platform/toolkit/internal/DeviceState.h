// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"

#include <algorithm>
#include <vector>

namespace Toolkits
{

/// No co-ordinate of a device is further from its origin, so that sums of them are always in range.
inline constexpr int FarthestPlace = 1 << 28;

constexpr int HoldPlace(long long place) noexcept
{
    return static_cast<int>(std::clamp<long long>(place, -FarthestPlace, FarthestPlace));
}

constexpr Types::TRect Intersection(const Types::TRect& a, const Types::TRect& b) noexcept
{
    const Types::TRect both{.Left = std::max(a.Left, b.Left),
                            .Top = std::max(a.Top, b.Top),
                            .Right = std::min(a.Right, b.Right),
                            .Bottom = std::min(a.Bottom, b.Bottom)};
    return both.Left < both.Right && both.Top < both.Bottom ? both : Types::TRect{};
}

/// The same rectangle with its edges the right way round.
constexpr Types::TRect Normalized(const Types::TRect& rect) noexcept
{
    return {.Left = std::min(rect.Left, rect.Right),
            .Top = std::min(rect.Top, rect.Bottom),
            .Right = std::max(rect.Left, rect.Right),
            .Bottom = std::max(rect.Top, rect.Bottom)};
}

/// Origin and clip rectangle of a device, with those that were kept. The rectangle is in the device's own
/// pixels.
class CDeviceState
{
public:
    explicit CDeviceState(const Types::TRect& bounds) : mNow{.origin = {}, .clip = bounds} {}

    void Push() { mKept.push_back(mNow); }
    void Pop()
    {
        if (!mKept.empty()) {
            mNow = mKept.back();
            mKept.pop_back();
        }
    }
    void MoveOrigin(int dx, int dy)
    {
        mNow.origin = {.X = HoldPlace(0LL + mNow.origin.X + dx), .Y = HoldPlace(0LL + mNow.origin.Y + dy)};
    }
    void Intersect(const Types::TRect& rect) { mNow.clip = Intersection(mNow.clip, ToDevice(rect)); }

    /// The limit of drawing, in the device's pixels and from the origin.
    const Types::TRect& Clip() const { return mNow.clip; }
    Types::TRect ClipFromOrigin() const
    {
        const auto& [origin, clip] = mNow;
        return {.Left = clip.Left - origin.X,
                .Top = clip.Top - origin.Y,
                .Right = clip.Right - origin.X,
                .Bottom = clip.Bottom - origin.Y};
    }
    Types::TPoint ToDevice(const Types::TPoint& point) const
    {
        return {.X = HoldPlace(0LL + point.X + mNow.origin.X), .Y = HoldPlace(0LL + point.Y + mNow.origin.Y)};
    }
    Types::TRect ToDevice(const Types::TRect& rect) const
    {
        const auto first = ToDevice(Types::TPoint{.X = rect.Left, .Y = rect.Top});
        const auto last = ToDevice(Types::TPoint{.X = rect.Right, .Y = rect.Bottom});
        return {.Left = first.X, .Top = first.Y, .Right = last.X, .Bottom = last.Y};
    }

private:
    struct TState
    {
        Types::TPoint origin;
        Types::TRect clip;
    };

    TState mNow;
    std::vector<TState> mKept;
};

} // namespace Toolkits
