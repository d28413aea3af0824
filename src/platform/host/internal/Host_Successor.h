// SPDX-License-Identifier: MIT
#pragma once

#include <string>

// What those share that write a file beside another, to put it in the place of that one. Paths are the host's
// own.

namespace Host
{

/// The folder of the path, with its final slash; `./` for the current one.
[[nodiscard]] std::string FolderOf(const std::string& path);

/// Gives the open file `to` the owner, the access list and the mode of the open file `from`. Fails with 5
/// where the owner can't be kept.
[[nodiscard]] bool TakeOver(int from, int to);

/// Brings the names in an open folder to the disk, where the file system can.
[[nodiscard]] bool SyncFolder(int folder);

} // namespace Host
