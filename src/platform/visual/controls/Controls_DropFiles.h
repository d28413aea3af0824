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

/// Files that were dropped, as a handle: the `WParam` of `WM_DROPFILES`.
using HDROP = Controls::TDroppedFiles*;

/// With the index 0xFFFFFFFF: how many files there are. Else writes the full path of one of them with a zero
/// behind it to `buffer`, which has room for `size` characters, and gives the count of characters; a longer
/// path is cut. Without a buffer the length of the path. 0 for null and an index out of range.
///
///     const unsigned count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
TRS8_BTL_API unsigned DragQueryFileW(HDROP drop, unsigned index, System::WideChar* buffer, unsigned size);
/// Gives the files up: the handle has none any more. Null does nothing.
TRS8_BTL_API void DragFinish(HDROP drop);
