// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_STR_Words.h"
#include "platform/base/System_Types.h"

#include <type_traits>

namespace BTL::Detail
{

/// Whether a table of word characters has `c`; no character above 255 is one.
template <class Char>
[[nodiscard]] bool IsInWordTable(Char c, const unsigned char* table)
{
    const auto code = static_cast<std::make_unsigned_t<Char>>(c);
    return code < 256 && table[code] != 0;
}

[[nodiscard]] inline bool StartsWord(char c)
{
    return IsInWordTable(c, UTL::GetWordCharsA());
}

[[nodiscard]] inline bool StartsWord(System::WideChar c)
{
    return IsInWordTable(c, UTL::GetWordCharsW());
}

[[nodiscard]] inline bool ContinuesWord(char c)
{
    return IsInWordTable(c, UTL::GetWordChars2A());
}

[[nodiscard]] inline bool ContinuesWord(System::WideChar c)
{
    return IsInWordTable(c, UTL::GetWordChars2W());
}

} // namespace BTL::Detail
