// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/PaintTypes.h"
#include "platform/toolkit/PictureType.h"

#include <array>

namespace Toolkits
{

/// What users call the type.
inline System::UnicodeString NameOf(EPictureType type)
{
    static constexpr std::array names = {u"bitmap", u"icon", u"PNG", u"JPEG",
                                         u"TIFF",   u"GIF",  u"EMF", u"WMF"};
    return names[static_cast<std::size_t>(type)];
}

/// Raises `Graphics::EInvalidGraphic`: there is no codec for the type.
[[noreturn]] inline void ThrowNoCodec(EPictureType type, const System::UnicodeString& reason)
{
    throw Graphics::EInvalidGraphic(u"There is no codec for pictures of the type " + NameOf(type) + u": " +
                                    reason);
}

} // namespace Toolkits
