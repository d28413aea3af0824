// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Locale.h"

#include <cstddef>

namespace Sysutils
{

/// The forms of `FloatToStrF`.
enum TFloatFormat
{
    /// The shortest: fixed, or with an exponent where the number is large or below 0.00001.
    ffGeneral,
    /// One digit in front of the separator, always an exponent with its sign.
    ffExponent,
    ffFixed,
    /// Fixed with thousand separators.
    ffNumber,
    /// As the settings write money.
    ffCurrency
};

// Text of floats. 15 significant digits of a `double` count, 18 of a `long double`; a half is rounded away
// from zero on these digits, so that the noise of the binary form doesn't show. A value that is no number
// gives "NAN", "INF" or "-INF". Forms without settings follow `FormatSettings`.
//
//     FloatToStr(0.1 + 0.2);                                      // "0.3"
//     FloatToStrF(1234.5, ffFixed, 15, 2);                        // "1234.50"
//     FloatToStrF(1234.5, ffExponent, 3, 2);                      // "1.23E+03"

/// The general form with 15 significant digits.
TRS8_BTL_API System::UnicodeString FloatToStr(double value);
TRS8_BTL_API System::UnicodeString FloatToStr(long double value);
TRS8_BTL_API System::UnicodeString FloatToStr(double value, const TFormatSettings& settings);
TRS8_BTL_API System::UnicodeString FloatToStr(long double value, const TFormatSettings& settings);

/// `precision` is the count of significant digits, at least 2 and at most what the type holds; a number with
/// more digits in front of the separator is written with an exponent. `digits` is the count of digits behind
/// the separator (0 to 18), or in the general and the exponent form the least count of digits of the exponent
/// (0 to 4).
TRS8_BTL_API System::UnicodeString FloatToStrF(double value, TFloatFormat format, int precision, int digits);
TRS8_BTL_API System::UnicodeString FloatToStrF(long double value, TFloatFormat format, int precision,
                                               int digits);
TRS8_BTL_API System::UnicodeString FloatToStrF(double value, TFloatFormat format, int precision, int digits,
                                               const TFormatSettings& settings);
TRS8_BTL_API System::UnicodeString FloatToStrF(long double value, TFloatFormat format, int precision,
                                               int digits, const TFormatSettings& settings);

/// Room that `FloatToBuffer` needs.
inline constexpr std::size_t FloatBufferSize = 32;
/// As `FloatToStr` into a buffer of `FloatBufferSize`, without an end mark; gives the count of characters.
TRS8_BTL_API std::size_t FloatToBuffer(double value, System::WideChar decimalSeparator,
                                       System::WideChar* out);
TRS8_BTL_API std::size_t FloatToBuffer(double value, char decimalSeparator, char* out);

} // namespace Sysutils
