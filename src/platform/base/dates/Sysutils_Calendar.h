// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/dates/System_DateTime.h"

#include <array>

// Days and times of day, as numbers. The calendar is the Gregorian one, also for days before its time, from
// year 1 to 9999. A value outside these years, an infinite one and none at all have no date: all their fields
// are 0, the time of day too. Local time is that of the host.
//
//     const TDateTime day = EncodeDate(2024, 1, 31);
//     const TDateTime next = IncMonth(day);                       // 29 February
//     Word year = 0, month = 0, date = 0;
//     DecodeDate(next, year, month, date);
//     const bool isWeekend = DayOfWeek(day) == 1 || DayOfWeek(day) == 7;

namespace Sysutils
{

/// How many of each a day has.
inline constexpr int HoursPerDay = 24;
inline constexpr int MinsPerDay = 1440;
inline constexpr int SecsPerDay = 86'400;
inline constexpr int MSecsPerDay = 86'400'000;

/// The days of the twelve months of a year.
using TDayTable = std::array<System::Word, 12>;
/// The days of each month, January first, of a common year and of a leap year: `MonthDays[leap][month - 1]`.
inline constexpr std::array<TDayTable, 2> MonthDays = {{
    {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
    {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
}};

/// Whether February has 29 days in `year`.
constexpr bool IsLeapYear(System::Word year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

/// Local date and time, to the millisecond.
TRS8_BTL_API System::TDateTime Now();
/// The local day, without a time.
TRS8_BTL_API System::TDateTime Date();
/// The local time of day, without a date.
TRS8_BTL_API System::TDateTime Time();
/// The year of the local day.
TRS8_BTL_API System::Word CurrentYear();

/// The value of a day at midnight. `EConvertError` for a day that the calendar lacks.
TRS8_BTL_API System::TDateTime EncodeDate(System::Word year, System::Word month, System::Word day);
/// As `EncodeDate`, but gives false for a day that the calendar lacks and then leaves `value` alone.
TRS8_BTL_API bool TryEncodeDate(System::Word year, System::Word month, System::Word day,
                                System::TDateTime& value);
/// The value of a time of day up to 23:59:59.999, without a date. `EConvertError` for any other time.
TRS8_BTL_API System::TDateTime EncodeTime(System::Word hour, System::Word minute, System::Word second,
                                          System::Word milliSecond);
/// As `EncodeTime`, but gives false for a time that no day has and then leaves `value` alone.
TRS8_BTL_API bool TryEncodeTime(System::Word hour, System::Word minute, System::Word second,
                                System::Word milliSecond, System::TDateTime& value);

// Fields are those of the value rounded to the millisecond, so that a time just before midnight belongs to
// the next day and no time is 24:00.

/// The day of `value`; zeros for no date.
TRS8_BTL_API void DecodeDate(const System::TDateTime& value, System::Word& year, System::Word& month,
                             System::Word& day);
/// As `DecodeDate`, but with the day of the week as `DayOfWeek` gives it; true in a leap year.
TRS8_BTL_API bool DecodeDateFully(const System::TDateTime& value, System::Word& year, System::Word& month,
                                  System::Word& day, System::Word& dayOfWeek);
/// The time of day of `value`, below 24:00; zeros for no date.
TRS8_BTL_API void DecodeTime(const System::TDateTime& value, System::Word& hour, System::Word& minute,
                             System::Word& second, System::Word& milliSecond);
/// The day of the week, from 1 for Sunday to 7; 0 for no date.
TRS8_BTL_API int DayOfWeek(const System::TDateTime& value);

/// The day moved by `months`, which may be negative, and cut to the length of its new month; the time of day
/// stays. `EConvertError` if there is no such date.
TRS8_BTL_API System::TDateTime IncMonth(const System::TDateTime& value, int months = 1);

/// Gives `value` the time of day of `time`; its day stays, also before 1899.
TRS8_BTL_API void ReplaceTime(System::TDateTime& value, const System::TDateTime& time);
/// Gives `value` the day of `date`; its time of day stays.
TRS8_BTL_API void ReplaceDate(System::TDateTime& value, const System::TDateTime& date);

} // namespace Sysutils
