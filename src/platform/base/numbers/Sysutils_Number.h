// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Locale.h"

#include <cstddef>

namespace System
{

/// Reads the whole of `text` as an integer: leading blanks, a sign, decimal digits, or `$`, `0x` or `x` and
/// hexadecimal digits. `code` is 0, or the 1-based place of the first character that doesn't fit, which is
/// also where the number leaves the range; `value` then is what was read before.
TRS8_BTL_API void Val(const UnicodeString& text, int& value, int& code);
TRS8_BTL_API void Val(const UnicodeString& text, Int64& value, int& code);

} // namespace System

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

TRS8_BTL_API System::UnicodeString IntToStr(System::Int64 value);
TRS8_BTL_API System::UnicodeString UIntToStr(System::UInt64 value);
/// At least `digits` upper-case hexadecimal digits; a negative value as its two's complement.
TRS8_BTL_API System::UnicodeString IntToHex(int value, int digits);
TRS8_BTL_API System::UnicodeString IntToHex(System::Int64 value, int digits);

/// The forms of an integer that `System::Val` reads. `EConvertError` for any other text or a number out of
/// range; the other forms give false and leave `value` alone, or the default.
TRS8_BTL_API int StrToInt(const System::UnicodeString& text);
TRS8_BTL_API int StrToIntDef(const System::UnicodeString& text, int defaultValue);
TRS8_BTL_API bool TryStrToInt(const System::UnicodeString& text, int& value);
TRS8_BTL_API System::Int64 StrToInt64(const System::UnicodeString& text);
TRS8_BTL_API System::Int64 StrToInt64Def(const System::UnicodeString& text, System::Int64 defaultValue);
TRS8_BTL_API bool TryStrToInt64(const System::UnicodeString& text, System::Int64& value);

// Text of floats. 15 significant digits of a `double` count, 18 of a `long double`; a half is rounded away
// from zero on these digits, so that the noise of the binary form doesn't show. A value that is no number
// gives "NAN", "INF" or "-INF". Forms without settings follow `FormatSettings`.

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

/// Writes `value` by a picture: `0` a digit, `#` a digit if there is one, `.` the separator, `,` thousand
/// separators, `E+`, `E-`, `e+`, `e-` with zeros an exponent, text in single or double quotes as it stands,
/// any other character too. `;` parts the pictures of positive, negative and zero values. An empty picture,
/// or one too small for the number, gives the general form.
TRS8_BTL_API System::UnicodeString FormatFloat(const System::UnicodeString& format, double value);
TRS8_BTL_API System::UnicodeString FormatFloat(const System::UnicodeString& format, long double value);
TRS8_BTL_API System::UnicodeString FormatFloat(const System::UnicodeString& format, double value,
                                               const TFormatSettings& settings);
TRS8_BTL_API System::UnicodeString FormatFloat(const System::UnicodeString& format, long double value,
                                               const TFormatSettings& settings);

/// Reads a float: blanks around it, a sign, digits with the settings' decimal separator, an exponent. The
/// whole text must fit; there are no thousand separators, and texts such as "inf" or "nan" and numbers beyond
/// the range of the type are refused. `EConvertError` on failure; the other forms give false and leave
/// `value` alone, or the default.
TRS8_BTL_API double StrToFloat(const System::UnicodeString& text);
TRS8_BTL_API double StrToFloat(const System::UnicodeString& text, const TFormatSettings& settings);
TRS8_BTL_API double StrToFloatDef(const System::UnicodeString& text, double defaultValue);
TRS8_BTL_API bool TryStrToFloat(const System::UnicodeString& text, double& value);
TRS8_BTL_API bool TryStrToFloat(const System::UnicodeString& text, long double& value);
TRS8_BTL_API bool TryStrToFloat(const System::UnicodeString& text, double& value,
                                const TFormatSettings& settings);
TRS8_BTL_API bool TryStrToFloat(const System::UnicodeString& text, long double& value,
                                const TFormatSettings& settings);
/// Raises the `EConvertError` of `StrToFloat`.
[[noreturn]] TRS8_BTL_API void ThrowNoFloat(std::u16string_view text);
TRS8_BTL_API bool TextToFloat(const System::UnicodeString& text, double& value);

/// Room that `FloatToBuffer` needs.
inline constexpr std::size_t FloatBufferSize = 32;
/// As `FloatToStr` into a buffer of `FloatBufferSize`, without an end mark; gives the count of characters.
TRS8_BTL_API std::size_t FloatToBuffer(double value, System::WideChar decimalSeparator,
                                       System::WideChar* out);
TRS8_BTL_API std::size_t FloatToBuffer(double value, char decimalSeparator, char* out);
/// Reads a float without an exponent and with few enough digits to be exact at the front of a text, and gives
/// its end. Gives `first`, and leaves `value` alone, if no such number stands there; `BufferToFloat` may read
/// one nevertheless.
TRS8_BTL_API const System::WideChar* ScanShortFloat(const System::WideChar* first,
                                                    const System::WideChar* last,
                                                    System::WideChar decimalSeparator, double& value);
/// As `TryStrToFloat`.
TRS8_BTL_API bool BufferToFloat(std::u16string_view text, System::WideChar decimalSeparator, double& value);
TRS8_BTL_API bool BufferToFloat(std::u16string_view text, System::WideChar decimalSeparator,
                                long double& value);

} // namespace Sysutils
