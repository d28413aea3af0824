// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>

namespace Station
{

/// Writes what the program is, by the version data in its file. With `copy` it also writes all that a bug
/// report needs, and puts the whole text on the clipboard; where there is none, it says so on the standard
/// error stream.
void WriteAbout(std::ostream& stream, bool copy);

} // namespace Station
