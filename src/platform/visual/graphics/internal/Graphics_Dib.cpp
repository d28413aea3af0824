// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/internal/Graphics_Dib.h"

#include "platform/toolkit/PaintTypes.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace Graphics
{

namespace
{

using Toolkits::TPixel;

constexpr std::size_t OldHeader = 12;
constexpr std::size_t CommonHeader = 40;
/// The header that has the four masks in it.
constexpr std::size_t MaskedHeader = 56;
constexpr unsigned Uncompressed = 0;
constexpr unsigned RunsOfBytes = 1;
constexpr unsigned RunsOfHalves = 2;
constexpr unsigned BitFields = 3;
constexpr unsigned AlphaBitFields = 6;

[[noreturn]] void ThrowDamaged()
{
    throw EInvalidGraphic(u"The bitmap is damaged");
}

bool IsBitCount(int count)
{
    static constexpr std::array counts = {1, 4, 8, 16, 24, 32};
    return std::ranges::find(counts, count) != counts.end();
}

/// The part of a pixel below the mask, spread to eight bits.
TPixel Spread(unsigned value, unsigned mask)
{
    if (mask == 0) {
        return 0;
    }
    const unsigned highest = mask >> static_cast<unsigned>(std::countr_zero(mask));
    const unsigned part = (value & mask) >> static_cast<unsigned>(std::countr_zero(mask));
    return static_cast<TPixel>((part * 255ULL + highest / 2) / highest);
}

} // namespace

CDib::CDib(std::span<const System::Byte> bytes, std::size_t offset, std::size_t pixels) : mBytes(bytes)
{
    const std::size_t end = ReadHeader(offset);
    mPixels = pixels == 0 ? end : pixels;
}

std::size_t CDib::ReadHeader(std::size_t offset)
{
    const std::size_t size = mBytes.At32(offset);
    if (!mBytes.Has(offset, size) || (size != OldHeader && size < CommonHeader)) {
        ThrowDamaged();
    }
    const bool isOld = size == OldHeader;
    mWidth = isOld ? static_cast<int>(mBytes.At16(offset + 4)) : mBytes.Signed32(offset + 4);
    const int height = isOld ? static_cast<int>(mBytes.At16(offset + 6)) : mBytes.Signed32(offset + 8);
    mIsTopDown = height < 0;
    if (height == std::numeric_limits<int>::min() || !Toolkits::Pixels::IsSize(mWidth, std::abs(height))) {
        throw EInvalidGraphic(u"The bitmap has a size that no picture can have");
    }
    mHeight = std::abs(height);
    mBitCount = static_cast<int>(mBytes.At16(offset + (isOld ? 10 : 14)));
    const unsigned compression = isOld ? Uncompressed : mBytes.At32(offset + 16);
    const bool hasFields = compression == BitFields || compression == AlphaBitFields;
    const bool isPlain = compression == Uncompressed || (hasFields && (mBitCount == 16 || mBitCount == 32));
    const bool hasRuns =
        (compression == RunsOfBytes && mBitCount == 8) || (compression == RunsOfHalves && mBitCount == 4);
    mPacking = isPlain ? EPacking::None : hasRuns ? EPacking::Runs : EPacking::Foreign;
    if (isPlain && !IsBitCount(mBitCount)) {
        ThrowDamaged();
    }
    mMasks = mBitCount == 16 ? std::array<unsigned, 4>{0x7C00, 0x3E0, 0x1F, 0}
                             : std::array<unsigned, 4>{0xFF0000, 0xFF00, 0xFF, 0};
    std::size_t end = offset + size;
    if (hasFields) {
        ReadMasks(offset + CommonHeader);
        // Of the common header they stand behind it.
        end += size > CommonHeader ? 0 : compression == BitFields ? 12 : 16;
        mMasks[3] = size >= MaskedHeader || compression == AlphaBitFields ? mMasks[3] : 0;
    }
    if (mBitCount <= 8) {
        const std::size_t most = std::size_t{1} << static_cast<unsigned>(mBitCount);
        const std::size_t told = isOld ? 0 : mBytes.At32(offset + 32);
        const std::size_t count = told == 0 ? most : std::min(told, most);
        const std::size_t entrySize = isOld ? 3 : 4;
        ReadPalette(end, count, entrySize);
        end += count * entrySize;
    }
    return end;
}

void CDib::ReadMasks(std::size_t offset)
{
    for (std::size_t i = 0; i < mMasks.size(); ++i) {
        mMasks[i] = mBytes.At32(offset + 4 * i);
    }
}

void CDib::ReadPalette(std::size_t offset, std::size_t count, std::size_t entrySize)
{
    if (!mBytes.Has(offset, count * entrySize)) {
        ThrowDamaged();
    }
    // A pixel beyond what the file tells of is black.
    mPalette.assign(std::size_t{1} << static_cast<unsigned>(mBitCount), Toolkits::OpaquePixel(0, 0, 0));
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = offset + i * entrySize;
        mPalette[i] = Toolkits::OpaquePixel(mBytes.At8(entry + 2), mBytes.At8(entry + 1), mBytes.At8(entry));
    }
}

