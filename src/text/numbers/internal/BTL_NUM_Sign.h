// SPDX-License-Identifier: MIT
#pragma once

namespace BTL::Detail
{

template <class Char>
[[nodiscard]] constexpr bool IsPlusOrMinus(Char c)
{
    return c == '+' || c == '-';
}

} // namespace BTL::Detail
