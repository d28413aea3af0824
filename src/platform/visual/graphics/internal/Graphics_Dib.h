// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/Pixels.h"
#include "platform/visual/graphics/internal/Graphics_Bytes.h"

#include <array>

namespace Graphics
{

/// A block of pixels as bitmaps and icons store it: a header, a palette, and rows of whole 32-bit words, the
/// lowest first unless the height is negative.
class CDib
{
public:
    /// Reads the header at `offset`; the rows begin at `pixels`, behind header and palette if that is 0.
    /// `EInvalidGraphic` if it is damaged or has a size that pictures can't have. The bytes must outlive it.
    CDib(std::span<const System::Byte> bytes, std::size_t offset, std::size_t pixels = 0);

    int getWidth() const noexcept { return mWidth; }
    int getHeight() const noexcept { return mHeight; }
    int getBitCount() const noexcept { return mBitCount; }
    /// Whether rows are stored as they are.
    bool IsPlain() const noexcept { return mPacking == EPacking::None; }
    /// Whether `Read` can tell the pixels; otherwise only a codec can.
    bool IsReadable() const noexcept { return mPacking != EPacking::Foreign; }
    /// Whether the first row in memory is the topmost.
    bool IsTopDown() const noexcept { return mIsTopDown; }
    /// Whether pixels have their own transparency.
    bool HasAlpha() const noexcept { return mMasks[3] != 0; }
    /// Whether green has six of sixteen bits.
    bool HasSixGreens() const noexcept { return mBitCount == 16 && mMasks[1] == 0x7E0; }
    /// An icon has the rows of its mask behind those of the picture, and tells the height of both.
    void HalveHeight();

    /// The place behind the rows. `EInvalidGraphic` if the bytes end before; only of a plain one.
    std::size_t End() const;
    /// The pixels of a readable one, without any look at alpha that the header doesn't tell of.
    /// `EInvalidGraphic` if the bytes end before those, or can't be as many.
    Toolkits::Pixels Read() const;

private:
    /// How rows are stored: as they are, as runs of equal bytes, or in the manner of another type of
    /// pictures.
    enum class EPacking
    {
        None,
        Runs,
        Foreign
    };

    std::size_t ReadHeader(std::size_t offset);
    void ReadMasks(std::size_t offset);
    void ReadPalette(std::size_t offset, std::size_t count, std::size_t entrySize);
    std::size_t RowSize() const;
    Toolkits::Pixels ReadRuns() const;
    void ReadRow(std::size_t offset, std::span<Toolkits::TPixel> row) const;
    Toolkits::TPixel PixelAt(std::size_t offset, int x) const;
    Toolkits::TPixel Masked(unsigned value) const;

    CByteView mBytes;
    int mWidth = 0;
    int mHeight = 0;
    int mBitCount = 0;
    bool mIsTopDown = false;
    EPacking mPacking = EPacking::None;
    /// Bits of red, green, blue and alpha in a pixel of 16 or 32 bits.
    std::array<unsigned, 4> mMasks{};
    std::vector<Toolkits::TPixel> mPalette;
    std::size_t mPixels = 0;
};

/// How pixels are stored.
struct TDibFormat
{
    int bitCount = 24;
    bool hasSixGreens = false;
};

/// Header, palette and rows of the pixels. With 1 to 8 bits more colours than there is room for become the
/// nearest ones of an even palette. `height` is what the header tells.
std::vector<System::Byte> WriteDib(const Toolkits::Pixels& pixels, const TDibFormat& format, int height);
/// How many bytes of it are header and palette.
std::size_t DibHeadSize(std::span<const System::Byte> dib);

} // namespace Graphics
