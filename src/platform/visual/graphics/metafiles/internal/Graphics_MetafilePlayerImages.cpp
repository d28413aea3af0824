// SPDX-License-Identifier: MIT
#include "platform/toolkit/internal/DeviceState.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafilePlayer.h"

#include <cmath>
#include <utility>

namespace Graphics
{

using Toolkits::Pixels;
using Toolkits::TImageOptions;
using Types::TRect;

namespace
{

/// The place in the target for one on a side of the source.
int ShareOf(int place, int first, int last, int to, int toEnd)
{
    const double share = (1.0 * place - first) / (1.0 * last - first);
    return Toolkits::HoldPlace(std::llround(to + share * (1.0 * toEnd - to)));
}

/// What of the source lies within the image, and as much of the target.
bool LimitToImage(const TRect& image, TRect& source, TRect& target)
{
    if (source.Left > source.Right) {
        std::swap(source.Left, source.Right);
        std::swap(target.Left, target.Right);
    }
    if (source.Top > source.Bottom) {
        std::swap(source.Top, source.Bottom);
        std::swap(target.Top, target.Bottom);
    }
    const TRect part = Toolkits::Intersection(image, source);
    if (part == TRect{}) {
        return false;
    }
    const auto across = [&](int x) {
        return ShareOf(x, source.Left, source.Right, target.Left, target.Right);
    };
    const auto down = [&](int y) { return ShareOf(y, source.Top, source.Bottom, target.Top, target.Bottom); };
    target = {.Left = across(part.Left),
              .Top = down(part.Top),
              .Right = across(part.Right),
              .Bottom = down(part.Bottom)};
    source = part;
    return true;
}

} // namespace

void CMetafilePlayer::Image(const Pixels& image, const TRect& source, const TRect& target,
                            const TImageOptions& options)
{
    TRect part = source;
    TRect place = mState.mapping.ToPixels(target);
    if (LimitToImage(image.Bounds(), part, place)) {
        TImageOptions whole = options;
        whole.brush = mState.brush.color;
        Draw(image.All().size(),
             [&](Toolkits::PaintRecording& onto) { onto.Image(image, part, place, whole); });
    }
}

void CMetafilePlayer::Fill(const TRect& rect, unsigned char operation)
{
    constexpr unsigned char copyBrush = 0xF0;
    const TRect pixels = Toolkits::Normalized(mState.mapping.ToPixels(rect));
    if (operation == copyBrush) {
        Draw(PixelsOfAPoint, [&](Toolkits::PaintRecording& onto) { onto.FillRect(pixels, mState.brush); });
        return;
    }
    // The operation doesn't look at the image, but it needs one.
    static constexpr TRect one{.Left = 0, .Top = 0, .Right = 1, .Bottom = 1};
    Draw(PixelsOfAPoint, [&](Toolkits::PaintRecording& onto) {
        onto.Image(Pixels(1, 1), one, pixels, {.operation = operation, .brush = mState.brush.color});
    });
}

} // namespace Graphics
