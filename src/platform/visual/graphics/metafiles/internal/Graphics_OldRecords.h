// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileReading.h"

namespace Graphics
{

// The records of the older metafiles. The low byte tells them apart, the high one how many words there are at
// least.

inline constexpr unsigned omEnd = 0x0000;
inline constexpr unsigned omSave = 0x001E;
inline constexpr unsigned omSetBackgroundMode = 0x0102;
inline constexpr unsigned omSetMapMode = 0x0103;
inline constexpr unsigned omSetPenMode = 0x0104;
inline constexpr unsigned omSetFillRule = 0x0106;
inline constexpr unsigned omRestore = 0x0127;
inline constexpr unsigned omSelect = 0x012D;
inline constexpr unsigned omSetTextAlign = 0x012E;
inline constexpr unsigned omCreateDibBrush = 0x0142;
inline constexpr unsigned omDelete = 0x01F0;
inline constexpr unsigned omCreatePalette = 0x00F7;
inline constexpr unsigned omCreatePatternBrush = 0x01F9;
inline constexpr unsigned omSetBackgroundColor = 0x0201;
inline constexpr unsigned omSetTextColor = 0x0209;
inline constexpr unsigned omSetWindowOrigin = 0x020B;
inline constexpr unsigned omSetWindowExtent = 0x020C;
inline constexpr unsigned omSetViewportOrigin = 0x020D;
inline constexpr unsigned omSetViewportExtent = 0x020E;
inline constexpr unsigned omOffsetWindow = 0x020F;
inline constexpr unsigned omOffsetViewport = 0x0211;
inline constexpr unsigned omLineTo = 0x0213;
inline constexpr unsigned omMoveTo = 0x0214;
inline constexpr unsigned omOffsetClip = 0x0220;
inline constexpr unsigned omCreatePen = 0x02FA;
inline constexpr unsigned omCreateFont = 0x02FB;
inline constexpr unsigned omCreateBrush = 0x02FC;
inline constexpr unsigned omCreateBitmap = 0x02FD;
inline constexpr unsigned omPolygon = 0x0324;
inline constexpr unsigned omPolyline = 0x0325;
inline constexpr unsigned omScaleWindow = 0x0410;
inline constexpr unsigned omScaleViewport = 0x0412;
inline constexpr unsigned omExcludeClip = 0x0415;
inline constexpr unsigned omIntersectClip = 0x0416;
inline constexpr unsigned omEllipse = 0x0418;
inline constexpr unsigned omFloodFill = 0x0419;
inline constexpr unsigned omRectangle = 0x041B;
inline constexpr unsigned omSetPixel = 0x041F;
inline constexpr unsigned omTextOut = 0x0521;
inline constexpr unsigned omPolyPolygon = 0x0538;
inline constexpr unsigned omExtFloodFill = 0x0548;
inline constexpr unsigned omRoundRect = 0x061C;
inline constexpr unsigned omPatBlt = 0x061D;
inline constexpr unsigned omCreateRegion = 0x06FF;
inline constexpr unsigned omArc = 0x0817;
inline constexpr unsigned omPie = 0x081A;
inline constexpr unsigned omChord = 0x0830;
inline constexpr unsigned omBitBlt = 0x0922;
inline constexpr unsigned omDibBitBlt = 0x0940;
inline constexpr unsigned omExtTextOut = 0x0A32;
inline constexpr unsigned omStretchBlt = 0x0B23;
inline constexpr unsigned omDibStretchBlt = 0x0B41;
inline constexpr unsigned omSetDibToDevice = 0x0D33;
inline constexpr unsigned omStretchDib = 0x0F43;

constexpr unsigned OldRecordIndex(unsigned function)
{
    return function & 0xFFU;
}

/// The place and size of the picture, with which a file may begin, and what each begins with.
inline constexpr std::size_t PlaceableSize = 22;
inline constexpr std::size_t OldHeadSize = 18;
inline constexpr std::size_t OldRecordHead = 6;

using TOldFields = GMetafileFields<std::int16_t>;

// What handles them, in groups. Words of a record count from behind its head; most are there from the last to
// the first.

void AddOldState(TMetafileHandlers& handlers);
void AddOldObjects(TMetafileHandlers& handlers);
void AddOldShapes(TMetafileHandlers& handlers);
void AddOldImages(TMetafileHandlers& handlers);
void AddOldTexts(TMetafileHandlers& handlers);

inline int WordAt(const CByteView& record, std::size_t word)
{
    return record.Signed16(2 * word);
}

/// A point whose second number stands first.
inline Types::TPoint OldPointAt(const CByteView& record, std::size_t word)
{
    return {.X = WordAt(record, word + 1), .Y = WordAt(record, word)};
}

/// The right lower corner, then the left upper one.
inline Types::TRect OldRectAt(const CByteView& record, std::size_t word)
{
    return {.Left = WordAt(record, word + 3),
            .Top = WordAt(record, word + 2),
            .Right = WordAt(record, word + 1),
            .Bottom = WordAt(record, word)};
}

/// The size, then the place.
Types::TRect OldAreaAt(const CByteView& record, std::size_t size, std::size_t place);

} // namespace Graphics
