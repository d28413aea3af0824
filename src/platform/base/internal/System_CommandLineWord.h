// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <algorithm>

namespace System::Detail
{

/// A word as `main` gets it, as text. A byte that is no UTF-8 stays as it does in a path, so that a file of
/// such a name can be opened. What else a name marks, `\` and the colon behind a first letter, may well be
/// meant: a path of the library, a pattern, a drive.
inline UnicodeString CommandLineWord(const char* word)
{
    UnicodeString text(FromHostName(word));
    WideChar* const begin = text.UniqueData();
    WideChar* const end = begin + text.Length();
    std::replace(begin, end, WideChar{0xDC00 + '\\'}, u'\\');
    std::replace(begin, end, WideChar{0xDC00 + ':'}, u':');
    return text;
}

} // namespace System::Detail
