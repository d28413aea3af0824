// SPDX-License-Identifier: MIT
#include "text/dates/BTL_DT_Calendar.h"

#include "platform/base/dates/internal/Sysutils_DateParts.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "text/dates/internal/BTL_DT_Fault.h"

#include <algorithm>
#include <cmath>

namespace BTL
{

using System::Int64;
using System::TDateTime;
using System::UnicodeString;
using System::Word;

namespace
{

constexpr int MonthsPerYear = 12;
constexpr int DaysPerWeek = 7;
constexpr int LastYear = 9999;

struct TDay
{
    Word year = 0;
    Word month = 0;
    Word day = 0;
};

TDay DayOf(const TDateTime& date)
{
    TDay result;
    Sysutils::DecodeDate(date, result.year, result.month, result.day);
    return result;
}

/// Adds on a line on which time runs evenly; a `TDateTime` turns its fractions round at day zero.
TDateTime AddDays(double date, double days)
{
    const double whole = std::trunc(date);
    const double sum = whole + std::abs(date - whole) + days;
    const double sumDay = std::floor(sum);
    return sumDay < 0 ? sumDay - (sum - sumDay) : sum;
}

TDateTime FirstOfMonth(const TDateTime& today)
{
    const TDay day = DayOf(today);
    return Sysutils::EncodeDate(day.year, day.month, 1);
}

void SetMonths(TDateTime first, int count, TDateTime& from, TDateTime& to)
{
    from = first;
    to = Sysutils::IncMonth(first, count) - 1;
}

} // namespace

void GetCurrentDate(ECurrentDate range, TDateTime& from, TDateTime& to)
{
    GetCurrentDate(Sysutils::Date(), range, from, to);
}

void GetCurrentDate(const TDateTime& today, ECurrentDate range, TDateTime& from, TDateTime& to)
{
    // Of the fields, which are those of the rounded value.
    const TDay fields = DayOf(today);
    const TDateTime day = Sysutils::EncodeDate(fields.year, fields.month, fields.day);
    const TDateTime month = FirstOfMonth(day);
    const TDateTime year = Sysutils::EncodeDate(fields.year, 1, 1);
    const TDateTime monday = day - Sysutils::DayOfWeek(day) + 2;
    switch (range) {
    case kCD_Today:
        from = to = day;
        break;
    case kCD_ThisWeek:
        from = monday;
        to = monday + (DaysPerWeek - 1);
        break;
    case kCD_ThisMonth:
        SetMonths(month, 1, from, to);
        break;
    case kCD_ThisYear:
        SetMonths(year, MonthsPerYear, from, to);
        break;
    case kCD_Yesterday:
        from = to = day - 1;
        break;
    case kCD_LastWeek:
        from = monday - DaysPerWeek;
        to = monday - 1;
        break;
    case kCD_LastMonth:
        SetMonths(Sysutils::IncMonth(month, -1), 1, from, to);
        break;
    case kCD_LastYear:
        SetMonths(Sysutils::IncMonth(year, -MonthsPerYear), MonthsPerYear, from, to);
        break;
    default:
        from = day;
        break;
    }
}

UnicodeString To4DigitYear(const UnicodeString& text)
{
    return UnicodeString(To4DigitYear(Sysutils::StrToIntDef(text, 0)));
}

TDateTime To4DigitYear(const TDateTime& date)
{
    TDateTime result = date;
    Set4DigitYear(result);
    return result;
}

void Set4DigitYear(TDateTime& date)
{
    // The day that the fraction belongs to: a value a hair below midnight shows the next one.
    const TDay day = DayOf(std::trunc(date));
    if (day.year == 0 || day.year > 99) {
        return;
    }
    // The four-digit years have the same leap days.
    Sysutils::ReplaceDate(
        date, Sysutils::EncodeDate(static_cast<Word>(To4DigitYear(day.year)), day.month, day.day));
}

void AddMonths(Word& year, Word& month, Word& day, int months)
{
    const Int64 total = Int64{year} * MonthsPerYear + std::min<int>(month, MonthsPerYear) + months - 1;
    if (total < MonthsPerYear || total / MonthsPerYear > LastYear) {
        Detail::FaultOnDate();
        return;
    }
    const auto newYear = static_cast<Word>(total / MonthsPerYear);
    month = static_cast<Word>(total % MonthsPerYear + 1);
    day = std::min(day, Sysutils::Detail::DaysInMonth(newYear, month));
    year = YearCorrection(newYear);
}

TDateTime AddMonths(const TDateTime& date, int months)
{
    TDay day = DayOf(date);
    if (day.year != 0) {
        AddMonths(day.year, day.month, day.day, months);
    }
    return Sysutils::EncodeDate(day.year, day.month, day.day);
}

TDateTime IncYear(const TDateTime& date, int n)
{
    // More years than there are fail as well, without an overflow.
    return Sysutils::IncMonth(date, MonthsPerYear * std::clamp(n, -LastYear, LastYear));
}

TDateTime IncMonth(const TDateTime& date, int n)
{
    return Sysutils::IncMonth(date, n);
}

TDateTime IncWeek(const TDateTime& date, int n)
{
    return AddDays(date, static_cast<double>(n) * DaysPerWeek);
}

TDateTime IncDay(const TDateTime& date, int n)
{
    return AddDays(date, n);
}

TDateTime IncHour(const TDateTime& date, int n)
{
    return n == 0 ? date : AddDays(date, static_cast<double>(n) / Sysutils::HoursPerDay);
}

TDateTime IncMinute(const TDateTime& date, int n)
{
    return n == 0 ? date : AddDays(date, static_cast<double>(n) / Sysutils::MinsPerDay);
}

TDateTime CalcNextDate(const TDateTime& date, int n, EDateIntervalUnit unit)
{
    switch (unit) {
    case kDIU_Year:
        return IncYear(date, n);
    case kDIU_Month:
        return IncMonth(date, n);
    case kDIU_Week:
        return IncWeek(date, n);
    case kDIU_Day:
        return IncDay(date, n);
    case kDIU_Hour:
        return IncHour(date, n);
    case kDIU_Minute:
        return IncMinute(date, n);
    default:
        return date;
    }
}

Word GetDayOf(const TDateTime& date)
{
    return DayOf(date).day;
}

Word GetMonthOf(const TDateTime& date)
{
    return DayOf(date).month;
}

Word GetYearOf(const TDateTime& date)
{
    return DayOf(date).year;
}

} // namespace BTL
