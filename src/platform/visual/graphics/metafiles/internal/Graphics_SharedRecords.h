// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileReading.h"

namespace Graphics
{

/// The records that both types of metafiles have and that differ in the width and order of their fields
/// alone, as the type numbers them.
struct TSharedRecords
{
    unsigned setWindowOrigin;
    unsigned setWindowExtent;
    unsigned setViewportOrigin;
    unsigned setViewportExtent;
    unsigned scaleWindow;
    unsigned scaleViewport;
    unsigned setMapMode;
    unsigned setBackgroundMode;
    unsigned setPenMode;
    unsigned setFillRule;
    unsigned setTextAlign;
    unsigned setTextColor;
    unsigned setBackgroundColor;
    unsigned save;
    unsigned restore;
    unsigned intersectClip;
    unsigned excludeClip;
    unsigned offsetClip;
    unsigned moveTo;
    unsigned lineTo;
    unsigned remove;
};

/// What handles them. `Layout` gives the fields with which a record begins: a number, a colour, a point, and
/// a rectangle.
template <class Layout>
class GSharedRecords
{
public:
    static void Add(TMetafileHandlers& handlers, const TSharedRecords& records)
    {
        AddUnits(handlers, records);
        AddState(handlers, records);
        AddPlaces(handlers, records);
    }

private:
    using TReading = TMetafileReading;
    using TRecord = CByteView;

    static CMetafileMapping& Mapping(TReading& reading) { return reading.player.State().mapping; }
    static Types::TSize SizeAt(const TRecord& record)
    {
        const Types::TPoint size = Layout::PointAt(record);
        return {.cx = size.X, .cy = size.Y};
    }
    // Factor and divisor across, then those down.
    static Types::TPoint FactorAt(const TRecord& record)
    {
        const Types::TRect fields = Layout::RectAt(record);
        return {.X = fields.Left, .Y = fields.Right};
    }
    static Types::TPoint DivisorAt(const TRecord& record)
    {
        const Types::TRect fields = Layout::RectAt(record);
        return {.X = fields.Top, .Y = fields.Bottom};
    }

    static void AddUnits(TMetafileHandlers& handlers, const TSharedRecords& records)
    {
        handlers[records.setWindowOrigin] = [](TReading& reading, const TRecord& record) {
            Mapping(reading).setWindowOrigin(Layout::PointAt(record));
        };
        handlers[records.setWindowExtent] = [](TReading& reading, const TRecord& record) {
            Mapping(reading).setWindowExtent(SizeAt(record));
        };
        handlers[records.setViewportOrigin] = [](TReading& reading, const TRecord& record) {
            Mapping(reading).setViewportOrigin(Layout::PointAt(record));
        };
        handlers[records.setViewportExtent] = [](TReading& reading, const TRecord& record) {
            Mapping(reading).setViewportExtent(SizeAt(record));
        };
        handlers[records.scaleWindow] = [](TReading& reading, const TRecord& record) {
            Mapping(reading).ScaleWindow(FactorAt(record), DivisorAt(record));
        };
        handlers[records.scaleViewport] = [](TReading& reading, const TRecord& record) {
            Mapping(reading).ScaleViewport(FactorAt(record), DivisorAt(record));
        };
        handlers[records.setMapMode] = [](TReading& reading, const TRecord& record) {
            Mapping(reading).setMode(Layout::NumberAt(record));
        };
    }

    static void AddState(TMetafileHandlers& handlers, const TSharedRecords& records)
    {
        handlers[records.setBackgroundMode] = [](TReading& reading, const TRecord& record) {
            constexpr unsigned transparent = 1;
            reading.player.State().isOpaque = Layout::NumberAt(record) != transparent;
        };
        handlers[records.setPenMode] = [](TReading& reading, const TRecord& record) {
            reading.player.State().mode = MetafilePenMode(Layout::NumberAt(record));
        };
        handlers[records.setFillRule] = [](TReading& reading, const TRecord& record) {
            constexpr unsigned winding = 2;
            reading.player.State().fillRule = Layout::NumberAt(record) == winding
                                                  ? Toolkits::EFillRule::Winding
                                                  : Toolkits::EFillRule::EvenOdd;
        };
        handlers[records.setTextAlign] = [](TReading& reading, const TRecord& record) {
            reading.player.State().textAlign = Layout::NumberAt(record);
        };
        handlers[records.setTextColor] = [](TReading& reading, const TRecord& record) {
            reading.player.State().textColor = PixelOfReference(Layout::ColorAt(record));
        };
        handlers[records.setBackgroundColor] = [](TReading& reading, const TRecord& record) {
            reading.player.State().background = PixelOfReference(Layout::ColorAt(record));
        };
        handlers[records.save] = [](TReading& reading, const TRecord&) { reading.player.Save(); };
        handlers[records.restore] = [](TReading& reading, const TRecord& record) {
            reading.player.Restore(Layout::SignedAt(record));
        };
        handlers[records.remove] = [](TReading& reading, const TRecord& record) {
            reading.objects.Delete(Layout::NumberAt(record));
        };
    }

    template <CMetafileClip::EOperation Operation>
    static void Clip(TReading& reading, const TRecord& record)
    {
        reading.player.State().clip.Combine(Operation, {Mapping(reading).ToPixels(Layout::RectAt(record))});
    }

    static void AddPlaces(TMetafileHandlers& handlers, const TSharedRecords& records)
    {
        handlers[records.intersectClip] = &Clip<CMetafileClip::Intersect>;
        handlers[records.excludeClip] = &Clip<CMetafileClip::Exclude>;
        handlers[records.offsetClip] = [](TReading& reading, const TRecord& record) {
            const Types::TPoint by = Layout::PointAt(record);
            const Types::TRect moved =
                Mapping(reading).ToPixels({.Left = 0, .Top = 0, .Right = by.X, .Bottom = by.Y});
            reading.player.State().clip.Move({.cx = moved.Width(), .cy = moved.Height()});
        };
        handlers[records.moveTo] = [](TReading& reading, const TRecord& record) {
            reading.player.MoveTo(Layout::PointAt(record));
        };
        handlers[records.lineTo] = [](TReading& reading, const TRecord& record) {
            reading.player.LinesTo({Layout::PointAt(record)});
        };
    }
};

} // namespace Graphics
