// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/base/System_Types.h"
#include "platform/base/Types.h"
#include "platform/toolkit/PictureType.h"

#include <span>

namespace Toolkits
{
class PaintRecording;
}

namespace Graphics
{

/// Adds to `recording` what a metafile of the type draws, in a picture of `size` pixels. Records that draw
/// nothing we know are passed over. `EInvalidGraphic` if the file is damaged, or draws more than a picture
/// can have; what was read of it until then is in the recording.
void ReadMetafile(Toolkits::EPictureType type, std::span<const System::Byte> bytes, const Types::TSize& size,
                  Toolkits::PaintRecording& recording);

/// Who made a metafile, and what it shows.
struct TMetafileNames
{
    System::UnicodeString createdBy;
    System::UnicodeString description;

    friend bool operator==(const TMetafileNames&, const TMetafileNames&) = default;
};

/// The names in the head of a file of the enhanced type; empty ones if it has none.
TMetafileNames ReadMetafileNames(std::span<const System::Byte> bytes);

/// A file of the older type may begin with the place and size of the picture.
inline constexpr unsigned PlaceableSignature = 0x9AC6CDD7;

/// The size that the first record that tells one has in a metafile without a frame; nothing if none does.
Types::TSize FramelessSize(std::span<const System::Byte> bytes);

/// Whether the bytes begin as a metafile of the older type that has no frame.
bool IsFrameless(std::span<const System::Byte> bytes);

} // namespace Graphics
