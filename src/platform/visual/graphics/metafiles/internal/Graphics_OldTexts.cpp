// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_OldRecords.h"

namespace Graphics
{

namespace
{

/// `EInvalidGraphic` if the record hasn't as many bytes.
System::UnicodeString TextAt(TMetafileReading& reading, const CByteView& record, std::size_t offset,
                             std::size_t count)
{
    if (!record.Has(offset, count)) {
        ThrowMetafileDamaged();
    }
    return CharsetText(reading.player.State().font.charset, record.Part(offset, count));
}

void TextOut(TMetafileReading& reading, const CByteView& record)
{
    const std::size_t count = record.At16(0);
    reading.player.Text({.at = OldPointAt(record, 1 + (count + 1) / 2),
                         .text = TextAt(reading, record, 2, count),
                         .rect = {}});
}

void ExtTextOut(TMetafileReading& reading, const CByteView& record)
{
    const unsigned options = record.At16(6);
    const bool hasRect = (options & (toOpaque | toClipped)) != 0;
    const std::size_t begin = hasRect ? 16 : 8;
    const std::size_t count = record.At16(4);
    const std::size_t distances = begin + (count + 1) / 2 * 2;
    const bool hasDistances = (options & toBothWays) == 0;
    reading.player.Text({.at = OldPointAt(record, 0),
                         .text = TextAt(reading, record, begin, count),
                         .options = options,
                         .rect = hasRect ? TOldFields::RectAt(record, 8) : Types::TRect{},
                         .distances = TOldFields::NumbersAt(record, distances, hasDistances ? count : 0)});
}

} // namespace

void AddOldTexts(TMetafileHandlers& handlers)
{
    handlers[OldRecordIndex(omTextOut)] = &TextOut;
    handlers[OldRecordIndex(omExtTextOut)] = &ExtTextOut;
}

} // namespace Graphics
