// SPDX-License-Identifier: MIT
#include "text/dates/BTL_DT_Reading.h"

#include "foundation/UTL_Links.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_Calendar.h"
#include "platform/base/dates/Sysutils_DateReading.h"
#include "platform/base/dates/internal/Sysutils_DateParts.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "text/editing/BTL_STR_Cut.h"
#include "text/editing/BTL_STR_Replace.h"
#include "text/numbers/BTL_NUM_Floats.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace BTL
{

using System::TDateTime;
using System::UnicodeString;
using System::WideChar;
using System::Word;

namespace
{

using View = std::u16string_view;

/// The fields that a mask picks from a text.
class CMaskFields
{
public:
    CMaskFields(const UnicodeString& text, const UnicodeString& mask)
    {
        const View digits = text.AsView().substr(0, mask.AsView().size());
        for (std::size_t at = 0; at < digits.size(); ++at) {
            const std::size_t field = Letters.find(mask.AsView()[at]);
            if (field == View::npos) {
                continue;
            }
            // The bound is far beyond any field and can't come back.
            constexpr int bound = 100'000'000;
            mValues[field] = std::clamp(mValues[field] * 10 + (digits[at] - u'0'), -bound, bound);
        }
    }

    bool IsDateWhole() const { return mValues[Year] != 0 && mValues[Month] != 0 && mValues[Day] != 0; }

    TDateTime Date() const { return Sysutils::EncodeDate(Value(Year), Value(Month), Value(Day)); }
    TDateTime Time() const
    {
        return Sysutils::EncodeTime(Value(Hour), Value(Minute), Value(Second), Value(MilliSecond));
    }

private:
    enum EField : std::size_t
    {
        Year,
        Month,
        Day,
        Hour,
        Minute,
        Second,
        MilliSecond
    };
    /// In the order of the fields.
    static constexpr View Letters = u"ymdhnsc";

    /// What no field can be becomes a value that every field refuses.
    Word Value(std::size_t field) const
    {
        constexpr int refused = 0xFFFF;
        const int value = mValues[field];
        return static_cast<Word>(value < 0 || value > refused ? refused : value);
    }

    std::array<int, Letters.size()> mValues = {};
};

/// What `read` gives. A failure, which knows only of fields, becomes one that names the text.
template <class Read>
TDateTime NamingText(const UnicodeString& text, const UnicodeString& mask, Read read)
{
    try {
        return read();
    } catch (const Sysutils::EConvertError&) {
        throw Sysutils::EConvertError(u"'" + text + u"' is not a valid date or time of the form '" + mask +
                                      u"'");
    }
}

bool HasAnyOf(const UnicodeString& mask, View letters)
{
    return mask.AsView().find_first_of(letters) != View::npos;
}

TDateTime Joined(TDateTime date, const TDateTime& time)
{
    Sysutils::ReplaceTime(date, time);
    return date;
}

UnicodeString TakePart(UnicodeString& rest, WideChar separator)
{
    return ConsumeLeftSubString(rest, separator, true);
}

int NumberOf(const UnicodeString& part, int defaultValue)
{
    return Sysutils::StrToIntDef(DeleteChars(DeleteChars(part, u'_'), u'%'), defaultValue);
}

// The variants of the foundation read dates by the rules of this unit.
[[maybe_unused]] const bool linked = [] {
    UTL::Links().StrToDateTime = &StrToDateTime;
    return true;
}();

} // namespace

TDateTime StrToDateTime(const UnicodeString& text)
{
    const double number = ToDoubleDef(text, 0);
    if (number != 0) {
        return number;
    }
    return Sysutils::StrToDateTime(text);
}

TDateTime StrToDate(const UnicodeString& text)
{
    const double days = std::trunc(ToDoubleDef(text, 0));
    if (days != 0) {
        return days;
    }
    return Sysutils::StrToDateTime(text);
}

TDateTime StrToTime(const UnicodeString& text)
{
    const double number = ToDoubleDef(text, 0);
    if (number != 0) {
        return std::abs(number - std::trunc(number));
    }
    return Sysutils::StrToTime(text);
}

TDateTime StrToDateTime(const UnicodeString& text, const UnicodeString& mask)
{
    const CMaskFields fields(text, mask);
    return NamingText(text, mask, [&] {
        const TDateTime date = HasAnyOf(mask, u"ymd") ? fields.Date() : TDateTime();
        return HasAnyOf(mask, u"hnsc") ? Joined(date, fields.Time()) : date;
    });
}

TDateTime StrToDate(const UnicodeString& text, const UnicodeString& mask)
{
    const CMaskFields fields(text, mask);
    return NamingText(text, mask, [&] { return fields.IsDateWhole() ? fields.Date() : TDateTime(); });
}

TDateTime StrToTime(const UnicodeString& text, const UnicodeString& mask)
{
    const CMaskFields fields(text, mask);
    return NamingText(text, mask, [&] { return fields.Time(); });
}

UnicodeString TrimDate(const UnicodeString& text)
{
    const UnicodeString trimmed = text.Trim();
    View view = trimmed.AsView();
    view.remove_prefix(std::min(view.find_first_not_of(Sysutils::DateSeparator), view.size()));
    return UnicodeString(view.substr(0, view.find_last_not_of(Sysutils::DateSeparator) + 1));
}

void DecodeDate(const UnicodeString& text, UnicodeString& year, UnicodeString& month, UnicodeString& day)
{
    UnicodeString rest = text;
    year = month = day = UnicodeString();
    const View picture = Sysutils::ShortDateFormat.AsView();
    const bool hasBlanks = picture.find(u' ') != View::npos;
    for (const WideChar letter : Sysutils::Detail::DateOrder(picture)) {
        const UnicodeString found = TakePart(rest, Sysutils::DateSeparator);
        UnicodeString& part = letter == u'y' ? year : letter == u'm' ? month : day;
        part = hasBlanks ? found.Trim() : found;
    }
}

void DecodeDateTime(const UnicodeString& text, UnicodeString& year, UnicodeString& month, UnicodeString& day,
                    UnicodeString& hour, UnicodeString& minute, UnicodeString& second,
                    UnicodeString& milliSecond)
{
    UnicodeString time = text.Trim();
    DecodeDate(TrimDate(TakePart(time, u' ')), year, month, day);
    time = time.Trim();
    hour = TakePart(time, Sysutils::TimeSeparator);
    minute = TakePart(time, Sysutils::TimeSeparator);
    second = TakePart(time, Sysutils::DecimalSeparator);
    milliSecond = LeftSubStringUntil(time, u' ');
}

TDateTime GetValidDate(const UnicodeString& text)
{
    UnicodeString yearText;
    UnicodeString monthText;
    UnicodeString dayText;
    DecodeDate(text, yearText, monthText, dayText);
    const auto year = static_cast<Word>(std::clamp(NumberOf(yearText, 0), 1, 9999));
    const auto month = static_cast<Word>(std::clamp(NumberOf(monthText, 1), 1, 12));
    const int lastDay = Sysutils::Detail::DaysInMonth(year, month);
    return Sysutils::EncodeDate(year, month, static_cast<Word>(std::clamp(NumberOf(dayText, 1), 1, lastDay)));
}

TDateTime GetValidDateTime(const UnicodeString& text)
{
    UnicodeString time = text.Trim();
    const TDateTime date = GetValidDate(TakePart(time, u' '));
    time = time.Trim();
    return time.IsEmpty() ? date : Joined(date, Sysutils::StrToTime(time));
}

} // namespace BTL
