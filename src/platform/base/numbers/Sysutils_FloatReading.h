// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Locale.h"

#include <string_view>

namespace Sysutils
{

/// Reads a float: blanks around it, a sign, digits with the settings' decimal separator, an exponent. The
/// whole text must fit; there are no thousand separators, and texts such as "inf" or "nan" and numbers beyond
/// the range of the type are refused. Forms without settings follow `FormatSettings`. `EConvertError` on
/// failure; the other forms give false and leave `value` alone, or the default.
///
///     double volts = 0;
///     if (TryStrToFloat(text, volts)) { ... }   // "1.5", or "1,5" where the user writes so
///     const double limit = StrToFloatDef(text, 10);
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
