// SPDX-License-Identifier: MIT
#include "platform/toolkit/Pixels.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"
#include "platform/toolkit/headless/internal/FontTable.h"
#include "platform/toolkit/headless/internal/PixelDevice.h"

#include <array>

namespace Toolkits
{

namespace
{

/// The colours of the desktop by their numbers, as 0xRRGGBB.
constexpr std::array<TPixel, 31> DesktopColors = {
    0xC8C8C8, 0x000000, 0x99B4D1, 0xBFCDDB, 0xF0F0F0, 0xFFFFFF, 0x646464, 0x000000,
    0x000000, 0x000000, 0xB4B4B4, 0xF4F7FC, 0xABABAB, 0x3399FF, 0xFFFFFF, 0xF0F0F0,
    0xA0A0A0, 0x6D6D6D, 0x000000, 0x434E54, 0xFFFFFF, 0x696969, 0xE3E3E3, 0x000000,
    0xFFFFE1, 0x000000, 0x0066CC, 0xB9D1EA, 0xD7E4F2, 0x3399FF, 0xF0F0F0};

} // namespace

TTextMetrics HeadlessToolkit::FontMetrics(const TFontData& font) const
{
    return CFontTable(font).Metrics();
}

Types::TSize HeadlessToolkit::TextExtent(const TFontData& font, const System::UnicodeString& text) const
{
    const CFontTable table(font);
    return {.cx = table.Width(text.AsView()), .cy = table.Metrics().height};
}

TPixel HeadlessToolkit::SystemColor(int index) const
{
    const auto place = static_cast<std::size_t>(index);
    return OpaquePixel(0, 0, 0) | (place < DesktopColors.size() ? DesktopColors[place] : 0);
}

std::unique_ptr<PaintDevice> HeadlessToolkit::NewPixelDevice(Pixels& pixels)
{
    return std::make_unique<CPixelDevice>(pixels);
}

} // namespace Toolkits
