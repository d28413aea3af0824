// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_EnhancedRecords.h"

#include <utility>

namespace Graphics
{

namespace
{

using TFields = TEnhancedFields;

void CreatePatternBrush(TMetafileReading& reading, const CByteView& record)
{
    Toolkits::Pixels pixels = ReadMetafileBitmap(
        reading, record, {.head = record.At32(16), .rows = record.At32(24), .usage = record.At32(12)});
    Toolkits::TBrushData brush;
    if (!pixels.IsEmpty()) {
        brush.pattern = Toolkits::TSharedPixels(new Toolkits::Pixels(std::move(pixels)));
    }
    reading.objects.Put(record.At32(8), std::move(brush));
}

void CreateExtendedPen(TMetafileReading& reading, const CByteView& record)
{
    // One that isn't measured in units of the drawing is one pixel wide.
    constexpr unsigned geometric = 0x10000;
    const unsigned style = record.At32(28);
    const int width = (style & geometric) != 0 ? TFields::At(record, 32) : 0;
    reading.objects.Put(record.At32(8), MetafilePen(style, width, record.At32(40)));
}

} // namespace

void AddEnhancedObjects(TMetafileHandlers& handlers)
{
    handlers[emSelect] = [](TMetafileReading& reading, const CByteView& record) {
        const unsigned number = record.At32(8);
        reading.player.Select((number & emStock) != 0 ? StockObject(number & ~emStock)
                                                      : reading.objects.Find(number));
    };
    handlers[emCreatePen] = [](TMetafileReading& reading, const CByteView& record) {
        reading.objects.Put(record.At32(8),
                            MetafilePen(record.At32(12), TFields::At(record, 16), record.At32(24)));
    };
    handlers[emCreateExtendedPen] = &CreateExtendedPen;
    handlers[emCreateBrush] = [](TMetafileReading& reading, const CByteView& record) {
        reading.objects.Put(record.At32(8), MetafileBrush(record.At32(12), record.At32(16), record.At32(20)));
    };
    handlers[emCreatePatternBrush] = &CreatePatternBrush;
    handlers[emCreateMonoBrush] = &CreatePatternBrush;
    handlers[emCreateFont] = [](TMetafileReading& reading, const CByteView& record) {
        reading.objects.Put(record.At32(8), MetafileFont<std::int32_t>(record, 12));
    };
}

} // namespace Graphics
