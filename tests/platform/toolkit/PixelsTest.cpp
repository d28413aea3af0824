// SPDX-License-Identifier: MIT
#include "platform/toolkit/Pixels.h"

#include "support/DrawnPixels.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

using Support::Black;
using Support::Drawn;
using Support::White;
using Toolkits::Pixels;

TEST(PixelsTest, KeepsWhatFitsWhenTheSizeChanges)
{
    Pixels pixels(2, 2, White);
    pixels.At(1, 0) = Black;
    pixels.Resize(3, 1, Support::Red);
    EXPECT_EQ(Drawn(pixels), ".#r\n");
    pixels.Resize(2, 3, Support::Blue);
    EXPECT_EQ(Drawn(pixels), ".#\nbb\nbb\n");
    pixels.Resize(0, 3, White);
    EXPECT_TRUE(pixels.IsEmpty());
    EXPECT_EQ(Drawn(pixels), "\n\n\n");
}

TEST(PixelsTest, RefusesSizesBeforeItTakesMemory)
{
    constexpr int most = std::numeric_limits<int>::max();
    for (const auto& [width, height] :
         {std::pair(-1, 1), {1, -1}, {most, most}, {most, 1}, {1 << 15, 1 << 13}, {-most - 1, 0}}) {
        SCOPED_TRACE(std::to_string(width) + " by " + std::to_string(height));
        EXPECT_THROW(Pixels(width, height), Graphics::EInvalidGraphicOperation);
        Pixels pixels(1, 1, Black);
        EXPECT_THROW(pixels.Resize(width, height, White), Graphics::EInvalidGraphicOperation);
        EXPECT_EQ(Drawn(pixels), "#\n");
    }
    EXPECT_TRUE(Pixels::IsSize(1 << 14, 1 << 13));
}

TEST(PixelsTest, CopiesAreApart)
{
    Pixels first(1, 1, White);
    Pixels second = first;
    second.At(0, 0) = Black;
    EXPECT_EQ(Drawn(first), ".\n");
    first = std::move(second);
    EXPECT_EQ(Drawn(first), "#\n");
}

} // namespace
