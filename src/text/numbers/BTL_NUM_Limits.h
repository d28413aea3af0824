// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <optional>

namespace BTL
{

// Measured values and their limits as text.
//
//     UnicodeString unit;
//     BTL::TLimits limits;
//     if (BTL::ParseLimits(u"-0,5 ... 2 kV", limits, unit) && !BTL::IsWithin(volts, limits)) {
//         std::cerr << "out of " << BTL::LimitsToStr(limits, u"kV") << '\n'; // out of -0.5 ... 2 kV
//     }

/// Limits of a value, each of which may be absent; 0 is a limit like any other.
struct TLimits
{
    std::optional<double> lower;
    std::optional<double> upper;

    friend bool operator==(const TLimits&, const TLimits&) = default;
};

/// Whether `value` is no less than the lower limit and no more than the upper one. A value that is no number
/// is within none but those that are both absent.
[[nodiscard]] TRS8_BTL_API bool IsWithin(double value, const TLimits& limits) noexcept;

/// Reads "<= 5 kV", ">= 5 kV", "= 5 kV" or "1 ... 9 kV", also with the signs for these (U+2264, U+2265 and
/// U+2026) and with two dots. A range may lack a limit: "... 9 kV", "1 ... kV", "1 kV ...". An empty text has
/// no limits. Numbers are written as `ToDouble` reads them. Both limits may have a unit of their own, as in
/// "5 mV ... 1 V"; one without takes that of the other one. `unit` becomes the unit without its prefix, and
/// the limits are in it: 1000 and 9000 of "V". What a prefix is tells `FindUnit`; a unit that it doesn't know
/// is taken as it stands. False for any other text, for two units that differ and for a lower limit above the
/// upper one, which leaves the targets alone.
TRS8_BTL_API bool ParseLimits(std::u16string_view text, TLimits& limits, System::UnicodeString& unit);
/// As `ParseLimits` with a unit, which may be any.
TRS8_BTL_API bool ParseLimits(std::u16string_view text, TLimits& limits);
/// The limits of a text with any unit. `Sysutils::EConvertError` if the text tells none: its message says why
/// and at which character, from 1 on.
TRS8_BTL_API TLimits ParseLimits(std::u16string_view text);
/// As `ParseLimits` that raises, but tells the unit, too, which is left alone if the text tells no limits.
TRS8_BTL_API TLimits ParseLimits(std::u16string_view text, System::UnicodeString& unit);

/// The text that `ParseLimits` reads: "<= 5 kV", ">= 5 kV", "= 5 kV" or "1 ... 9 kV", with the active
/// separator and up to 15 digits; empty if both limits are absent. If `FindUnit` knows the unit, its prefix
/// scales the numbers: a limit of 5000 is "5 kV" in `kV`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString
LimitsToStr(const TLimits& limits, const System::UnicodeString& unit = System::UnicodeString());

/// A measured value for the user, with the active separator and at least one decimal. `precision` is the
/// count of significant digits, 6 by default; `digits` bounds the decimals and doesn't fill them up, 0 gives
/// none; a negative number means the default. Beyond plus or minus 999999 the result is the whole number
/// without its fraction, and beyond 64 bits, for an infinite value or none, the text of
/// `Sysutils::FloatToStr`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString MeasureFloatToStrW(long double value, int precision,
                                                                    int digits);
[[nodiscard]] TRS8_BTL_API System::AnsiString MeasureFloatToStrA(long double value, int precision,
                                                                 int digits);

/// The range of a value with its `unit`, which may be null: " <= 5.0", " >= 5.0", " = 5.0" or "1.0 ... 9.0",
/// with the smaller limit first. A limit of 0 is none; two of them give an empty text, also without the unit.
/// Where 0 may be a limit, take `LimitsToStr`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetLimitTextW(double upper, double lower,
                                                               const System::UnicodeString* unit);
[[nodiscard]] TRS8_BTL_API System::AnsiString GetLimitTextA(double upper, double lower,
                                                            const System::AnsiString* unit);

/// As `GetLimitTextW` and `GetLimitTextA`, but for `System::TDateTime` values, shown as
/// `Sysutils::TimeToStr`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetDateTimeLimitTextW(double upper, double lower,
                                                                       const System::UnicodeString* unit);
[[nodiscard]] TRS8_BTL_API System::AnsiString GetDateTimeLimitTextA(double upper, double lower,
                                                                    const System::AnsiString* unit);

/// The range of two numbers as they are written: "<= 5", ">= 5" or "1 ... 9", lower and upper in this order.
/// An empty limit is none. Empty if a limit is no number, or if both are exactly "0".
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetLimitText(const System::UnicodeString& upper,
                                                              const System::UnicodeString& lower);
[[nodiscard]] TRS8_BTL_API System::AnsiString GetLimitText(const System::AnsiString& upper,
                                                           const System::AnsiString& lower);

} // namespace BTL
