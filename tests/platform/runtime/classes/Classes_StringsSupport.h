// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Strings.h"

#include <vector>

namespace Support
{

using Lines = std::vector<System::UnicodeString>;

inline Lines LinesOf(const Classes::TStrings& strings)
{
    Lines lines;
    for (int i = 0; i < strings.getCount(); ++i) {
        lines.push_back(strings[i]);
    }
    return lines;
}

inline void Fill(Classes::TStrings& strings, const Lines& lines)
{
    strings.Clear();
    for (const System::UnicodeString& line : lines) {
        strings.Add(line);
    }
}

/// A text with a zero character inside.
inline System::UnicodeString WithZero()
{
    return System::UnicodeString(u"a\0b", 3);
}

} // namespace Support
