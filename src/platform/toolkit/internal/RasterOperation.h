// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintTypes.h"

namespace Toolkits
{

inline constexpr TPixel AlphaBits = 0xFF000000U;

/// What a pen or brush makes of the colour that is there; it covers.
constexpr TPixel ApplyPenMode(Graphics::TPenMode mode, TPixel pen, TPixel there) noexcept
{
    const auto mix = [&]() -> TPixel {
        switch (mode) {
        case Graphics::pmBlack:
            return 0;
        case Graphics::pmWhite:
            return ~TPixel{0};
        case Graphics::pmNop:
            return there;
        case Graphics::pmNot:
            return ~there;
        case Graphics::pmNotCopy:
            return ~pen;
        case Graphics::pmMergePenNot:
            return pen | ~there;
        case Graphics::pmMaskPenNot:
            return pen & ~there;
        case Graphics::pmMergeNotPen:
            return ~pen | there;
        case Graphics::pmMaskNotPen:
            return ~pen & there;
        case Graphics::pmMerge:
            return pen | there;
        case Graphics::pmNotMerge:
            return ~(pen | there);
        case Graphics::pmMask:
            return pen & there;
        case Graphics::pmNotMask:
            return ~(pen & there);
        case Graphics::pmXor:
            return pen ^ there;
        case Graphics::pmNotXor:
            return ~(pen ^ there);
        case Graphics::pmCopy:
            break;
        }
        return pen;
    };
    return mix() | AlphaBits;
}

/// What an image makes of what is there, by the table of the operation.
constexpr TPixel ApplyOperation(unsigned char table, TPixel brush, TPixel image, TPixel there) noexcept
{
    TPixel result = 0;
    for (unsigned row = 0; row < 8; ++row) {
        if ((table >> row & 1U) != 0) {
            result |= ((row & 4U) != 0 ? brush : ~brush) & ((row & 2U) != 0 ? image : ~image) &
                      ((row & 1U) != 0 ? there : ~there);
        }
    }
    return result | AlphaBits;
}

/// A pixel laid over another one by its alpha, lowered by `opacity`.
constexpr TPixel Blend(TPixel over, TPixel there, unsigned opacity) noexcept
{
    const unsigned alpha = (over >> 24U) * opacity / 255U;
    if (alpha == 255U) {
        return over;
    }
    if (alpha == 0) {
        return there;
    }
    const unsigned below = (there >> 24U) * (255U - alpha) / 255U;
    const unsigned total = alpha + below;
    const auto part = [&](unsigned shift) {
        const unsigned mixed = (over >> shift & 255U) * alpha + (there >> shift & 255U) * below;
        return (mixed + total / 2) / total << shift;
    };
    return total << 24U | part(16) | part(8) | part(0);
}

} // namespace Toolkits
