// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/painting/QtPaintDevice.h"

#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/painting/QtTexts.h"

namespace Toolkits
{

CQtPaintDevice::~CQtPaintDevice() = default;

void CQtPaintDevice::Text(const Types::TPoint& at, const System::UnicodeString& text, const TFontData& font,
                          const TTextOptions& options)
{
    const Types::TRect clip = options.clip == nullptr
                                  ? State().Clip()
                                  : Intersection(State().Clip(), State().ToDevice(*options.clip));
    QImage image = ViewOf(GetPixels());
    CQtTexts(image, 1.0).Draw(State().ToDevice(at), text, font, options, clip);
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
