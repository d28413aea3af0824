// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/internal/Graphics_Dib.h"

#include <algorithm>

namespace Graphics
{

namespace
{

using Toolkits::TPixel;

constexpr unsigned HeaderSize = 40;
constexpr unsigned BitFields = 3;
constexpr TPixel ColorBits = 0xFFFFFF;

/// The colours of the pixels in ascending order, or more than `most` of them.
std::vector<TPixel> ColorsOf(const Toolkits::Pixels& pixels, std::size_t most)
{
    std::vector<TPixel> colors;
    for (const TPixel pixel : pixels.All()) {
        const TPixel color = pixel & ColorBits;
        const auto place = std::ranges::lower_bound(colors, color);
        if (place == colors.end() || *place != color) {
            colors.insert(place, color);
            if (colors.size() > most) {
                break;
            }
        }
    }
    return colors;
}

/// Colours that lie evenly between black and white.
std::vector<TPixel> EvenPalette(int bitCount)
{
    if (bitCount == 1) {
        return {0, ColorBits};
    }
    const std::size_t steps = bitCount == 4 ? 2 : 6;
    const auto step = static_cast<TPixel>(255 / (steps - 1));
    std::vector<TPixel> colors;
    for (TPixel red = 0; red < steps; ++red) {
        for (TPixel green = 0; green < steps; ++green) {
            for (TPixel blue = 0; blue < steps; ++blue) {
                colors.push_back((red * step) << 16U | (green * step) << 8U | (blue * step));
            }
        }
    }
    return colors;
}

int DistanceOf(TPixel a, TPixel b)
{
    const auto part = [&](unsigned shift) {
        const int distance = static_cast<int>(a >> shift & 255U) - static_cast<int>(b >> shift & 255U);
        return distance * distance;
    };
    return part(0) + part(8) + part(16);
}

/// Where a colour stands in the palette, or the one next to it.
class CPalette
{
public:
    CPalette(const Toolkits::Pixels& pixels, int bitCount)
        : mColors(ColorsOf(pixels, std::size_t{1} << static_cast<unsigned>(bitCount)))
    {
        mIsExact = mColors.size() <= std::size_t{1} << static_cast<unsigned>(bitCount);
        if (!mIsExact || bitCount == 1) {
            mColors = EvenPalette(bitCount);
            mIsExact = false;
        }
    }

    const std::vector<TPixel>& Colors() const { return mColors; }

    unsigned IndexOf(TPixel pixel)
    {
        const TPixel color = pixel & ColorBits;
        if (mIsExact) {
            return static_cast<unsigned>(std::ranges::lower_bound(mColors, color) - mColors.begin());
        }
        // Neighbours are mostly of one colour.
        if (color != mLast || !mHasLast) {
            const auto nearest = std::ranges::min_element(
                mColors, {}, [color](TPixel other) { return DistanceOf(color, other); });
            mLast = color;
            mHasLast = true;
            mLastIndex = static_cast<unsigned>(nearest - mColors.begin());
        }
        return mLastIndex;
    }

private:
    std::vector<TPixel> mColors;
    bool mIsExact = false;
    bool mHasLast = false;
    TPixel mLast = 0;
    unsigned mLastIndex = 0;
};

unsigned Sixteen(TPixel pixel, bool hasSixGreens)
{
    const unsigned red = pixel >> 19U & 31U;
    const unsigned blue = pixel >> 3U & 31U;
    return hasSixGreens ? red << 11U | (pixel >> 10U & 63U) << 5U | blue
                        : red << 10U | (pixel >> 11U & 31U) << 5U | blue;
}

void WriteRow(CByteWriter& file, std::span<const TPixel> row, const TDibFormat& format, CPalette* palette)
{
    const std::size_t start = file.Size();
    if (palette != nullptr) {
        const auto perByte = static_cast<std::size_t>(8 / format.bitCount);
        for (std::size_t x = 0; x < row.size(); x += perByte) {
            unsigned byte = 0;
            for (std::size_t i = 0; i < perByte; ++i) {
                byte = byte << static_cast<unsigned>(format.bitCount);
                byte |= x + i < row.size() ? palette->IndexOf(row[x + i]) : 0U;
            }
            file.Put8(byte);
        }
    } else {
        for (const TPixel pixel : row) {
            if (format.bitCount == 16) {
                file.Put16(Sixteen(pixel, format.hasSixGreens));
            } else if (format.bitCount == 32) {
                file.Put32(pixel);
            } else {
                file.Put16(pixel & 0xFFFFU);
                file.Put8(pixel >> 16U & 255U);
            }
        }
    }
    while ((file.Size() - start) % 4 != 0) {
        file.Put8(0);
    }
}

} // namespace

std::vector<System::Byte> WriteDib(const Toolkits::Pixels& pixels, const TDibFormat& format, int height)
{
    const bool hasPalette = format.bitCount <= 8;
    CPalette palette(pixels, hasPalette ? format.bitCount : 1);
    CByteWriter file;
    file.Put32(HeaderSize);
    file.Put32(static_cast<unsigned>(pixels.getWidth()));
    file.Put32(static_cast<unsigned>(height));
    file.Put16(1);
    file.Put16(static_cast<unsigned>(format.bitCount));
    file.Put32(format.hasSixGreens ? BitFields : 0U);
    // Size of the rows, dots a metre in both directions: not told.
    file.Put32(0);
    file.Put32(0);
    file.Put32(0);
    file.Put32(hasPalette ? static_cast<unsigned>(palette.Colors().size()) : 0U);
    file.Put32(0);
    if (format.hasSixGreens) {
        file.Put32(0xF800);
        file.Put32(0x7E0);
        file.Put32(0x1F);
    }
    if (hasPalette) {
        for (const TPixel color : palette.Colors()) {
            file.Put32(color);
        }
    }
    for (int y = pixels.getHeight() - 1; y >= 0; --y) {
        WriteRow(file, pixels.Row(y), format, hasPalette ? &palette : nullptr);
    }
    return file.Take();
}

std::size_t DibHeadSize(std::span<const System::Byte> dib)
{
    const CByteView view(dib);
    const bool hasMasks = view.At32(16) == BitFields;
    return HeaderSize + (hasMasks ? 12U : 0U) + std::size_t{4} * view.At32(32);
}

} // namespace Graphics
