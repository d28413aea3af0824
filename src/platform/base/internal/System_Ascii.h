// SPDX-License-Identifier: MIT
#pragma once

// Tests of characters that hold for ASCII alone, whatever the locale, in any width. What has a rule of
// Unicode is in `Character.h`; a set that only one grammar knows stays with that grammar, under a name that
// tells it.
//
//     std::find_if_not(text.begin(), text.end(), System::Detail::IsAsciiDigit<char16_t>)

namespace System::Detail
{

template <class Char>
constexpr bool IsAsciiDigit(Char c)
{
    return c >= '0' && c <= '9';
}

/// The other case of a letter of `A` to `Z`; any other character as it is.
template <class Char>
constexpr Char AsciiLower(Char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<Char>(c - 'A' + 'a') : c;
}

/// The other case of a letter of `a` to `z`; any other character as it is.
template <class Char>
constexpr Char AsciiUpper(Char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<Char>(c - 'a' + 'A') : c;
}

template <class Char>
constexpr bool IsAsciiLetter(Char c)
{
    return AsciiLower(c) >= 'a' && AsciiLower(c) <= 'z';
}

/// The blank, and what moves the place of writing: tabs, line feed, form feed, carriage return.
template <class Char>
constexpr bool IsAsciiSpace(Char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// The value of a hexadecimal digit in either case, -1 for any other character.
template <class Char>
constexpr int AsciiHexValue(Char c)
{
    if (IsAsciiDigit(c)) {
        return static_cast<int>(c) - '0';
    }
    const Char lower = AsciiLower(c);
    return lower >= 'a' && lower <= 'f' ? static_cast<int>(lower) - 'a' + 10 : -1;
}

} // namespace System::Detail
