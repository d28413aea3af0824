// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Types.h"
#include "platform/toolkit/PictureType.h"
#include "platform/toolkit/Pixels.h"

#include <span>
#include <vector>

class QImage;

namespace Toolkits
{

/// As `Toolkit::DecodePicture`. What is too large is refused by its head, before memory is taken.
Pixels DecodeByQt(EPictureType type, std::span<const System::Byte> bytes);

/// As `Toolkit::EncodePicture`.
std::vector<System::Byte> EncodeByQt(EPictureType type, const Pixels& pixels, int quality);

/// The pixels of an image of Qt.
Pixels PixelsOf(const QImage& image);

/// Raises `Graphics::EInvalidGraphic`: there is no codec for the type.
[[noreturn]] void ThrowNoCodec(EPictureType type);

} // namespace Toolkits
