// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <compare>
#include <concepts>

namespace System
{

/// An amount of money, exact to four decimals, from -922337203685477.5808 to 922337203685477.5807. What has
/// more decimals is rounded, a half away from zero. A result beyond the range raises
/// `Sysutils::EIntOverflow`, as does a float that is no number.
///
///     const Currency price = 19.99;
///     const Currency sum = price * 3;                             // 59.97, to the last digit
///     const UnicodeString text(sum);
class TRS8_BTL_API Currency
{
public:
    /// The parts of one.
    static constexpr Int64 Scale = 10000;

    constexpr Currency() noexcept = default;
    template <TextInteger T>
    Currency(T value)
    {
        if (__builtin_mul_overflow(value, Scale, &Val)) {
            ThrowOverflow();
        }
    }
    Currency(double value);
    Currency(long double value);
    Currency(float value) : Currency(static_cast<double>(value)) {}
    /// As `Sysutils::StrToCurr`.
    explicit Currency(const UnicodeString& text);

    /// The amount of `units` ten-thousandths.
    static constexpr Currency OfUnits(Int64 units) noexcept
    {
        Currency result;
        result.Val = units;
        return result;
    }

    explicit operator double() const noexcept { return static_cast<double>(AsExtended()); }
    /// The amount as a float.
    Extended AsExtended() const noexcept { return static_cast<Extended>(Val) / Scale; }
    /// As `Sysutils::CurrToStr`.
    explicit operator UnicodeString() const;

    Currency operator-() const { return Currency() - *this; }
    Currency& operator+=(Currency other) { return *this = *this + other; }
    Currency& operator-=(Currency other) { return *this = *this - other; }
    template <class T>
    Currency& operator*=(T factor)
    {
        return *this = *this * factor;
    }
    template <class T>
    Currency& operator/=(T divisor)
    {
        return *this = *this / divisor;
    }

    friend Currency operator+(Currency a, Currency b)
    {
        if (__builtin_add_overflow(a.Val, b.Val, &a.Val)) {
            ThrowOverflow();
        }
        return a;
    }
    friend Currency operator-(Currency a, Currency b)
    {
        if (__builtin_sub_overflow(a.Val, b.Val, &a.Val)) {
            ThrowOverflow();
        }
        return a;
    }
    friend Currency operator*(Currency a, Currency b) { return MulDiv(a.Val, b.Val, Scale); }
    /// `Sysutils::EDivByZero` if `b` is 0.
    friend Currency operator/(Currency a, Currency b) { return MulDiv(a.Val, Scale, b.Val); }

    // A float counts with all its digits, not as an amount of four decimals.
    template <std::floating_point T>
    friend Currency operator*(Currency a, T factor)
    {
        return a.AsExtended() * factor;
    }
    template <std::floating_point T>
    friend Currency operator*(T factor, Currency a)
    {
        return a.AsExtended() * factor;
    }
    template <std::floating_point T>
    friend Currency operator/(Currency a, T divisor)
    {
        if (divisor == 0) {
            ThrowDivByZero();
        }
        return a.AsExtended() / divisor;
    }

    friend constexpr bool operator==(Currency a, Currency b) noexcept { return a.Val == b.Val; }
    friend constexpr std::strong_ordering operator<=>(Currency a, Currency b) noexcept
    {
        return a.Val <=> b.Val;
    }

    /// Ten-thousandths.
    Int64 Val = 0;

private:
    [[noreturn]] static void ThrowOverflow();
    [[noreturn]] static void ThrowDivByZero();
    static Currency MulDiv(Int64 a, Int64 b, Int64 divisor);
};

} // namespace System
