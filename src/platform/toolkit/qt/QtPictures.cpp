// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/QtPictures.h"

#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/QtPaintDevice.h"

#include <QBuffer>
#include <QImageReader>
#include <QImageWriter>

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>

namespace Toolkits
{

namespace
{

struct TFormat
{
    const char* qtName;
    const System::WideChar* name;
};

/// By the numbers of the types; a null name is none of Qt's.
constexpr std::array Formats = {TFormat{"bmp", u"bitmap"}, TFormat{"ico", u"icon"},  TFormat{"png", u"PNG"},
                                TFormat{"jpg", u"JPEG"},   TFormat{"tiff", u"TIFF"}, TFormat{"gif", u"GIF"},
                                TFormat{nullptr, u"EMF"},  TFormat{nullptr, u"WMF"}};

const TFormat& FormatOf(EPictureType type)
{
    return Formats[static_cast<std::size_t>(type)];
}

[[noreturn]] void ThrowDamaged(EPictureType type, const QString& reason)
{
    throw Graphics::EInvalidGraphic(System::UnicodeString(u"The ") + FormatOf(type).name +
                                    u" picture can't be read or written: " + FromQString(reason));
}

/// Whether Qt has a part for the format among those it has for reading, or writing.
bool HasFormat(const QList<QByteArray>& formats, EPictureType type)
{
    const char* const name = FormatOf(type).qtName;
    return name != nullptr && formats.contains(QByteArray(name));
}

} // namespace

Pixels PixelsOf(const QImage& image)
{
    const QImage rows = image.convertToFormat(QImage::Format_ARGB32);
    Pixels pixels(rows.width(), rows.height());
    for (int y = 0; y < rows.height(); ++y) {
        std::memcpy(pixels.Row(y).data(), rows.constScanLine(y), pixels.Row(y).size_bytes());
    }
    return pixels;
}

[[noreturn]] void ThrowNoCodec(EPictureType type)
{
    throw Graphics::EInvalidGraphic(System::UnicodeString(u"There is no codec for pictures of the type ") +
                                    FormatOf(type).name);
}

Pixels DecodeByQt(EPictureType type, std::span<const System::Byte> bytes)
{
    static const QList<QByteArray>& formats = *new QList<QByteArray>(QImageReader::supportedImageFormats());
    if (!HasFormat(formats, type)) {
        ThrowNoCodec(type);
    }
    if (bytes.size() > static_cast<std::size_t>(INT_MAX)) {
        ThrowDamaged(type, QStringLiteral("too large"));
    }
    QByteArray file = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                              static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&file);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, FormatOf(type).qtName);
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (!size.isValid() || size.isEmpty() || !Pixels::IsSize(size.width(), size.height())) {
        ThrowDamaged(type,
                     size.isValid() ? QStringLiteral("its size is beyond the limits") : reader.errorString());
    }
    QImage image;
    if (!reader.read(&image)) {
        ThrowDamaged(type, reader.errorString());
    }
    return PixelsOf(image);
}

std::vector<System::Byte> EncodeByQt(EPictureType type, const Pixels& pixels, int quality)
{
    static const QList<QByteArray>& formats = *new QList<QByteArray>(QImageWriter::supportedImageFormats());
    if (!HasFormat(formats, type)) {
        ThrowNoCodec(type);
    }
    const QImage image = ViewOf(pixels);
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, FormatOf(type).qtName);
    if (type == EPictureType::Jpeg) {
        writer.setQuality(std::clamp(quality, 1, 100));
    }
    if (!writer.write(image)) {
        ThrowDamaged(type, writer.errorString());
    }
    return {file.begin(), file.end()};
}

} // namespace Toolkits
