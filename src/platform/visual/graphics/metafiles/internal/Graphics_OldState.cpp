// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_OldRecords.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_SharedRecords.h"

namespace Graphics
{

namespace
{

/// The numbers of points and rectangles stand from the last to the first.
struct TLayout
{
    static unsigned NumberAt(const CByteView& record) { return record.At16(0); }
    static int SignedAt(const CByteView& record) { return record.Signed16(0); }
    static unsigned ColorAt(const CByteView& record) { return record.At32(0); }
    static Types::TPoint PointAt(const CByteView& record) { return OldPointAt(record, 0); }
    static Types::TRect RectAt(const CByteView& record) { return OldRectAt(record, 0); }
};

} // namespace

void AddOldState(TMetafileHandlers& handlers)
{
    GSharedRecords<TLayout>::Add(handlers, {.setWindowOrigin = OldRecordIndex(omSetWindowOrigin),
                                            .setWindowExtent = OldRecordIndex(omSetWindowExtent),
                                            .setViewportOrigin = OldRecordIndex(omSetViewportOrigin),
                                            .setViewportExtent = OldRecordIndex(omSetViewportExtent),
                                            .scaleWindow = OldRecordIndex(omScaleWindow),
                                            .scaleViewport = OldRecordIndex(omScaleViewport),
                                            .setMapMode = OldRecordIndex(omSetMapMode),
                                            .setBackgroundMode = OldRecordIndex(omSetBackgroundMode),
                                            .setPenMode = OldRecordIndex(omSetPenMode),
                                            .setFillRule = OldRecordIndex(omSetFillRule),
                                            .setTextAlign = OldRecordIndex(omSetTextAlign),
                                            .setTextColor = OldRecordIndex(omSetTextColor),
                                            .setBackgroundColor = OldRecordIndex(omSetBackgroundColor),
                                            .save = OldRecordIndex(omSave),
                                            .restore = OldRecordIndex(omRestore),
                                            .intersectClip = OldRecordIndex(omIntersectClip),
                                            .excludeClip = OldRecordIndex(omExcludeClip),
                                            .offsetClip = OldRecordIndex(omOffsetClip),
                                            .moveTo = OldRecordIndex(omMoveTo),
                                            .lineTo = OldRecordIndex(omLineTo),
                                            .remove = OldRecordIndex(omDelete)});
    handlers[OldRecordIndex(omOffsetWindow)] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.MoveWindow(WordAt(record, 1), WordAt(record, 0));
    };
    handlers[OldRecordIndex(omOffsetViewport)] = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.MoveViewport(WordAt(record, 1), WordAt(record, 0));
    };
}

} // namespace Graphics
