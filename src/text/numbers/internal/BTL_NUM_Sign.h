// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <algorithm>

namespace BTL::Detail
{

/// The minus sign of typography, which text processors and the web put where the keyboard has a hyphen.
constexpr System::WideChar MinusSign = u'\u2212';

/// The code page of 8-bit text has no minus sign but the hyphen.
template <class Char>
constexpr bool IsMinus(Char c)
{
    if constexpr (sizeof(Char) > 1) {
        return c == '-' || c == MinusSign;
    } else {
        return c == '-';
    }
}

template <class Char>
[[nodiscard]] constexpr bool IsPlusOrMinus(Char c)
{
    return c == '+' || IsMinus(c);
}

/// `text` with a hyphen for each minus sign, which is all that the run-time library reads.
inline System::UnicodeString WithHyphens(const System::UnicodeString& text)
{
    if (text.Pos(MinusSign) == 0) {
        return text;
    }
    System::UnicodeString result = text;
    System::WideChar* const begin = result.UniqueData();
    std::replace(begin, begin + result.Length(), MinusSign, u'-');
    return result;
}

} // namespace BTL::Detail
