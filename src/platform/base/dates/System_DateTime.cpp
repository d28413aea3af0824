// SPDX-License-Identifier: MIT
#include "platform/base/dates/System_DateTime.h"

#include "platform/base/dates/Sysutils_Calendar.h"
#include "platform/base/dates/Sysutils_DateReading.h"
#include "platform/base/dates/Sysutils_DateText.h"

namespace System
{

namespace
{

TDateTime Read(const UnicodeString& text, TDateTime::TDateTimeFlag flag)
{
    switch (flag) {
    case TDateTime::Date:
        return Sysutils::StrToDate(text);
    case TDateTime::Time:
        return Sysutils::StrToTime(text);
    default:
        return Sysutils::StrToDateTime(text);
    }
}

} // namespace

TDateTime::TDateTime(const UnicodeString& text, TDateTimeFlag flag) : TDateTime(Read(text, flag)) {}

TDateTime::TDateTime(Word year, Word month, Word day) : TDateTime(Sysutils::EncodeDate(year, month, day)) {}

TDateTime::TDateTime(Word hour, Word minute, Word second, Word milliSecond)
    : TDateTime(Sysutils::EncodeTime(hour, minute, second, milliSecond))
{
}

std::ostream& operator<<(std::ostream& stream, const TDateTime& value)
{
    return stream << value.DateTimeString();
}

UnicodeString TDateTime::DateString() const
{
    return Sysutils::DateToStr(*this);
}

UnicodeString TDateTime::TimeString() const
{
    return Sysutils::TimeToStr(*this);
}

UnicodeString TDateTime::DateTimeString() const
{
    return Sysutils::DateTimeToStr(*this);
}

UnicodeString TDateTime::FormatString(const UnicodeString& format) const
{
    return Sysutils::FormatDateTime(format, *this);
}

int TDateTime::DayOfWeek() const
{
    return Sysutils::DayOfWeek(*this);
}

void TDateTime::DecodeDate(Word* year, Word* month, Word* day) const
{
    Sysutils::DecodeDate(*this, *year, *month, *day);
}

void TDateTime::DecodeTime(Word* hour, Word* minute, Word* second, Word* milliSecond) const
{
    Sysutils::DecodeTime(*this, *hour, *minute, *second, *milliSecond);
}

TDateTime TDateTime::CurrentDate()
{
    return Sysutils::Date();
}

TDateTime TDateTime::CurrentTime()
{
    return Sysutils::Time();
}

TDateTime TDateTime::CurrentDateTime()
{
    return Sysutils::Now();
}

} // namespace System
