// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Locale.h"
#include "platform/base/dates/System_DateTime.h"

#include <array>

// Dates and times. The calendar is the Gregorian one, also for days before its time, from year 1 to 9999. A
// value outside these years, an infinite one and none at all have no date: all their fields are 0, the time
// of day too. Local time is that of the host.

namespace Sysutils
{

inline constexpr int HoursPerDay = 24;
inline constexpr int MinsPerDay = 1440;
inline constexpr int SecsPerDay = 86'400;
inline constexpr int MSecsPerDay = 86'400'000;

using TDayTable = std::array<System::Word, 12>;
/// The days of each month, January first, of a common year and of a leap year: `MonthDays[leap][month - 1]`.
inline constexpr std::array<TDayTable, 2> MonthDays = {{
    {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
    {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31},
}};

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
TRS8_BTL_API System::Word CurrentYear();

/// `EConvertError` for a day that the calendar lacks; the other form gives false and leaves `value` alone.
TRS8_BTL_API System::TDateTime EncodeDate(System::Word year, System::Word month, System::Word day);
TRS8_BTL_API bool TryEncodeDate(System::Word year, System::Word month, System::Word day,
                                System::TDateTime& value);
/// The same for a time of day up to 23:59:59.999.
TRS8_BTL_API System::TDateTime EncodeTime(System::Word hour, System::Word minute, System::Word second,
                                          System::Word milliSecond);
TRS8_BTL_API bool TryEncodeTime(System::Word hour, System::Word minute, System::Word second,
                                System::Word milliSecond, System::TDateTime& value);

// Fields are those of the value rounded to the millisecond, so that a time just before midnight belongs to
// the next day and no time is 24:00.

TRS8_BTL_API void DecodeDate(const System::TDateTime& value, System::Word& year, System::Word& month,
                             System::Word& day);
/// With the day of the week, as `DayOfWeek`; true in a leap year.
TRS8_BTL_API bool DecodeDateFully(const System::TDateTime& value, System::Word& year, System::Word& month,
                                  System::Word& day, System::Word& dayOfWeek);
TRS8_BTL_API void DecodeTime(const System::TDateTime& value, System::Word& hour, System::Word& minute,
                             System::Word& second, System::Word& milliSecond);
/// 1 for Sunday to 7; 0 for no date.
TRS8_BTL_API int DayOfWeek(const System::TDateTime& value);

/// The day moved by `months`, which may be negative, and cut to the length of its new month; the time of day
/// stays. `EConvertError` if there is no such date.
TRS8_BTL_API System::TDateTime IncMonth(const System::TDateTime& value, int months = 1);

/// Gives `value` the time of day of `time`; its day stays, also before 1899.
TRS8_BTL_API void ReplaceTime(System::TDateTime& value, const System::TDateTime& time);
/// Gives `value` the day of `date`; its time of day stays.
TRS8_BTL_API void ReplaceDate(System::TDateTime& value, const System::TDateTime& date);

// Texts. No date is written with zeros and without names. Forms without settings follow `FormatSettings`.

/// By the picture `ShortDateFormat`.
TRS8_BTL_API System::UnicodeString DateToStr(const System::TDateTime& value);
TRS8_BTL_API System::UnicodeString DateToStr(const System::TDateTime& value, const TFormatSettings& settings);
/// By the picture `LongTimeFormat`.
TRS8_BTL_API System::UnicodeString TimeToStr(const System::TDateTime& value);
TRS8_BTL_API System::UnicodeString TimeToStr(const System::TDateTime& value, const TFormatSettings& settings);
/// Both with a blank between them; at midnight the date alone.
TRS8_BTL_API System::UnicodeString DateTimeToStr(const System::TDateTime& value);
TRS8_BTL_API System::UnicodeString DateTimeToStr(const System::TDateTime& value,
                                                 const TFormatSettings& settings);

/// Writes `value` by a picture, in which case doesn't matter:
/// - `yy`, `yyyy`: the year with two or four digits
/// - `m`, `mm`, `mmm`, `mmmm`: the month; `d`, `dd`, `ddd`, `dddd`: the day. One letter is a plain number,
///   two are two digits, three the short name, four the long one
/// - `h`, `hh`, `n`, `nn`, `s`, `ss`, `z`, `zzz`: hour, minute, second, millisecond. `m` and `mm` are minutes
///   if the last letters in front of them were hours
/// - `am/pm`, `a/p`: one of the two as it stands, `ampm`: `TimeAMString` or `TimePMString`; the hour in front
///   is then one of a clock with 12
/// - `ddddd`, `dddddd`, `t`, `tt`: the pictures `ShortDateFormat`, `LongDateFormat`, `ShortTimeFormat`,
///   `LongTimeFormat`; `c`: as `DateTimeToStr`. Such a picture doesn't follow another one in turn
/// - `/`, `:`: the separators of the settings
/// - text in single or double quotes as it stands; a quote that isn't closed reaches to the end
/// - any other character as it stands.
///
/// An empty picture is `c`.
TRS8_BTL_API System::UnicodeString FormatDateTime(const System::UnicodeString& format,
                                                  const System::TDateTime& value);
TRS8_BTL_API System::UnicodeString FormatDateTime(const System::UnicodeString& format,
                                                  const System::TDateTime& value,
                                                  const TFormatSettings& settings);
TRS8_BTL_API void DateTimeToString(System::UnicodeString& result, const System::UnicodeString& format,
                                   const System::TDateTime& value);
TRS8_BTL_API void DateTimeToString(System::UnicodeString& result, const System::UnicodeString& format,
                                   const System::TDateTime& value, const TFormatSettings& settings);

// Reading. The whole text must fit; blanks may stand around its parts. `EConvertError` on failure; the other
// forms give false and leave `value` alone, or the default.

/// Reads day, month and year as numbers in the order of `ShortDateFormat`, with `DateSeparator` between them
/// and perhaps behind them. Without a year it is the current one; one of up to two digits gets its century by
/// `TwoDigitYearCenturyWindow`.
TRS8_BTL_API System::TDateTime StrToDate(const System::UnicodeString& text);
TRS8_BTL_API System::TDateTime StrToDate(const System::UnicodeString& text, const TFormatSettings& settings);
TRS8_BTL_API System::TDateTime StrToDateDef(const System::UnicodeString& text,
                                            const System::TDateTime& defaultValue);
TRS8_BTL_API System::TDateTime StrToDateDef(const System::UnicodeString& text,
                                            const System::TDateTime& defaultValue,
                                            const TFormatSettings& settings);
TRS8_BTL_API bool TryStrToDate(const System::UnicodeString& text, System::TDateTime& value);
TRS8_BTL_API bool TryStrToDate(const System::UnicodeString& text, System::TDateTime& value,
                               const TFormatSettings& settings);

/// Reads hour, minute and second with `TimeSeparator` between them, the latter two optional, then perhaps
/// `DecimalSeparator` or `.` and a number of milliseconds. `TimeAMString`, `TimePMString`, "AM" or "PM" in
/// front or behind, case aside, make it a clock with 12 hours.
TRS8_BTL_API System::TDateTime StrToTime(const System::UnicodeString& text);
TRS8_BTL_API System::TDateTime StrToTime(const System::UnicodeString& text, const TFormatSettings& settings);
TRS8_BTL_API System::TDateTime StrToTimeDef(const System::UnicodeString& text,
                                            const System::TDateTime& defaultValue);
TRS8_BTL_API System::TDateTime StrToTimeDef(const System::UnicodeString& text,
                                            const System::TDateTime& defaultValue,
                                            const TFormatSettings& settings);
TRS8_BTL_API bool TryStrToTime(const System::UnicodeString& text, System::TDateTime& value);
TRS8_BTL_API bool TryStrToTime(const System::UnicodeString& text, System::TDateTime& value,
                               const TFormatSettings& settings);

/// Reads a date and perhaps a time behind it.
TRS8_BTL_API System::TDateTime StrToDateTime(const System::UnicodeString& text);
TRS8_BTL_API System::TDateTime StrToDateTime(const System::UnicodeString& text,
                                             const TFormatSettings& settings);
TRS8_BTL_API System::TDateTime StrToDateTimeDef(const System::UnicodeString& text,
                                                const System::TDateTime& defaultValue);
TRS8_BTL_API System::TDateTime StrToDateTimeDef(const System::UnicodeString& text,
                                                const System::TDateTime& defaultValue,
                                                const TFormatSettings& settings);
TRS8_BTL_API bool TryStrToDateTime(const System::UnicodeString& text, System::TDateTime& value);
TRS8_BTL_API bool TryStrToDateTime(const System::UnicodeString& text, System::TDateTime& value,
                                   const TFormatSettings& settings);

// The packed file dates of `FileAge`, in steps of two seconds.

/// A value outside their range gives the first or last of them, one that is no number the first.
TRS8_BTL_API int DateTimeToFileDate(const System::TDateTime& value);
/// `EConvertError` for a date that doesn't exist.
TRS8_BTL_API System::TDateTime FileDateToDateTime(int fileDate);

} // namespace Sysutils
