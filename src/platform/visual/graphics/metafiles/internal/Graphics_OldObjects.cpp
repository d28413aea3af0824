// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_OldRecords.h"

#include <utility>

namespace Graphics
{

namespace
{

/// What is never drawn with takes a number all the same.
void CreateOther(TMetafileReading& reading, const CByteView&)
{
    reading.objects.PutLowest(TMetafileOther{});
}

void CreateDibBrush(TMetafileReading& reading, const CByteView& record)
{
    Toolkits::Pixels pixels = ReadMetafileBitmap(reading, record, {.head = 4, .usage = record.At16(2)});
    Toolkits::TBrushData brush;
    if (!pixels.IsEmpty()) {
        brush.pattern = Toolkits::TSharedPixels(new Toolkits::Pixels(std::move(pixels)));
    }
    reading.objects.PutLowest(std::move(brush));
}

} // namespace

void AddOldObjects(TMetafileHandlers& handlers)
{
    const auto at = [&](unsigned function) -> TMetafileHandler& {
        return handlers[OldRecordIndex(function)];
    };
    at(omSelect) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.Select(reading.objects.Find(record.At16(0)));
    };
    at(omCreatePen) = [](TMetafileReading& reading, const CByteView& record) {
        reading.objects.PutLowest(MetafilePen(record.At16(0), WordAt(record, 1), record.At32(6)));
    };
    at(omCreateBrush) = [](TMetafileReading& reading, const CByteView& record) {
        reading.objects.PutLowest(MetafileBrush(record.At16(0), record.At32(2), record.At16(6)));
    };
    at(omCreateFont) = [](TMetafileReading& reading, const CByteView& record) {
        reading.objects.PutLowest(MetafileFont<std::int16_t>(record, 0));
    };
    at(omCreateDibBrush) = &CreateDibBrush;
    at(omCreatePatternBrush) = [](TMetafileReading& reading, const CByteView&) {
        reading.objects.PutLowest(Toolkits::TBrushData{});
    };
    for (const unsigned function : {omCreatePalette, omCreateBitmap, omCreateRegion}) {
        at(function) = &CreateOther;
    }
}

} // namespace Graphics
