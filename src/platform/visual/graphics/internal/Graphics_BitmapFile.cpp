// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/internal/Graphics_BitmapFile.h"

#include "platform/toolkit/PictureCodecs.h"
#include "platform/visual/graphics/internal/Graphics_Dib.h"

#include <algorithm>

namespace Graphics
{

namespace
{

constexpr std::size_t FileHeader = 14;
constexpr unsigned Signature = 0x4D42;

CDib OpenDib(std::span<const System::Byte> bytes)
{
    const CByteView view(bytes);
    if (view.At16(0) != Signature) {
        throw EInvalidGraphic(u"The picture is no bitmap");
    }
    return CDib(bytes, FileHeader, view.At32(10));
}

TPixelFormat FormatOf(const CDib& dib)
{
    switch (dib.getBitCount()) {
    case 1:
        return pf1bit;
    case 4:
        return pf4bit;
    case 8:
        return pf8bit;
    case 16:
        return dib.HasSixGreens() ? pf16bit : pf15bit;
    case 24:
        return pf24bit;
    case 32:
        return pf32bit;
    default:
        return pfCustom;
    }
}

TDibFormat DibFormatOf(TPixelFormat format)
{
    switch (format) {
    case pf1bit:
        return {.bitCount = 1};
    case pf4bit:
        return {.bitCount = 4};
    case pf8bit:
        return {.bitCount = 8};
    case pf15bit:
        return {.bitCount = 16};
    case pf16bit:
        return {.bitCount = 16, .hasSixGreens = true};
    case pf32bit:
        return {.bitCount = 32};
    case pfDevice:
    case pf24bit:
    case pfCustom:
        break;
    }
    return {};
}

} // namespace

TBitmapImage::TBitmapImage() : pixels(new Toolkits::Pixels) {}

TBitmapImage::~TBitmapImage() = default;

Toolkits::Pixels& TBitmapImage::Decoded()
{
    if (file && pixels->IsEmpty()) {
        pixels = Toolkits::TSharedPixels(new Toolkits::Pixels(ReadBitmapFile(file->bytes)));
    }
    return *pixels;
}

Types::TSize TBitmapImage::Size() const
{
    return file ? sizeInFile : Types::TSize{.cx = pixels->getWidth(), .cy = pixels->getHeight()};
}

TBitmapFile OpenBitmapFile(std::vector<System::Byte> bytes)
{
    TBitmapFile file{.image = System::GSharedBlock<TBitmapImage>(new TBitmapImage)};
    if (bytes.empty()) {
        return file;
    }
    const CDib dib = OpenDib(bytes);
    file.format = FormatOf(dib);
    file.length = dib.IsPlain() ? dib.End() : bytes.size();
    file.image->sizeInFile = {.cx = dib.getWidth(), .cy = dib.getHeight()};
    bytes.resize(file.length);
    file.image->file = TSharedBytes(new TBytesBlock(std::move(bytes)));
    return file;
}

Toolkits::Pixels ReadBitmapFile(std::span<const System::Byte> bytes)
{
    const CDib dib = OpenDib(bytes);
    if (dib.IsReadable()) {
        return dib.Read();
    }
    return Toolkits::DecodePicture(Toolkits::EPictureType::Bitmap, bytes);
}

std::vector<System::Byte> WriteBitmapFile(const Toolkits::Pixels& pixels, TPixelFormat format)
{
    const std::vector<System::Byte> dib = WriteDib(pixels, DibFormatOf(format), pixels.getHeight());
    const std::size_t start = FileHeader + DibHeadSize(dib);
    CByteWriter file;
    file.Put16(Signature);
    file.Put32(static_cast<unsigned>(FileHeader + dib.size()));
    file.Put32(0);
    file.Put32(static_cast<unsigned>(start));
    file.Append(dib);
    return file.Take();
}

} // namespace Graphics
