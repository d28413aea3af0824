// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PictureCodecs.h"

class QImage;

namespace Toolkits
{

/// Pictures by the parts for them that this Qt has. An application object isn't needed.
class CQtCodecs final : public PictureCodecs
{
public:
    Pixels Decode(EPictureType type, std::span<const System::Byte> bytes) override;
    std::vector<System::Byte> Encode(EPictureType type, const Pixels& pixels, int quality) override;
};

/// The pixels of an image of Qt.
Pixels PixelsOf(const QImage& image);

} // namespace Toolkits
