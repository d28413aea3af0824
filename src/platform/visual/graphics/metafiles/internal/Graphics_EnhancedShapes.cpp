// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/internal/Graphics_Place.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_EnhancedRecords.h"

#include <bit>

namespace Graphics
{

using TFields = TEnhancedFields;

Types::TRect EnhancedBox(const CByteView& record, std::size_t offset)
{
    Types::TRect box = TFields::RectAt(record, offset);
    box.Right = PlaceBehind(box.Right, 1);
    box.Bottom = PlaceBehind(box.Bottom, 1);
    return box;
}

std::vector<Types::TRect> EnhancedRegion(const CByteView& record, std::size_t offset)
{
    constexpr std::size_t headSize = 32;
    constexpr std::size_t rectSize = 16;
    const std::size_t count = record.At32(offset + 8);
    if (count > record.Size() / rectSize || !record.Has(offset + headSize, count * rectSize)) {
        ThrowMetafileDamaged();
    }
    std::vector<Types::TRect> rects(count);
    for (std::size_t i = 0; i < count; ++i) {
        rects[i] = TFields::RectAt(record, offset + headSize + i * rectSize);
    }
    return rects;
}

namespace
{

constexpr unsigned char CopyBrush = 0xF0;
constexpr unsigned char Invert = 0x55;

template <Toolkits::EArc Kind>
void Arc(TMetafileReading& reading, const CByteView& record)
{
    reading.player.Arc(Kind, EnhancedBox(record, 8), TFields::PointAt(record, 24),
                       TFields::PointAt(record, 32));
}

/// Fills the rectangles of a region with the brush.
void FillRegion(TMetafileReading& reading, const CByteView& record, std::size_t offset,
                unsigned char operation)
{
    for (const Types::TRect& rect : EnhancedRegion(record, offset)) {
        reading.player.Fill(rect, operation);
    }
}

/// With a brush of its own, which is selected for that time.
void FillRegionWith(TMetafileReading& reading, const CByteView& record)
{
    const Toolkits::TBrushData selected = reading.player.State().brush;
    const unsigned number = record.At32(28);
    reading.player.Select((number & emStock) != 0 ? StockObject(number & ~emStock)
                                                  : reading.objects.Find(number));
    FillRegion(reading, record, 32, CopyBrush);
    reading.player.State().brush = selected;
}

void FloodFill(TMetafileReading& reading, const CByteView& record)
{
    const bool isSurface = record.At32(20) == 1;
    reading.player.FloodFill(TFields::PointAt(record, 8), PixelOfReference(record.At32(16)),
                             isSurface ? Toolkits::EFlood::Surface : Toolkits::EFlood::Border);
}

} // namespace

void AddEnhancedShapes(TMetafileHandlers& handlers)
{
    handlers[emRectangle] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.Rectangle(EnhancedBox(record, 8), {});
    };
    handlers[emRoundRect] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.Rectangle(EnhancedBox(record, 8), TFields::SizeAt(record, 24));
    };
    handlers[emEllipse] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.Ellipse(EnhancedBox(record, 8));
    };
    handlers[emArc] = &Arc<Toolkits::EArc::Open>;
    handlers[emChord] = &Arc<Toolkits::EArc::Chord>;
    handlers[emPie] = &Arc<Toolkits::EArc::Pie>;
    handlers[emArcTo] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.ArcTo(EnhancedBox(record, 8), TFields::PointAt(record, 24),
                             TFields::PointAt(record, 32));
    };
    handlers[emAngleArc] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.AngleArc(TFields::PointAt(record, 8), TFields::At(record, 16),
                                std::bit_cast<float>(record.At32(20)), std::bit_cast<float>(record.At32(24)));
    };
    handlers[emSetPixel] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.SetPixel(TFields::PointAt(record, 8), PixelOfReference(record.At32(16)));
    };
    handlers[emFloodFill] = &FloodFill;
    handlers[emFillRegion] = &FillRegionWith;
    handlers[emPaintRegion] = [](TMetafileReading& reading, const CByteView& record) {
        FillRegion(reading, record, 28, CopyBrush);
    };
    handlers[emInvertRegion] = [](TMetafileReading& reading, const CByteView& record) {
        FillRegion(reading, record, 28, Invert);
    };
}

} // namespace Graphics
