// SPDX-License-Identifier: MIT
#pragma once

namespace Host
{

/// Marks the open file as used for `access` (1 read, 2 write) with others allowed `share`, for as long as it
/// stays open; `false` if another opener stands against it. On a file system without locks nothing is marked
/// and nothing stands against it.
[[nodiscard]] bool ClaimSharing(int descriptor, unsigned access, unsigned share);

/// To be called before the file is closed: takes the marks back, so that a child that has the file too, since
/// it was forked meanwhile, doesn't keep them. Does nothing in such a child, nor for a file that has none.
void ReleaseSharing(int descriptor);

} // namespace Host
