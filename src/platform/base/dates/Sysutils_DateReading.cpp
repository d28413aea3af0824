// SPDX-License-Identifier: MIT
#include "platform/base/dates/Sysutils_DateReading.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_Calendar.h"
#include "platform/base/dates/internal/Sysutils_DateFields.h"
#include "platform/base/dates/internal/Sysutils_DateParts.h"
#include "platform/base/internal/System_Ascii.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace Sysutils
{

using System::TDateTime;
using System::UnicodeString;
using System::WideChar;
using System::Word;
using System::Detail::AsciiLower;
using System::Detail::IsAsciiDigit;

namespace
{

using View = std::u16string_view;

Word WithCentury(int year, Word window)
{
    const int start = std::max(CurrentYear() - window, 1);
    const int inCentury = start / 100 * 100 + year;
    return static_cast<Word>(window > 0 && inCentury < start ? inCentury + 100 : inCentury);
}

/// False where two characters of ASCII at the begin differ by more than their case: no folding makes them
/// one.
bool MayBeginAlike(View text, View mark)
{
    if (text.empty()) {
        return false;
    }
    const WideChar a = AsciiLower(text.front());
    const WideChar b = AsciiLower(mark.front());
    return a == b || a > 127 || b > 127;
}

enum class EHalfDay
{
    Morning,
    Afternoon,
};

class CDateReader
{
public:
    CDateReader(View text, const TFormatSettings& settings) : mText(text), mSettings(settings) {}

    std::optional<TDateTime> Read(TDateTime::TDateTimeFlag what)
    {
        std::optional<TDateTime> value = what == TDateTime::Time ? ReadTime() : ReadDate();
        if (value && what == TDateTime::DateTime && !IsAtEnd()) {
            const std::optional<TDateTime> time = ReadTime();
            value = time ? std::optional(Detail::JoinDayAndTime(*value, *time)) : std::nullopt;
        }
        return IsAtEnd() ? value : std::nullopt;
    }

private:
    static constexpr std::size_t MaxParts = 3;

    struct TNumber
    {
        Word value = 0;
        std::size_t digits = 0;
    };

    std::optional<TDateTime> ReadDate()
    {
        // A text may hold a year that the format lacks, and lack one that it has between day and month.
        std::u16string order = Detail::DateOrder(mSettings.ShortDateFormat.AsView());
        if (order.empty()) {
            order = u"md";
        }
        const bool addsYear = order.find(u'y') == View::npos;
        const std::size_t fewest = order.size() == MaxParts ? MaxParts - 1 : order.size();
        if (addsYear) {
            order += u'y';
        }
        std::array<TNumber, MaxParts> parts;
        std::size_t count = 0;
        do {
            const auto number = TakeNumber();
            if (!number) {
                break;
            }
            parts[count++] = *number;
        } while (Take(mSettings.DateSeparator) && count < order.size());
        if (count < fewest) {
            return std::nullopt;
        }
        std::optional<Word> year;
        Word month = 1;
        Word day = 1;
        std::size_t next = 0;
        for (const WideChar letter : order) {
            if (letter != u'y') {
                (letter == u'm' ? month : day) = parts[next++].value;
            } else if (count == order.size()) {
                const TNumber& part = parts[next++];
                year = part.digits > 2 ? part.value
                                       : WithCentury(part.value, mSettings.TwoDigitYearCenturyWindow);
            }
        }
        // The clock is asked only where the text leaves the year to it.
        TDateTime date;
        return TryEncodeDate(year ? *year : CurrentYear(), month, day, date) ? std::optional(date)
                                                                             : std::nullopt;
    }

    std::optional<TDateTime> ReadTime()
    {
        std::optional<EHalfDay> halfDay = TakeHalfDay();
        auto hour = TakeNumber();
        std::optional<TNumber> minute = TNumber();
        std::optional<TNumber> second = TNumber();
        std::optional<TNumber> milliSecond = TNumber();
        if (Take(mSettings.TimeSeparator)) {
            minute = TakeNumber();
            if (Take(mSettings.TimeSeparator)) {
                second = TakeNumber();
                if (Take(mSettings.DecimalSeparator) || Take(u'.')) {
                    milliSecond = TakeNumber();
                }
            }
        }
        if (!hour || !minute || !second || !milliSecond) {
            return std::nullopt;
        }
        if (!halfDay) {
            halfDay = TakeHalfDay();
        }
        if (halfDay) {
            if (hour->value > 12) {
                return std::nullopt;
            }
            hour->value = static_cast<Word>(hour->value % 12 + (halfDay == EHalfDay::Afternoon ? 12 : 0));
        }
        TDateTime time;
        const bool exists =
            TryEncodeTime(hour->value, minute->value, second->value, milliSecond->value, time);
        return exists ? std::optional(time) : std::nullopt;
    }

    void SkipBlanks()
    {
        while (!mText.empty() && mText.front() == u' ') {
            mText.remove_prefix(1);
        }
    }

    bool IsAtEnd()
    {
        SkipBlanks();
        return mText.empty();
    }

    bool Take(WideChar separator)
    {
        if (separator != u' ') {
            SkipBlanks();
        }
        if (mText.empty() || mText.front() != separator) {
            return false;
        }
        mText.remove_prefix(1);
        return true;
    }

    /// A number of at most four digits, the most that any part has.
    std::optional<TNumber> TakeNumber()
    {
        constexpr std::size_t maxDigits = 4;
        SkipBlanks();
        const auto end = std::ranges::find_if_not(mText, IsAsciiDigit<WideChar>);
        const auto digits = static_cast<std::size_t>(end - mText.begin());
        if (digits == 0 || digits > maxDigits) {
            return std::nullopt;
        }
        int value = 0;
        for (const WideChar c : mText.substr(0, digits)) {
            value = value * 10 + (c - u'0');
        }
        mText.remove_prefix(digits);
        return TNumber{static_cast<Word>(value), digits};
    }

    /// The half of the day that stands here; nothing if none does.
    std::optional<EHalfDay> TakeHalfDay()
    {
        SkipBlanks();
        std::optional<EHalfDay> halfDay;
        View longest;
        const auto look = [&](View mark, EHalfDay marked) {
            // The settings' own mark may begin like the English one, or be a part of it.
            if (mark.size() > longest.size() && MayBeginAlike(mText, mark) &&
                System::Detail::CompareIgnoreCase(mText.substr(0, mark.size()), mark) == 0) {
                longest = mark;
                halfDay = marked;
            }
        };
        look(mSettings.TimeAMString.AsView(), EHalfDay::Morning);
        look(mSettings.TimePMString.AsView(), EHalfDay::Afternoon);
        look(u"AM", EHalfDay::Morning);
        look(u"PM", EHalfDay::Afternoon);
        mText.remove_prefix(longest.size());
        return halfDay;
    }

    View mText;
    const TFormatSettings& mSettings;
};

bool TryInto(TDateTime::TDateTimeFlag what, const UnicodeString& text, TDateTime& value,
             const TFormatSettings& settings)
{
    const auto read = CDateReader(text.AsView(), settings).Read(what);
    value = read.value_or(value);
    return read.has_value();
}

TDateTime OrDefault(TDateTime::TDateTimeFlag what, const UnicodeString& text, const TDateTime& defaultValue,
                    const TFormatSettings& settings)
{
    return CDateReader(text.AsView(), settings).Read(what).value_or(defaultValue);
}

TDateTime OrThrow(TDateTime::TDateTimeFlag what, const UnicodeString& text, const TFormatSettings& settings)
{
    if (const auto value = CDateReader(text.AsView(), settings).Read(what)) {
        return *value;
    }
    const WideChar* const name = what == TDateTime::Date   ? u"date"
                                 : what == TDateTime::Time ? u"time"
                                                           : u"date and time";
    throw EConvertError(u"'" + text + u"' is not a valid " + name);
}

} // namespace

TDateTime StrToDate(const UnicodeString& text)
{
    return StrToDate(text, FormatSettings);
}

TDateTime StrToDate(const UnicodeString& text, const TFormatSettings& settings)
{
    return OrThrow(TDateTime::Date, text, settings);
}

TDateTime StrToDateDef(const UnicodeString& text, const TDateTime& defaultValue)
{
    return StrToDateDef(text, defaultValue, FormatSettings);
}

TDateTime StrToDateDef(const UnicodeString& text, const TDateTime& defaultValue,
                       const TFormatSettings& settings)
{
    return OrDefault(TDateTime::Date, text, defaultValue, settings);
}

bool TryStrToDate(const UnicodeString& text, TDateTime& value)
{
    return TryStrToDate(text, value, FormatSettings);
}

bool TryStrToDate(const UnicodeString& text, TDateTime& value, const TFormatSettings& settings)
{
    return TryInto(TDateTime::Date, text, value, settings);
}

TDateTime StrToTime(const UnicodeString& text)
{
    return StrToTime(text, FormatSettings);
}

TDateTime StrToTime(const UnicodeString& text, const TFormatSettings& settings)
{
    return OrThrow(TDateTime::Time, text, settings);
}

TDateTime StrToTimeDef(const UnicodeString& text, const TDateTime& defaultValue)
{
    return StrToTimeDef(text, defaultValue, FormatSettings);
}

TDateTime StrToTimeDef(const UnicodeString& text, const TDateTime& defaultValue,
                       const TFormatSettings& settings)
{
    return OrDefault(TDateTime::Time, text, defaultValue, settings);
}

bool TryStrToTime(const UnicodeString& text, TDateTime& value)
{
    return TryStrToTime(text, value, FormatSettings);
}

bool TryStrToTime(const UnicodeString& text, TDateTime& value, const TFormatSettings& settings)
{
    return TryInto(TDateTime::Time, text, value, settings);
}

TDateTime StrToDateTime(const UnicodeString& text)
{
    return StrToDateTime(text, FormatSettings);
}

TDateTime StrToDateTime(const UnicodeString& text, const TFormatSettings& settings)
{
    return OrThrow(TDateTime::DateTime, text, settings);
}

TDateTime StrToDateTimeDef(const UnicodeString& text, const TDateTime& defaultValue)
{
    return StrToDateTimeDef(text, defaultValue, FormatSettings);
}

TDateTime StrToDateTimeDef(const UnicodeString& text, const TDateTime& defaultValue,
                           const TFormatSettings& settings)
{
    return OrDefault(TDateTime::DateTime, text, defaultValue, settings);
}

bool TryStrToDateTime(const UnicodeString& text, TDateTime& value)
{
    return TryStrToDateTime(text, value, FormatSettings);
}

bool TryStrToDateTime(const UnicodeString& text, TDateTime& value, const TFormatSettings& settings)
{
    return TryInto(TDateTime::DateTime, text, value, settings);
}

} // namespace Sysutils
