// SPDX-License-Identifier: MIT
#include "platform/base/dates/Sysutils_Chrono.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/internal/Sysutils_DateFields.h"
#include "platform/base/dates/internal/Sysutils_DateParts.h"

#include <cmath>

namespace Sysutils::Detail
{

using System::Int64;
using System::TDateTime;

namespace
{

/// 1 January 1970.
constexpr int FirstDayOfHost = 25569;

[[noreturn]] void FailNoDate()
{
    throw EConvertError(u"The time has no date in the years 1 to 9999");
}

Int64 FloorDivide(Int64 value, Int64 divisor)
{
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

} // namespace

TDateTime UniversalTimeOf(Int64 milliSeconds)
{
    const Int64 days = FloorDivide(milliSeconds, MSecsPerDay);
    const Int64 rest = milliSeconds - days * MSecsPerDay;
    const TDateTime value =
        JoinDayAndTime(static_cast<double>(days + FirstDayOfHost), static_cast<double>(rest) / MSecsPerDay);
    if (FieldsOf(value).year == 0) {
        FailNoDate();
    }
    return value;
}

TDateTime LocalTimeOfMilliSeconds(Int64 milliSeconds)
{
    const Int64 seconds = FloorDivide(milliSeconds, 1000);
    const auto local = LocalTimeOf(seconds);
    if (!local) {
        FailNoDate();
    }
    const Int64 rest = milliSeconds - seconds * 1000;
    const double day = std::trunc(*local);
    return JoinDayAndTime(day, std::abs(*local - day) + static_cast<double>(rest) / MSecsPerDay);
}

Int64 MilliSecondsSince1970(const TDateTime& value)
{
    if (FieldsOf(value).year == 0) {
        FailNoDate();
    }
    const double day = std::trunc(value);
    const double time = std::abs(value - day);
    return (static_cast<Int64>(day) - FirstDayOfHost) * MSecsPerDay + std::llround(time * MSecsPerDay);
}

Int64 MilliSecondsOfLocalTime(const TDateTime& value)
{
    const TDateFields fields = FieldsOf(value);
    if (fields.year == 0) {
        FailNoDate();
    }
    return SecondsOfLocalTime(value) * 1000 + fields.milliSecond;
}

} // namespace Sysutils::Detail
