// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/internal/Graphics_PictureHeader.h"

#include "platform/toolkit/Pixels.h"
#include "platform/visual/graphics/internal/Graphics_BitmapFile.h"
#include "platform/visual/graphics/internal/Graphics_Bytes.h"
#include "platform/visual/graphics/internal/Graphics_MulDiv.h"
#include "platform/visual/graphics/metafiles/internal/Graphics_MetafileReader.h"

#include <algorithm>
#include <cstdlib>

namespace Graphics
{

namespace
{

using Toolkits::EPictureType;
using TBytes = std::span<const System::Byte>;

constexpr unsigned PngSignature = 0x89504E47;
constexpr unsigned EnhancedSignature = 0x464D4520;

[[noreturn]] void ThrowDamaged()
{
    throw EInvalidGraphic(u"The picture is damaged");
}

struct TWide
{
    long long width = 0;
    long long height = 0;
};

/// The frame header, which stands behind segments of any kind and number.
TWide JpegSize(const CByteView& file)
{
    std::size_t place = 2;
    while (file.Has(place, 9) && file.At8(place) == 0xFF) {
        const unsigned marker = file.At8(place + 1);
        const bool isFrame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (isFrame) {
            return {.width = file.High16(place + 7), .height = file.High16(place + 5)};
        }
        // Bytes that fill up stand before a marker.
        place += marker == 0xFF ? 1 : 2 + std::max(2U, file.High16(place + 2));
    }
    ThrowDamaged();
}

/// Of the first picture of the file, by two of the entries of its directory.
TWide TiffSize(const CByteView& file)
{
    const bool isHighFirst = file.At8(0) == 'M';
    const auto at16 = [&](std::size_t place) { return isHighFirst ? file.High16(place) : file.At16(place); };
    const auto at32 = [&](std::size_t place) { return isHighFirst ? file.High32(place) : file.At32(place); };
    constexpr std::size_t entrySize = 12;
    constexpr unsigned shortType = 3;
    const std::size_t directory = at32(4);
    const std::size_t count = at16(directory);
    if (!file.Has(directory, 2 + count * entrySize)) {
        ThrowDamaged();
    }
    TWide size;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = directory + 2 + i * entrySize;
        const unsigned value = at16(entry + 2) == shortType ? at16(entry + 8) : at32(entry + 8);
        if (at16(entry) == 256) {
            size.width = value;
        } else if (at16(entry) == 257) {
            size.height = value;
        }
    }
    return size;
}

/// In pixels of the device that the file was made for.
TWide EnhancedSize(const CByteView& file)
{
    // The frame is in hundredths of a millimetre, the device in pixels and millimetres.
    const auto pixels = [&](std::size_t edge, std::size_t device) -> long long {
        const long long frame = 0LL + file.Signed32(edge + 8) - file.Signed32(edge);
        const int millimetres = file.Signed32(device + 8);
        const int extent = std::clamp(file.Signed32(device), 0, Toolkits::Pixels::MaximumExtent);
        return millimetres <= 0 ? 0 : (frame * extent / millimetres + 50) / 100;
    };
    return {.width = pixels(24, 72), .height = pixels(28, 76)};
}

/// In pixels at 96 dots an inch; in units of the drawing where there is no frame.
TWide OldMetafileSize(const CByteView& file, TBytes bytes)
{
    if (file.At32(0) != PlaceableSignature) {
        const Types::TSize size = FramelessSize(bytes);
        return {.width = size.cx, .height = size.cy};
    }
    const int unitsPerInch = std::max(1, static_cast<int>(file.At16(14)));
    return {.width = std::abs(MulDiv(file.Signed16(10) - file.Signed16(6), 96, unitsPerInch)),
            .height = std::abs(MulDiv(file.Signed16(12) - file.Signed16(8), 96, unitsPerInch))};
}

TWide SizeOf(EPictureType type, TBytes bytes)
{
    const CByteView file(bytes);
    switch (type) {
    case EPictureType::Png:
        return {.width = file.High32(16), .height = file.High32(20)};
    case EPictureType::Jpeg:
        return JpegSize(file);
    case EPictureType::Tiff:
        return TiffSize(file);
    case EPictureType::Gif:
        return {.width = file.At16(6), .height = file.At16(8)};
    case EPictureType::EnhancedMetafile:
        return EnhancedSize(file);
    case EPictureType::Metafile:
        return OldMetafileSize(file, bytes);
    case EPictureType::Bitmap: {
        const TBitmapFile bitmap = OpenBitmapFile({bytes.begin(), bytes.end()});
        return {.width = bitmap.image->sizeInFile.cx, .height = bitmap.image->sizeInFile.cy};
    }
    case EPictureType::Icon:
        break;
    }
    ThrowDamaged();
}

} // namespace

bool FindPictureType(TBytes bytes, EPictureType& type)
{
    const CByteView file(bytes);
    const unsigned begin = file.At32(0);
    if ((begin & 0xFFFFU) == 0x4D42) {
        type = EPictureType::Bitmap;
    } else if ((begin & 0xFFFFFFU) == 0xFFD8FF) {
        type = EPictureType::Jpeg;
    } else if (file.High32(0) == PngSignature) {
        type = EPictureType::Png;
    } else if (begin == 0x002A4949 || begin == 0x2A004D4D) {
        type = EPictureType::Tiff;
    } else if (begin == 0x38464947) {
        type = EPictureType::Gif;
    } else if (begin == 1 && file.At32(40) == EnhancedSignature) {
        type = EPictureType::EnhancedMetafile;
    } else if (begin == PlaceableSignature || IsFrameless(bytes)) {
        type = EPictureType::Metafile;
    } else {
        return false;
    }
    return true;
}

Types::TSize PictureSize(EPictureType type, TBytes bytes)
{
    const TWide size = SizeOf(type, bytes);
    if (!Toolkits::Pixels::IsSize(size.width, size.height) || size.width == 0 || size.height == 0) {
        ThrowDamaged();
    }
    return {.cx = static_cast<int>(size.width), .cy = static_cast<int>(size.height)};
}

} // namespace Graphics
