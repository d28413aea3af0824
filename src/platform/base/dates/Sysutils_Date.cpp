// SPDX-License-Identifier: MIT
#include "platform/base/dates/Sysutils_Date.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/internal/Sysutils_DateParts.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <string>

namespace Sysutils
{

using System::Int64;
using System::TDateTime;
using System::UnicodeString;
using System::WideChar;
using System::Word;

namespace
{

using View = std::u16string_view;

constexpr std::chrono::sys_days DayZero = std::chrono::year(1899) / 12 / 30;

constexpr int DayNumber(std::chrono::year_month_day day)
{
    return static_cast<int>((std::chrono::sys_days(day) - DayZero).count());
}

constexpr Word LastYear = 9999;
constexpr int FirstDay = DayNumber(std::chrono::year(1) / 1 / 1);
constexpr int LastDay = DayNumber(std::chrono::year(LastYear) / 12 / 31);

// Values

/// A value that has a date.
struct TMoment
{
    /// Counted as the whole days of a `TDateTime`.
    int day;
    int milliSeconds;
};

std::optional<TMoment> MomentOf(double value)
{
    if (!(value > FirstDay - 1 && value < LastDay + 1)) {
        return std::nullopt;
    }
    const double whole = std::trunc(value);
    const auto day = static_cast<int>(whole);
    const auto milliSeconds = static_cast<int>(std::lround(std::abs(value - whole) * MSecsPerDay));
    if (milliSeconds < MSecsPerDay) {
        return TMoment{day, milliSeconds};
    }
    return day < LastDay ? TMoment{day + 1, 0} : TMoment{LastDay, MSecsPerDay - 1};
}

/// The fraction counts forwards on either side of day zero.
TDateTime Join(double day, double time)
{
    return day < 0 ? day - time : day + time;
}

double TimeOfDay(double value)
{
    return std::abs(value - std::trunc(value));
}

struct TFields
{
    Word year = 0;
    Word month = 0;
    Word day = 0;
    Word dayOfWeek = 0;
    Word hour = 0;
    Word minute = 0;
    Word second = 0;
    Word milliSecond = 0;

