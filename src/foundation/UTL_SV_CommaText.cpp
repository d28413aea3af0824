// SPDX-License-Identifier: MIT
#include "foundation/UTL_SV_CommaTextInternal.h"

#include <charconv>

namespace UTL::Detail
{

std::size_t WriteInteger(System::Int64 value, System::WideChar* out)
{
    char digits[NumberRoom];
    const char* const end = std::to_chars(digits, digits + NumberRoom, value).ptr;
    return static_cast<std::size_t>(std::copy(static_cast<const char*>(digits), end, out) - out);
}

bool ReadPlainInteger(std::u16string_view text, System::Int64& value)
{
    constexpr std::size_t maxDigits = 18;
    const bool negative = !text.empty() && text[0] == u'-';
    if (negative) {
        text.remove_prefix(1);
    }
    const auto isDigit = [](System::WideChar c) { return c >= u'0' && c <= u'9'; };
    if (text.empty() || text.size() > maxDigits || !std::all_of(text.begin(), text.end(), isDigit)) {
        return false;
    }
    System::Int64 read = 0;
    for (const System::WideChar c : text) {
        read = read * 10 + (c - u'0');
    }
    value = negative ? -read : read;
    return true;
}

} // namespace UTL::Detail
