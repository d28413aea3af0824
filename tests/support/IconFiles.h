// SPDX-License-Identifier: MIT
#pragma once

#include "support/PictureFiles.h"

#include <vector>

namespace Support
{

/// One picture of an icon: its header, 24 bits a pixel, one colour, and a mask for its first pixel.
inline std::vector<System::Byte> IconImage(unsigned width, unsigned height, unsigned color)
{
    FileBytes image;
    image.Put32({40, width, 2 * height}).Put16({1, 24}).Put32({0, 0, 0, 0, 0, 0});
    for (unsigned y = 0; y < height; ++y) {
        for (unsigned x = 0; x < width; ++x) {
            image.Put8({color & 255U, color >> 8U & 255U, color >> 16U});
        }
        for (unsigned fill = width * 3; fill % 4 != 0; ++fill) {
            image.Put8({0});
        }
    }
    for (unsigned y = 0; y < height; ++y) {
        image.Put8({y == height - 1 ? 0x80U : 0U, 0, 0, 0});
    }
    return image.getBytes();
}

/// An icon file of such pictures.
inline std::vector<System::Byte> IconFile(const std::vector<std::vector<System::Byte>>& images)
{
    FileBytes file;
    file.Put16({0, 1, static_cast<unsigned>(images.size())});
    auto offset = static_cast<unsigned>(6 + 16 * images.size());
    for (const auto& image : images) {
        file.Put8({image[4], image[4], 0, 0}).Put16({1, 24});
        file.Put32({static_cast<unsigned>(image.size()), offset});
        offset += static_cast<unsigned>(image.size());
    }
    for (const auto& image : images) {
        file.Append(image);
    }
    return file.getBytes();
}

} // namespace Support
