// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/base/Types.h"

#include <vector>

namespace Controls
{

/// The files that were dropped on a control, as `WM_DROPFILES` has it in its `WParam`; valid while the
/// message is handled.
struct TDroppedFiles
{
    /// Full paths.
    std::vector<System::UnicodeString> files;
    /// In the client area.
    Types::TPoint place;
};

} // namespace Controls