    bool IsMidnight() const { return hour == 0 && minute == 0 && second == 0 && milliSecond == 0; }
};

TFields FieldsOf(const TDateTime& value)
{
    const auto moment = MomentOf(value);
    if (!moment) {
        return {};
    }
    const auto day = DayZero + std::chrono::days(moment->day);
    const std::chrono::year_month_day date(day);
    const auto rest = [time = moment->milliSeconds](int unit, int count) {
        return static_cast<Word>(time / unit % count);
    };
    return {static_cast<Word>(static_cast<int>(date.year())),
            static_cast<Word>(static_cast<unsigned>(date.month())),
            static_cast<Word>(static_cast<unsigned>(date.day())),
            static_cast<Word>(std::chrono::weekday(day).c_encoding() + 1),
            rest(3'600'000, HoursPerDay),
            rest(60'000, 60),
            rest(1000, 60),
            rest(1, 1000)};
}

TDateTime ValueOf(const std::tm& local)
{
    const TDateTime date = EncodeDate(static_cast<Word>(local.tm_year + 1900),
                                      static_cast<Word>(local.tm_mon + 1), static_cast<Word>(local.tm_mday));
    // A leap second has no place of its own.
    const auto second = static_cast<Word>(std::min(local.tm_sec, 59));
    return Join(date,
                EncodeTime(static_cast<Word>(local.tm_hour), static_cast<Word>(local.tm_min), second, 0));
}

// Writing

constexpr WideChar Lower(WideChar c)
{
    return c >= u'A' && c <= u'Z' ? static_cast<WideChar>(c - u'A' + u'a') : c;
}

/// `word` is in lower case.
bool BeginsWith(View text, View word)
{
    return text.size() >= word.size() && std::equal(word.begin(), word.end(), text.begin(),
                                                    [](WideChar a, WideChar b) { return a == Lower(b); });
}

/// The length of the mark of the half of the day that `picture` begins with, or 0.
std::size_t HalfDayLength(View picture)
{
    for (const View mark : {View(u"am/pm"), View(u"ampm"), View(u"a/p")}) {
        if (BeginsWith(picture, mark)) {
            return mark.size();
        }
    }
    return 0;
}

constexpr bool IsQuote(WideChar c)
{
    return c == u'\'' || c == u'"';
}

/// The index of the quote that closes the one at `at`, or the end.
std::size_t QuoteEnd(View picture, std::size_t at)
{
    return std::min(picture.find(picture[at], at + 1), picture.size());
}

/// Whether a mark of the half of the day belongs to the hour in front of `picture`.
bool HasHalfDay(View picture)
{
    for (std::size_t at = 0; at < picture.size() && Lower(picture[at]) != u'h'; ++at) {
        if (IsQuote(picture[at])) {
            at = QuoteEnd(picture, at);
        } else if (HalfDayLength(picture.substr(at)) != 0) {
            return true;
        }
    }
    return false;
}

class CPictureWriter
{
public:
    CPictureWriter(const TDateTime& value, const TFormatSettings& settings)
        : mFields(FieldsOf(value)), mSettings(settings)
    {
    }

    void Write(View picture)
    {
        WideChar lastLetter = 0;
        for (std::size_t at = 0; at < picture.size();) {
            const WideChar c = picture[at];
            const View rest = picture.substr(at);
            if (IsQuote(c)) {
                const std::size_t end = QuoteEnd(picture, at);
                mText += picture.substr(at + 1, end - at - 1);
                at = end + 1;
            } else if (const std::size_t length = HalfDayLength(rest); length != 0) {
                WriteHalfDay(rest.substr(0, length));
                lastLetter = u'a';
                at += length;
            } else if (const WideChar letter = Lower(c); View(u"cdhmnstyz").find(letter) != View::npos) {
                const auto end = std::find_if(rest.begin(), rest.end(),
                                              [letter](WideChar next) { return Lower(next) != letter; });
                const auto count = static_cast<std::size_t>(end - rest.begin());
                const bool isMinute = letter == u'm' && count <= 2 && lastLetter == u'h';
                WriteField(isMinute ? u'n' : letter, count, rest.substr(count));
                lastLetter = letter;
                at += count;
            } else {
                WriteCharacter(c);
                ++at;
            }
        }
    }

    void WriteDateTime()
    {
        WriteStored(mSettings.ShortDateFormat);
        if (!mFields.IsMidnight()) {
            mText += u' ';
            WriteStored(mSettings.LongTimeFormat);
        }
    }

    UnicodeString getText() const { return UnicodeString(View(mText)); }

private:
    /// A picture of the settings. One that names itself would have no end, so a second level isn't followed.
    void WriteStored(const UnicodeString& picture)
    {
        if (!mInStored) {
            mInStored = true;
            Write(picture.AsView());
            mInStored = false;
        }
    }

    void WriteField(WideChar letter, std::size_t count, View rest)
    {
        switch (letter) {
        case u'c':
            return WriteDateTime();
        case u'd':
            return WriteDay(count);
        case u'h':
            return WriteNumber(HasHalfDay(rest) ? (mFields.hour + 11) % 12 + 1 : mFields.hour,
                               std::min<std::size_t>(count, 2));
        case u'm':
            return WriteMonth(count);
        case u'n':
            return WriteNumber(mFields.minute, std::min<std::size_t>(count, 2));
        case u's':
            return WriteNumber(mFields.second, std::min<std::size_t>(count, 2));
        case u't':
            return WriteStored(count == 1 ? mSettings.ShortTimeFormat : mSettings.LongTimeFormat);
        case u'y':
            return count <= 2 ? WriteNumber(mFields.year % 100, 2) : WriteNumber(mFields.year, 4);
        default:
            return WriteNumber(mFields.milliSecond, std::min<std::size_t>(count, 3));
        }
    }

    void WriteDay(std::size_t count)
    {
        switch (count) {
        case 1:
        case 2:
            return WriteNumber(mFields.day, count);
        case 3:
            return WriteName(mSettings.ShortDayNames, mFields.dayOfWeek);
        case 4:
            return WriteName(mSettings.LongDayNames, mFields.dayOfWeek);
        case 5:
            return WriteStored(mSettings.ShortDateFormat);
        default:
            return WriteStored(mSettings.LongDateFormat);
        }
    }

    void WriteMonth(std::size_t count)
    {
        if (count <= 2) {
            return WriteNumber(mFields.month, count);
        }
        WriteName(count == 3 ? mSettings.ShortMonthNames : mSettings.LongMonthNames, mFields.month);
    }

    void WriteNumber(int number, std::size_t digits)
    {
        const UnicodeString text(number);
        mText.append(digits - std::min(digits, text.AsView().size()), u'0');
        mText += text.AsView();
    }

    /// `number` counts from 1; 0 is none.
    template <std::size_t Count>
    void WriteName(const std::array<UnicodeString, Count>& names, Word number)
    {
        if (number > 0) {
            mText += names[number - 1U].AsView();
        }
    }

    void WriteHalfDay(View mark)
    {
        const bool afternoon = mFields.hour >= 12;
        const std::size_t slash = mark.find(u'/');
        if (slash == View::npos) {
            mText += (afternoon ? mSettings.TimePMString : mSettings.TimeAMString).AsView();
        } else {
            mText += afternoon ? mark.substr(slash + 1) : mark.substr(0, slash);
        }
    }

    void WriteCharacter(WideChar c)
    {
        const WideChar shown = c == u'/' ? mSettings.DateSeparator : c == u':' ? mSettings.TimeSeparator : c;
        // The settings may have no separator.
        if (shown != 0 || c == 0) {
            mText += shown;
        }
    }

    TFields mFields;
    const TFormatSettings& mSettings;
    std::u16string mText;
    bool mInStored = false;
};

// Reading

Word WithCentury(int year, Word window)
{
    const int start = std::max(CurrentYear() - window, 1);
    const int inCentury = start / 100 * 100 + year;
    return static_cast<Word>(window > 0 && inCentury < start ? inCentury + 100 : inCentury);
}

class CDateReader
{
public:
    CDateReader(View text, const TFormatSettings& settings) : mText(text), mSettings(settings) {}

    std::optional<TDateTime> Read(TDateTime::TDateTimeFlag what)
    {
        std::optional<TDateTime> value = what == TDateTime::Time ? ReadTime() : ReadDate();
        if (value && what == TDateTime::DateTime && !IsAtEnd()) {
            const std::optional<TDateTime> time = ReadTime();
            value = time ? std::optional(Join(*value, *time)) : std::nullopt;
        }
        return IsAtEnd() ? value : std::nullopt;
    }

private:
    struct TNumber
    {
        Word value = 0;
        std::size_t digits = 0;
    };

    std::optional<TDateTime> ReadDate()
    {
        std::array<TNumber, 3> parts;
        std::size_t count = 0;
        do {
            const auto number = TakeNumber();
            if (!number) {
                break;
            }
            parts[count++] = *number;
        } while (Take(mSettings.DateSeparator) && count < parts.size());
        if (count < 2) {
            return std::nullopt;
        }
        Word year = CurrentYear();
        Word month = 0;
        Word day = 0;
        std::size_t next = 0;
        for (const WideChar letter : Detail::DateOrder(mSettings.ShortDateFormat.AsView())) {
            if (letter != u'y') {
                (letter == u'm' ? month : day) = parts[next++].value;
            } else if (count == parts.size()) {
                const TNumber& part = parts[next++];
                year = part.digits > 2 ? part.value
                                       : WithCentury(part.value, mSettings.TwoDigitYearCenturyWindow);
            }
        }
        TDateTime date;
        return TryEncodeDate(year, month, day, date) ? std::optional(date) : std::nullopt;
    }

    std::optional<TDateTime> ReadTime()
    {
        std::optional<bool> afternoon = TakeHalfDay();
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
        if (!afternoon) {
            afternoon = TakeHalfDay();
        }
        if (afternoon) {
            if (hour->value > 12) {
                return std::nullopt;
            }
            hour->value = static_cast<Word>(hour->value % 12 + (*afternoon ? 12 : 0));
        }
        TDateTime time;
        const bool exists =
            TryEncodeTime(hour->value, minute->value, second->value, milliSecond->value, time);
        return exists ? std::optional(time) : std::nullopt;
    }

    void SkipBlanks() { mText.remove_prefix(std::min(mText.find_first_not_of(u' '), mText.size())); }

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
        const std::size_t digits = std::min(mText.find_first_not_of(u"0123456789"), mText.size());
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

    /// Whether the half of the day that stands here is the second one; nothing if none does.
    std::optional<bool> TakeHalfDay()
    {
        SkipBlanks();
        std::optional<bool> afternoon;
        View longest;
        const auto look = [&](View mark, bool isAfternoon) {
            // The settings' own mark may begin like the English one, or be a part of it.
            if (mark.size() > longest.size() &&
                UnicodeString(mText.substr(0, mark.size())).CompareIC(UnicodeString(mark)) == 0) {
                longest = mark;
                afternoon = isAfternoon;
            }
        };
        look(mSettings.TimeAMString.AsView(), false);
        look(mSettings.TimePMString.AsView(), true);
        look(u"AM", false);
        look(u"PM", true);
        mText.remove_prefix(longest.size());
        return afternoon;
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

// File dates

constexpr int FirstFileYear = 1980;
constexpr int LastFileYear = FirstFileYear + 127;
constexpr unsigned FirstFileDate = 1U << 21 | 1U << 16;
constexpr unsigned LastFileDate = 127U << 25 | 12U << 21 | 31U << 16 | 23U << 11 | 59U << 5 | 29U;

} // namespace

namespace Detail
{

std::optional<TDateTime> LocalTimeOf(Int64 seconds)
{
    const auto time = static_cast<time_t>(seconds);
    std::tm local = {};
    if (localtime_r(&time, &local) == nullptr || local.tm_year < 1 - 1900 ||
        local.tm_year > LastYear - 1900) {
        return std::nullopt;
    }
    return ValueOf(local);
}

Int64 SecondsOfLocalTime(const TDateTime& local)
{
    const TFields fields = FieldsOf(local);
    std::tm time = {};
    time.tm_year = fields.year - 1900;
    time.tm_mon = fields.month - 1;
    time.tm_mday = fields.day;
    time.tm_hour = fields.hour;
    time.tm_min = fields.minute;
    time.tm_sec = fields.second;
    time.tm_isdst = -1;
    return std::mktime(&time);
}

std::optional<TDateTime> UnpackFileDate(int fileDate)
{
    const auto bits = [fileDate](int shift, unsigned count) {
        return static_cast<Word>(static_cast<unsigned>(fileDate) >> shift & ((1U << count) - 1));
    };
    TDateTime date;
    TDateTime time;
    if (!TryEncodeDate(static_cast<Word>(FirstFileYear + bits(25, 7)), bits(21, 4), bits(16, 5), date) ||
        !TryEncodeTime(bits(11, 5), bits(5, 6), static_cast<Word>(bits(0, 5) * 2), 0, time)) {
        return std::nullopt;
    }
    return Join(date, time);
}

std::array<WideChar, 3> DateOrder(View picture)
{
    std::array<WideChar, 3> order = {};
    std::size_t count = 0;
    const auto add = [&](WideChar letter) {
        if (View(u"dmy").find(letter) != View::npos &&
            std::find(order.begin(), order.end(), letter) == order.end()) {
            order[count++] = letter;
        }
    };
    for (std::size_t at = 0; at < picture.size(); ++at) {
        if (IsQuote(picture[at])) {
            at = QuoteEnd(picture, at);
        } else {
            add(Lower(picture[at]));
        }
    }
    std::ranges::for_each(View(u"mdy"), add);
    return order;
}

} // namespace Detail

TDateTime Now()
{
    using namespace std::chrono;
    const auto now = floor<milliseconds>(system_clock::now()).time_since_epoch();
    const auto whole = floor<seconds>(now);
    const auto local = Detail::LocalTimeOf(whole.count());
    // A clock that is set to a time without a date shows the first one there is.
    return local ? Join(*local, static_cast<double>((now - whole).count()) / MSecsPerDay) : TDateTime();
}

TDateTime Date()
{
    return std::trunc(Now());
}

TDateTime Time()
{
    return TimeOfDay(Now());
}

Word CurrentYear()
{
    return FieldsOf(Now()).year;
}

TDateTime EncodeDate(Word year, Word month, Word day)
{
    TDateTime value;
    if (!TryEncodeDate(year, month, day, value)) {
        throw EConvertError(u"Invalid argument to date encode");
    }
    return value;
}

bool TryEncodeDate(Word year, Word month, Word day, TDateTime& value)
{
    if (year < 1 || year > LastYear || month < 1 || month > 12 || day < 1 ||
        day > Detail::DaysInMonth(year, month)) {
        return false;
    }
    value = DayNumber(std::chrono::year(year) / month / day);
    return true;
}

TDateTime EncodeTime(Word hour, Word minute, Word second, Word milliSecond)
{
    TDateTime value;
    if (!TryEncodeTime(hour, minute, second, milliSecond, value)) {
        throw EConvertError(u"Invalid argument to time encode");
    }
    return value;
}

bool TryEncodeTime(Word hour, Word minute, Word second, Word milliSecond, TDateTime& value)
{
    if (hour >= HoursPerDay || minute >= 60 || second >= 60 || milliSecond >= 1000) {
        return false;
    }
    value = static_cast<double>(((hour * 60 + minute) * 60 + second) * 1000 + milliSecond) / MSecsPerDay;
    return true;
}

void DecodeDate(const TDateTime& value, Word& year, Word& month, Word& day)
{
    Word ignored = 0;
    DecodeDateFully(value, year, month, day, ignored);
}

bool DecodeDateFully(const TDateTime& value, Word& year, Word& month, Word& day, Word& dayOfWeek)
{
    const TFields fields = FieldsOf(value);
    year = fields.year;
    month = fields.month;
    day = fields.day;
    dayOfWeek = fields.dayOfWeek;
    return year > 0 && IsLeapYear(year);
}

void DecodeTime(const TDateTime& value, Word& hour, Word& minute, Word& second, Word& milliSecond)
{
    const TFields fields = FieldsOf(value);
    hour = fields.hour;
    minute = fields.minute;
    second = fields.second;
    milliSecond = fields.milliSecond;
}

int DayOfWeek(const TDateTime& value)
{
    return FieldsOf(value).dayOfWeek;
}

TDateTime IncMonth(const TDateTime& value, int months)
{
    const TFields fields = FieldsOf(value);
    const Int64 total = fields.year * 12 + fields.month - 1 + Int64{months};
    if (fields.year == 0 || total < 12 || total / 12 > LastYear) {
        throw EConvertError(u"Invalid argument to date encode");
    }
    const auto year = static_cast<Word>(total / 12);
    const auto month = static_cast<Word>(total % 12 + 1);
    const Word day = std::min(fields.day, Detail::DaysInMonth(year, month));
    return Join(EncodeDate(year, month, day),
                EncodeTime(fields.hour, fields.minute, fields.second, fields.milliSecond));
}

void ReplaceTime(TDateTime& value, const TDateTime& time)
{
    value = Join(std::trunc(value), TimeOfDay(time));
}

void ReplaceDate(TDateTime& value, const TDateTime& date)
{
    value = Join(std::trunc(date), TimeOfDay(value));
}

UnicodeString DateToStr(const TDateTime& value)
{
    return DateToStr(value, FormatSettings);
}

UnicodeString DateToStr(const TDateTime& value, const TFormatSettings& settings)
{
    CPictureWriter writer(value, settings);
    writer.Write(settings.ShortDateFormat.AsView());
    return writer.getText();
}

UnicodeString TimeToStr(const TDateTime& value)
{
    return TimeToStr(value, FormatSettings);
}

UnicodeString TimeToStr(const TDateTime& value, const TFormatSettings& settings)
{
    CPictureWriter writer(value, settings);
    writer.Write(settings.LongTimeFormat.AsView());
    return writer.getText();
}

UnicodeString DateTimeToStr(const TDateTime& value)
{
    return DateTimeToStr(value, FormatSettings);
}

UnicodeString DateTimeToStr(const TDateTime& value, const TFormatSettings& settings)
{
    CPictureWriter writer(value, settings);
    writer.WriteDateTime();
    return writer.getText();
}

UnicodeString FormatDateTime(const UnicodeString& format, const TDateTime& value)
{
    return FormatDateTime(format, value, FormatSettings);
}

UnicodeString FormatDateTime(const UnicodeString& format, const TDateTime& value,
                             const TFormatSettings& settings)
{
    CPictureWriter writer(value, settings);
    writer.Write(format.IsEmpty() ? View(u"c") : format.AsView());
    return writer.getText();
}

void DateTimeToString(UnicodeString& result, const UnicodeString& format, const TDateTime& value)
{
    result = FormatDateTime(format, value);
}

void DateTimeToString(UnicodeString& result, const UnicodeString& format, const TDateTime& value,
                      const TFormatSettings& settings)
{
    result = FormatDateTime(format, value, settings);
}

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

int DateTimeToFileDate(const TDateTime& value)
{
    const TFields fields = FieldsOf(value);
    if (fields.year > LastFileYear || (fields.year == 0 && value > 0)) {
        return static_cast<int>(LastFileDate);
    }
    if (fields.year < FirstFileYear) {
        return static_cast<int>(FirstFileDate);
    }
    const auto bits = [](int part, int shift) { return static_cast<unsigned>(part) << shift; };
    return static_cast<int>(bits(fields.year - FirstFileYear, 25) | bits(fields.month, 21) |
                            bits(fields.day, 16) | bits(fields.hour, 11) | bits(fields.minute, 5) |
                            bits(fields.second / 2, 0));
}

TDateTime FileDateToDateTime(int fileDate)
{
    if (const auto value = Detail::UnpackFileDate(fileDate)) {
        return *value;
    }
    throw EConvertError(u"Invalid file date");
}

} // namespace Sysutils
