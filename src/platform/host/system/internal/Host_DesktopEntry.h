// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

#include <string>
#include <string_view>
#include <vector>

// The files by which the desktop knows programs, such as "org.kde.okular.desktop".

namespace Host
{

/// The program in the command of a desktop file, as it stands there: a name or a path; empty if the file
/// tells none. `text` is the content of the file.
[[nodiscard]] TRS8_BTL_API std::string ProgramOfEntry(std::string_view text);

/// The name or path of the program's icon, as it stands there; empty if the file tells none.
[[nodiscard]] TRS8_BTL_API std::string IconOfEntry(std::string_view text);

/// The paths, below a folder of applications, that the identifier of a desktop file may mean: each of its `-`
/// may part a folder from what lies in it. None for what could leave that folder.
[[nodiscard]] TRS8_BTL_API std::vector<std::string> PathsOfEntry(std::string_view id);

} // namespace Host
