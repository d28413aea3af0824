// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/internal/Graphics_IconFile.h"

#include "platform/toolkit/PictureCodecs.h"
#include "platform/visual/graphics/internal/Graphics_Dib.h"

#include <algorithm>
#include <cstdlib>

namespace Graphics
{

namespace
{

using Toolkits::Pixels;
using Toolkits::TPixel;

constexpr std::size_t DirectorySize = 6;
constexpr std::size_t EntrySize = 16;
constexpr unsigned IconType = 1;
constexpr unsigned CursorType = 2;
constexpr unsigned PngSignature = 0x474E5089;
constexpr TPixel AlphaBits = 0xFF000000U;

[[noreturn]] void ThrowDamaged()
{
    throw EInvalidGraphic(u"The icon is damaged");
}

bool IsPng(std::span<const System::Byte> part)
{
    return CByteView(part).At32(0) == PngSignature;
}

/// A byte in the directory has no room for 256.
int ExtentOf(unsigned byte)
{
    return byte == 0 ? 256 : static_cast<int>(byte);
}

TIconImage EntryOf(const CByteView& file, std::size_t entry, bool isCursor)
{
    const std::size_t size = file.At32(entry + 8);
    const std::size_t offset = file.At32(entry + 12);
    if (!file.Has(offset, size) || size == 0) {
        ThrowDamaged();
    }
    TIconImage image{.size = {.cx = ExtentOf(file.At8(entry)), .cy = ExtentOf(file.At8(entry + 1))},
                     .bitCount = isCursor ? 0 : static_cast<int>(file.At16(entry + 6)),
                     .part = file.Part(offset, size),
                     .pixels = {}};
    if (!IsPng(image.part)) {
        // The picture itself knows best.
        CDib dib(image.part, 0);
        dib.HalveHeight();
        image.size = {.cx = dib.getWidth(), .cy = dib.getHeight()};
        image.bitCount = dib.getBitCount();
    }
    return image;
}

/// Whether any pixel has alpha, so that the mask of an icon doesn't count.
bool HasAlpha(const Pixels& pixels)
{
    return std::ranges::any_of(pixels.All(), [](TPixel pixel) { return (pixel & AlphaBits) != 0; });
}

/// Takes the pixels out that the mask behind the picture tells.
void ApplyMask(std::span<const System::Byte> part, std::size_t offset, Pixels& pixels)
{
    const CByteView view(part);
    const auto rowSize = (static_cast<std::size_t>(pixels.getWidth()) + 31) / 32 * 4;
    const auto height = static_cast<std::size_t>(pixels.getHeight());
    const bool hasMask = view.Has(offset, rowSize * height);
    for (int y = 0; y < pixels.getHeight(); ++y) {
        const std::size_t row = offset + (height - 1 - static_cast<std::size_t>(y)) * rowSize;
        int x = 0;
        for (TPixel& pixel : pixels.Row(y)) {
            const auto place = static_cast<std::size_t>(x);
            const bool isOut = hasMask && (view.At8(row + place / 8) >> (7 - place % 8) & 1U) != 0;
            pixel = isOut ? 0 : pixel | AlphaBits;
            ++x;
        }
    }
}

Pixels DecodeImage(std::span<const System::Byte> part)
{
    if (IsPng(part)) {
        return Toolkits::DecodePicture(Toolkits::EPictureType::Png, part);
    }
    CDib dib(part, 0);
    dib.HalveHeight();
    if (!dib.IsPlain()) {
        ThrowDamaged();
    }
    Pixels pixels = dib.Read();
    if (dib.getBitCount() != 32 || !HasAlpha(pixels)) {
        ApplyMask(part, dib.End(), pixels);
    }
    return pixels;
}

std::vector<System::Byte> MaskOf(const Pixels& pixels)
{
    CByteWriter mask;
    const std::size_t rowSize = (static_cast<std::size_t>(pixels.getWidth()) + 31) / 32 * 4;
    for (int y = pixels.getHeight() - 1; y >= 0; --y) {
        const auto row = pixels.Row(y);
        for (std::size_t byte = 0; byte < rowSize; ++byte) {
            unsigned bits = 0;
            for (std::size_t x = byte * 8; x < byte * 8 + 8; ++x) {
                bits = bits << 1U | (x < row.size() && (row[x] & AlphaBits) == 0 ? 1U : 0U);
            }
            mask.Put8(bits);
        }
    }
    return mask.Take();
}

} // namespace

TIconImages::TIconImages() = default;

TIconImages::~TIconImages() = default;

TIconImage* TIconImages::Nearest(const Types::TSize& size)
{
    const auto distance = [&](const TIconImage& image) {
        return std::pair(std::abs(0LL + image.size.cx - size.cx) + std::abs(0LL + image.size.cy - size.cy),
                         -image.bitCount);
    };
    const auto nearest = std::ranges::min_element(images, {}, distance);
    return nearest == images.end() ? nullptr : &*nearest;
}

const Pixels& TIconImages::Decoded(TIconImage& image)
{
    if (!image.pixels) {
        image.pixels = Toolkits::TSharedPixels(new Pixels(DecodeImage(image.part)));
    }
    return *image.pixels;
}

System::GSharedBlock<TIconImages> OpenIconFile(std::vector<System::Byte> bytes)
{
    System::GSharedBlock<TIconImages> icon(new TIconImages);
    if (bytes.empty()) {
        return icon;
    }
    icon->file = TSharedBytes(new TBytesBlock(std::move(bytes)));
    const CByteView view(icon->file->bytes);
    const unsigned type = view.At16(2);
    const std::size_t count = view.At16(4);
    if (view.At16(0) != 0 || (type != IconType && type != CursorType) || count == 0 ||
        !view.Has(DirectorySize, count * EntrySize)) {
        throw EInvalidGraphic(u"The picture is no icon");
    }
    for (std::size_t i = 0; i < count; ++i) {
        icon->images.push_back(EntryOf(view, DirectorySize + i * EntrySize, type == CursorType));
    }
    return icon;
}

std::vector<System::Byte> WriteIconFile(TIconImages& images)
{
    std::vector<std::vector<System::Byte>> parts;
    for (TIconImage& image : images.images) {
        const Pixels& pixels = TIconImages::Decoded(image);
        std::vector<System::Byte> part = WriteDib(pixels, {.bitCount = 32}, 2 * pixels.getHeight());
        const std::vector<System::Byte> mask = MaskOf(pixels);
        part.insert(part.end(), mask.begin(), mask.end());
        parts.push_back(std::move(part));
    }
    CByteWriter file;
    file.Put16(0);
    file.Put16(IconType);
    file.Put16(static_cast<unsigned>(parts.size()));
    std::size_t offset = DirectorySize + parts.size() * EntrySize;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const Pixels& pixels = *images.images[i].pixels;
        file.Put8(static_cast<unsigned>(pixels.getWidth()) & 255U);
        file.Put8(static_cast<unsigned>(pixels.getHeight()) & 255U);
        file.Put16(0);
        file.Put16(1);
        file.Put16(32);
        file.Put32(static_cast<unsigned>(parts[i].size()));
        file.Put32(static_cast<unsigned>(offset));
        offset += parts[i].size();
    }
    for (const auto& part : parts) {
        file.Append(part);
    }
    return file.Take();
}

} // namespace Graphics
