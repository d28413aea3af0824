// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/dates/Sysutils_Calendar.h"

#include <optional>
#include <string>
#include <string_view>

namespace Sysutils::Detail
{

/// `month` must be one.
constexpr System::Word DaysInMonth(System::Word year, System::Word month)
{
    return MonthDays[IsLeapYear(year) ? 1 : 0][month - 1U];
}

/// The local time of the seconds since 1970 in universal time; nothing outside the years 1 to 9999.
std::optional<System::TDateTime> LocalTimeOf(System::Int64 seconds);
/// The seconds since 1970 of a local time that has a date. Where the clock was put back, one of both times.
System::Int64 SecondsOfLocalTime(const System::TDateTime& local);

/// Nothing for a packed date that doesn't exist.
std::optional<System::TDateTime> UnpackFileDate(int fileDate);

/// The letters `d`, `m` and `y`, as far as a date picture has them, in its order.
std::u16string DateOrder(std::u16string_view picture);

} // namespace Sysutils::Detail
