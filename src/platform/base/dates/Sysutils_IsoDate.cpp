// SPDX-License-Identifier: MIT
#include "platform/base/dates/Sysutils_IsoDate.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/internal/Sysutils_DateFields.h"
#include "platform/base/dates/internal/Sysutils_DateParts.h"
#include "platform/base/internal/System_Ascii.h"

#include <cmath>
#include <cstdlib>
#include <variant>

namespace Sysutils
{

using System::Int64;
using System::TDateTime;
using System::UnicodeString;
using System::WideChar;
using System::Word;

namespace
{

/// What is wrong with a text, and where: the 1-based place of the first character that can't stand there.
struct TFault
{
    UnicodeString what;
    std::size_t place;
};

/// The whole milliseconds since day zero.
Int64 MilliSecondsOf(const TDateTime& value)
{
    const double day = std::trunc(value);
    const double time = std::abs(value - day);
    return static_cast<Int64>(day) * MSecsPerDay + std::llround(time * MSecsPerDay);
}

TDateTime ValueOf(Int64 milliSeconds)
{
    Int64 day = milliSeconds / MSecsPerDay;
    Int64 time = milliSeconds % MSecsPerDay;
    if (time < 0) {
        --day;
        time += MSecsPerDay;
    }
    return Detail::JoinDayAndTime(static_cast<double>(day), static_cast<double>(time) / MSecsPerDay);
}

class CIsoReader
{
public:
    explicit CIsoReader(std::u16string_view text) : mText(text) {}

    /// Nothing for a text that is refused; `getFault` tells why then.
    std::optional<TIsoDateTime> Read()
    {
        const TIsoDateTime result = ReadAll();
        return mFault ? std::nullopt : std::optional(result);
    }

    const TFault& getFault() const { return *mFault; }

private:
    // Behind a fault the reading goes on to its end, with values that are in order but of no use.

    TIsoDateTime ReadAll()
    {
        const TDateTime day = ReadDay();
        TIsoDateTime result{day, {}};
        if (AtEnd()) {
            return result;
        }
        if (!Take(u'T') && !Take(u't') && !Take(u' ')) {
            Fail(u"a T or a blank is missing in front of the time");
        }
        const Int64 time = ReadTime();
        result.offset = ReadOffset();
        if (!AtEnd()) {
            Fail(u"more text follows");
        }
        const Int64 moment = MilliSecondsOf(day) + time;
        result.value = ValueOf(moment);
        if (Detail::FieldsOf(result.value).year == 0) {
            FailAt(0, u"there is no such year");
        }
        return result;
    }

    bool AtEnd() const { return mPlace >= mText.size(); }
    WideChar Next() const { return AtEnd() ? u'\0' : mText[mPlace]; }

    bool Take(WideChar character)
    {
        const bool found = !AtEnd() && mText[mPlace] == character;
        mPlace += found ? 1 : 0;
        return found;
    }

    void Fail(const UnicodeString& what) { FailAt(mPlace, what); }
    /// The first fault counts.
    void FailAt(std::size_t place, const UnicodeString& what)
    {
        if (!mFault) {
            mFault = TFault{what, place + 1};
        }
    }

    void Need(WideChar character, std::u16string_view name)
    {
        if (!Take(character)) {
            Fail(u"'" + UnicodeString(character) + u"' is missing " + UnicodeString(name));
        }
    }

    /// A number with exactly `digits` digits, up to `highest`; the lowest one for a fault.
    int ReadField(int digits, int lowest, int highest, std::u16string_view name)
    {
        const std::size_t start = mPlace;
        int value = 0;
        for (int i = 0; i < digits; ++i) {
            if (!System::Detail::IsAsciiDigit(Next())) {
                Fail(u"the " + UnicodeString(name) + u" needs " + UnicodeString(digits) + u" digits");
                return lowest;
            }
            value = value * 10 + (mText[mPlace++] - u'0');
        }
        if (value < lowest || value > highest) {
            FailAt(start, u"the " + UnicodeString(name) + u" is not in " + UnicodeString(lowest) + u" to " +
                              UnicodeString(highest));
            return lowest;
        }
        return value;
    }

    TDateTime ReadDay()
    {
        const auto year = static_cast<Word>(ReadField(4, 1, 9999, u"year"));
        Need(u'-', u"behind the year");
        const auto month = static_cast<Word>(ReadField(2, 1, 12, u"month"));
        Need(u'-', u"behind the month");
        const auto last = Detail::DaysInMonth(year, month);
        const auto day = static_cast<Word>(ReadField(2, 1, last, u"day of this month"));
        return EncodeDate(year, month, day);
    }

