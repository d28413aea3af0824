// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/visual/graphics/Graphics.h"
#include "platform/visual/graphics/Jpeg.h"
#include "platform/visual/graphics/Pngimage.h"
#include "support/Fuzz.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace
{

using Fuzz::Require;
using namespace Graphics;

/// Larger ones are legal, but take too long for a fuzzer.
constexpr int LargestExtent = 512;

/// Loads what it can, and saves it as it came.
template <class Graphic>
bool LoadAndSave(Graphic& graphic, std::span<const std::uint8_t> bytes)
{
    Classes::TBytesStream stream{bytes};
    if (!Fuzz::Try<EInvalidGraphic>([&] { graphic.LoadFromStream(&stream); })) {
        Require(graphic.getEmpty());
        return false;
    }
    Classes::TBytesStream saved;
    graphic.SaveToStream(&saved);
    Require(Fuzz::Bytes(bytes).starts_with(saved.AsView()));
    return !graphic.getEmpty() && graphic.getWidth() <= LargestExtent && graphic.getHeight() <= LargestExtent;
}

/// Pixels that are written anew must come back.
void CheckBitmap(TBitmap& bitmap)
{
    const int row = bitmap.getHeight() - 1;
    if (!Fuzz::Try<EInvalidGraphic>([&] { bitmap.getScanLine(row); })) {
        return;
    }
    bitmap.setPixelFormat(pf24bit);
    Classes::TBytesStream stream;
    bitmap.SaveToStream(&stream);
    stream.setPosition(0);
    TBitmap again;
    again.LoadFromStream(&stream);
    for (int y = 0; y <= row; ++y) {
        for (int x = 0; x < bitmap.getWidth(); ++x) {
            Require(again.getCanvas()->getPixels(x, y) == bitmap.getCanvas()->getPixels(x, y));
        }
    }
}

} // namespace

/// The bytes as a file of each class, and drawn where no codec is needed.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::span bytes(data, size);
    TBitmap target(16, 16);
    TBitmap bitmap;
    if (LoadAndSave(bitmap, bytes)) {
        CheckBitmap(bitmap);
    }
    TIcon icon;
    if (LoadAndSave(icon, bytes)) {
        Fuzz::Try<EInvalidGraphic>([&] { target.getCanvas()->Draw(0, 0, &icon); });
    }
    TMetafile metafile;
    LoadAndSave(metafile, bytes);
    TWICImage any;
    LoadAndSave(any, bytes);
    Jpeg::TJPEGImage jpeg;
    LoadAndSave(jpeg, bytes);
    Pngimage::TPngImage png;
    LoadAndSave(png, bytes);
    TPicture picture;
    Classes::TBytesStream stored{bytes};
    Fuzz::Try<Sysutils::Exception>([&] { picture.ReadData(&stored); });
    return 0;
}
