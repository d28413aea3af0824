// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_FindNumber.h"

#include "platform/base/Sysutils_Locale.h"
#include "platform/base/internal/System_Ascii.h"
#include "text/numbers/internal/BTL_NUM_FindFloat.h"
#include "text/numbers/internal/BTL_NUM_Sign.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace BTL
{

using Detail::IsPlusOrMinus;
using System::UnicodeString;
using System::WideChar;
using System::Detail::IsAsciiDigit;

namespace
{

std::size_t CountDigits(std::u16string_view text, std::size_t from)
{
    const auto rest = text.substr(std::min(from, text.size()));
    const auto end = std::find_if_not(rest.begin(), rest.end(), &IsAsciiDigit<WideChar>);
    return static_cast<std::size_t>(end - rest.begin());
}

/// A piece of a text, 0-based; `length` 0 means none.
struct TPiece
{
    std::size_t start;
    std::size_t length;
};

TPiece FindInteger(std::u16string_view text)
{
    const auto first = std::find_if(text.begin(), text.end(), &IsAsciiDigit<WideChar>);
    const auto start = static_cast<std::size_t>(first - text.begin());
    const std::size_t digits = CountDigits(text, start);
    if (digits != 0 && start > 0 && IsPlusOrMinus(text[start - 1])) {
        return {start - 1, digits + 1};
    }
    return {start, digits};
}

/// The length of a separator with digits at `at`, 0 if there is none.
std::size_t FractionLength(std::u16string_view text, std::size_t at)
{
    if (at >= text.size() || (text[at] != '.' && text[at] != ',' && text[at] != Sysutils::DecimalSeparator)) {
        return 0;
    }
    const std::size_t digits = CountDigits(text, at + 1);
    return digits == 0 ? 0 : digits + 1;
}

/// The length of an `E` with what belongs to it at `at`, 0 if neither a sign nor a digit follows it.
std::size_t ExponentLength(std::u16string_view text, std::size_t at)
{
    if (at >= text.size() || (text[at] != 'E' && text[at] != 'e')) {
        return 0;
    }
    const std::size_t sign = at + 1 < text.size() && IsPlusOrMinus(text[at + 1]) ? 1 : 0;
    const std::size_t digits = CountDigits(text, at + 1 + sign);
    if (sign + digits == 0) {
        return 0;
    }
    const std::size_t length = 1 + sign + digits;
    return digits == 0 ? length : length + FractionLength(text, at + length);
}

TPiece FindFloatPiece(std::u16string_view text)
{
    TPiece piece = FindInteger(text);
    if (piece.length != 0) {
        piece.length += FractionLength(text, piece.start + piece.length);
        piece.length += ExponentLength(text, piece.start + piece.length);
    }
    return piece;
}

bool Give(const TPiece& piece, int& position, int& length)
{
    if (piece.length == 0) {
        return false;
    }
    position = static_cast<int>(piece.start) + 1;
    length = static_cast<int>(piece.length);
    return true;
}

} // namespace

std::u16string_view Detail::FindFloat(std::u16string_view text)
{
    const TPiece piece = FindFloatPiece(text);
    return text.substr(piece.start, piece.length);
}

bool Find1stInt(const UnicodeString& text, int& position, int& length)
{
    return Give(FindInteger(text.AsView()), position, length);
}

bool Find1stFloat(const UnicodeString& text, int& position, int& length)
{
    return Give(FindFloatPiece(text.AsView()), position, length);
}

UnicodeString Cut1stFloat(const UnicodeString& text, int& position)
{
    int length = 0;
    position = 0;
    return Find1stFloat(text, position, length) ? text.SubString(position, length) : UnicodeString();
}

UnicodeString Cut1stFloat(const UnicodeString& text)
{
    int ignored = 0;
    return Cut1stFloat(text, ignored);
}

} // namespace BTL
