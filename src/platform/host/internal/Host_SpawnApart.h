// SPDX-License-Identifier: MIT
#pragma once

#include <future>
#include <string>
#include <vector>

namespace Host
{

/// Starts a program, whose own name goes in front of `arguments`, in a session of its own, so that it
/// outlives this process; 0 or the `errno`. `folder` is where it starts, the current one if empty. Its end is
/// awaited in the background, so that it leaves no entry behind; `exitCode` tells of it then, 0 if it can't
/// be told.
[[nodiscard]] int SpawnApart(const std::string& program, std::vector<std::string> arguments,
                             const std::string& folder, std::future<int>& exitCode);

/// As `SpawnApart` of a helper of the desktop, which is searched on the path. `ENOENT` if there is none.
[[nodiscard]] int SpawnHelper(const char* name, std::vector<std::string> arguments, const std::string& folder,
                              std::future<int>& exitCode);

} // namespace Host
