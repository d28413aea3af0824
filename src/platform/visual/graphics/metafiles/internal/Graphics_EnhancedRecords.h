// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileReading.h"

namespace Graphics
{

// The records of enhanced metafiles, by their numbers.

inline constexpr unsigned emHeader = 1;
inline constexpr unsigned emPolyBezier = 2;
inline constexpr unsigned emPolygon = 3;
inline constexpr unsigned emPolyline = 4;
inline constexpr unsigned emPolyBezierTo = 5;
inline constexpr unsigned emPolylineTo = 6;
inline constexpr unsigned emPolyPolyline = 7;
inline constexpr unsigned emPolyPolygon = 8;
inline constexpr unsigned emSetWindowExtent = 9;
inline constexpr unsigned emSetWindowOrigin = 10;
inline constexpr unsigned emSetViewportExtent = 11;
inline constexpr unsigned emSetViewportOrigin = 12;
inline constexpr unsigned emEnd = 14;
inline constexpr unsigned emSetPixel = 15;
inline constexpr unsigned emSetMapMode = 17;
inline constexpr unsigned emSetBackgroundMode = 18;
inline constexpr unsigned emSetFillRule = 19;
inline constexpr unsigned emSetPenMode = 20;
inline constexpr unsigned emSetTextAlign = 22;
inline constexpr unsigned emSetTextColor = 24;
inline constexpr unsigned emSetBackgroundColor = 25;
inline constexpr unsigned emOffsetClip = 26;
inline constexpr unsigned emMoveTo = 27;
inline constexpr unsigned emExcludeClip = 29;
inline constexpr unsigned emIntersectClip = 30;
inline constexpr unsigned emScaleViewport = 31;
inline constexpr unsigned emScaleWindow = 32;
inline constexpr unsigned emSave = 33;
inline constexpr unsigned emRestore = 34;
inline constexpr unsigned emSetWorld = 35;
inline constexpr unsigned emModifyWorld = 36;
inline constexpr unsigned emSelect = 37;
inline constexpr unsigned emCreatePen = 38;
inline constexpr unsigned emCreateBrush = 39;
inline constexpr unsigned emDelete = 40;
inline constexpr unsigned emAngleArc = 41;
inline constexpr unsigned emEllipse = 42;
inline constexpr unsigned emRectangle = 43;
inline constexpr unsigned emRoundRect = 44;
inline constexpr unsigned emArc = 45;
inline constexpr unsigned emChord = 46;
inline constexpr unsigned emPie = 47;
inline constexpr unsigned emCreatePalette = 49;
inline constexpr unsigned emFloodFill = 53;
inline constexpr unsigned emLineTo = 54;
inline constexpr unsigned emArcTo = 55;
inline constexpr unsigned emPolyDraw = 56;
inline constexpr unsigned emSetArcDirection = 57;
inline constexpr unsigned emBeginPath = 59;
inline constexpr unsigned emEndPath = 60;
inline constexpr unsigned emCloseFigure = 61;
inline constexpr unsigned emFillPath = 62;
inline constexpr unsigned emDrawAndFillPath = 63;
inline constexpr unsigned emDrawPath = 64;
inline constexpr unsigned emClipPath = 67;
inline constexpr unsigned emAbortPath = 68;
inline constexpr unsigned emFillRegion = 71;
inline constexpr unsigned emInvertRegion = 73;
inline constexpr unsigned emPaintRegion = 74;
inline constexpr unsigned emSelectClipRegion = 75;
inline constexpr unsigned emBitBlt = 76;
inline constexpr unsigned emStretchBlt = 77;
inline constexpr unsigned emMaskBlt = 78;
inline constexpr unsigned emSetBitsToDevice = 80;
inline constexpr unsigned emStretchBits = 81;
inline constexpr unsigned emCreateFont = 82;
inline constexpr unsigned emTextOutA = 83;
inline constexpr unsigned emTextOutW = 84;
inline constexpr unsigned emPolyBezier16 = 85;
inline constexpr unsigned emPolygon16 = 86;
inline constexpr unsigned emPolyline16 = 87;
inline constexpr unsigned emPolyBezierTo16 = 88;
inline constexpr unsigned emPolylineTo16 = 89;
inline constexpr unsigned emPolyPolyline16 = 90;
inline constexpr unsigned emPolyPolygon16 = 91;
inline constexpr unsigned emPolyDraw16 = 92;
inline constexpr unsigned emCreateMonoBrush = 93;
inline constexpr unsigned emCreatePatternBrush = 94;
inline constexpr unsigned emCreateExtendedPen = 95;
inline constexpr unsigned emSmallTextOut = 108;
inline constexpr unsigned emAlphaBlend = 114;
inline constexpr unsigned emTransparentBlt = 116;

/// An object is one of every device's where this bit of its number is set.
inline constexpr unsigned emStock = 0x80000000U;

using TEnhancedFields = GMetafileFields<std::int32_t>;

// What handles them, in groups; the place of a field in a record counts from its number on.

void AddEnhancedState(TMetafileHandlers& handlers);
void AddEnhancedObjects(TMetafileHandlers& handlers);
void AddEnhancedLines(TMetafileHandlers& handlers);
void AddEnhancedShapes(TMetafileHandlers& handlers);
void AddEnhancedTexts(TMetafileHandlers& handlers);
void AddEnhancedImages(TMetafileHandlers& handlers);

/// The rectangle of a shape, whose right and lower edges are within it in the file.
Types::TRect EnhancedBox(const CByteView& record, std::size_t offset);
/// The rectangles of a region. `EInvalidGraphic` if the record hasn't as many as it tells.
std::vector<Types::TRect> EnhancedRegion(const CByteView& record, std::size_t offset);

} // namespace Graphics
