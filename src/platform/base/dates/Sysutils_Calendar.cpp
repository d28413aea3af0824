// SPDX-License-Identifier: MIT
#include "platform/base/dates/Sysutils_Calendar.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/internal/Sysutils_DateFields.h"
#include "platform/base/dates/internal/Sysutils_DateParts.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <optional>

namespace Sysutils
{

using Detail::FieldsOf;
using Detail::JoinDayAndTime;
using Detail::TDateFields;
using System::Int64;
using System::TDateTime;
using System::UnicodeString;
using System::Word;

namespace
{

constexpr std::chrono::sys_days DayZero = std::chrono::year(1899) / 12 / 30;

constexpr int DayNumber(std::chrono::year_month_day day)
{
    return static_cast<int>((std::chrono::sys_days(day) - DayZero).count());
}

constexpr Word LastYear = 9999;
constexpr int FirstDay = DayNumber(std::chrono::year(1) / 1 / 1);
constexpr int LastDay = DayNumber(std::chrono::year(LastYear) / 12 / 31);

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

double TimeOfDay(double value)
{
    return std::abs(value - std::trunc(value));
}

TDateTime ValueOf(const std::tm& local)
{
    const TDateTime date = EncodeDate(static_cast<Word>(local.tm_year + 1900),
                                      static_cast<Word>(local.tm_mon + 1), static_cast<Word>(local.tm_mday));
    // A leap second has no place of its own.
    const auto second = static_cast<Word>(std::min(local.tm_sec, 59));
    return JoinDayAndTime(
        date, EncodeTime(static_cast<Word>(local.tm_hour), static_cast<Word>(local.tm_min), second, 0));
}

} // namespace

namespace Detail
{

TDateFields FieldsOf(const TDateTime& value)
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

TDateTime JoinDayAndTime(double day, double time)
{
    return day < 0 ? day - time : day + time;
}

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
    const TDateFields fields = FieldsOf(local);
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

} // namespace Detail

TDateTime Now()
{
    using namespace std::chrono;
    const auto now = floor<milliseconds>(system_clock::now()).time_since_epoch();
    const auto whole = floor<seconds>(now);
    const auto local = Detail::LocalTimeOf(whole.count());
    // A clock that is set to a time without a date shows the first one there is.
    return local ? JoinDayAndTime(*local, static_cast<double>((now - whole).count()) / MSecsPerDay)
                 : TDateTime();
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
        throw EConvertError(u"'" + UnicodeString(year) + u'-' + UnicodeString(month) + u'-' +
                            UnicodeString(day) + u"' is no date");
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
        throw EConvertError(u"'" + UnicodeString(hour) + u':' + UnicodeString(minute) + u':' +
                            UnicodeString(second) + u'.' + UnicodeString(milliSecond) + u"' is no time");
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
    const TDateFields fields = FieldsOf(value);
    year = fields.year;
    month = fields.month;
    day = fields.day;
    dayOfWeek = fields.dayOfWeek;
    return year > 0 && IsLeapYear(year);
}

void DecodeTime(const TDateTime& value, Word& hour, Word& minute, Word& second, Word& milliSecond)
{
    const TDateFields fields = FieldsOf(value);
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
    const TDateFields fields = FieldsOf(value);
    const Int64 total = fields.year * 12 + fields.month - 1 + Int64{months};
    if (fields.year == 0 || total < 12 || total / 12 > LastYear) {
        throw EConvertError(u"'" + UnicodeString(months) + u"' months lead to no date");
    }
    const auto year = static_cast<Word>(total / 12);
    const auto month = static_cast<Word>(total % 12 + 1);
    const Word day = std::min(fields.day, Detail::DaysInMonth(year, month));
    return JoinDayAndTime(EncodeDate(year, month, day),
                          EncodeTime(fields.hour, fields.minute, fields.second, fields.milliSecond));
}

void ReplaceTime(TDateTime& value, const TDateTime& time)
{
    value = JoinDayAndTime(std::trunc(value), TimeOfDay(time));
}

void ReplaceDate(TDateTime& value, const TDateTime& date)
{
    value = JoinDayAndTime(std::trunc(date), TimeOfDay(value));
}

} // namespace Sysutils