void CDib::HalveHeight()
{
    mHeight /= 2;
}

std::size_t CDib::RowSize() const
{
    const auto bits = static_cast<std::size_t>(mWidth) * static_cast<std::size_t>(mBitCount);
    return (bits + 31) / 32 * 4;
}

std::size_t CDib::End() const
{
    const std::size_t size = RowSize() * static_cast<std::size_t>(mHeight);
    if (!mBytes.Has(mPixels, size)) {
        ThrowDamaged();
    }
    return mPixels + size;
}

Toolkits::Pixels CDib::Read() const
{
    if (mPacking == EPacking::Runs) {
        return ReadRuns();
    }
    const std::size_t end = End();
    Toolkits::Pixels pixels(mWidth, mHeight);
    for (int y = 0; y < mHeight; ++y) {
        const auto row = static_cast<std::size_t>(y) * RowSize();
        ReadRow(mIsTopDown ? mPixels + row : end - RowSize() - row, pixels.Row(y));
    }
    return pixels;
}

void CDib::ReadRow(std::size_t offset, std::span<TPixel> row) const
{
    int x = 0;
    for (TPixel& pixel : row) {
        pixel = PixelAt(offset, x);
        ++x;
    }
}

TPixel CDib::PixelAt(std::size_t offset, int x) const
{
    const auto place = static_cast<std::size_t>(x);
    switch (mBitCount) {
    case 1:
        return mPalette[mBytes.At8(offset + place / 8) >> (7 - place % 8) & 1U];
    case 4:
        return mPalette[mBytes.At8(offset + place / 2) >> (place % 2 == 0 ? 4U : 0U) & 15U];
    case 8:
        return mPalette[mBytes.At8(offset + place)];
    case 16:
        return Masked(mBytes.At16(offset + 2 * place));
    case 24:
        return Toolkits::OpaquePixel(mBytes.At8(offset + 3 * place + 2), mBytes.At8(offset + 3 * place + 1),
                                     mBytes.At8(offset + 3 * place));
    default:
        return Masked(mBytes.At32(offset + 4 * place));
    }
}

TPixel CDib::Masked(unsigned value) const
{
    // The fourth byte of pixels that tell nothing of alpha may be one all the same; icons look at it.
    const bool hasPlainAlpha =
        mBitCount == 32 && mMasks[3] == 0 && (mMasks[0] | mMasks[1] | mMasks[2]) == 0xFFFFFF;
    const TPixel alpha = hasPlainAlpha ? value >> 24U : mMasks[3] != 0 ? Spread(value, mMasks[3]) : 255U;
    return alpha << 24U | Spread(value, mMasks[0]) << 16U | Spread(value, mMasks[1]) << 8U |
           Spread(value, mMasks[2]);
}

} // namespace Graphics
