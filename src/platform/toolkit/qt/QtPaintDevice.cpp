// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtPaintDevice.h"

#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/QtFonts.h"

#include <QFontMetrics>
#include <QPainter>

namespace Toolkits
{

CQtPaintDevice::~CQtPaintDevice() = default;

void CQtPaintDevice::Text(const Types::TPoint& at, const System::UnicodeString& text, const TFontData& font,
                          const TTextOptions& options)
{
    const Types::TRect clip = options.clip == nullptr
                                  ? State().Clip()
                                  : Intersection(State().Clip(), State().ToDevice(*options.clip));
    if (clip.Width() <= 0 || clip.Height() <= 0 || text.IsEmpty()) {
        return;
    }
    QImage image = ViewOf(GetPixels());
    QPainter painter(&image);
    painter.setClipRect(ToQRect(clip));
    const Types::TPoint corner = State().ToDevice(at);
    painter.translate(corner.X, corner.Y);
    painter.rotate(-font.orientation / 10.0);
    const QFont& shown = ToQFont(font);
    painter.setFont(shown);
    painter.setLayoutDirection(options.isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    const QString line = ToQString(text).left(MostLineUnits);
    const QFontMetrics metrics(shown);
    if (options.isOpaque) {
        painter.fillRect(0, 0, metrics.horizontalAdvance(line), metrics.ascent() + metrics.descent(),
                         QColor::fromRgba(options.background));
    }
    painter.setPen(QColor::fromRgba(options.color));
    painter.drawText(0, metrics.ascent(), line);
}

namespace
{

template <class Bytes, class Block>
QImage View(Block& pixels)
{
    return {reinterpret_cast<Bytes*>(pixels.All().data()), pixels.getWidth(), pixels.getHeight(),
            static_cast<qsizetype>(pixels.getWidth()) * static_cast<qsizetype>(sizeof(TPixel)),
            QImage::Format_ARGB32};
}

} // namespace

QImage ViewOf(Pixels& pixels)
{
    return View<uchar>(pixels);
}

QImage ViewOf(const Pixels& pixels)
{
    return View<const uchar>(pixels);
}

} // namespace Toolkits
