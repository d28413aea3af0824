// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Locale.h"
#include "platform/base/dates/Sysutils_Calendar.h"

#include <limits>
#include <tuple>

namespace Support
{

inline constexpr double Infinity = std::numeric_limits<double>::infinity();
inline constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
/// The first day of the year 1 and the last one of the year 9999.
inline constexpr double FirstDay = -693593;
inline constexpr double LastDay = 2958465;
inline constexpr double ValuesWithoutADate[] = {NotANumber, Infinity,    -Infinity,   1e300,
                                                -1e300,     LastDay + 1, FirstDay - 1};

/// Year, month and day.
using Day = std::tuple<System::Word, System::Word, System::Word>;
/// Hour, minute, second and millisecond.
using Clock = std::tuple<System::Word, System::Word, System::Word, System::Word>;

inline Day DayOf(const System::TDateTime& value)
{
    System::Word year = 1;
    System::Word month = 1;
    System::Word day = 1;
    Sysutils::DecodeDate(value, year, month, day);
    return {year, month, day};
}

inline Clock ClockOf(const System::TDateTime& value)
{
    System::Word hour = 1;
    System::Word minute = 1;
    System::Word second = 1;
    System::Word milliSecond = 1;
    Sysutils::DecodeTime(value, hour, minute, second, milliSecond);
    return {hour, minute, second, milliSecond};
}

inline Sysutils::TFormatSettings GermanSettings()
{
    Sysutils::TFormatSettings settings;
    settings.DecimalSeparator = u',';
    settings.DateSeparator = u'.';
    settings.ShortDateFormat = u"dd.MM.yyyy";
    settings.LongDateFormat = u"dddd, d. mmmm yyyy";
    settings.ShortMonthNames = {u"Jan", u"Feb", u"Mär"};
    settings.LongMonthNames = {u"Januar", u"Februar", u"März"};
    settings.ShortDayNames = {u"So", u"Mo", u"Di", u"Mi", u"Do", u"Fr", u"Sa"};
    settings.LongDayNames = {u"Sonntag", u"Montag", u"Dienstag", u"Mittwoch", u"Donnerstag"};
    settings.TimeAMString = u"v";
    settings.TimePMString = u"nachm";
    return settings;
}

} // namespace Support
