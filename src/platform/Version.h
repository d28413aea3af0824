// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

namespace System
{

/// The version of the library that is loaded, as "major.minor.patch"; a static text, never null.
TRS8_BTL_API const char* LibraryVersion() noexcept;

} // namespace System
