// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_OldRecords.h"

namespace Graphics
{

namespace
{

Types::TSize SizeAt(const CByteView& record)
{
    const Types::TPoint size = OldPointAt(record, 0);
    return {.cx = size.X, .cy = size.Y};
}

Types::TPoint FactorAt(const CByteView& record)
{
    return {.X = WordAt(record, 3), .Y = WordAt(record, 1)};
}

Types::TPoint DivisorAt(const CByteView& record)
{
    return {.X = WordAt(record, 2), .Y = WordAt(record, 0)};
}

} // namespace

void AddOldState(TMetafileHandlers& handlers)
{
    const auto at = [&](unsigned function) -> TMetafileHandler& {
        return handlers[OldRecordIndex(function)];
    };
    at(omSetWindowOrigin) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.setWindowOrigin(OldPointAt(record, 0));
    };
    at(omSetWindowExtent) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.setWindowExtent(SizeAt(record));
    };
    at(omSetViewportOrigin) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.setViewportOrigin(OldPointAt(record, 0));
    };
    at(omSetViewportExtent) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.setViewportExtent(SizeAt(record));
    };
    at(omOffsetWindow) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.MoveWindow(WordAt(record, 1), WordAt(record, 0));
    };
    at(omOffsetViewport) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.MoveViewport(WordAt(record, 1), WordAt(record, 0));
    };
    at(omScaleWindow) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.ScaleWindow(FactorAt(record), DivisorAt(record));
    };
    at(omScaleViewport) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.ScaleViewport(FactorAt(record), DivisorAt(record));
    };
    at(omSetMapMode) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mapping.setMode(record.At16(0));
    };
    at(omSetBackgroundMode) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().isOpaque = record.At16(0) != 1;
    };
    at(omSetPenMode) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().mode = MetafilePenMode(record.At16(0));
    };
    at(omSetTextAlign) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().textAlign = record.At16(0);
    };
    at(omSetTextColor) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().textColor = PixelOfReference(record.At32(0));
    };
    at(omSetBackgroundColor) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.State().background = PixelOfReference(record.At32(0));
    };
    at(omSave) = [](TMetafileReading& reading, const CByteView&) { reading.player.Save(); };
    at(omRestore) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.Restore(WordAt(record, 0));
    };
    at(omIntersectClip) = [](TMetafileReading& reading, const CByteView& record) {
        reading.player.IntersectClip(reading.player.State().mapping.ToPixels(OldRectAt(record, 0)));
    };
    at(omOffsetClip) = [](TMetafileReading& reading, const CByteView& record) {
        const Types::TPoint by = OldPointAt(record, 0);
        const Types::TRect moved =
            reading.player.State().mapping.ToPixels({.Left = 0, .Top = 0, .Right = by.X, .Bottom = by.Y});
        reading.player.MoveClip({.cx = moved.Width(), .cy = moved.Height()});
    };
}

} // namespace Graphics
