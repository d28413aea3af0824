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

/// A region is in pixels of the device.
void SelectClipRegion(TMetafileReading& reading, const CByteView& record)
{
    constexpr std::size_t regionPlace = 16;
    TMetafileState& state = reading.player.State();
    const unsigned operation = record.At32(12);
    if (record.At32(8) == 0) {
        if (operation == CMetafileClip::Replace) {
            state.clip = {};
        }
        return;
    }
    std::vector<Types::TRect> rects = EnhancedRegion(record, regionPlace);
    for (Types::TRect& rect : rects) {
        rect = state.mapping.FromDevice(rect);
    }
    state.clip.Combine(operation, rects);
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
                                            .setFillRule = emSetFillRule,
                                            .setTextAlign = emSetTextAlign,
                                            .setTextColor = emSetTextColor,
                                            .setBackgroundColor = emSetBackgroundColor,
                                            .save = emSave,
                                            .restore = emRestore,
                                            .intersectClip = emIntersectClip,
                                            .excludeClip = emExcludeClip,
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
