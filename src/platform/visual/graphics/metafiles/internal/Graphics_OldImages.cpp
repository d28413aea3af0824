// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/internal/Graphics_Place.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_OldRecords.h"

namespace Graphics
{

Types::TRect OldAreaAt(const CByteView& record, std::size_t size, std::size_t place)
{
    const Types::TPoint at = OldPointAt(record, place);
    const Types::TPoint extent = OldPointAt(record, size);
    return RectAt(at.X, at.Y, extent.X, extent.Y);
}

namespace
{

/// Without a bitmap there is a word that counts for nothing, and no more than these.
constexpr std::size_t BitBltWithout = 18;
constexpr std::size_t StretchBltWithout = 22;

void Fill(TMetafileReading& reading, const CByteView& record, std::size_t size)
{
    reading.player.Fill(OldAreaAt(record, size, size + 2), MetafileOperation(record.At32(0)));
}

void DibBitBlt(TMetafileReading& reading, const CByteView& record)
{
    if (record.Size() == BitBltWithout) {
        Fill(reading, record, 5);
        return;
    }
    StretchMetafileBitmap(reading, record, {.head = 16}, OldAreaAt(record, 4, 2), OldAreaAt(record, 4, 6),
                          record.At32(0));
}

void DibStretchBlt(TMetafileReading& reading, const CByteView& record)
{
    if (record.Size() == StretchBltWithout) {
        Fill(reading, record, 7);
        return;
    }
    StretchMetafileBitmap(reading, record, {.head = 20}, OldAreaAt(record, 2, 4), OldAreaAt(record, 6, 8),
                          record.At32(0));
}

void StretchDib(TMetafileReading& reading, const CByteView& record)
{
    StretchMetafileBitmap(reading, record, {.head = 22, .usage = record.At16(4), .isFromFirstRow = true},
                          OldAreaAt(record, 3, 5), OldAreaAt(record, 7, 9), record.At32(0));
}

void SetDibToDevice(TMetafileReading& reading, const CByteView& record)
{
    constexpr unsigned copy = 0xCC0020;
    StretchMetafileBitmap(reading, record, {.head = 18, .usage = record.At16(0), .isFromFirstRow = true},
                          OldAreaAt(record, 5, 3), OldAreaAt(record, 5, 7), copy);
}

} // namespace

void AddOldImages(TMetafileHandlers& handlers)
{
    const auto at = [&](unsigned function) -> TMetafileHandler& {
        return handlers[OldRecordIndex(function)];
    };
    at(omPatBlt) = [](TMetafileReading& reading, const CByteView& record) { Fill(reading, record, 2); };
    at(omDibBitBlt) = &DibBitBlt;
    at(omDibStretchBlt) = &DibStretchBlt;
    at(omStretchDib) = &StretchDib;
    at(omSetDibToDevice) = &SetDibToDevice;
    // Bitmaps of a device that nobody knows are passed over.
    at(omBitBlt) = [](TMetafileReading& reading, const CByteView& record) {
        if (record.Size() == BitBltWithout) {
            Fill(reading, record, 5);
        }
    };
    at(omStretchBlt) = [](TMetafileReading& reading, const CByteView& record) {
        if (record.Size() == StretchBltWithout) {
            Fill(reading, record, 7);
        }
    };
}

} // namespace Graphics
