// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <iosfwd>
#include <type_traits>

namespace System
{

/// A point in time: days since 30 December 1899, with the time of day in the fraction. Before that day the
/// whole days are negative and the fraction still counts forwards, so that -1.25 is 29 December at six
/// o'clock. A time of day alone has no whole days. The fields, texts and readings are those of
/// `Sysutils_Calendar.h`: a value outside the years 1 to 9999, an infinite one and none at all have no date.
///
///     const TDateTime noon = TDateTime(2022, 2, 28) + 0.5;   // a date plus days is a date
///     const double days = noon - TDateTime(2022, 1, 1);       // 58.5
///     std::cout << noon;                                      // as DateTimeString
///     const TDateTime later = noon + TDateTime(1, 30, 0, 0);  // a time of day adds as well
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

    // A date plus or minus days is a date, and so is a date plus a time of day. All other arithmetic is that
    // of the days as a `double`. Before day zero, where the fraction counts forwards, whole days alone add
    // up.

    template <class Days>
    requires std::is_arithmetic_v<Days>
    friend constexpr TDateTime operator+(const TDateTime& date, Days days) noexcept
    {
        return date.Val + static_cast<double>(days);
    }
    template <class Days>
    requires std::is_arithmetic_v<Days>
    friend constexpr TDateTime operator+(Days days, const TDateTime& date) noexcept { return date + days; }
    template <class Days>
    requires std::is_arithmetic_v<Days>
    friend constexpr TDateTime operator-(const TDateTime& date, Days days) noexcept
    {
        return date.Val - static_cast<double>(days);
    }
    friend constexpr TDateTime operator+(const TDateTime& date, const TDateTime& time) noexcept
    {
        return date.Val + time.Val;
    }
    /// The days from `earlier` to `later`.
    friend constexpr double operator-(const TDateTime& later, const TDateTime& earlier) noexcept
    {
        return later.Val - earlier.Val;
    }

    /// Writes `DateTimeString` in UTF-8.
    friend TRS8_BTL_API std::ostream& operator<<(std::ostream& stream, const TDateTime& value);

    /// Texts by `Sysutils::FormatSettings`, as `Sysutils::DateToStr`, `TimeToStr`, `DateTimeToStr`.
    UnicodeString DateString() const;
    UnicodeString TimeString() const;
    UnicodeString DateTimeString() const;
    /// As `Sysutils::FormatDateTime`.
    UnicodeString FormatString(const UnicodeString& format) const;
    /// As `DateTimeString`.
    explicit operator UnicodeString() const { return DateTimeString(); }

    /// 1 for Sunday to 7; 0 for no date.
    int DayOfWeek() const;
    /// The fields of the value rounded to the millisecond; zeros for no date. No pointer may be null.
    void DecodeDate(Word* year, Word* month, Word* day) const;
    void DecodeTime(Word* hour, Word* minute, Word* second, Word* milliSecond) const;

    /// The local day without a time, and the local time of day without a date.
    static TDateTime CurrentDate();
    static TDateTime CurrentTime();
    /// Local date and time, to the millisecond.
    static TDateTime CurrentDateTime();

    double Val = 0;
};

} // namespace System
