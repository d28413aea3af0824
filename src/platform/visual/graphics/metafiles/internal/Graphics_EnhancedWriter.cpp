// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_EnhancedWriter.h"

#include "platform/toolkit/Toolkit.h"
#include "platform/visual/graphics/internal/Graphics_Dib.h"
#include "platform/visual/graphics/internal/Graphics_MulDiv.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_EnhancedRecords.h"

#include <algorithm>
#include <bit>

namespace Graphics
{

using Toolkits::Pixels;
using Toolkits::TPixel;
using Types::TPoint;
using Types::TRect;
using Types::TSize;

namespace
{

constexpr unsigned RecordHead = 8;
constexpr unsigned HeaderSize = 108;

// A device with 96 dots an inch.
constexpr unsigned DevicePixels = 9600;
constexpr unsigned DeviceMillimetres = 2540;

void Put(CByteWriter& fields, int value)
{
    fields.Put32(static_cast<unsigned>(value));
}

void Put(CByteWriter& fields, const TPoint& point)
{
    Put(fields, point.X);
    Put(fields, point.Y);
}

void Put(CByteWriter& fields, const TRect& rect)
{
    Put(fields, TPoint{.X = rect.Left, .Y = rect.Top});
    Put(fields, TPoint{.X = rect.Right, .Y = rect.Bottom});
}

/// The right and lower edges lie within.
TRect BoxOf(const TRect& rect)
{
    return {.Left = rect.Left, .Top = rect.Top, .Right = rect.Right - 1, .Bottom = rect.Bottom - 1};
}

void PutZeros(CByteWriter& fields, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        fields.Put8(0);
    }
}

/// Where head and rows of the bitmap are in a record with so many bytes before it, and how long they are.
void PutBitmapPlaces(CByteWriter& fields, std::span<const System::Byte> dib, unsigned before)
{
    const auto head = static_cast<unsigned>(DibHeadSize(dib));
    fields.Put32(before);
    fields.Put32(head);
    fields.Put32(before + head);
    fields.Put32(static_cast<unsigned>(dib.size()) - head);
}

/// The place and size of the target.
void PutArea(CByteWriter& fields, const TRect& area)
{
    Put(fields, TPoint{.X = area.Left, .Y = area.Top});
    Put(fields, TPoint{.X = area.Width(), .Y = area.Height()});
}

/// Colours of pixels that are blended are multiplied by their alpha.
Pixels Multiplied(const Pixels& image)
{
    Pixels pixels = image;
    for (TPixel& pixel : pixels.All()) {
        const unsigned alpha = pixel >> 24U;
        const auto part = [&](unsigned shift) {
            return ((pixel >> shift & 255U) * alpha + 127) / 255 << shift;
        };
        pixel = alpha << 24U | part(16) | part(8) | part(0);
    }
    return pixels;
}

/// How many units both names take, with a zero behind each and one more; none if both are empty.
std::size_t NameUnits(const TMetafileNames& names)
{
    const std::size_t length = names.createdBy.AsView().size() + names.description.AsView().size();
    return length == 0 ? 0 : length + 3;
}

/// The names in whole words.
std::vector<System::Byte> NameBytes(const TMetafileNames& names)
{
    CByteWriter bytes;
    if (NameUnits(names) == 0) {
        return {};
    }
    for (const System::UnicodeString* const name : {&names.createdBy, &names.description}) {
        for (const System::WideChar unit : name->AsView()) {
            bytes.Put16(unit);
        }
        bytes.Put16(0);
    }
    do {
        bytes.Put16(0);
    } while (bytes.Size() % 4 != 0);
    return bytes.Take();
}

} // namespace

CEnhancedWriter::CEnhancedWriter(const TSize& size, const TMetafileNames& names)
    : CMetafileWriter(size), mNames(names)
{
}

CEnhancedWriter::~CEnhancedWriter() = default;

void CEnhancedWriter::PutRecord(unsigned type, CByteWriter fields)
{
    while (fields.Size() % 4 != 0) {
        fields.Put8(0);
    }
    mRecords.Put32(type);
    mRecords.Put32(static_cast<unsigned>(RecordHead + fields.Size()));
    mRecords.Append(fields.Take());
    ++mCount;
}

void CEnhancedWriter::PutNumbers(unsigned type, std::initializer_list<unsigned> numbers)
{
    CByteWriter fields;
    for (const unsigned number : numbers) {
        fields.Put32(number);
    }
    PutRecord(type, std::move(fields));
}

void CEnhancedWriter::PutBounds(CByteWriter& fields) const
{
    Put(fields, BoxOf({.Left = 0, .Top = 0, .Right = Size().cx, .Bottom = Size().cy}));
}

