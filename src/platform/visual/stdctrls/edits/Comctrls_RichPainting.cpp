// SPDX-License-Identifier: MIT
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/stdctrls/edits/Comctrls_RichEdit.h"

#include <algorithm>

// How a rich edit looks, as it tells a window that acts by itself, or as it is painted in another one.

namespace Comctrls
{

using System::UnicodeString;
using Types::TPoint;

namespace
{

constexpr int PointsInInch = 72;
constexpr int PixelsInInch = 96;
/// Pixels between a bullet's begin and the text.
constexpr int BulletRoom = 16;

/// Beyond each screen.
constexpr long long MostPoints = 100'000;

int ToPixels(long long points)
{
    return static_cast<int>(std::clamp(points, -MostPoints, MostPoints) * PixelsInInch / PointsInInch);
}

Toolkits::TFontData FontOf(const TCharFormat& format)
{
    Toolkits::TFontData font;
    font.name = format.name;
    font.height = -ToPixels(format.size);
    font.styles = format.style;
    return font;
}

void UseFont(Graphics::TCanvas& canvas, const TCharFormat& format)
{
    canvas.getFont()->setName(format.name);
    canvas.getFont()->setHeight(-ToPixels(format.size));
    canvas.getFont()->setStyle(format.style);
}

int AscentOf(const TCharFormat& format)
{
    return Toolkits::CurrentToolkit().FontMetrics(FontOf(format)).ascent;
}

} // namespace

void TCustomRichEdit::ShowFormats(int start, int end)
{
    if (GetWindow() == nullptr) {
        return;
    }
    Toolkits::TTextFormats formats{.start = start};
    mChars.VisitRange(start, end, [&](const TCharFormat& format, int from, int to) {
        formats.chars.push_back({to - from, FontOf(format), Graphics::ColorToPixel(format.color)});
    });
    mParagraphs.VisitRange(start, end, [&](const TParaFormat& format, int from, int to) {
        formats.paragraphs.push_back({.length = to - from,
                                      .alignment = format.alignment,
                                      .firstIndent = ToPixels(format.firstIndent),
                                      .leftIndent = ToPixels(format.leftIndent),
                                      .rightIndent = ToPixels(format.rightIndent),
                                      .hasBullet = format.numbering == nsBullet});
    });
    GetWindow()->ShowFormats(formats);
}

int TCustomRichEdit::WidthOf(int place, int length) const
{
    int width = 0;
    mChars.VisitRange(place, place + length, [&](const TCharFormat& format, int begin, int end) {
        const UnicodeString text = Buffer().getText().SubString(begin + 1, end - begin);
        width += Toolkits::CurrentToolkit().TextExtent(FontOf(format), text).cx;
    });
    return width;
}

TPoint TCustomRichEdit::RowExtent(const TRow& row) const
{
    TPoint extent;
    const auto include = [&extent](const TCharFormat& format, int, int) {
        const Toolkits::TTextMetrics metrics = Toolkits::CurrentToolkit().FontMetrics(FontOf(format));
        extent.X = std::max(extent.X, metrics.ascent);
        extent.Y = std::max(extent.Y, metrics.descent);
    };
    if (row.begin == row.end) {
        include(mChars.At(row.begin, mDefFormat), 0, 0);
    }
    mChars.VisitRange(row.begin, row.end, include);
    return extent;
}

int TCustomRichEdit::RowHeight(const TRow& row) const
{
    const TPoint extent = RowExtent(row);
    return std::max(extent.X + extent.Y, 1);
}

TPoint TCustomRichEdit::RowRoom(int begin) const
{
    const TParaFormat& format = mParagraphs.At(begin, mDefParagraph);
    const int width = TextRect().Width();
    const long long indent = 1LL * format.leftIndent + (begin == LineBegin(begin) ? format.firstIndent : 0);
    const int left = std::max(ToPixels(indent), 0) + (format.numbering == nsBullet ? BulletRoom : 0);
    return {left, std::max(width - std::max(ToPixels(format.rightIndent), 0), left)};
}

Classes::TAlignment TCustomRichEdit::RowAlignment(int begin) const
{
    return mParagraphs.At(begin, mDefParagraph).alignment;
}

void TCustomRichEdit::PaintBullet(Graphics::TCanvas& canvas, TPoint at, const TRow& row, int ascent)
{
    const bool isFirst = row.begin == LineBegin(row.begin);
    if (!isFirst || mParagraphs.At(row.begin, mDefParagraph).numbering != nsBullet) {
        return;
    }
    const TCharFormat& format = mChars.At(row.begin, mDefFormat);
    UseFont(canvas, format);
    canvas.getFont()->setColor(getEnabled() ? format.color : Graphics::clGrayText);
    canvas.getBrush()->setStyle(Graphics::bsClear);
    canvas.TextOut(at.X - BulletRoom, at.Y + ascent - AscentOf(format), u"\u2022");
}

void TCustomRichEdit::PaintRow(Graphics::TCanvas& canvas, TPoint at, const TRow& row)
{
    const int ascent = RowExtent(row).X;
    PaintBullet(canvas, at, row, ascent);
    mChars.VisitRange(row.begin, row.end, [&](const TCharFormat& format, int begin, int end) {
        UseFont(canvas, format);
        PaintPiece(canvas, {at.X, at.Y + ascent - AscentOf(format)}, begin, end - begin,
                   getEnabled() ? format.color : Graphics::clGrayText);
        at.X += WidthOf(begin, end - begin);
    });
}

} // namespace Comctrls
