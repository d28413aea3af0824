// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/Pixels.h"
#include "platform/visual/graphics/internal/Graphics_Bytes.h"

namespace Graphics
{

/// One size of an icon: pixels, or the part of a file that they are read from when somebody asks.
struct TIconImage
{
    Types::TSize size;
    int bitCount = 32;
    std::span<const System::Byte> part;
    Toolkits::TSharedPixels pixels;
};

/// What icons share.
struct TIconImages : System::TSharedBlock
{
    TIconImages();
    ~TIconImages() override;

    /// The image nearest to the size, with the most colours among equals; null if there is none.
    TIconImage* Nearest(const Types::TSize& size);
    /// `EInvalidGraphic` if it is damaged or needs a codec that there isn't.
    static const Toolkits::Pixels& Decoded(TIconImage& image);

    TSharedBytes file;
    std::vector<TIconImage> images;
};

/// The icons of a file by its directory alone; `EInvalidGraphic` if it is damaged. No bytes are no images.
System::GSharedBlock<TIconImages> OpenIconFile(std::vector<System::Byte> bytes);
/// A file of the images with 32 bits a pixel. Faults as of `TIconImages::Decoded`.
std::vector<System::Byte> WriteIconFile(TIconImages& images);

/// An icon as a handle has it.
struct TIconObject
{
    System::GSharedBlock<TIconImages> images;
};

} // namespace Graphics
