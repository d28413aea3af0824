// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintDevice.h"
#include "platform/toolkit/PaintRecording.h"
#include "platform/toolkit/Pixels.h"
#include "platform/toolkit/internal/DeviceState.h"

#include <optional>
#include <variant>
#include <vector>

namespace Toolkits
{

// One call of a device each.

struct TPushRecord
{
};

struct TPopRecord
{
};

struct TOriginRecord
{
    Types::TSize by;
};

struct TClipRecord
{
    Types::TRect rect;
};

struct TPixelRecord
{
    Types::TPoint at;
    TPixel color;
};

struct TPolylineRecord
{
    std::vector<Types::TPoint> points;
    TPenData pen;
};

struct TPolygonRecord
{
    std::vector<Types::TPoint> points;
    TPenData pen;
    TBrushData brush;
};

struct TFillRecord
{
    Types::TRect rect;
    TBrushData brush;
};

struct TRectangleRecord
{
    Types::TRect rect;
    Types::TSize corner;
    TPenData pen;
    TBrushData brush;
};

struct TEllipseRecord
{
    Types::TRect rect;
    TPenData pen;
    TBrushData brush;
};

struct TArcRecord
{
    EArc kind;
    Types::TRect rect;
    Types::TPoint from;
    Types::TPoint to;
    TPenData pen;
    TBrushData brush;
};

struct TTextRecord
{
    Types::TPoint at;
    System::UnicodeString text;
    TFontData font;
    /// Its `clip` isn't used, since what it points to is the caller's.
    TTextOptions options;
    std::optional<Types::TRect> clip;
};

struct TImageRecord
{
    TSharedPixels image;
    Types::TRect source;
    Types::TRect target;
    TImageOptions options;
};

struct TFocusRecord
{
    Types::TRect rect;
};

struct TFloodRecord
{
    Types::TPoint at;
    TPixel color;
    EFlood kind;
    TBrushData brush;
};

using TPaintRecord =
    std::variant<TPushRecord, TPopRecord, TOriginRecord, TClipRecord, TPixelRecord, TPolylineRecord,
                 TPolygonRecord, TFillRecord, TRectangleRecord, TEllipseRecord, TArcRecord, TTextRecord,
                 TImageRecord, TFocusRecord, TFloodRecord>;

struct PaintRecording::TRecords
{
    std::vector<TPaintRecord> calls;
    CDeviceState state;
};

/// The call as a line of text, as `PaintRecording::AsText` has it.
System::UnicodeString LineOf(const TPaintRecord& record);

} // namespace Toolkits
