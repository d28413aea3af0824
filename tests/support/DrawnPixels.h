// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintDevice.h"
#include "platform/toolkit/Toolkit.h"

#include <memory>
#include <string>

namespace Support
{

inline constexpr Toolkits::TPixel White = 0xFFFFFFFFU;
inline constexpr Toolkits::TPixel Black = 0xFF000000U;
inline constexpr Toolkits::TPixel Red = 0xFFFF0000U;
inline constexpr Toolkits::TPixel Green = 0xFF00FF00U;
inline constexpr Toolkits::TPixel Blue = 0xFF0000FFU;

/// Pixels as rows of characters: `.` white, `#` black, `r`, `g`, `b` the colours, a blank for a transparent
/// one,
/// `?` for any other.
inline std::string Drawn(const Toolkits::Pixels& pixels)
{
    const auto letter = [](Toolkits::TPixel pixel) {
        switch (pixel) {
        case White:
            return '.';
        case Black:
            return '#';
        case Red:
            return 'r';
        case Green:
            return 'g';
        case Blue:
            return 'b';
        default:
            return pixel >> 24U == 0 ? ' ' : '?';
        }
    };
    std::string text;
    for (int y = 0; y < pixels.getHeight(); ++y) {
        for (const Toolkits::TPixel pixel : pixels.Row(y)) {
            text += letter(pixel);
        }
        text += '\n';
    }
    return text;
}

/// White pixels with a device that draws on them.
class WhitePaper
{
public:
    WhitePaper(int width, int height)
        : mPixels(width, height, White), mDevice(Toolkits::CurrentToolkit().NewPixelDevice(mPixels))
    {
    }

    Toolkits::PaintDevice* operator->() { return mDevice.get(); }
    Toolkits::PaintDevice& operator*() { return *mDevice; }
    Toolkits::Pixels& getPixels() { return mPixels; }
    std::string Text() const { return Drawn(mPixels); }

private:
    Toolkits::Pixels mPixels;
    std::unique_ptr<Toolkits::PaintDevice> mDevice;
};

} // namespace Support
