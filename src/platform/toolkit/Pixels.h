// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_SharedBlock.h"
#include "platform/base/Types.h"
#include "platform/toolkit/PaintTypes.h"

#include <span>
#include <vector>

namespace Toolkits
{

/// A block of pixels in rows, the topmost first.
///
///     Pixels image(16, 16, OpaquePixel(255, 255, 255));
///     image.At(3, 0) = OpaquePixel(255, 0, 0);
///     for (TPixel& pixel : image.Row(15)) { ... }
class TRS8_BTL_API Pixels : public System::TSharedBlock
{
public:
    /// The most pixels that a block has: half a gigabyte of them.
    static constexpr long long MaximumCount = 1LL << 27;
    /// The widest and highest that a block can be.
    static constexpr int MaximumExtent = 1 << 24;

    /// Whether there can be a block of that size. No memory is taken to tell.
    static bool IsSize(long long width, long long height) noexcept;

    Pixels() = default;
    /// All pixels are `color`. `Graphics::EInvalidGraphicOperation` for a negative size or one beyond the
    /// limits, `Sysutils::EOutOfMemory` if the memory isn't there.
    Pixels(int width, int height, TPixel color = 0);
    Pixels(const Pixels& other);
    Pixels(Pixels&& other) noexcept;
    ~Pixels() override;
    Pixels& operator=(const Pixels& other);
    Pixels& operator=(Pixels&& other) noexcept;

    int getWidth() const noexcept { return mWidth; }
    int getHeight() const noexcept { return mHeight; }
    /// Whether there are no pixels.
    bool IsEmpty() const noexcept { return mPixels.empty(); }
    Types::TRect Bounds() const noexcept { return {.Left = 0, .Top = 0, .Right = mWidth, .Bottom = mHeight}; }

    /// Whether the place has a pixel.
    bool Contains(int x, int y) const noexcept { return x >= 0 && y >= 0 && x < mWidth && y < mHeight; }
    /// The pixel at a place that the block contains.
    TPixel& At(int x, int y) { return mPixels[Index(x, y)]; }
    TPixel At(int x, int y) const { return mPixels[Index(x, y)]; }
    /// A row that the block contains.
    std::span<TPixel> Row(int y) { return std::span(mPixels).subspan(Index(0, y), Count(mWidth)); }
    std::span<const TPixel> Row(int y) const
    {
        return std::span(mPixels).subspan(Index(0, y), Count(mWidth));
    }
    /// All rows in one.
    std::span<TPixel> All() noexcept { return mPixels; }
    std::span<const TPixel> All() const noexcept { return mPixels; }

    /// Changes the size; what fits stays at its place, and new pixels are `color`. Faults as of the
    /// constructor; then nothing changes.
    void Resize(int width, int height, TPixel color);

    friend bool operator==(const Pixels& a, const Pixels& b)
    {
        return a.mWidth == b.mWidth && a.mHeight == b.mHeight && a.mPixels == b.mPixels;
    }

private:
    static std::size_t Count(int extent) noexcept { return static_cast<std::size_t>(extent); }
    std::size_t Index(int x, int y) const noexcept { return Count(y) * Count(mWidth) + Count(x); }

    int mWidth = 0;
    int mHeight = 0;
    std::vector<TPixel> mPixels;
};

/// Pixels that several values share; only a sole holder may change them.
using TSharedPixels = System::GSharedBlock<Pixels>;

} // namespace Toolkits
