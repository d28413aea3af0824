// SPDX-License-Identifier: MIT
#include "properties/resources/Pasu_utf8.h"

#include <algorithm>
#include <bit>
#include <string>

namespace Pasu_utf8
{

using System::UnicodeString;
using System::UTF8String;

namespace
{

constexpr char16_t Replacement = u'\uFFFD';

struct TSequence
{
    std::size_t length;
    std::uint32_t value;
};

bool IsTrail(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

/// The sequence at the begin of `bytes`; a byte that begins none counts as one of its own.
TSequence SequenceAt(std::string_view bytes)
{
    const auto lead = static_cast<unsigned char>(bytes.front());
    const auto length = static_cast<std::size_t>(std::countl_one(lead));
    if (length == 0) {
        return {1, lead};
    }
    const bool isWhole = length >= 2 && length <= 6 && length <= bytes.size() &&
                         std::ranges::all_of(bytes.substr(1, length - 1), IsTrail);
    if (!isWhole) {
        return {1, Replacement};
    }
    std::uint32_t value = lead & (0x7FU >> length);
    for (const char byte : bytes.substr(1, length - 1)) {
        value = value << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    return {length, value};
}

void Append(std::u16string& text, std::uint32_t value)
{
    if (value > 0x10FFFF) {
        text += Replacement;
    } else if (value > 0xFFFF) {
        text += static_cast<char16_t>(0xD800 + ((value - 0x10000) >> 10));
        text += static_cast<char16_t>(0xDC00 + (value & 0x3FF));
    } else {
        text += static_cast<char16_t>(value);
    }
}

} // namespace

UTF8String WideStringToUTF8(const UnicodeString& text)
{
    std::string bytes;
    for (const char16_t unit : text.AsView()) {
        if (unit < 0x80) {
            bytes += static_cast<char>(unit);
            continue;
        }
        if (unit < 0x800) {
            bytes += static_cast<char>(0xC0 | unit >> 6);
        } else {
            bytes += static_cast<char>(0xE0 | unit >> 12);
            bytes += static_cast<char>(0x80 | (unit >> 6 & 0x3F));
        }
        bytes += static_cast<char>(0x80 | (unit & 0x3F));
    }
    return UTF8String(std::string_view(bytes));
}

UnicodeString UTF8ToWideString(const UTF8String& bytes)
{
    std::u16string text;
    for (std::string_view rest = bytes.AsView(); !rest.empty();) {
        const TSequence sequence = SequenceAt(rest);
        Append(text, sequence.value);
        rest.remove_prefix(sequence.length);
    }
    return UnicodeString(std::u16string_view(text));
}

} // namespace Pasu_utf8