std::vector<System::Byte> CEnhancedWriter::TakeFile()
{
    // No palette, where it would be, and the size of this record.
    PutNumbers(emEnd, {0, 16, 20});
    const std::vector<System::Byte> names = NameBytes(mNames);
    const std::size_t headSize = HeaderSize + names.size();
    CByteWriter file;
    file.Put32(emHeader);
    file.Put32(static_cast<unsigned>(headSize));
    PutBounds(file);
    constexpr int hundredthsPerInch = 2540;
    Put(file, TRect{.Left = 0,
                    .Top = 0,
                    .Right = MulDiv(Size().cx, hundredthsPerInch, 96),
                    .Bottom = MulDiv(Size().cy, hundredthsPerInch, 96)});
    file.Put32(0x464D4520);
    file.Put32(0x10000);
    file.Put32(static_cast<unsigned>(headSize + mRecords.Size()));
    file.Put32(mCount + 1);
    // The numbers of objects begin with 1.
    file.Put16(static_cast<unsigned>(ObjectCount() + 1));
    file.Put16(0);
    file.Put32(static_cast<unsigned>(NameUnits(mNames)));
    file.Put32(names.empty() ? 0U : HeaderSize);
    // No palette.
    file.Put32(0);
    for (const unsigned field : {DevicePixels, DevicePixels, DeviceMillimetres, DeviceMillimetres, 0U, 0U, 0U,
                                 DeviceMillimetres * 1000, DeviceMillimetres * 1000}) {
        file.Put32(field);
    }
    file.Append(names);
    file.Append(mRecords.Take());
    return file.Take();
}

void CEnhancedWriter::PutClip(const TRect& rect)
{
    PutRecord(emSave, {});
    CByteWriter fields;
    Put(fields, rect);
    PutRecord(emIntersectClip, std::move(fields));
}

void CEnhancedWriter::PutEndOfClip()
{
    PutNumbers(emRestore, {static_cast<unsigned>(-1)});
}

void CEnhancedWriter::PutObject(std::size_t number, const Toolkits::TPenData& pen)
{
    PutNumbers(emCreatePen, {static_cast<unsigned>(number) + 1, static_cast<unsigned>(pen.style),
                             static_cast<unsigned>(pen.width), 0, ReferenceOfPixel(pen.color)});
}

void CEnhancedWriter::PutObject(std::size_t number, const TLogicalBrush& brush, unsigned color)
{
    PutNumbers(emCreateBrush, {static_cast<unsigned>(number) + 1, brush.style, color, brush.hatch});
}

void CEnhancedWriter::PutPattern(std::size_t number, std::span<const System::Byte> dib)
{
    constexpr unsigned head = 32;
    CByteWriter fields;
    fields.Put32(static_cast<unsigned>(number) + 1);
    fields.Put32(0);
    PutBitmapPlaces(fields, dib, head);
    fields.Append(dib);
    PutRecord(emCreatePatternBrush, std::move(fields));
}

void CEnhancedWriter::PutObject(std::size_t number, const Toolkits::TFontData& font)
{
    // Behind the fields that count are names and properties, which may be empty.
    constexpr std::size_t rest = 228;
    CByteWriter fields;
    fields.Put32(static_cast<unsigned>(number) + 1);
    WriteMetafileFont<std::int32_t>(fields, font);
    PutZeros(fields, rest);
    PutRecord(emCreateFont, std::move(fields));
}

void CEnhancedWriter::PutSelect(std::size_t number)
{
    PutNumbers(emSelect, {static_cast<unsigned>(number) + 1});
}

void CEnhancedWriter::PutDelete(std::size_t number)
{
    PutNumbers(emDelete, {static_cast<unsigned>(number) + 1});
}

void CEnhancedWriter::PutSetting(ESetting setting, unsigned value)
{
    static constexpr std::array types = {emSetPenMode, emSetFillRule, emSetBackgroundMode,
                                         emSetBackgroundColor, emSetTextColor};
    PutNumbers(types[setting], {value});
}

void CEnhancedWriter::PutPixel(const TPoint& at, unsigned color)
{
    PutNumbers(emSetPixel, {static_cast<unsigned>(at.X), static_cast<unsigned>(at.Y), color});
}

void CEnhancedWriter::PutPoints(const std::vector<TPoint>& points, bool isClosed)
{
    CByteWriter fields;
    PutBounds(fields);
    fields.Put32(static_cast<unsigned>(points.size()));
    for (const TPoint& point : points) {
        Put(fields, point);
    }
    PutRecord(isClosed ? emPolygon : emPolyline, std::move(fields));
}

