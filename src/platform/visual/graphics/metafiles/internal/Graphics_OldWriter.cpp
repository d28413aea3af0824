// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/metafiles/internal/Graphics_OldWriter.h"

#include "platform/visual/graphics/Graphics_CopyMode.h"
#include "platform/visual/graphics/internal/Graphics_Dib.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileReader.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_OldRecords.h"

#include <algorithm>
#include <string>
#include <utility>

namespace Graphics
{

using Toolkits::Pixels;
using Toolkits::TPixel;
using Types::TPoint;
using Types::TRect;
using Types::TSize;

namespace
{

constexpr unsigned UnitsPerInch = 96;

/// Held to what a word has.
void Put(CByteWriter& words, int value)
{
    words.Put16(static_cast<unsigned>(std::clamp(value, -0x8000, 0x7FFF)) & 0xFFFFU);
}

/// Numbers of a rectangle or point stand from the last to the first.
void PutReversed(CByteWriter& words, const TPoint& point)
{
    Put(words, point.Y);
    Put(words, point.X);
}

void PutReversed(CByteWriter& words, const TRect& rect)
{
    PutReversed(words, TPoint{.X = rect.Right, .Y = rect.Bottom});
    PutReversed(words, TPoint{.X = rect.Left, .Y = rect.Top});
}

/// The size, then the place.
void PutArea(CByteWriter& words, const TRect& rect)
{
    PutReversed(words, TPoint{.X = rect.Width(), .Y = rect.Height()});
    PutReversed(words, TPoint{.X = rect.Left, .Y = rect.Top});
}

} // namespace

COldWriter::COldWriter(const TSize& size) : CMetafileWriter(size)
{
    if (size.cx > LargestExtent || size.cy > LargestExtent) {
        throw EInvalidGraphic(u"The drawing is larger than a metafile of the older type can be");
    }
    PutWords(omSetMapMode, {static_cast<int>(mmAnisotropic)});
    PutWords(omSetWindowOrigin, {0, 0});
    PutWords(omSetWindowExtent, {size.cy, size.cx});
}

COldWriter::~COldWriter() = default;

void COldWriter::PutRecord(unsigned function, CByteWriter words)
{
    if (words.Size() % 2 != 0) {
        words.Put8(0);
    }
    const std::size_t size = OldRecordHead + words.Size();
    mLongest = std::max(mLongest, size);
    mRecords.Put32(static_cast<unsigned>(size / 2));
    mRecords.Put16(function);
    mRecords.Append(words.Take());
}

void COldWriter::PutWords(unsigned function, std::initializer_list<int> words)
{
    CByteWriter all;
    for (const int word : words) {
        Put(all, word);
    }
    PutRecord(function, std::move(all));
}

std::vector<System::Byte> COldWriter::TakeFile()
{
    PutRecord(omEnd, {});
    CByteWriter frame;
    frame.Put32(PlaceableSignature);
    frame.Put16(0);
    for (const int edge : {0, 0, Size().cx, Size().cy}) {
        Put(frame, edge);
    }
    frame.Put16(UnitsPerInch);
    frame.Put32(0);
    const std::vector<System::Byte> head = frame.Take();
    unsigned check = 0;
    for (std::size_t i = 0; i < head.size(); i += 2) {
        check ^= CByteView(head).At16(i);
    }
    CByteWriter file;
    file.Append(head);
    file.Put16(check);
    file.Put16(1);
    file.Put16(OldHeadSize / 2);
    file.Put16(0x300);
    file.Put32(static_cast<unsigned>((OldHeadSize + mRecords.Size()) / 2));
    file.Put16(static_cast<unsigned>(ObjectCount()));
    file.Put32(static_cast<unsigned>(mLongest / 2));
    file.Put16(0);
    file.Append(mRecords.Take());
    return file.Take();
}

Toolkits::TFontData COldWriter::FontFor(const Toolkits::TFontData& font, const System::UnicodeString& text)
{
    Toolkits::TFontData fitting = font;
    fitting.charset = CharsetOf(text, font.charset);
    return fitting;
}

void COldWriter::PutClip(const TRect& rect)
{
    PutRecord(omSave, {});
    CByteWriter words;
    PutReversed(words, rect);
    PutRecord(omIntersectClip, std::move(words));
}

void COldWriter::PutEndOfClip()
{
    PutWords(omRestore, {-1});
}

void COldWriter::PutObject(std::size_t, const Toolkits::TPenData& pen)
{
    CByteWriter words;
    words.Put16(static_cast<unsigned>(pen.style));
    Put(words, pen.width);
    words.Put16(0);
    words.Put32(ReferenceOfPixel(pen.color));
    PutRecord(omCreatePen, std::move(words));
}

void COldWriter::PutObject(std::size_t, const TLogicalBrush& brush, unsigned color)
{
    CByteWriter words;
    words.Put16(brush.style);
    words.Put32(color);
    words.Put16(brush.hatch);
    PutRecord(omCreateBrush, std::move(words));
}

void COldWriter::PutPattern(std::size_t, std::span<const System::Byte> dib)
{
    constexpr unsigned dibPattern = 5;
    CByteWriter words;
    words.Put16(dibPattern);
    words.Put16(0);
    words.Append(dib);
    PutRecord(omCreateDibBrush, std::move(words));
}

void COldWriter::PutObject(std::size_t, const Toolkits::TFontData& font)
{
    CByteWriter words;
    WriteMetafileFont<std::int16_t>(words, font);
    PutRecord(omCreateFont, std::move(words));
}

void COldWriter::PutSelect(std::size_t number)
{
    PutWords(omSelect, {static_cast<int>(number)});
}

void COldWriter::PutDelete(std::size_t number)
{
    PutWords(omDelete, {static_cast<int>(number)});
}

void COldWriter::PutSetting(ESetting setting, unsigned value)
{
    static constexpr std::array functions = {omSetPenMode, omSetFillRule, omSetBackgroundMode,
                                             omSetBackgroundColor, omSetTextColor};
    CByteWriter words;
    // Two words of a colour; of a mode the second counts for nothing.
    words.Put32(value);
    PutRecord(functions[setting], std::move(words));
}

void COldWriter::PutPixel(const TPoint& at, unsigned color)
{
    CByteWriter words;
    words.Put32(color);
    PutReversed(words, at);
    PutRecord(omSetPixel, std::move(words));
}

void COldWriter::PutPoints(const std::vector<TPoint>& points, bool isClosed)
{
    // As many as a word can count.
    constexpr std::size_t most = 0x7FFF;
    // Each record begins with the last point of the one before it.
    for (std::size_t first = 0; first == 0 || first + 1 < points.size(); first += most - 1) {
        const std::size_t count = std::min(most, points.size() - first);
        CByteWriter words;
        words.Put16(static_cast<unsigned>(count));
        for (const TPoint& point : std::span(points).subspan(first, count)) {
            Put(words, point.X);
            Put(words, point.Y);
        }
        PutRecord(isClosed ? omPolygon : omPolyline, std::move(words));
    }
}

void COldWriter::PutFill(const TRect& rect)
{
    CByteWriter words;
    words.Put32(OperationNumber(0xF0));
    PutArea(words, rect);
    PutRecord(omPatBlt, std::move(words));
}

void COldWriter::PutRectangle(const TRect& rect, const TSize& corner)
{
    CByteWriter words;
    const bool isRound = corner.cx != 0 && corner.cy != 0;
    if (isRound) {
        PutReversed(words, TPoint{.X = corner.cx, .Y = corner.cy});
    }
    PutReversed(words, rect);
    PutRecord(isRound ? omRoundRect : omRectangle, std::move(words));
}

void COldWriter::PutEllipse(const TRect& rect)
{
    CByteWriter words;
    PutReversed(words, rect);
    PutRecord(omEllipse, std::move(words));
}

void COldWriter::PutArc(Toolkits::EArc kind, const TRect& rect, const TPoint& from, const TPoint& to)
{
    static constexpr std::array functions = {omArc, omChord, omPie};
    CByteWriter words;
    PutReversed(words, to);
    PutReversed(words, from);
    PutReversed(words, rect);
    PutRecord(functions[static_cast<std::size_t>(kind)], std::move(words));
}

void COldWriter::PutText(const TText& text)
{
    constexpr std::size_t most = 0x7FFF;
    const std::string bytes = CharsetBytes(text.font.charset, text.text).substr(0, most);
    CByteWriter words;
    PutReversed(words, text.at);
    words.Put16(static_cast<unsigned>(bytes.size()));
    words.Put16(text.options);
    if ((text.options & toClipped) != 0) {
        for (const int edge : {text.rect.Left, text.rect.Top, text.rect.Right, text.rect.Bottom}) {
            Put(words, edge);
        }
    }
    for (const char byte : bytes) {
        words.Put8(static_cast<unsigned char>(byte));
    }
    PutRecord(omExtTextOut, std::move(words));
}

void COldWriter::PutImage(const Pixels& image, const TRect& target, unsigned operation)
{
    CByteWriter words;
    words.Put32(operation);
    words.Put16(0);
    PutArea(words, image.Bounds());
    PutArea(words, target);
    words.Append(WriteDib(image, {}, image.getHeight()));
    PutRecord(omStretchDib, std::move(words));
}

void COldWriter::PutBlend(const Pixels& image, const TRect& target, unsigned opacity)
{
    constexpr unsigned enough = 128;
    constexpr TPixel white = Toolkits::OpaquePixel(255, 255, 255);
    constexpr TPixel black = Toolkits::OpaquePixel(0, 0, 0);
    Pixels mask(image.getWidth(), image.getHeight(), white);
    Pixels colors(image.getWidth(), image.getHeight(), black);
    bool isWhole = true;
    for (std::size_t i = 0; i < image.All().size(); ++i) {
        const TPixel pixel = image.All()[i];
        if ((pixel >> 24U) * opacity / 255 >= enough) {
            mask.All()[i] = black;
            colors.All()[i] = pixel;
        } else {
            isWhole = false;
        }
    }
    // What doesn't cover is taken as it is there, then the rest is put into what became black.
    if (!isWhole) {
        PutImage(mask, target, static_cast<unsigned>(cmSrcAnd));
    }
    PutImage(colors, target, static_cast<unsigned>(isWhole ? cmSrcCopy : cmSrcPaint));
}

void COldWriter::PutFlood(const TPoint& at, unsigned color, bool isSurface)
{
    CByteWriter words;
    words.Put16(isSurface ? 1U : 0U);
    words.Put32(color);
    PutReversed(words, at);
    PutRecord(omExtFloodFill, std::move(words));
}

} // namespace Graphics
