// SPDX-License-Identifier: MIT
#include "text/numbers/BTL_NUM_FindValue.h"

#include "platform/base/Sysutils_Locale.h"
#include "platform/base/internal/System_Ascii.h"
#include "platform/runtime/sysutils/Character.h"
#include "text/numbers/BTL_NUM_Floats.h"
#include "text/numbers/BTL_NUM_Units.h"
#include "text/numbers/internal/BTL_NUM_Sign.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace BTL
{

using Character::TCharacter;
using Detail::IsPlusOrMinus;
using System::UnicodeString;
using System::WideChar;
using System::Detail::IsAsciiDigit;

namespace
{

using TView = std::u16string_view;

/// More than the longest prefix and the longest symbol have.
constexpr std::ptrdiff_t MaxUnit = 8;

/// The blanks that stand between a number and its unit, those of typography too.
constexpr TView Blanks = u" \t\u00A0\u2009\u202F";
/// What makes another unit of the one in front of it.
constexpr TView UnitMarks = u"^*\u00B7\u22C5\u00B2\u00B3_";
/// What units are made of beside letters.
constexpr TView UnitSymbols = u"%\u2030\u00B0";

bool IsSeparator(WideChar c)
{
    return c == '.' || c == ',' || c == Sysutils::DecimalSeparator;
}

std::size_t SkipDigits(TView text, std::size_t at)
{
    while (at < text.size() && IsAsciiDigit(text[at])) {
        ++at;
    }
    return at;
}

std::size_t SkipBlanks(TView text, std::size_t at)
{
    return std::min(text.find_first_not_of(Blanks, at), text.size());
}

/// The end of the number whose digits begin at `at`.
std::size_t NumberEnd(TView text, std::size_t at)
{
    std::size_t end = SkipDigits(text, at);
    if (end < text.size() && IsSeparator(text[end]) && SkipDigits(text, end + 1) > end + 1) {
        end = SkipDigits(text, end + 1);
    }
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        const std::size_t sign = end + 1 < text.size() && IsPlusOrMinus(text[end + 1]) ? 1 : 0;
        const std::size_t digits = SkipDigits(text, end + 1 + sign);
        end = digits > end + 1 + sign ? digits : end;
    }
    return end;
}

bool IsWordCharacter(WideChar c)
{
    return c == '_' || TCharacter::IsLetterOrDigit(c);
}

/// Whether the digits at `at` go on with something in front of them: a word, or a number with separators.
bool IsWithinMore(TView text, std::size_t at)
{
    if (at == 0) {
        return false;
    }
    const WideChar before = text[at - 1];
    const bool isMark = IsSeparator(before) || before == ':' || before == '/';
    return IsWordCharacter(before) || (isMark && at > 1 && IsAsciiDigit(text[at - 2]));
}

/// Where the number of the digits at `at` begins: at its sign if that is none between two words.
std::size_t NumberBegin(TView text, std::size_t at)
{
    if (at == 0 || !IsPlusOrMinus(text[at - 1])) {
        return at;
    }
    return at > 1 && IsWordCharacter(text[at - 2]) ? at : at - 1;
}

bool IsUnitCharacter(WideChar c)
{
    return UnitSymbols.find(c) != TView::npos || TCharacter::IsLetter(c);
}

/// Whether a unit may end in front of `rest`.
bool EndsUnit(TView rest)
{
    if (rest.starts_with(u'/')) {
        return rest.size() == 1 || !TCharacter::IsLetter(rest[1]);
    }
    return rest.empty() || (!IsWordCharacter(rest[0]) && UnitMarks.find(rest[0]) == TView::npos);
}

/// The length of the unit at the begin of `text`; 0 if there is none.
std::size_t UnitLength(TView text, double& factor, UnicodeString& unit)
{
    const auto* const end = std::ranges::find_if_not(text, IsUnitCharacter);
    if (end - text.begin() > MaxUnit) {
        return 0;
    }
    const auto length = static_cast<std::size_t>(end - text.begin());
    return EndsUnit(text.substr(length)) && FindUnit(text.substr(0, length), factor, unit) ? length : 0;
}

struct TMatch
{
    std::size_t end = 0;
    double value = 0;
    UnicodeString unit;
};

/// Reads the number from `begin` to `end`, and the unit behind it.
bool ReadValue(TView text, std::size_t begin, std::size_t end, TMatch& match)
{
    double number = 0;
    double factor = 1;
    const std::size_t unitBegin = SkipBlanks(text, end);
    const std::size_t length = UnitLength(text.substr(unitBegin), factor, match.unit);
    if (length == 0 || !ToDouble(text.substr(begin, end - begin), number)) {
        return false;
    }
    match.end = unitBegin + length;
    match.value = number * factor;
    return std::isfinite(match.value);
}

} // namespace

bool FindValueWithUnit(TView text, TFoundValue& found, int& start)
{
    std::size_t at = start < 1 ? 0 : static_cast<std::size_t>(start - 1);
    while ((at = text.find_first_of(u"0123456789", at)) != TView::npos) {
        const std::size_t begin = NumberBegin(text, at);
        const std::size_t end = NumberEnd(text, at);
        TMatch match;
        if (!IsWithinMore(text, at) && ReadValue(text, begin, end, match)) {
            found = {static_cast<int>(begin) + 1, static_cast<int>(match.end - begin), match.value,
                     match.unit};
            start = static_cast<int>(match.end) + 1;
            return true;
        }
        at = end;
    }
    return false;
}

bool ToValueWithUnit(TView text, double& value, UnicodeString& unit)
{
    const TView view = System::Detail::WithoutBlanks(text);
    const std::size_t sign = !view.empty() && IsPlusOrMinus(view.front()) ? 1 : 0;
    TMatch match;
    if (sign >= view.size() || !IsAsciiDigit(view[sign]) ||
        !ReadValue(view, 0, NumberEnd(view, sign), match) || match.end != view.size()) {
        return false;
    }
    value = match.value;
    unit = match.unit;
    return true;
}

} // namespace BTL
