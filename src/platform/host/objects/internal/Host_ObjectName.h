// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <cstddef>
#include <string>

namespace Host
{

/// The file name for the name of a shared object: any text gives a legal one of at most `maxLength` bytes,
/// which is 66 or more, and two texts never the same one. Long names go in as their SHA-256.
[[nodiscard]] std::string ObjectFileName(const System::UnicodeString& name, std::size_t maxLength = 200);

} // namespace Host
