// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/System_String.h"

#include <compare>

namespace System
{

/// A point in time: days since 30 December 1899, with the time of day in the fraction. Before that day the
/// whole days are negative and the fraction still counts forwards, so that -1.25 is 29 December at six
/// o'clock. A time of day alone has no whole days.
class TRS8_BTL_API TDateTime
{
public:
    /// What a text is read as.
    enum TDateTimeFlag
    {
        Date,
        Time,
        DateTime
    };

    constexpr TDateTime() noexcept = default;
    constexpr TDateTime(double days) noexcept : Val(days) {}
    /// Reads the text by `Sysutils::FormatSettings`; `Sysutils::EConvertError` if it is none.
    explicit TDateTime(const UnicodeString& text, TDateTimeFlag flag = DateTime);
    /// `Sysutils::EConvertError` for a day that no calendar has.
    TDateTime(Word year, Word month, Word day);
    /// `Sysutils::EConvertError` for a time that no clock shows.
    TDateTime(Word hour, Word minute, Word second, Word milliSecond);

    constexpr operator double() const noexcept { return Val; }

    constexpr TDateTime& operator+=(double days) noexcept
    {
        Val += days;
        return *this;
    }
    constexpr TDateTime& operator-=(double days) noexcept
    {
        Val -= days;
        return *this;
    }

    /// Texts by `Sysutils::FormatSettings`, as `Sysutils::DateToStr`, `TimeToStr`, `DateTimeToStr`.
    UnicodeString DateString() const;
    UnicodeString TimeString() const;
    UnicodeString DateTimeString() const;
    /// As `Sysutils::FormatDateTime`.
    UnicodeString FormatString(const UnicodeString& format) const;
    /// As `DateTimeString`.
    explicit operator UnicodeString() const { return DateTimeString(); }

    /// 1 for Sunday to 7.
    int DayOfWeek() const;
    void DecodeDate(Word* year, Word* month, Word* day) const;
    void DecodeTime(Word* hour, Word* minute, Word* second, Word* milliSecond) const;

    static TDateTime CurrentDate();
    static TDateTime CurrentTime();
    static TDateTime CurrentDateTime();

    double Val = 0;
};

} // namespace System
