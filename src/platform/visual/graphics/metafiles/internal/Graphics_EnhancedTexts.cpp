// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_EnhancedRecords.h"

namespace Graphics
{

namespace
{

using TFields = TEnhancedFields;

/// `EInvalidGraphic` if the record hasn't as many characters.
System::UnicodeString TextAt(const CByteView& record, std::size_t offset, std::size_t count,
                             std::size_t unitSize, TFontCharset charset)
{
    if (count > record.Size() / unitSize || !record.Has(offset, count * unitSize)) {
        ThrowMetafileDamaged();
    }
    if (unitSize == 1) {
        return CharsetText(charset, record.Part(offset, count));
    }
    System::UnicodeString text;
    for (std::size_t i = 0; i < count; ++i) {
        text += static_cast<System::WideChar>(record.At16(offset + 2 * i));
    }
    return text;
}

template <std::size_t UnitSize>
void TextOut(TMetafileReading& reading, const CByteView& record)
{
    const TFontCharset charset = reading.player.State().font.charset;
    const std::size_t count = record.At32(44);
    const unsigned options = record.At32(52);
    const std::size_t distances = record.At32(72);
    const bool hasDistances = distances != 0 && (options & toBothWays) == 0;
    reading.player.Text({.at = TFields::PointAt(record, 36),
                         .text = TextAt(record, record.At32(48), count, UnitSize, charset),
                         .options = options,
                         .rect = TFields::RectAt(record, 56),
                         .distances = TFields::NumbersAt(record, distances, hasDistances ? count : 0)});
}

void SmallTextOut(TMetafileReading& reading, const CByteView& record)
{
    constexpr unsigned noRect = 0x100;
    constexpr unsigned narrow = 0x200;
    const unsigned options = record.At32(20);
    const bool hasRect = (options & noRect) == 0;
    const TFontCharset charset = reading.player.State().font.charset;
    reading.player.Text(
        {.at = TFields::PointAt(record, 8),
         .text = TextAt(record, hasRect ? 52 : 36, record.At32(16), (options & narrow) != 0 ? 1 : 2, charset),
         .options = hasRect ? options : options & ~(toOpaque | toClipped),
         .rect = hasRect ? TFields::RectAt(record, 36) : Types::TRect{}});
}

} // namespace

void AddEnhancedTexts(TMetafileHandlers& handlers)
{
    handlers[emTextOutA] = &TextOut<1>;
    handlers[emTextOutW] = &TextOut<2>;
    handlers[emSmallTextOut] = &SmallTextOut;
}

} // namespace Graphics
