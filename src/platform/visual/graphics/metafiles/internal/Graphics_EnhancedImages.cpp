// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/internal/Graphics_Place.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_EnhancedRecords.h"

#include <algorithm>

namespace Graphics
{

namespace
{

using Toolkits::Pixels;
using Toolkits::TPixel;
using TFields = TEnhancedFields;

Types::TRect RectAt(const CByteView& record, std::size_t place, std::size_t size)
{
    return Graphics::RectAt(TFields::At(record, place), TFields::At(record, place + 4),
                            TFields::At(record, size), TFields::At(record, size + 4));
}

/// The records that copy from another device: the target from 24 on, the source from 44 on.
TMetafileBitmap BitmapOfDevice(const CByteView& record)
{
    return {.head = record.At32(84), .rows = record.At32(92), .usage = record.At32(80)};
}

bool HasBitmap(const CByteView& record)
{
    return record.At32(88) != 0;
}

void BitBlt(TMetafileReading& reading, const CByteView& record)
{
    const Types::TRect target = RectAt(record, 24, 32);
    const unsigned operation = record.At32(40);
    if (!HasBitmap(record)) {
        reading.player.Fill(target, MetafileOperation(operation));
        return;
    }
    StretchMetafileBitmap(reading, record, BitmapOfDevice(record), RectAt(record, 44, 32), target, operation);
}

void StretchBlt(TMetafileReading& reading, const CByteView& record)
{
    if (!HasBitmap(record)) {
        BitBlt(reading, record);
        return;
    }
    StretchMetafileBitmap(reading, record, BitmapOfDevice(record), RectAt(record, 44, 100),
                          RectAt(record, 24, 32), record.At32(40));
}

void StretchBits(TMetafileReading& reading, const CByteView& record)
{
    StretchMetafileBitmap(
        reading, record,
        {.head = record.At32(48), .rows = record.At32(56), .usage = record.At32(64), .isFromFirstRow = true},
        RectAt(record, 32, 40), RectAt(record, 24, 72), record.At32(68));
}

void SetBitsToDevice(TMetafileReading& reading, const CByteView& record)
{
    constexpr unsigned copy = 0xCC0020;
    StretchMetafileBitmap(
        reading, record,
        {.head = record.At32(48), .rows = record.At32(56), .usage = record.At32(64), .isFromFirstRow = true},
        RectAt(record, 32, 40), RectAt(record, 24, 40), copy);
}

/// Takes the colour out of its alpha, by which it was multiplied.
TPixel Divided(TPixel pixel)
{
    const unsigned alpha = pixel >> 24U;
    if (alpha == 0) {
        return 0;
    }
    const auto part = [&](unsigned shift) {
        return std::min(255U, ((pixel >> shift & 255U) * 255U + alpha / 2) / alpha) << shift;
    };
    return alpha << 24U | part(16) | part(8) | part(0);
}

void AlphaBlend(TMetafileReading& reading, const CByteView& record)
{
    constexpr unsigned ownAlpha = 1;
    if (!HasBitmap(record)) {
        return;
    }
    Pixels pixels = ReadMetafileBitmap(reading, record, BitmapOfDevice(record));
    const bool hasAlpha = record.At8(43) == ownAlpha;
    for (TPixel& pixel : pixels.All()) {
        pixel = hasAlpha ? Divided(pixel) : pixel | Toolkits::OpaquePixel(0, 0, 0);
    }
    reading.player.Image(pixels, RectAt(record, 44, 100), RectAt(record, 24, 32),
                         {.hasAlpha = true, .opacity = static_cast<unsigned char>(record.At8(42))});
}

void TransparentBlt(TMetafileReading& reading, const CByteView& record)
{
    if (!HasBitmap(record)) {
        return;
    }
    Pixels pixels = ReadMetafileBitmap(reading, record, BitmapOfDevice(record));
    const TPixel through = PixelOfReference(record.At32(40));
    for (TPixel& pixel : pixels.All()) {
        const TPixel color = pixel | Toolkits::OpaquePixel(0, 0, 0);
        pixel = color == through ? 0 : color;
    }
    reading.player.Image(pixels, RectAt(record, 44, 100), RectAt(record, 24, 32), {.hasAlpha = true});
}

} // namespace

void AddEnhancedImages(TMetafileHandlers& handlers)
{
    handlers[emBitBlt] = &BitBlt;
    // Its mask is passed over.
    handlers[emMaskBlt] = &BitBlt;
    handlers[emStretchBlt] = &StretchBlt;
    handlers[emStretchBits] = &StretchBits;
    handlers[emSetBitsToDevice] = &SetBitsToDevice;
    handlers[emAlphaBlend] = &AlphaBlend;
    handlers[emTransparentBlt] = &TransparentBlt;
}

} // namespace Graphics
