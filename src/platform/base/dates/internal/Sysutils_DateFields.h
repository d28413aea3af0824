// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/dates/System_DateTime.h"

namespace Sysutils::Detail
{

/// What a calendar and a clock show of a value; all 0 without a date.
struct TDateFields
{
    System::Word year = 0;
    System::Word month = 0;
    System::Word day = 0;
    System::Word dayOfWeek = 0;
    System::Word hour = 0;
    System::Word minute = 0;
    System::Word second = 0;
    System::Word milliSecond = 0;

    bool IsMidnight() const { return hour == 0 && minute == 0 && second == 0 && milliSecond == 0; }
};

/// The fields of `value` rounded to the millisecond.
[[nodiscard]] TDateFields FieldsOf(const System::TDateTime& value);

/// The value of a day and a time of day. The latter counts forwards on either side of day zero.
[[nodiscard]] System::TDateTime JoinDayAndTime(double day, double time);

} // namespace Sysutils::Detail
