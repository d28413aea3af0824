// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_SV_GSimpleVector.h"
#include "platform/runtime/System_String.h"

#include <string_view>

namespace UTL::Detail
{

/// Room for the text of any number.
inline constexpr std::size_t NumberRoom = 40;

/// Joins the elements with commas. `write(element, out)` writes one of up to `NumberRoom` characters and
/// gives their count.
template <class T, class Write>
System::UnicodeString JoinNumbers(const GSimpleVector<T>& items, Write write)
{
    System::UnicodeString text;
    System::WideChar buffer[NumberRoom + 1];
    for (const T& item : items) {
        std::size_t length = write(item, buffer);
        buffer[length++] = u',';
        text.Append({buffer, length});
    }
    return text.SetLength(text.Length() - 1);
}

/// Fills the vector from a comma text up to its first empty part. `read(part)` converts a part without the
/// blanks around it, or throws; the elements read until then stay.
template <class T, class Read>
void SplitNumbers(GSimpleVector<T>& items, std::u16string_view text, Read read)
{
    const auto isText = [](System::WideChar c) { return c > u' '; };
    items.resize(0);
    while (true) {
        const std::u16string_view part = text.substr(0, text.find(u','));
        const auto* first = std::find_if(part.begin(), part.end(), isText);
        if (first == part.end()) {
            return;
        }
        const auto last = std::find_if(part.rbegin(), part.rend(), isText).base();
        items.push_back(read(std::u16string_view(first, last)));
        if (part.size() == text.size()) {
            return;
        }
        text.remove_prefix(part.size() + 1);
    }
}

/// Writes a decimal integer.
std::size_t WriteInteger(System::Int64 value, System::WideChar* out);

/// Reads a short decimal number; false for anything that takes the long way.
bool ReadPlainInteger(std::u16string_view text, System::Int64& value);

} // namespace UTL::Detail