void CEnhancedWriter::PutFill(const TRect& rect)
{
    // No source, and nothing that turns it: 1, 0, 0, 1, 0, 0.
    constexpr auto one = std::bit_cast<unsigned>(1.0F);
    CByteWriter fields;
    PutBounds(fields);
    PutArea(fields, rect);
    fields.Put32(OperationNumber(0xF0));
    for (const unsigned field : {0U, 0U, one, 0U, 0U, one, 0U, 0U, 0U, 0U, 0U, 0U, 0U, 0U}) {
        fields.Put32(field);
    }
    PutRecord(emBitBlt, std::move(fields));
}

void CEnhancedWriter::PutRectangle(const TRect& rect, const TSize& corner)
{
    CByteWriter fields;
    Put(fields, BoxOf(rect));
    const bool isRound = corner.cx != 0 && corner.cy != 0;
    if (isRound) {
        Put(fields, TPoint{.X = corner.cx, .Y = corner.cy});
    }
    PutRecord(isRound ? emRoundRect : emRectangle, std::move(fields));
}

void CEnhancedWriter::PutEllipse(const TRect& rect)
{
    CByteWriter fields;
    Put(fields, BoxOf(rect));
    PutRecord(emEllipse, std::move(fields));
}

void CEnhancedWriter::PutArc(Toolkits::EArc kind, const TRect& rect, const TPoint& from, const TPoint& to)
{
    static constexpr std::array types = {emArc, emChord, emPie};
    CByteWriter fields;
    Put(fields, BoxOf(rect));
    Put(fields, from);
    Put(fields, to);
    PutRecord(types[static_cast<std::size_t>(kind)], std::move(fields));
}

void CEnhancedWriter::PutText(const TText& text)
{
    constexpr unsigned head = 76;
    constexpr unsigned compatible = 1;
    const auto length = static_cast<unsigned>(text.text.Length());
    const unsigned distances = (head + 2 * length + 3) / 4 * 4;
    CByteWriter fields;
    PutBounds(fields);
    fields.Put32(compatible);
    fields.Put32(std::bit_cast<unsigned>(1.0F));
    fields.Put32(std::bit_cast<unsigned>(1.0F));
    Put(fields, text.at);
    fields.Put32(length);
    fields.Put32(head);
    fields.Put32(text.options);
    Put(fields, text.rect);
    fields.Put32(distances);
    for (const System::WideChar unit : text.text.AsView()) {
        fields.Put16(unit);
    }
    while (RecordHead + fields.Size() < distances) {
        fields.Put8(0);
    }
    // Others need to be told how far each character reaches.
    const Toolkits::Toolkit& toolkit = Toolkits::CurrentToolkit();
    for (const System::WideChar unit : text.text.AsView()) {
        Put(fields, toolkit.TextExtent(text.font, System::UnicodeString(unit)).cx);
    }
    PutRecord(emTextOutW, std::move(fields));
}

void CEnhancedWriter::PutImage(const Pixels& image, const TRect& target, unsigned operation)
{
    constexpr unsigned head = 80;
    const auto dib = WriteDib(image, {}, image.getHeight());
    CByteWriter fields;
    PutBounds(fields);
    Put(fields, TPoint{.X = target.Left, .Y = target.Top});
    PutArea(fields, image.Bounds());
    PutBitmapPlaces(fields, dib, head);
    fields.Put32(0);
    fields.Put32(operation);
    Put(fields, TPoint{.X = target.Width(), .Y = target.Height()});
    fields.Append(dib);
    PutRecord(emStretchBits, std::move(fields));
}

void CEnhancedWriter::PutBlend(const Pixels& image, const TRect& target, unsigned opacity)
{
    constexpr unsigned head = 108;
    constexpr unsigned ownAlpha = 1U << 24U;
    constexpr auto one = std::bit_cast<unsigned>(1.0F);
    const auto dib = WriteDib(Multiplied(image), {.bitCount = 32}, image.getHeight());
    CByteWriter fields;
    PutBounds(fields);
    PutArea(fields, target);
    fields.Put32(ownAlpha | opacity << 16U);
    // The place in the source, nothing that turns it, the ground, and colours as they are.
    for (const unsigned field : {0U, 0U, one, 0U, 0U, one, 0U, 0U, 0xFFFFFFU, 0U}) {
        fields.Put32(field);
    }
    PutBitmapPlaces(fields, dib, head);
    Put(fields, TPoint{.X = image.getWidth(), .Y = image.getHeight()});
    fields.Append(dib);
    PutRecord(emAlphaBlend, std::move(fields));
}

void CEnhancedWriter::PutFlood(const TPoint& at, unsigned color, bool isSurface)
{
    PutNumbers(emFloodFill,
               {static_cast<unsigned>(at.X), static_cast<unsigned>(at.Y), color, isSurface ? 1U : 0U});
}

} // namespace Graphics
