// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/internal/Host_OpenAt.h"

struct stat;

// What stands under a name, a file or a link, gets under another one.

namespace Host
{

/// What a copy does where its name is taken.
enum class Existing
{
    /// Fails with 80.
    Refuse,
    /// Takes the place of a file or a link in one step, so that a failure leaves that as it was; only where
    /// the folder takes no file beside it, the file itself is overwritten. It gets the owner and the access
    /// list of a file. Files that are read-only or open elsewhere are refused, and so is
    /// what is neither a file nor a link.
    Replace,
};

/// Copies content, holes, permissions and times of a plain file; all else is refused with 5, a copy onto the
/// file itself with 32. `links` counts for the source: the copy never goes where a link leads. A new file
/// that can't be written to its end is gone again.
[[nodiscard]] bool CopyFileAt(const FilePlace& from, const FilePlace& to, Existing existing, Links links);

/// Makes the link `from` once more, with its times; where it leads isn't looked at.
[[nodiscard]] bool CopyLinkAt(const FilePlace& from, const FilePlace& to, Existing existing);

/// Gives an open file or folder, of which the host tells `made`, the permissions and times in `status`.
void CopyPermissionsAndTimes(const struct stat& status, int target, const struct stat& made);

/// Deletes a file or a link; a file with the read-only attribute is refused with 5.
[[nodiscard]] bool DeleteFileAt(const FilePlace& file);

} // namespace Host
