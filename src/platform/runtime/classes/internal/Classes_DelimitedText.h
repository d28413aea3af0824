// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Strings.h"

#include <string_view>

namespace Classes
{

/// How a list is written as one line.
struct TDelimitedForm
{
    System::WideChar delimiter;
    /// Zero where nothing is quoted.
    System::WideChar quote;
    /// Whether blanks and control characters are text as any other.
    bool strict;

    bool IsBlank(System::WideChar c) const { return !strict && c <= u' '; }
    bool EndsItem(System::WideChar c) const { return c == delimiter || IsBlank(c); }
    bool Quotes() const { return quote != 0; }
    bool NeedsQuotes(std::u16string_view text) const;
};

/// The form of comma texts.
inline constexpr TDelimitedForm CommaForm{.delimiter = u',', .quote = u'"', .strict = false};

[[nodiscard]] std::vector<TStringItem> ReadDelimited(std::u16string_view text, const TDelimitedForm& form);
[[nodiscard]] System::UnicodeString WriteDelimited(const TStrings& strings, const TDelimitedForm& form);

} // namespace Classes
