// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

#include <string_view>

namespace BTL
{

// A place within a text as a user's editor shows it.
//
//     const int at = BTL::Pos(text, u"%unknown");
//     const BTL::TTextPlace place = BTL::GetTextPlace(text, at);
//     std::cerr << "line " << place.line << ", column " << place.column << '\n';

/// A line of a text and a character in that line, both from 1 on. A character is a unit of the text, as in
/// its positions: a byte of an 8-bit one, and half of a surrogate pair.
struct TTextPlace
{
    int line = 1;
    int column = 1;

    friend bool operator==(const TTextPlace&, const TTextPlace&) = default;
};

/// Where the 1-based `position` of `text` is. A line feed, a carriage return, or both in this order end a
/// line and are its last characters. A position below 1 counts as 1, one behind the end as that behind the
/// last character. Takes time with the position.
[[nodiscard]] TRS8_BTL_API TTextPlace GetTextPlace(std::u16string_view text, int position) noexcept;
[[nodiscard]] TRS8_BTL_API TTextPlace GetTextPlace(std::string_view text, int position) noexcept;

} // namespace BTL
