// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_EnhancedRecords.h"

#include <bit>

namespace Graphics
{

namespace
{

using TFields = TEnhancedFields;

double FloatAt(const CByteView& record, std::size_t offset)
{
    return std::bit_cast<float>(record.At32(offset));
}

TMetafileTransform TransformAt(const CByteView& record, std::size_t offset)
{
    return {.xx = FloatAt(record, offset),
            .xy = FloatAt(record, offset + 4),
            .yx = FloatAt(record, offset + 8),
            .yy = FloatAt(record, offset + 12),
            .dx = FloatAt(record, offset + 16),
            .dy = FloatAt(record, offset + 20)};
}

void ModifyWorld(TMetafileReading& reading, const CByteView& record)
{
    CMetafileMapping& mapping = reading.player.State().mapping;
    const TMetafileTransform given = TransformAt(record, 8);
    switch (record.At32(32)) {
    case 1:
        mapping.setWorld({});
        break;
    case 2:
        mapping.setWorld(given.Then(mapping.getWorld()));
        break;
    case 3:
        mapping.setWorld(mapping.getWorld().Then(given));
        break;
    case 4:
        mapping.setWorld(given);
        break;
    default:
        break;
    }
}

/// A region counts as the rectangle around it, which stands before those that it is made of.
void SelectClipRegion(TMetafileReading& reading, const CByteView& record)
{
    constexpr unsigned intersect = 1;
    constexpr unsigned replace = 5;
    CMetafilePlayer& player = reading.player;
    const unsigned mode = record.At32(12);
    if (mode == replace) {
        player.State().clip.reset();
    }
    if ((mode == replace || mode == intersect) && record.At32(8) != 0) {
        player.IntersectClip(TFields::RectAt(record, 32));
    }
}

} // namespace

void AddEnhancedState(TMetafileHandlers& handlers)
{
    handlers[emSetWindowExtent] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.setWindowExtent(TFields::SizeAt(record, 8));
    };
    handlers[emSetWindowOrigin] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.setWindowOrigin(TFields::PointAt(record, 8));
    };
    handlers[emSetViewportExtent] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.setViewportExtent(TFields::SizeAt(record, 8));
    };
    handlers[emSetViewportOrigin] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.setViewportOrigin(TFields::PointAt(record, 8));
    };
    handlers[emScaleWindow] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.ScaleWindow(
            {.X = TFields::At(record, 8), .Y = TFields::At(record, 16)},
            {.X = TFields::At(record, 12), .Y = TFields::At(record, 20)});
    };
    handlers[emScaleViewport] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.ScaleViewport(
            {.X = TFields::At(record, 8), .Y = TFields::At(record, 16)},
            {.X = TFields::At(record, 12), .Y = TFields::At(record, 20)});
    };
    handlers[emSetMapMode] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.setMode(record.At32(8));
    };
    handlers[emSetWorld] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.setWorld(TransformAt(record, 8));
    };
    handlers[emModifyWorld] = &ModifyWorld;
    handlers[emSetBackgroundMode] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().isOpaque = record.At32(8) != 1;
    };
    handlers[emSetPenMode] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mode = MetafilePenMode(record.At32(8));
    };
    handlers[emSetTextAlign] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().textAlign = record.At32(8);
    };
    handlers[emSetTextColor] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().textColor = PixelOfReference(record.At32(8));
    };
    handlers[emSetBackgroundColor] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().background = PixelOfReference(record.At32(8));
    };
    handlers[emSetArcDirection] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().isClockwise = record.At32(8) == 2;
    };
    handlers[emSave] = [](TMetafileReading& reading, const CByteView&) { reading.player.Save(); };
    handlers[emRestore] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.Restore(TFields::At(record, 8));
    };
    handlers[emIntersectClip] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.IntersectClip(reading.player.State().mapping.ToPixels(TFields::RectAt(record, 8)));
    };
    handlers[emOffsetClip] = [](TMetafileReading& reading, const CByteView& record) {
        const CMetafileMapping& mapping = reading.player.State().mapping;
        const Types::TRect moved = mapping.ToPixels(
            {.Left = 0, .Top = 0, .Right = TFields::At(record, 8), .Bottom = TFields::At(record, 12)});
        reading.player.MoveClip({.cx = moved.Width(), .cy = moved.Height()});
    };
    handlers[emSelectClipRegion] = &SelectClipRegion;
}

} // namespace Graphics
