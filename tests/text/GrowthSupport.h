// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Support
{

/// Long enough that work which looks at all of the text for each of its items would outlast any patience.
inline constexpr int LongText = 100'000;

/// `LongText` times a text of five characters.
inline System::UnicodeString RepeatedText()
{
    System::UnicodeString text;
    for (int i = 0; i < LongText; ++i) {
        text += u"ab,\" ";
    }
    return text;
}

} // namespace Support
