// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/internal/Host_Descriptor.h"

#include <string>

namespace Host
{

/// Where names lie that belong to the user's session: a folder of the library's own that nobody else can
/// enter, below the run-time folder of the session (`XDG_RUNTIME_DIR`), or in that of shared memory if
/// there is none.
struct TSessionFolder
{
    Descriptor descriptor;
    /// Without a final separator.
    std::string path;
};

/// Opens the folder, which is made if it isn't there, and closed to others if it isn't that. A link in its
/// place and a folder of another user are refused: then it isn't open, and the last error is 5.
[[nodiscard]] TSessionFolder OpenSessionFolder();

} // namespace Host
