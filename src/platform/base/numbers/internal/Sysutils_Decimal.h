// SPDX-License-Identifier: MIT
#pragma once

// Numbers as decimal digits, on which all texts of floats and money are built. What each text of a float
// goes through stays inline.

#include "platform/base/System_String.h"
#include "platform/base/internal/System_Digits.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <type_traits>

namespace Sysutils::Detail
{

inline constexpr int DoubleDigits = 15;
inline constexpr int LongDoubleDigits = 18;
inline constexpr int GeneralPrecision = 15;

/// The text of ASCII characters alone.
[[nodiscard]] System::UnicodeString FromAscii(std::string_view text);

/// A number as decimal digits: 0.DIGITS times ten to the exponent. No digits mean zero.
struct TDecimal
{
    std::array<char, 24> digits = {};
    int count = 0;
    int exponent = 0;
    bool negative = false;

    char At(int index) const
    {
        return index >= 0 && index < count ? digits[static_cast<std::size_t>(index)] : '0';
    }

    /// Rounds a half away from zero to `wanted` digits.
    void Round(int wanted)
    {
        if (wanted < count) {
            const bool up = wanted >= 0 && At(wanted) >= '5';
            count = std::max(wanted, 0);
            if (up) {
                Increment();
            }
        }
        while (count > 0 && digits[static_cast<std::size_t>(count) - 1] == '0') {
            --count;
        }
        if (count == 0) {
            exponent = 0;
            negative = false;
        }
    }

private:
    void Increment()
    {
        while (count > 0 && digits[static_cast<std::size_t>(count) - 1] == '9') {
            --count;
        }
        if (count == 0) {
            digits[0] = '1';
            count = 1;
            ++exponent;
            return;
        }
        ++digits[static_cast<std::size_t>(count) - 1];
    }
};

/// The digits of the scientific form that `to_chars` writes: the shortest one, or that of a precision.
template <class... Precision>
[[nodiscard]] TDecimal ScientificDigits(std::floating_point auto value, Precision... precision)
{
    std::array<char, 40> buffer = {};
    const char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                          std::chars_format::scientific, precision...)
                                .ptr;
    TDecimal result;
    result.negative = buffer[0] == '-';
    const char* const text = buffer.data() + (result.negative ? 1 : 0);
    // The exponent has at least two digits.
    const auto* const mark =
        std::find(std::reverse_iterator(end - 3), std::reverse_iterator(text), 'e').base() - 1;
    result.digits[0] = *text;
    result.count = std::max(static_cast<int>(mark - text) - 1, 1);
    // A fixed count, whatever stands there, costs less than a call for the few digits.
    std::copy_n(text + 2, result.digits.size() - 1, result.digits.begin() + 1);
    std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, result.exponent);
    ++result.exponent;
    return result;
}

/// The digits of a value of up to four decimals, as most measured ones are; no more than 15 of them. They
/// are those of the quotient of two integers that a float holds, which one division gives back. False for
/// any other value.
[[nodiscard]] inline bool TakeShortDigits(double value, TDecimal& result)
{
    constexpr int decimals = 4;
    constexpr double scale = 1e4;
    constexpr double tooLarge = 1e15;
    const double size = std::abs(value);
    const double units = size * scale + 0.5;
    if (FLT_EVAL_METHOD != 0 || !(units < tooLarge)) {
        return false;
    }
    const auto whole = static_cast<System::Int64>(units);
    if (static_cast<double>(whole) / scale != size) {
        return false;
    }
    const auto magnitude = static_cast<System::UInt64>(whole);
    const std::size_t count = System::Detail::CountDigits(magnitude);
    System::Detail::WriteDigits(magnitude, result.digits.data() + count);
    result.count = static_cast<int>(count);
    result.exponent = result.count - decimals;
    result.negative = std::signbit(value);
    return true;
}

/// The fewest digits that read back as the value, without zeros behind.
[[nodiscard]] inline TDecimal ShortestDigits(double value)
{
    TDecimal result;
    if (!TakeShortDigits(value, result)) {
        result = ScientificDigits(value);
    }
    result.Round(result.count);
    return result;
}

/// The digits of a finite value that count.
[[nodiscard]] inline TDecimal ToDecimal(double value)
{
    // Rounding the shortest form, and not the binary value, to 15 digits spares a second conversion.
    TDecimal result = ShortestDigits(value);
    result.Round(DoubleDigits);
    return result;
}

[[nodiscard]] inline TDecimal ToDecimal(long double value)
{
    TDecimal result = ScientificDigits(value, LongDoubleDigits - 1);
    result.Round(LongDoubleDigits);
    return result;
}

/// The significant digits of a type that count.
template <class Float>
inline constexpr int DigitsOf = std::is_same_v<Float, long double> ? LongDoubleDigits : DoubleDigits;

/// The text of a value that is no number.
template <class Float>
[[nodiscard]] std::string_view SpecialText(Float value)
{
    if (std::isnan(value)) {
        return "NAN";
    }
    return value < 0 ? "-INF" : "INF";
}

/// `units` divided by ten to `decimals`, exactly.
[[nodiscard]] TDecimal ScaledToDecimal(System::Int64 units, int decimals);

} // namespace Sysutils::Detail
