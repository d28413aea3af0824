// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

struct stat;

// What the calls of the host on a path share. The paths are the host's own, as `Sysutils::HostPath` gives
// them.

namespace Host
{

/// Without the slashes at the end, but for the root.
[[nodiscard]] std::string_view WithoutFinalSlashes(std::string_view path);

/// Whether the path is a folder, or a link to one.
[[nodiscard]] bool IsFolder(const std::string& path);

/// Whether the path is a link, wherever it leads.
[[nodiscard]] bool IsLink(const std::string& path);

/// Whether the owner has no permission to write.
[[nodiscard]] bool IsReadOnly(const struct stat& status);

/// Whether both tell of one file, whatever its names.
[[nodiscard]] bool IsSameFile(const struct stat& a, const struct stat& b);

/// `FailErrno` for a call on a path: a missing file and a missing folder on the way to it have numbers of
/// their own.
bool FailPath(const std::string& path);

} // namespace Host
