// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileReading.h"

#include "platform/visual/graphics/internal/Graphics_Dib.h"
#include "platform/visual/graphics/internal/Graphics_Place.h"

namespace Graphics
{

using Toolkits::Pixels;

TPenMode MetafilePenMode(unsigned number)
{
    static constexpr std::array modes = {
        pmCopy, pmBlack,  pmNotMerge, pmMaskNotPen,  pmNotCopy, pmMaskPenNot,  pmNot,   pmXor,  pmNotMask,
        pmMask, pmNotXor, pmNop,      pmMergeNotPen, pmCopy,    pmMergePenNot, pmMerge, pmWhite};
    return number < modes.size() ? modes[number] : pmCopy;
}

Pixels ReadMetafileBitmap(TMetafileReading& reading, const CByteView& record, const TMetafileBitmap& bitmap)
{
    constexpr unsigned ownColors = 0;
    const CDib dib(record.Part(0, record.Size()), bitmap.head, bitmap.rows);
    if (!dib.IsReadable() || (bitmap.usage != ownColors && dib.getBitCount() <= 8)) {
        return {};
    }
    reading.player.CountPixels(static_cast<std::size_t>(dib.getWidth()) *
                               static_cast<std::size_t>(dib.getHeight()));
    return dib.Read();
}

void StretchMetafileBitmap(TMetafileReading& reading, const CByteView& record, const TMetafileBitmap& bitmap,
                           const Types::TRect& source, const Types::TRect& target, unsigned operation)
{
    Pixels pixels = ReadMetafileBitmap(reading, record, bitmap);
    for (Toolkits::TPixel& pixel : pixels.All()) {
        pixel |= Toolkits::OpaquePixel(0, 0, 0);
    }
    Types::TRect part = source;
    if (bitmap.isFromFirstRow && !CDib(record.Part(0, record.Size()), bitmap.head).IsTopDown()) {
        const auto fromTop = [&](int row) { return Distance(row, pixels.getHeight()); };
        part.Top = fromTop(source.Bottom);
        part.Bottom = fromTop(source.Top);
    }
    reading.player.Image(pixels, part, target, {.operation = MetafileOperation(operation)});
}

} // namespace Graphics
