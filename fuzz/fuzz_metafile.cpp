// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Stream.h"
#include "platform/toolkit/PaintRecording.h"
#include "platform/visual/graphics/Graphics.h"
#include "support/Fuzz.h"

#include <cstdint>
#include <span>

namespace
{

using Fuzz::Require;
using namespace Graphics;

/// Larger ones are legal, but take too long for a fuzzer.
constexpr int LargestExtent = 4096;
constexpr std::size_t MostCalls = 2000;

/// What was read is written in both types, and can be read again.
void WriteAnew(const TMetafile& metafile, bool isEnhanced)
{
    TMetafile copy;
    copy.Assign(const_cast<TMetafile*>(&metafile));
    // A file is kept as it came unless it is of another type or size.
    copy.SetSize(metafile.getWidth() + 1, metafile.getHeight());
    copy.setEnhanced(isEnhanced);
    Classes::TBytesStream saved;
    copy.SaveToStream(&saved);
    saved.setPosition(0);
    TMetafile again;
    again.LoadFromStream(&saved);
    Require(again.getEmpty() || again.getWidth() == copy.getWidth());
    // An image that lets through becomes two in the older type, which may be more than a picture can have.
    Fuzz::Try<EInvalidGraphic>([&] { again.Recording(); });
}

} // namespace

/// The bytes as a metafile of either type, drawn and written anew.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Classes::TBytesStream stream{std::span(data, size)};
    TMetafile metafile;
    const bool isRead = Fuzz::Try<EInvalidGraphic>([&] {
        metafile.LoadFromStream(&stream);
        metafile.Recording();
    });
    if (!isRead || metafile.getEmpty()) {
        return 0;
    }
    if (metafile.getWidth() > LargestExtent || metafile.getHeight() > LargestExtent ||
        metafile.Recording().Count() > MostCalls) {
        return 0;
    }
    TBitmap target(32, 32);
    target.getCanvas()->StretchDraw({.Left = 0, .Top = 0, .Right = 32, .Bottom = 32}, &metafile);
    WriteAnew(metafile, true);
    WriteAnew(metafile, false);
    return 0;
}
