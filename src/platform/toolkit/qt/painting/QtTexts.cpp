// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/painting/QtTexts.h"

#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/painting/QtFonts.h"

#include <QFontMetrics>

#include <algorithm>
#include <cmath>

namespace Toolkits
{

namespace
{

/// Whether the text is one piece in one font, all of which the painter can cover by itself.
bool IsOnePiece(const QString& line)
{
    constexpr char16_t endOfLatin = 0x250;
    return std::ranges::all_of(line, [](QChar unit) { return unit >= u' ' && unit < endOfLatin; });
}

} // namespace

CQtTexts::CQtTexts(QImage& image, double factor)
    : mPainter(&image), mFactor(factor), mClip(FromQRect(image.rect()))
{
    mPainter.setBackground(QColor::fromRgba(mGround));
    mPainter.setPen(QColor::fromRgba(mColor));
}

void CQtTexts::TakeFont(const TFontData& font)
{
    if (mHasFont && font == mFont) {
        return;
    }
    const TQtFont& ready = ReadyFont(font);
    mFont = font;
    mHasFont = true;
    mAscent = ready.metrics.ascent;
    mHeight = ready.metrics.height;
    mPainter.setFont(ready.font);
}

void CQtTexts::TakeClip(const Types::TRect& clip)
{
    if (clip != mClip) {
        mClip = clip;
        mPainter.setClipRect(ToQRect(clip));
    }
}

void CQtTexts::TakeColor(TPixel color)
{
    if (color != mColor) {
        mColor = color;
        mPainter.setPen(QColor::fromRgba(color));
    }
}

void CQtTexts::TakeGround(bool isCovered, TPixel ground)
{
    if (isCovered != mIsCovered) {
        mIsCovered = isCovered;
        mPainter.setBackgroundMode(isCovered ? Qt::OpaqueMode : Qt::TransparentMode);
    }
    if (isCovered && ground != mGround) {
        mGround = ground;
        mPainter.setBackground(QColor::fromRgba(ground));
    }
}

void CQtTexts::Draw(const Types::TPoint& corner, const System::UnicodeString& text, const TFontData& font,
                    const TTextOptions& options, const Types::TRect& clip)
{
    if (clip.Width() <= 0 || clip.Height() <= 0 || text.IsEmpty()) {
        return;
    }
    TakeFont(font);
    const bool isLevel = font.orientation % 3600 == 0;
    // Characters may stick out of their line, but not by as much as it is high.
    const double reach = 2.0 * mHeight * mFactor;
    if (isLevel &&
        (corner.Y >= clip.Bottom + reach || corner.Y + reach <= clip.Top || corner.X >= clip.Right + reach)) {
        return;
    }
    TakeClip(clip);
    TakeColor(options.color);
    mPainter.setLayoutDirection(options.isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    const std::u16string_view units = text.AsView().substr(0, MostLineUnits);
    const QString line = ViewOf(units);
    if (isLevel && mFactor == 1.0) {
        DrawLine(corner.X, corner.Y, line, options);
        return;
    }
    mPainter.setTransform(QTransform::fromTranslate(corner.X, corner.Y)
                              .rotate(-font.orientation / 10.0)
                              .scale(mFactor, mFactor));
    DrawLine(0, 0, line, options);
    mPainter.resetTransform();
}

void CQtTexts::DrawLine(double x, double top, const QString& line, const TTextOptions& options)
{
    // To measure takes as long as to draw.
    const bool isCovered = options.isOpaque && IsOnePiece(line);
    if (options.isOpaque && !isCovered) {
        const int width = QFontMetrics(mPainter.font()).horizontalAdvance(line);
        mPainter.fillRect(QRectF(x, top, width, mHeight), QColor::fromRgba(options.background));
    }
    TakeGround(isCovered, options.background);
    // The line stands on whole pixels.
    mPainter.drawText(QPointF(x, top + std::round(mAscent * mFactor) / mFactor), line);
}

} // namespace Toolkits
