// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace Graphics
{

/// What a drawing is limited to: all, until it is told of a limit, then rectangles that have no pixel in
/// common.
///
///     CMetafileClip clip;
///     clip.Combine(CMetafileClip::Intersect, {{0, 0, 100, 100}});
///     clip.Combine(CMetafileClip::Exclude, {{40, 40, 60, 60}});       // a frame of four rectangles
class CMetafileClip
{
public:
    /// The rectangle around them stands for more than that.
    static constexpr std::size_t MostRects = 64;

    /// What becomes of the limit and a region, by the numbers of files.
    enum EOperation : unsigned
    {
        Intersect = 1,
        Unite,
        /// What is in one of both alone.
        Differ,
        /// The limit without the region.
        Exclude,
        Replace
    };

    /// The rectangles of the region may overlap, and be the wrong way round. An operation that isn't known is
    /// passed over.
    void Combine(unsigned operation, std::vector<Types::TRect> region);
    /// Moves the limit, if there is one.
    void Move(const Types::TSize& by);

    bool IsSet() const { return mRects.has_value(); }
    /// None if nothing is drawn at all, or all.
    std::span<const Types::TRect> Rects() const
    {
        return mRects ? std::span<const Types::TRect>(*mRects) : std::span<const Types::TRect>();
    }

private:
    std::optional<std::vector<Types::TRect>> mRects;
};

} // namespace Graphics
