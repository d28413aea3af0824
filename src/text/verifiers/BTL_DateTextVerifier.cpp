// SPDX-License-Identifier: MIT
#include "text/verifiers/BTL_DateTextVerifier.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/UTL_STR_Numbers.h"
#include "platform/base/Sysutils_Locale.h"
#include "platform/base/dates/Sysutils_Date.h"
#include "platform/base/numbers/Sysutils_Integer.h"
#include "text/dates/BTL_DT_Reading.h"

#include <algorithm>
#include <array>
#include <climits>

namespace BTL
{

using System::TDateTime;
using System::UnicodeString;
using System::WideChar;
using System::Word;

namespace
{

constexpr UTL::CFaultPlace NoSuchPart{"BTL_TextVerifier", 0};

struct TRange
{
    int first;
    int last;
};

bool IsInPart(int value, int index, const std::array<TRange, 3>& ranges)
{
    if (index < 0 || index > 2) {
        UTL::THROW_XAssert(NoSuchPart);
        return false;
    }
    const TRange& range = ranges[static_cast<std::size_t>(index)];
    return value >= range.first && value <= range.last;
}

bool IsFilterMark(WideChar c)
{
    return c == u'%' || c == u'_';
}

bool IsFilter(const UnicodeString& text)
{
    return std::any_of(text.begin(), text.end(), IsFilterMark);
}

UnicodeString WithoutFilterMarks(const UnicodeString& text)
{
    std::u16string result(text.AsView());
    std::erase_if(result, IsFilterMark);
    return UnicodeString(result);
}

/// A part of a time that is a number and may have that value.
bool IsPartOk(const UnicodeString& part, int index, const ATextVerifierWithSeperator& verifier)
{
    long value = 0;
    return UTL::GetLong(part.c_str(), value) && value >= INT_MIN && value <= INT_MAX &&
           verifier.IsValueOk(static_cast<int>(value), index);
}

/// The parts of a date, some of which may be missing.
struct TDateParts
{
    explicit TDateParts(const UnicodeString& text) { DecodeDate(text, year, month, day); }

    UnicodeString year;
    UnicodeString month;
    UnicodeString day;
};

} // namespace

CTimeTextVerifier::CTimeTextVerifier() : ATextVerifierWithSeperator(UnicodeString(Sysutils::TimeSeparator)) {}

CTimeTextVerifier::CTimeTextVerifier(const UnicodeString& separator) : ATextVerifierWithSeperator(separator)
{
}

CTimeTextVerifier::~CTimeTextVerifier() = default;

bool CTimeTextVerifier::IsValueOk(int value, int index) const
{
    return IsInPart(value, index, {{{0, 23}, {0, 59}, {0, 999}}});
}

bool CTimeTextVerifier::operator()(const UnicodeString& text)
{
    if (IsFilter(text)) {
        return true;
    }
    UnicodeString rest = text;
    int index = 0;
    for (int place = rest.Pos(Separator()); index < 2 && place > 1; place = rest.Pos(Separator())) {
        if (!IsPartOk(rest.SubString(1, place - 1), index, *this)) {
            return false;
        }
        rest = rest.SubString(place + Separator().Length());
        ++index;
    }
    return rest.IsEmpty() || IsPartOk(rest, index, *this);
}

CDateTextVerifier::CDateTextVerifier() : CTimeTextVerifier(UnicodeString(Sysutils::DateSeparator)) {}

CDateTextVerifier::~CDateTextVerifier() = default;

bool CDateTextVerifier::IsValueOk(int value, int index) const
{
    return IsInPart(value, index, {{{1, 31}, {1, 12}, {0, 9999}}});
}

bool CDateTextVerifier::operator()(const UnicodeString& text)
{
    constexpr auto mostSeparators = 2;
    if (std::count(text.begin(), text.end(), Sysutils::DateSeparator) > mostSeparators) {
        return false;
    }
    const TDateParts parts(text);
    const auto isNumber = [](const UnicodeString& part) {
        const UnicodeString digits = WithoutFilterMarks(part);
        return digits.IsEmpty() || Sysutils::StrToIntDef(digits, -1) != -1;
    };
    return isNumber(parts.year) && isNumber(parts.month) && isNumber(parts.day);
}

bool CDateTextVerifier::ExitText(UnicodeString& text)
{
    const UnicodeString former = text;
    if (IsFilter(text)) {
        text = TrimDate(text);
        return text.Length() != former.Length();
    }
    const TDateParts parts(text);
    const auto [year, month, day] = [&] {
        std::array<Word, 3> typed{};
        std::array<Word, 3> today{};
        Sysutils::DecodeDate(GetValidDate(text), typed[0], typed[1], typed[2]);
        Sysutils::DecodeDate(Sysutils::Date(), today[0], today[1], today[2]);
        // Which day is the last of the month is known only when month and year are.
        typed[2] = static_cast<Word>(std::clamp(Sysutils::StrToIntDef(parts.day, 1), 1, 31));
        return std::array<Word, 3>{parts.year.IsEmpty() ? today[0] : typed[0],
                                   parts.month.IsEmpty() ? today[1] : typed[1],
                                   parts.day.IsEmpty() ? today[2] : typed[2]};
    }();
    TDateTime date;
    Word held = day;
    while (!Sysutils::TryEncodeDate(year, month, held, date)) {
        --held;
    }
    text = Sysutils::DateTimeToStr(date);
    return text != former;
}

} // namespace BTL
