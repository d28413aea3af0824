// SPDX-License-Identifier: MIT
#include "platform/toolkit/qt/painting/QtPictures.h"

#include "platform/toolkit/internal/PictureNames.h"
#include "platform/toolkit/qt/QtConvert.h"
#include "platform/toolkit/qt/painting/QtPaintDevice.h"

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

/// What Qt calls the types, by their numbers; null for none of Qt's.
constexpr std::array QtNames = {"bmp",
                                "ico",
                                "png",
                                "jpg",
                                "tiff",
                                "gif",
                                static_cast<const char*>(nullptr),
                                static_cast<const char*>(nullptr)};

const char* QtNameOf(EPictureType type)
{
    return QtNames[static_cast<std::size_t>(type)];
}

[[noreturn]] void ThrowDamaged(EPictureType type, const QString& reason)
{
    throw Graphics::EInvalidGraphic(u"The " + NameOf(type) + u" picture can't be read or written: " +
                                    FromQString(reason));
}

/// Raises that there is none if Qt has no part for the format among those it has for reading, or writing.
void NeedFormat(const QList<QByteArray>& formats, EPictureType type)
{
    const char* const name = QtNameOf(type);
    if (name == nullptr || !formats.contains(QByteArray(name))) {
        ThrowNoCodec(type, u"this Qt has no part for it");
    }
}

/// Lets Qt take as much memory as a picture of ours can have, while one is read. Its own limit, half of that,
/// is the program's and holds again behind it.
class CWiderLimit
{
public:
    CWiderLimit() : mFormer(QImageReader::allocationLimit())
    {
        constexpr int megabytes = static_cast<int>(Pixels::MaximumCount * sizeof(TPixel) >> 20U);
        if (mFormer != 0 && mFormer < megabytes) {
            QImageReader::setAllocationLimit(megabytes);
        }
    }
    CWiderLimit(const CWiderLimit&) = delete;
    CWiderLimit& operator=(const CWiderLimit&) = delete;
    ~CWiderLimit() { QImageReader::setAllocationLimit(mFormer); }

private:
    int mFormer;
};

} // namespace

Pixels PixelsOf(const QImage& image)
{
    const QImage rows = image.convertToFormat(QImage::Format_ARGB32);
    if (rows.isNull() && !image.isNull()) {
        throw Sysutils::EOutOfMemory(u"There is no memory for the picture");
    }
    Pixels pixels(rows.width(), rows.height());
    for (int y = 0; y < rows.height(); ++y) {
        std::memcpy(pixels.Row(y).data(), rows.constScanLine(y), pixels.Row(y).size_bytes());
    }
    return pixels;
}

Pixels CQtCodecs::Decode(EPictureType type, std::span<const System::Byte> bytes)
{
    static const QList<QByteArray>& formats = *new QList<QByteArray>(QImageReader::supportedImageFormats());
    NeedFormat(formats, type);
    if (bytes.size() > static_cast<std::size_t>(INT_MAX)) {
        ThrowDamaged(type, QStringLiteral("too large"));
    }
    QByteArray file = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                              static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&file);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, QtNameOf(type));
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (!size.isValid() || size.isEmpty() || !Pixels::IsSize(size.width(), size.height())) {
        ThrowDamaged(type,
                     size.isValid() ? QStringLiteral("its size is beyond the limits") : reader.errorString());
    }
    const CWiderLimit limit;
    QImage image;
    if (!reader.read(&image)) {
        ThrowDamaged(type, reader.errorString());
    }
    return PixelsOf(image);
}

std::vector<System::Byte> CQtCodecs::Encode(EPictureType type, const Pixels& pixels, int quality)
{
    static const QList<QByteArray>& formats = *new QList<QByteArray>(QImageWriter::supportedImageFormats());
    NeedFormat(formats, type);
    const QImage image = ViewOf(pixels);
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, QtNameOf(type));
    if (type == EPictureType::Jpeg) {
        writer.setQuality(std::clamp(quality, 1, 100));
    }
    if (!writer.write(image)) {
        ThrowDamaged(type, writer.errorString());
    }
    return {file.begin(), file.end()};
}

} // namespace Toolkits
