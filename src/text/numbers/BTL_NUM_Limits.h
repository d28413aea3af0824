// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

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
