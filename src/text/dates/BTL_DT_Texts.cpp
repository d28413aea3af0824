// SPDX-License-Identifier: MIT
#include "text/dates/BTL_DT_Texts.h"

#include "platform/base/dates/Sysutils_Calendar.h"
#include "platform/base/dates/Sysutils_DateText.h"
#include "platform/base/dates/internal/Sysutils_DateFields.h"
#include "platform/base/internal/System_Digits.h"
#include "platform/base/internal/System_TextBuffer.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
#include "text/dates/BTL_DT_Calendar.h"
#include "text/dates/BTL_DT_Reading.h"
#include "text/dates/internal/BTL_DT_Fault.h"
#include "text/editing/BTL_STR_Cut.h"
#include "text/editing/BTL_STR_Join.h"

#include <cstddef>

namespace BTL
{

using System::Int64;
using System::TDateTime;
using System::UnicodeString;
using System::WideChar;
using System::Word;

namespace
{

UnicodeString Quoted(const UnicodeString& text, bool quoted)
{
    return quoted ? Sysutils::QuotedStr(text) : text;
}

/// A single digit gets zeros in front; wildcards stay.
UnicodeString Padded(const UnicodeString& part, int width)
{
    const bool isWildcard = part == u"%" || part == u"_";
    return part.Length() == 1 && !isWildcard ? FillStringLeft(part, width, u'0') : part;
}

void AddPart(UnicodeString& text, WideChar separator, const UnicodeString& part, int width = 2)
{
    if (!part.IsEmpty()) {
        text += separator + Padded(part, width);
    }
}

UnicodeString DateText(const UnicodeString& year, const UnicodeString& month, const UnicodeString& day)
{
    UnicodeString text = To4DigitYear(year);
    AddPart(text, u'-', month);
    AddPart(text, u'-', day);
    return text;
}

using CText = System::Detail::GTextBuffer<UnicodeString>;

void AddNumber(CText& text, Word number)
{
    const std::size_t count = System::Detail::CountDigits(number);
    System::Detail::WriteDigits(number, text.AddPlaces(count) + count);
}

void AddDate(CText& text, const Sysutils::Detail::TDateFields& fields)
{
    AddNumber(text, fields.year);
    text.Add(u'-');
    AddNumber(text, fields.month);
    text.Add(u'-');
    AddNumber(text, fields.day);
}

/// The separators of a date with its time.
struct TSeparators
{
    WideChar behindDate;
    WideChar behindHourAndMinute;
    WideChar behindSecond;
};

bool IsDayZero(const Sysutils::Detail::TDateFields& fields)
{
    return fields.year == 1899 && fields.month == 12 && fields.day == 30;
}

/// Without the date of day zero or of a value that has none, and without the time of midnight.
UnicodeString DateTimeText(const TDateTime& value, const TSeparators& separators)
{
    const auto fields = Sysutils::Detail::FieldsOf(value);
    CText text;
    const bool hasDate = fields.year != 0 && !IsDayZero(fields);
    if (hasDate) {
        AddDate(text, fields);
    }
    if (fields.IsMidnight()) {
        return text.Take();
    }
    if (hasDate) {
        text.Add(separators.behindDate);
    }
    AddNumber(text, fields.hour);
    text.Add(separators.behindHourAndMinute);
    AddNumber(text, fields.minute);
    text.Add(separators.behindHourAndMinute);
    AddNumber(text, fields.second);
    text.Add(separators.behindSecond);
    AddNumber(text, fields.milliSecond);
    return text.Take();
}

} // namespace

UnicodeString GetLocalTime()
{
    return Sysutils::DateTimeToStr(Sysutils::Now());
}

UnicodeString GetCurrentDate()
{
    return Sysutils::DateToStr(Sysutils::Date());
}

UnicodeString GetValidDateString(const UnicodeString& text)
{
    return Sysutils::DateToStr(GetValidDate(text));
}

UnicodeString GetValidDateTimeString(const UnicodeString& text)
{
    return GetDateTimeStringWithMSec(GetValidDateTime(text));
}

UnicodeString GetDateTimeStringWithMSec(const TDateTime& value)
{
    Word ignored = 0;
    Word milliSecond = 0;
    Sysutils::DecodeTime(value, ignored, ignored, ignored, milliSecond);
    if (milliSecond == 0) {
        return Sysutils::DateTimeToStr(value);
    }
    UnicodeString picture = Sysutils::ShortDateFormat + u' ' + Sysutils::LongTimeFormat;
    if (picture.Pos(u'z') == 0 && picture.Pos(u'Z') == 0) {
        picture += Sysutils::DecimalSeparator + UnicodeString(u"zzz");
    }
    return Sysutils::FormatDateTime(picture, value);
}

UnicodeString GetSQLDateString(const UnicodeString& text, bool quoted)
{
    UnicodeString year;
    UnicodeString month;
    UnicodeString day;
    DecodeDate(text, year, month, day);
    return Quoted(DateText(year, month, day), quoted);
}

UnicodeString GetSQLDateTimeString(const UnicodeString& text, bool quoted)
{
    UnicodeString year;
    UnicodeString month;
    UnicodeString day;
    UnicodeString hour;
    UnicodeString minute;
    UnicodeString second;
    UnicodeString milliSecond;
    DecodeDateTime(text, year, month, day, hour, minute, second, milliSecond);
    UnicodeString result = DateText(year, month, day);
    if (!hour.IsEmpty()) {
        AddPart(result, u' ', hour);
        AddPart(result, u':', minute);
        AddPart(result, u':', second);
        constexpr int milliSecondWidth = 4;
        AddPart(result, u'.', milliSecond, milliSecondWidth);
    }
    return Quoted(result, quoted);
}

UnicodeString GetSQLDateString(const TDateTime& value, bool quoted)
{
    CText text;
    AddDate(text, Sysutils::Detail::FieldsOf(value));
    return Quoted(text.Take(), quoted);
}

UnicodeString GetSQLDateTimeString(const TDateTime& value, bool quoted)
{
    return Quoted(DateTimeText(value, {u' ', u':', u'.'}), quoted);
}

UnicodeString GetValidFileName(const TDateTime& value)
{
    return DateTimeText(value, {u'_', u'-', u'-'});
}

UnicodeString GetShortDate(const UnicodeString& date, const UnicodeString& months)
{
    if (date.Length() < 6 || date.Length() > 10) {
        Detail::FaultOnDate();
        return {};
    }
    UnicodeString rest = date;
    ConsumeLeftSubString(rest, Sysutils::DateSeparator, false);
    const int month = Sysutils::StrToIntDef(ConsumeLeftSubString(rest, Sysutils::DateSeparator, false), 0);
    const int year = Sysutils::StrToIntDef(RightSubString(date, 2), -1);
    if (month < 1 || year < 0) {
        return {};
    }
    constexpr Int64 perYear = 12;
    constexpr Int64 perCentury = 100;
    // Counted from the year 0 of a century far back, so that what is left over isn't negative.
    constexpr Int64 farBack = perCentury * 10'000'000;
    const Int64 count = (farBack + year) * perYear + month + Sysutils::StrToIntDef(months, 12) - 1;
    return FillNumberLeftW(static_cast<int>(count % perYear + 1), 12) +
           FillNumberLeftW(static_cast<int>(count / perYear % perCentury), 99);
}

} // namespace BTL
