// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Types.h"
#include "platform/base/Types.h"
#include "platform/toolkit/PictureType.h"

#include <span>

namespace Graphics
{

/// The type of a picture by its first bytes; false if they are of none that is known.
bool FindPictureType(std::span<const System::Byte> bytes, Toolkits::EPictureType& type);

/// The size that the header tells. `EInvalidGraphic` if there is none or no picture can have it.
Types::TSize PictureSize(Toolkits::EPictureType type, std::span<const System::Byte> bytes);

} // namespace Graphics
