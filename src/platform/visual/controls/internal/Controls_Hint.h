// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Controls
{

/// The part of a hint that is shown beside the mouse: all in front of "|".
inline System::UnicodeString ShortHint(const System::UnicodeString& hint)
{
    const int bar = hint.Pos(u"|");
    return bar == 0 ? hint : hint.SubString(1, bar - 1);
}

/// The part of a hint that is for a line of its own: all behind "|".
inline System::UnicodeString LongHint(const System::UnicodeString& hint)
{
    const int bar = hint.Pos(u"|");
    return bar == 0 ? hint : hint.SubString(bar + 1, hint.Length());
}

} // namespace Controls
