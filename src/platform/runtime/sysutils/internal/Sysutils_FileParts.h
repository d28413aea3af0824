// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Types.h"

#include <cstddef>
#include <string_view>

// What the units of files, file names and searches share.

namespace Sysutils::Detail
{

/// The length of the drive, or of the server and share at the begin of `path`; 0 if there is neither.
[[nodiscard]] std::size_t VolumeLength(std::u16string_view path);

/// The file date, in local time, of the time in whole seconds since 1970 in universal time.
[[nodiscard]] int FileDateOf(System::Int64 seconds);

} // namespace Sysutils::Detail