    /// In milliseconds.
    Int64 ReadTime()
    {
        const std::size_t start = mPlace;
        const int hour = ReadField(2, 0, 24, u"hour");
        Need(u':', u"behind the hour");
        const int minute = ReadField(2, 0, 59, u"minute");
        int second = 0;
        int milliSecond = 0;
        if (Take(u':')) {
            second = ReadField(2, 0, 60, u"second");
            milliSecond = ReadFraction();
        }
        const Int64 time = ((hour * 60 + minute) * Int64{60} + second) * 1000 + milliSecond;
        if (time > MSecsPerDay && hour == 24) {
            FailAt(start, u"no time is later than 24:00");
        }
        return time;
    }

    int ReadFraction()
    {
        if (!Take(u'.') && !Take(u',')) {
            return 0;
        }
        if (!System::Detail::IsAsciiDigit(Next())) {
            Fail(u"the fraction of a second needs a digit");
        }
        int digits = 0;
        int value = 0;
        for (; System::Detail::IsAsciiDigit(Next()); ++mPlace, ++digits) {
            if (digits < 3) {
                value = value * 10 + (Next() - u'0');
            } else if (digits == 3) {
                value += Next() >= u'5' ? 1 : 0;
            }
        }
        for (; digits < 3; ++digits) {
            value *= 10;
        }
        return value;
    }

    std::optional<int> ReadOffset()
    {
        if (Take(u'Z') || Take(u'z')) {
            return 0;
        }
        const bool west = Next() == u'-' || Next() == u'\u2212';
        if (!west && Next() != u'+') {
            return std::nullopt;
        }
        ++mPlace;
        const int hours = ReadField(2, 0, 23, u"hour of the offset");
        int minutes = 0;
        if (Take(u':') || System::Detail::IsAsciiDigit(Next())) {
            minutes = ReadField(2, 0, 59, u"minute of the offset");
        }
        const int offset = hours * 60 + minutes;
        return west ? -offset : offset;
    }

    std::u16string_view mText;
    std::size_t mPlace = 0;
    std::optional<TFault> mFault;
};

UnicodeString Padded(int value, std::size_t width)
{
    const UnicodeString digits(value);
    return UnicodeString::StringOfChar(u'0', static_cast<int>(width) - digits.Length()) + digits;
}

Detail::TDateFields NeedFields(const TDateTime& value)
{
    const Detail::TDateFields fields = Detail::FieldsOf(value);
    if (fields.year == 0) {
        throw EConvertError(u"The value has no date");
    }
    return fields;
}

UnicodeString DayText(const Detail::TDateFields& fields)
{
    return Padded(fields.year, 4) + u'-' + Padded(fields.month, 2) + u'-' + Padded(fields.day, 2);
}

UnicodeString OffsetText(int offset)
{
    if (offset == 0) {
        return u"Z";
    }
    const int size = std::abs(offset);
    return UnicodeString(offset < 0 ? u'-' : u'+') + Padded(size / 60, 2) + u':' + Padded(size % 60, 2);
}

} // namespace

TDateTime TIsoDateTime::InUniversalTime() const
{
    return offset ? ValueOf(MilliSecondsOf(value) - Int64{*offset} * 60'000) : value;
}

UnicodeString DateTimeToIso(const TDateTime& value, std::optional<int> offset)
{
    const Detail::TDateFields fields = NeedFields(value);
    if (offset && std::abs(Int64{*offset}) >= MinsPerDay) {
        throw EConvertError(UnicodeString(*offset) + u" minutes are no offset of a clock");
    }
    UnicodeString text = DayText(fields) + u'T' + Padded(fields.hour, 2) + u':' + Padded(fields.minute, 2) +
                         u':' + Padded(fields.second, 2);
    if (fields.milliSecond != 0) {
        text += u'.' + Padded(fields.milliSecond, 3);
    }
    return offset ? text + OffsetText(*offset) : text;
}

UnicodeString DateToIso(const TDateTime& value)
{
    return DayText(NeedFields(value));
}

TIsoDateTime IsoToDateTime(std::u16string_view text)
{
    CIsoReader reader(text);
    if (const auto value = reader.Read()) {
        return *value;
    }
    const TFault& fault = reader.getFault();
    throw EConvertError(u"'" + UnicodeString(text) + u"' is no date and time of ISO 8601: " + fault.what +
                        u" (character " + UnicodeString(static_cast<Int64>(fault.place)) + u")");
}

bool TryIsoToDateTime(std::u16string_view text, TIsoDateTime& value)
{
    const auto read = CIsoReader(text).Read();
    if (read) {
        value = *read;
    }
    return read.has_value();
}

} // namespace Sysutils
