// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_EnhancedRecords.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_SharedRecords.h"

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

/// A region, in pixels of the device, counts as the rectangle around it, which stands before those that it is
/// made of.
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
        player.IntersectClip(player.State().mapping.FromDevice(TFields::RectAt(record, 32)));
    }
}

/// The fields stand behind type and size of the record.
struct TLayout
{
    static unsigned NumberAt(const CByteView& record) { return record.At32(8); }
    static int SignedAt(const CByteView& record) { return record.Signed32(8); }
    static unsigned ColorAt(const CByteView& record) { return record.At32(8); }
    static Types::TPoint PointAt(const CByteView& record) { return TFields::PointAt(record, 8); }
    static Types::TRect RectAt(const CByteView& record) { return TFields::RectAt(record, 8); }
};

} // namespace

void AddEnhancedState(TMetafileHandlers& handlers)
{
    GSharedRecords<TLayout>::Add(handlers, {.setWindowOrigin = emSetWindowOrigin,
                                            .setWindowExtent = emSetWindowExtent,
                                            .setViewportOrigin = emSetViewportOrigin,
                                            .setViewportExtent = emSetViewportExtent,
                                            .scaleWindow = emScaleWindow,
                                            .scaleViewport = emScaleViewport,
                                            .setMapMode = emSetMapMode,
                                            .setBackgroundMode = emSetBackgroundMode,
                                            .setPenMode = emSetPenMode,
                                            .setTextAlign = emSetTextAlign,
                                            .setTextColor = emSetTextColor,
                                            .setBackgroundColor = emSetBackgroundColor,
                                            .save = emSave,
                                            .restore = emRestore,
                                            .intersectClip = emIntersectClip,
                                            .offsetClip = emOffsetClip,
                                            .moveTo = emMoveTo,
                                            .lineTo = emLineTo,
                                            .remove = emDelete});
    handlers[emSetWorld] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.setWorld(TransformAt(record, 8));
    };
    handlers[emModifyWorld] = &ModifyWorld;
    handlers[emSetArcDirection] = [](TMetafileReading& reading, const CByteView& record) {
        constexpr unsigned clockwise = 2;
        reading.player.State().isClockwise = record.At32(8) == clockwise;
    };
    handlers[emSelectClipRegion] = &SelectClipRegion;
}

} // namespace Graphics
