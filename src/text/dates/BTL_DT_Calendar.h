// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/dates/System_DateTime.h"

namespace BTL
{

// Reckoning with dates. The routines that need the fields of a date raise `Sysutils::EConvertError` for a
// value without one, and for a result outside the years 1 to 9999.
//
//     const TDateTime day = Sysutils::EncodeDate(2024, 1, 31);
//     const TDateTime next = BTL::IncMonth(day, 1);                    // 29.2.2024
//     TDateTime from, to;
//     BTL::GetCurrentDate(day, BTL::kCD_LastMonth, from, to);          // 1.12.2023 to 31.12.2023

/// A range of days as seen from today.
enum ECurrentDate
{
    kCD_Today = 1,
    /// Monday to Sunday; on a Sunday the week that starts tomorrow.
    kCD_ThisWeek,
    kCD_ThisMonth,
    kCD_ThisYear,
    kCD_Yesterday,
    kCD_LastWeek,
    kCD_LastMonth,
    kCD_LastYear
};

/// The unit in which an interval is counted.
enum EDateIntervalUnit
{
    kDIU_Year = 1,
    kDIU_Month,
    kDIU_Week,
    kDIU_Day,
    kDIU_Hour,
    kDIU_Minute
};

/// The first and the last day of the range. Of an unknown range, `from` is today and `to` is left alone.
TRS8_BTL_API void GetCurrentDate(ECurrentDate range, System::TDateTime& from, System::TDateTime& to);
/// The first and the last day of the range as seen from the day of `today`; of an unknown one as without
/// `today`.
TRS8_BTL_API void GetCurrentDate(const System::TDateTime& today, ECurrentDate range, System::TDateTime& from,
                                 System::TDateTime& to);

/// A `year` below 50, negative ones too, plus 2000, from 50 to 99 plus 1900; all others stay.
constexpr int To4DigitYear(int year)
{
    return year < 50 ? year + 2000 : year < 100 ? year + 1900 : year;
}
/// `To4DigitYear` of the number that `text` is; a text that is none counts as 0.
TRS8_BTL_API System::UnicodeString To4DigitYear(const System::UnicodeString& text);
/// Applies `To4DigitYear` to the year of `date`; all else of it stays, as does a value without a date.
TRS8_BTL_API System::TDateTime To4DigitYear(const System::TDateTime& date);
TRS8_BTL_API void Set4DigitYear(System::TDateTime& date);
/// A `year` below 50 plus 2000; all others stay.
constexpr System::Word YearCorrection(System::Word year)
{
    return static_cast<System::Word>(year < 50 ? year + 2000 : year);
}

/// Moves a day by `months`, which may be negative, and cuts it to the length of its new month. A `month`
/// above 12 counts as 12, and the new year gets the `YearCorrection`. A new year outside 1 to 9999 is an
/// internal fault, after which the fields are left alone.
TRS8_BTL_API void AddMonths(System::Word& year, System::Word& month, System::Word& day, int months);
/// The day of `date` moved as by `AddMonths` of its fields, without its time of day.
TRS8_BTL_API System::TDateTime AddMonths(const System::TDateTime& date, int months);

// Moves by `n` units, which may be negative. The time of day stays or is carried on, also before 1899.

/// The day is cut to the length of its new month.
TRS8_BTL_API System::TDateTime IncYear(const System::TDateTime& date, int n);
TRS8_BTL_API System::TDateTime IncMonth(const System::TDateTime& date, int n);
TRS8_BTL_API System::TDateTime IncWeek(const System::TDateTime& date, int n);
TRS8_BTL_API System::TDateTime IncDay(const System::TDateTime& date, int n);
TRS8_BTL_API System::TDateTime IncHour(const System::TDateTime& date, int n);
TRS8_BTL_API System::TDateTime IncMinute(const System::TDateTime& date, int n);
/// The move by that unit; an unknown unit gives `date`.
TRS8_BTL_API System::TDateTime CalcNextDate(const System::TDateTime& date, int n, EDateIntervalUnit unit);

/// The day, the month and the year of a date; 0 for a value without one.
TRS8_BTL_API System::Word GetDayOf(const System::TDateTime& date);
TRS8_BTL_API System::Word GetMonthOf(const System::TDateTime& date);
TRS8_BTL_API System::Word GetYearOf(const System::TDateTime& date);

} // namespace BTL
