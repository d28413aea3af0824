// SPDX-License-Identifier: MIT
#include "platform/toolkit/PaintRecording.h"
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

System::UnicodeString NameOf(EPictureType type)
{
    static constexpr std::array names = {u"bitmap", u"icon", u"PNG", u"JPEG",
                                         u"TIFF",   u"GIF",  u"EMF", u"WMF"};
    return names[static_cast<std::size_t>(type)];
}

[[noreturn]] void ThrowNoCodec(EPictureType type)
{
    throw Graphics::EInvalidGraphic(u"There is no codec for pictures of the type " + NameOf(type) +
                                    u": the toolkit's part for pictures is missing");
}

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

Pixels HeadlessToolkit::DecodePicture(EPictureType type, std::span<const System::Byte>)
{
    ThrowNoCodec(type);
}

std::vector<System::Byte> HeadlessToolkit::EncodePicture(EPictureType type, const Pixels&, int)
{
    ThrowNoCodec(type);
}

void HeadlessToolkit::DecodeMetafile(EPictureType type, std::span<const System::Byte>, PaintRecording&)
{
    ThrowNoCodec(type);
}

std::vector<System::Byte> HeadlessToolkit::EncodeMetafile(EPictureType type, const PaintRecording&,
                                                          const Types::TSize&)
{
    ThrowNoCodec(type);
}

} // namespace Toolkits
