// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/internal/Classes_FormNames.h"

#include "platform/base/internal/System_Ascii.h"

#include <algorithm>

#include <unicode/uchar.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

namespace Classes::Form
{

using System::Detail::AsciiLower;
using System::Detail::IsAsciiDigit;
using System::Detail::IsAsciiLetter;

namespace
{

bool IsAsciiByte(char c)
{
    return static_cast<signed char>(c) >= 0;
}

/// The count of bytes of the letter beyond ASCII, or of the digit if `orDigit`, that `text` begins with.
std::size_t WideLetterLength(std::string_view text, bool orDigit)
{
    const auto [c, size] = CharacterOf(text);
    // A component's name is tested unit by unit, so that letters of two units are none there either.
    const bool fits = c > 0 && c <= 0xFFFF && (u_isalpha(c) != 0 || (orDigit && u_isdigit(c) != 0));
    return fits ? size : 0;
}

std::size_t LetterLength(std::string_view text, bool orDigit)
{
    const char c = text.front();
    if (IsAsciiByte(c)) {
        return IsAsciiLetter(c) || c == '_' || (orDigit && IsAsciiDigit(c)) ? 1 : 0;
    }
    return WideLetterLength(text, orDigit);
}

} // namespace

TCharacter CharacterOf(std::string_view text) noexcept
{
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::int32_t at = 0;
    UChar32 code = 0;
    U8_NEXT(bytes, at, static_cast<std::int32_t>(std::min<std::size_t>(text.size(), U8_MAX_LENGTH)), code);
    return {code, static_cast<std::size_t>(at)};
}

std::size_t IdentifierLength(std::string_view text) noexcept
{
    std::size_t length = 0;
    while (length < text.size()) {
        const std::size_t step = LetterLength(text.substr(length), length > 0);
        if (step == 0) {
            break;
        }
        length += step;
    }
    return length;
}

bool IsIdentifier(std::string_view text) noexcept
{
    return !text.empty() && IdentifierLength(text) == text.size();
}

bool IsPath(std::string_view text) noexcept
{
    for (;;) {
        const std::size_t length = IdentifierLength(text);
        if (length == 0 || length == text.size()) {
            return length > 0;
        }
        if (text[length] != '.') {
            return false;
        }
        text.remove_prefix(length + 1);
    }
}

bool IsAscii(std::string_view bytes) noexcept
{
    return std::ranges::all_of(bytes, IsAsciiByte);
}

bool IsUtf8(std::string_view bytes) noexcept
{
    std::size_t at = 0;
    while (at < bytes.size()) {
        if (IsAsciiByte(bytes[at])) {
            ++at;
            continue;
        }
        const auto [code, size] = CharacterOf(bytes.substr(at));
        if (code < 0) {
            return false;
        }
        at += size;
    }
    return true;
}

bool HasLoneSurrogate(std::u16string_view text) noexcept
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!U16_IS_SURROGATE(text[i])) {
            continue;
        }
        if (!U16_IS_SURROGATE_LEAD(text[i]) || i + 1 == text.size() || !U16_IS_TRAIL(text[i + 1])) {
            return true;
        }
        ++i;
    }
    return false;
}

bool SameAsciiText(std::string_view a, std::string_view b) noexcept
{
    return std::ranges::equal(a, b, {}, AsciiLower<char>, AsciiLower<char>);
}

} // namespace Classes::Form
