// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/dates/System_DateTime.h"

#include <chrono>

// Dates of this library and those of `std::chrono`. A header of its own: that of the standard is large.
//
//     const TDateTime utc = ToDateTime(std::chrono::system_clock::now());     // universal time
//     const TDateTime local = ToLocalDateTime(std::chrono::system_clock::now());
//     const std::chrono::sys_days day(std::chrono::year(2022) / 2 / 28);
//     ToSysTime(ToDateTime(day)) == day;                                      // to the millisecond

namespace Sysutils
{

namespace Detail
{

/// The value of the milliseconds since 1970 in universal time. `EConvertError` outside the years 1 to 9999.
TRS8_BTL_API System::TDateTime UniversalTimeOf(System::Int64 milliSeconds);
TRS8_BTL_API System::TDateTime LocalTimeOfMilliSeconds(System::Int64 milliSeconds);
/// The milliseconds since 1970 of a value in universal time. `EConvertError` for a value without a date.
TRS8_BTL_API System::Int64 MilliSecondsSince1970(const System::TDateTime& value);
TRS8_BTL_API System::Int64 MilliSecondsOfLocalTime(const System::TDateTime& value);

/// Cut to milliseconds, towards the past. A time that they can't count is as far away as one without a date.
template <class Duration>
System::Int64 WholeMilliSeconds(std::chrono::sys_time<Duration> time)
{
    using Days = std::chrono::duration<long double, std::ratio<86400>>;
    constexpr long double FarAway = 1e7;
    const Days days = time.time_since_epoch();
    if (!(days.count() > -FarAway && days.count() < FarAway)) {
        return days.count() < 0 ? -900'000'000'000'000 : 900'000'000'000'000;
    }
    return std::chrono::floor<std::chrono::duration<System::Int64, std::milli>>(time.time_since_epoch())
        .count();
}

} // namespace Detail

/// The date and time in universal time, cut to the millisecond. `EConvertError` outside the years 1 to 9999.
template <class Duration>
System::TDateTime ToDateTime(std::chrono::sys_time<Duration> time)
{
    return Detail::UniversalTimeOf(Detail::WholeMilliSeconds(time));
}

/// As `ToDateTime`, but in the local time of the host, as `Now` gives it.
template <class Duration>
System::TDateTime ToLocalDateTime(std::chrono::sys_time<Duration> time)
{
    return Detail::LocalTimeOfMilliSeconds(Detail::WholeMilliSeconds(time));
}

/// A time of the system clock in whole milliseconds, as a `TDateTime` has them.
using TSysMilliSeconds = std::chrono::sys_time<std::chrono::milliseconds>;

/// The moment of a date and time in universal time, rounded to the millisecond. `EConvertError` for a value
/// without a date.
inline TSysMilliSeconds ToSysTime(const System::TDateTime& universalTime)
{
    return TSysMilliSeconds(std::chrono::milliseconds(Detail::MilliSecondsSince1970(universalTime)));
}

/// As `ToSysTime`, but of a local time. One that the clock shows twice is either moment.
inline TSysMilliSeconds LocalToSysTime(const System::TDateTime& localTime)
{
    return TSysMilliSeconds(std::chrono::milliseconds(Detail::MilliSecondsOfLocalTime(localTime)));
}

} // namespace Sysutils
