// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/graphics/Graphics_Bitmap.h"
#include "platform/visual/graphics/internal/Graphics_Bytes.h"

#include <optional>

namespace Graphics
{

/// What bitmaps share: the pixels, or the file that they are read from when somebody asks.
struct TBitmapImage : System::TSharedBlock
{
    TBitmapImage();
    ~TBitmapImage() override;

    /// `EInvalidGraphic` if the file needs a codec that there isn't.
    Toolkits::Pixels& Decoded();
    Types::TSize Size() const;

    Toolkits::TSharedPixels pixels;
    TSharedBytes file;
    Types::TSize sizeInFile;
};

/// A bitmap file as a picture.
struct TBitmapFile
{
    System::GSharedBlock<TBitmapImage> image;
    TPixelFormat format = pfDevice;
    /// The bytes that belong to it.
    std::size_t length = 0;
};

/// Looks at the header alone. `EInvalidGraphic` if the file is damaged; no bytes are an empty picture.
TBitmapFile OpenBitmapFile(std::vector<System::Byte> bytes);
std::vector<System::Byte> WriteBitmapFile(const Toolkits::Pixels& pixels, TPixelFormat format);

/// The pixels of a bitmap file. Faults as of `OpenBitmapFile`, and that there is no codec.
Toolkits::Pixels ReadBitmapFile(std::span<const System::Byte> bytes);

} // namespace Graphics
