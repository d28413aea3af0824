// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Types.h"
#include "platform/toolkit/PictureType.h"
#include "platform/toolkit/Pixels.h"

#include <memory>
#include <span>
#include <vector>

namespace Toolkits
{

/// What reads and writes pictures of pixels. It needs no display, and serves every toolkit.
class TRS8_BTL_API PictureCodecs
{
public:
    PictureCodecs() = default;
    PictureCodecs(const PictureCodecs&) = delete;
    PictureCodecs& operator=(const PictureCodecs&) = delete;
    virtual ~PictureCodecs();

    /// The pixels of a picture. `Graphics::EInvalidGraphic` if it is damaged, larger than `Pixels` can be, or
    /// of a type that can't be read; what is too large is refused before memory is taken.
    virtual Pixels Decode(EPictureType type, std::span<const System::Byte> bytes) = 0;
    /// A file of the picture, with the quality from 1 to 100 where the type has one.
    /// `Graphics::EInvalidGraphic` if the type can't be written.
    virtual std::vector<System::Byte> Encode(EPictureType type, const Pixels& pixels, int quality) = 0;
};

/// The pixels of a picture, by the codecs in use. Those of the plug-in "libTRS8_BTL_qt.so" are loaded at the
/// first use, where no others were given. Faults as of `PictureCodecs::Decode`; `Graphics::EInvalidGraphic`
/// that tells why also if there is no plug-in. It belongs to the main thread.
///
///     const Pixels pixels = Toolkits::DecodePicture(EPictureType::Png, bytes);
///     const auto photo = Toolkits::EncodePicture(EPictureType::Jpeg, pixels, 90);
TRS8_BTL_API Pixels DecodePicture(EPictureType type, std::span<const System::Byte> bytes);

/// As `DecodePicture`, but a file of the picture as `PictureCodecs::Encode` gives it.
TRS8_BTL_API std::vector<System::Byte> EncodePicture(EPictureType type, const Pixels& pixels, int quality);

/// Puts `codecs` in place of those in use and gives these back, null if none were loaded yet; null means the
/// plug-in is loaded at the next use. For programs that bring codecs of their own.
TRS8_BTL_API std::unique_ptr<PictureCodecs> ExchangeCodecs(std::unique_ptr<PictureCodecs> codecs);

} // namespace Toolkits
