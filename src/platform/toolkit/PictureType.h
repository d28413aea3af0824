// SPDX-License-Identifier: MIT
#pragma once

namespace Toolkits
{

/// The types of pictures that a toolkit may have a codec for.
enum class EPictureType
{
    Bitmap,
    Icon,
    Png,
    Jpeg,
    Tiff,
    Gif,
    /// A kept drawing, in its newer and its older form.
    EnhancedMetafile,
    Metafile
};

} // namespace Toolkits
