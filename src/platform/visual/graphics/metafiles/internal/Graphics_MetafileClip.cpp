// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileClip.h"

#include "platform/toolkit/internal/DeviceState.h"

#include <algorithm>
#include <utility>

namespace Graphics
{

using Types::TRect;

namespace
{

using TRects = std::vector<TRect>;

constexpr TRect All{.Left = -Toolkits::FarthestPlace,
                    .Top = -Toolkits::FarthestPlace,
                    .Right = Toolkits::FarthestPlace,
                    .Bottom = Toolkits::FarthestPlace};

bool IsEmpty(const TRect& rect)
{
    return rect.Left >= rect.Right || rect.Top >= rect.Bottom;
}

/// Too many become the one around them.
TRects Held(TRects rects)
{
    if (rects.size() <= CMetafileClip::MostRects) {
        return rects;
    }
    TRect around = rects.front();
    for (const TRect& rect : rects) {
        around = {.Left = std::min(around.Left, rect.Left),
                  .Top = std::min(around.Top, rect.Top),
                  .Right = std::max(around.Right, rect.Right),
                  .Bottom = std::max(around.Bottom, rect.Bottom)};
    }
    return {around};
}

TRects Shared(const TRects& a, const TRects& b)
{
    TRects shared;
    for (const TRect& first : a) {
        for (const TRect& second : b) {
            const TRect both = Toolkits::Intersection(first, second);
            if (!IsEmpty(both)) {
                shared.push_back(both);
            }
        }
    }
    return shared;
}

/// What is left of a rectangle: above, below and beside the other one.
void AddRest(TRects& rests, const TRect& rect, const TRect& without)
{
    const TRect hole = Toolkits::Intersection(rect, without);
    if (IsEmpty(hole)) {
        rests.push_back(rect);
        return;
    }
    std::ranges::copy_if(TRects{{rect.Left, rect.Top, rect.Right, hole.Top},
                                {rect.Left, hole.Top, hole.Left, hole.Bottom},
                                {hole.Right, hole.Top, rect.Right, hole.Bottom},
                                {rect.Left, hole.Bottom, rect.Right, rect.Bottom}},
                         std::back_inserter(rests), [](const TRect& rest) { return !IsEmpty(rest); });
}

TRects Without(TRects rects, const TRects& others)
{
    for (const TRect& other : others) {
        TRects rests;
        for (const TRect& rect : rects) {
            AddRest(rests, rect, other);
        }
        rects = std::move(rests);
    }
    return rects;
}

TRects Together(TRects rects, const TRects& others)
{
    rects.insert(rects.end(), others.begin(), others.end());
    return rects;
}

/// As a region may be in a file, made one whose rectangles have nothing in common.
TRects Apart(TRects region)
{
    std::ranges::transform(region, region.begin(), [](const TRect& rect) {
        return Toolkits::Intersection(All, Toolkits::Normalized(rect));
    });
    std::erase_if(region, &IsEmpty);
    TRects apart;
    for (const TRect& rect : Held(std::move(region))) {
        const TRects rest = Without({rect}, apart);
        apart = Together(std::move(apart), rest);
    }
    return apart;
}

} // namespace

void CMetafileClip::Combine(unsigned operation, TRects region)
{
    const bool isKnown = operation >= Intersect && operation <= Replace;
    if (!isKnown || (operation == Unite && !mRects)) {
        return;
    }
    const TRects other = Apart(std::move(region));
    const TRects former = mRects ? *mRects : TRects{All};
    switch (operation) {
    case Intersect:
        mRects = Held(Shared(former, other));
        break;
    case Unite:
        mRects = Held(Together(former, Without(other, former)));
        break;
    case Differ:
        mRects = Held(Together(Without(former, other), Without(other, former)));
        break;
    case Exclude:
        mRects = Held(Without(former, other));
        break;
    default:
        mRects = Held(other);
        break;
    }
}

void CMetafileClip::Move(const Types::TSize& by)
{
    if (!mRects) {
        return;
    }
    for (TRect& rect : *mRects) {
        rect = {.Left = Toolkits::HoldPlace(0LL + rect.Left + by.cx),
                .Top = Toolkits::HoldPlace(0LL + rect.Top + by.cy),
                .Right = Toolkits::HoldPlace(0LL + rect.Right + by.cx),
                .Bottom = Toolkits::HoldPlace(0LL + rect.Bottom + by.cy)};
    }
}

} // namespace Graphics
