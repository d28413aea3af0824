// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/Graphics_IconHandle.h"

#include "platform/host/Host_Error.h"
#include "platform/visual/graphics/internal/Graphics_IconFile.h"
#include "platform/visual/graphics/internal/Graphics_Place.h"

#include <algorithm>

using Graphics::TIconImage;
using Graphics::TIconImages;
using Graphics::TIconObject;
using Toolkits::Pixels;
using Toolkits::TPixel;

namespace
{

constexpr TPixel AlphaBits = 0xFF000000U;

/// Of the image that is taken where nobody asks for a size.
constexpr int UsualExtent = 32;

bool IsWhite(TPixel pixel)
{
    return (pixel | AlphaBits) == 0xFFFFFFFFU;
}

/// The picture, without what the mask takes out.
Pixels Masked(const Pixels& color, const Pixels& mask, int maskTop)
{
    Pixels pixels = color;
    for (int y = 0; y < pixels.getHeight(); ++y) {
        for (int x = 0; x < pixels.getWidth(); ++x) {
            TPixel& pixel = pixels.At(x, y);
            pixel = IsWhite(mask.At(x, y + maskTop)) ? 0 : pixel | AlphaBits;
        }
    }
    return pixels;
}

/// The lower half, which is the picture of a mask that has both.
Pixels LowerHalf(const Pixels& both)
{
    const int height = both.getHeight() / 2;
    Pixels half(both.getWidth(), height);
    for (int y = 0; y < height; ++y) {
        std::ranges::copy(both.Row(height + y), half.Row(y).begin());
    }
    return half;
}

HICON Fail(unsigned long error)
{
    ::SetLastError(error);
    return nullptr;
}

} // namespace

HICON CreateIconIndirect(const ICONINFO* info)
{
    if (info == nullptr || info->hbmMask == nullptr || info->hbmMask->IsEmpty()) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    const Pixels& mask = *info->hbmMask;
    const Pixels color = info->hbmColor == nullptr ? LowerHalf(mask) : *info->hbmColor;
    if (color.IsEmpty() || color.getWidth() != mask.getWidth() || color.getHeight() > mask.getHeight()) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    auto* const icon = new TIconObject{System::GSharedBlock<TIconImages>(new TIconImages)};
    icon->images->images.push_back({.size = {.cx = color.getWidth(), .cy = color.getHeight()},
                                    .part = {},
                                    .pixels = Toolkits::TSharedPixels(new Pixels(Masked(color, mask, 0)))});
    return icon;
}

HICON CopyIcon(HICON icon)
{
    return icon == nullptr ? Fail(ERROR_INVALID_HANDLE) : new TIconObject{icon->images};
}

bool DestroyIcon(HICON icon)
{
    if (icon == nullptr) {
        ::SetLastError(ERROR_INVALID_HANDLE);
        return false;
    }
    delete icon;
    return true;
}

bool DrawIconEx(HDC device, int x, int y, HICON icon, int width, int height, unsigned,
                const Toolkits::TBrushData* brush, unsigned flags)
{
    const Types::TSize wanted{.cx = width == 0 ? UsualExtent : width,
                              .cy = height == 0 ? UsualExtent : height};
    TIconImage* const image = icon == nullptr ? nullptr : icon->images->Nearest(wanted);
    if (device == nullptr || image == nullptr) {
        ::SetLastError(ERROR_INVALID_HANDLE);
        return false;
    }
    const Types::TRect target =
        Graphics::RectAt(x, y, width == 0 ? image->size.cx : width, height == 0 ? image->size.cy : height);
    try {
        Pixels pixels = TIconImages::Decoded(*image);
        if (brush != nullptr) {
            device->FillRect(target, *brush);
        }
        if ((flags & DI_NORMAL) == DI_MASK) {
            for (TPixel& pixel : pixels.All()) {
                pixel = (pixel & AlphaBits) == 0 ? 0xFFFFFFFFU : AlphaBits;
            }
        }
        device->Image(pixels, pixels.Bounds(), target, {.hasAlpha = (flags & DI_NORMAL) != DI_IMAGE});
    } catch (const Graphics::EInvalidGraphic&) {
        ::SetLastError(ERROR_INVALID_DATA);
        return false;
    }
    return true;
}
