// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Locale.h"

namespace Sysutils
{

/// Writes `value` by a picture: `0` a digit, `#` a digit if there is one, `.` the separator, `,` thousand
/// separators, `E+`, `E-`, `e+`, `e-` with zeros an exponent, text in single or double quotes as it stands,
/// any other character too. `;` parts the pictures of positive, negative and zero values. An empty picture,
/// or one too small for the number, gives the general form. 15 significant digits of a `double`
/// count, 18 of a `long double`, and a half is rounded away from zero on these digits. Forms without settings
/// follow `FormatSettings`.
///
///     FormatFloat(u"#,##0.00", 1234.5);                           // "1,234.50"
///     FormatFloat(u"0.0##", 0.5);                                 // "0.5"
///     FormatFloat(u"0.00;(0.00);'-'", -2.0);                      // "(2.00)"
TRS8_BTL_API System::UnicodeString FormatFloat(const System::UnicodeString& format, double value);
TRS8_BTL_API System::UnicodeString FormatFloat(const System::UnicodeString& format, long double value);
TRS8_BTL_API System::UnicodeString FormatFloat(const System::UnicodeString& format, double value,
                                               const TFormatSettings& settings);
TRS8_BTL_API System::UnicodeString FormatFloat(const System::UnicodeString& format, long double value,
                                               const TFormatSettings& settings);
/// As `FormatFloat` of a `long double`, which holds every integer; one with more than 18 digits gives the
/// general form.
template <System::TextInteger Integer>
System::UnicodeString FormatFloat(const System::UnicodeString& format, Integer value)
{
    return FormatFloat(format, static_cast<long double>(value));
}
template <System::TextInteger Integer>
System::UnicodeString FormatFloat(const System::UnicodeString& format, Integer value,
                                  const TFormatSettings& settings)
{
    return FormatFloat(format, static_cast<long double>(value), settings);
}

} // namespace Sysutils
