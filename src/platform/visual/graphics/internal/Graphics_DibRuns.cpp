// SPDX-License-Identifier: MIT
#include "platform/visual/graphics/internal/Graphics_Dib.h"

#include <algorithm>

namespace Graphics
{

namespace
{

using Toolkits::TPixel;

[[noreturn]] void ThrowDamaged()
{
    throw EInvalidGraphic(u"The bitmap is damaged");
}

/// Puts pixels down from left to right, in rows from the first in memory on. What is outside is left out.
class CRowFiller
{
public:
    CRowFiller(Toolkits::Pixels& pixels, bool isTopDown) : mPixels(pixels), mIsTopDown(isTopDown) {}

    bool IsDone() const { return mRow >= mPixels.getHeight(); }
    void Put(TPixel pixel)
    {
        if (mColumn < mPixels.getWidth() && !IsDone()) {
            mPixels.At(mColumn, mIsTopDown ? mRow : mPixels.getHeight() - 1 - mRow) = pixel;
            ++mColumn;
        }
    }
    void NextRow()
    {
        mColumn = 0;
        ++mRow;
    }
    void Move(unsigned right, unsigned down)
    {
        mColumn = std::min(mColumn + static_cast<int>(right), mPixels.getWidth());
        mRow += static_cast<int>(down);
    }

private:
    Toolkits::Pixels& mPixels;
    bool mIsTopDown;
    int mColumn = 0;
    int mRow = 0;
};

constexpr unsigned EndOfRow = 0;
constexpr unsigned EndOfPicture = 1;
constexpr unsigned Skip = 2;

} // namespace

Toolkits::Pixels CDib::ReadRuns() const
{
    // A run of two bytes has up to 255 pixels.
    constexpr std::size_t mostPerByte = 128;
    const std::size_t given = mBytes.Has(mPixels, 0) ? mBytes.Size() - mPixels : 0;
    if (static_cast<std::size_t>(mWidth) * static_cast<std::size_t>(mHeight) > given * mostPerByte) {
        ThrowDamaged();
    }
    Toolkits::Pixels pixels(mWidth, mHeight, mPalette.front());
    CRowFiller filler(pixels, mIsTopDown);
    const bool hasHalves = mBitCount == 4;
    const auto colorOf = [&](unsigned byte, unsigned index) {
        return !hasHalves ? mPalette[byte] : mPalette[index % 2 == 0 ? byte >> 4U : byte & 15U];
    };
    std::size_t place = mPixels;
    while (!filler.IsDone()) {
        if (!mBytes.Has(place, 2)) {
            ThrowDamaged();
        }
        const unsigned count = mBytes.At8(place);
        const unsigned value = mBytes.At8(place + 1);
        place += 2;
        if (count > 0) {
            for (unsigned i = 0; i < count; ++i) {
                filler.Put(colorOf(value, i));
            }
        } else if (value == EndOfPicture) {
            break;
        } else if (value == EndOfRow) {
            filler.NextRow();
        } else if (value == Skip) {
            filler.Move(mBytes.At8(place), mBytes.At8(place + 1));
            place += 2;
        } else {
            // So many pixels as they are, in whole words.
            for (unsigned i = 0; i < value; ++i) {
                filler.Put(colorOf(mBytes.At8(place + (hasHalves ? i / 2 : i)), i));
            }
            const std::size_t size = hasHalves ? (value + 1) / 2 : value;
            place += (size + 1) / 2 * 2;
        }
    }
    return pixels;
}

} // namespace Graphics
