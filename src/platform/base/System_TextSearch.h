// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

#include <cstddef>
#include <string_view>

namespace System::Detail
{

// Searching for a text in time with the length of what is searched, whatever both look like, and without
// memory of its own. The member functions of `std::basic_string_view` of these names take the product of both
// lengths where the text repeats itself.
//
//     FindText(u"a-b-c", u"-");                      // 1
//     FindText(u"a-b-c", u"-", 2);                   // 3
//     FindLastText(u"a-b-c", u"+");                  // npos

/// The 0-based index of the first `pattern` at or behind `from`; `npos` if there is none. An empty pattern is
/// anywhere up to the end.
[[nodiscard]] TRS8_BTL_API std::size_t FindText(std::string_view text, std::string_view pattern,
                                                std::size_t from = 0) noexcept;
[[nodiscard]] TRS8_BTL_API std::size_t FindText(std::u16string_view text, std::u16string_view pattern,
                                                std::size_t from = 0) noexcept;

/// The 0-based index of the last `pattern`; `npos` if there is none. An empty pattern is at the end.
[[nodiscard]] TRS8_BTL_API std::size_t FindLastText(std::string_view text, std::string_view pattern) noexcept;
[[nodiscard]] TRS8_BTL_API std::size_t FindLastText(std::u16string_view text,
                                                    std::u16string_view pattern) noexcept;

} // namespace System::Detail
