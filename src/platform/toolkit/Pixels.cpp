// SPDX-License-Identifier: MIT
#include "platform/toolkit/Pixels.h"

#include "platform/base/internal/System_Memory.h"
#include "platform/base/numbers/Sysutils_Integer.h"

#include <algorithm>
#include <utility>

namespace Toolkits
{

namespace
{

void CheckSize(int width, int height)
{
    if (!Pixels::IsSize(width, height)) {
        throw Graphics::EInvalidGraphicOperation(u"A picture can't be " + Sysutils::IntToStr(width) +
                                                 u" by " + Sysutils::IntToStr(height) + u" pixels");
    }
}

} // namespace

bool Pixels::IsSize(long long width, long long height) noexcept
{
    return width >= 0 && height >= 0 && width <= MaximumExtent && height <= MaximumExtent &&
           width * height <= MaximumCount;
}

Pixels::Pixels(int width, int height, TPixel color)
{
    CheckSize(width, height);
    System::WithMemory(u"There is no memory for the picture",
                       [&] { mPixels.resize(Count(width) * Count(height), color); });
    mWidth = width;
    mHeight = height;
}

// The count of holders belongs to the block, not to what is in it.
Pixels::Pixels(const Pixels& other)
    : System::TSharedBlock(), mWidth(other.mWidth), mHeight(other.mHeight), mPixels(other.mPixels)
{
}

Pixels::Pixels(Pixels&& other) noexcept
    : mWidth(std::exchange(other.mWidth, 0)),
      mHeight(std::exchange(other.mHeight, 0)),
      mPixels(std::exchange(other.mPixels, {}))
{
}

Pixels::~Pixels() = default;

Pixels& Pixels::operator=(const Pixels& other)
{
    return *this = Pixels(other);
}

Pixels& Pixels::operator=(Pixels&& other) noexcept
{
    mWidth = std::exchange(other.mWidth, 0);
    mHeight = std::exchange(other.mHeight, 0);
    mPixels = std::exchange(other.mPixels, {});
    return *this;
}

void Pixels::Resize(int width, int height, TPixel color)
{
    if (width == mWidth && height == mHeight) {
        return;
    }
    Pixels fresh(width, height, color);
    const auto kept = std::min(Count(width), Count(mWidth));
    for (int y = 0; y < std::min(height, mHeight); ++y) {
        std::ranges::copy(Row(y).first(kept), fresh.Row(y).begin());
    }
    *this = std::move(fresh);
}

} // namespace Toolkits
