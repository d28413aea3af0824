// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

// What the desktop knows of types of files and of the programs for them.

namespace Host
{

/// The folders in which the desktop looks for what programs bring, the user's own first, each with a final
/// separator.
[[nodiscard]] std::vector<std::string> DataFolders();
/// The type of a file, as "text/plain"; empty if the desktop doesn't know.
[[nodiscard]] std::string TypeOf(const std::string& path);
/// The content of the desktop file of the program that opens files of the type; empty if there is none.
[[nodiscard]] std::string ReadEntryOf(const std::string& type);

} // namespace Host
