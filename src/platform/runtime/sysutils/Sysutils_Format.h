// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Locale.h"
#include "platform/runtime/sysutils/System_VarArgs.h"

namespace Sysutils
{

// A conversion of a format is `%[index:][-][width][.precision]type`. `index` counts the arguments from 0; the
// next conversion takes the argument behind it. `-` puts the padding behind the text. Index, width and
// precision may be `*`, which takes them from the next argument; a negative width means `-`. `%%` is a
// percent sign. The case of `type` doesn't matter:
//
//   d, u   an integer with and without sign, with at least `precision` digits; a `bool` is 1 or 0
//   x      upper-case hexadecimal digits, at least `precision`
//   e      a float as `FloatToStrF` with `ffExponent`, `precision` significant digits (15)
//   g      with `ffGeneral`, `precision` significant digits (15)
//   f      with `ffFixed`, `precision` digits behind the separator (2)
//   n      with `ffNumber`, `precision` digits behind the separator (2)
//   m      with `ffCurrency`, `precision` digits behind the separator (as the settings write money)
//   s      a text or a character, cut to `precision` characters
//   p      a pointer as hexadecimal digits
//
// Width and precision end at 65535, and what they make in all at 16 million characters. A conversion that
// doesn't fit its argument, a missing argument and an unknown conversion raise `EConvertError`, whose message
// names the argument, from 1 on, what it is, and the conversion; surplus arguments don't matter. Forms
// without settings follow `FormatSettings`.
//
//     Format(u"%s: %.2f V, %d times", {u"U", 12.5, 3});           // "U: 12.50 V, 3 times"
//     Format(u"%-6s|%6s|%.3d", {u"a", u"b", 7});                  // "a     |     b|007"
//     Format(u"%1:s %0:s", {u"a", u"b"});                         // "b a"
//     Format(u"%g %.3g %.3e", {12500.0, 12500.0, 12500.0});       // "12500 1.25E004 1.25E+004"
//
// An exponent has three digits at least; `FloatToStrF(12500.0, ffGeneral, 3, 0)` gives "1.25E4".

TRS8_BTL_API System::UnicodeString Format(const System::UnicodeString& format, System::TVarArgs arguments);
TRS8_BTL_API System::UnicodeString Format(const System::UnicodeString& format, System::TVarArgs arguments,
                                          const TFormatSettings& settings);

/// As `Format` of a `TVarArgs`, with the arguments one by one.
template <class... Arguments>
requires(sizeof...(Arguments) > 0 &&
         (std::constructible_from<System::TVarRec, const Arguments&> && ...)) System::UnicodeString
    Format(const System::UnicodeString& format, const Arguments&... arguments)
{
    return Format(format, System::TVarArgs{System::TVarRec(arguments)...});
}
/// The text of a format without arguments, in which `%%` alone may stand.
inline System::UnicodeString Format(const System::UnicodeString& format)
{
    return Format(format, System::TVarArgs());
}

/// As `Format`; `result` keeps its text on failure.
TRS8_BTL_API void FmtStr(System::UnicodeString& result, const System::UnicodeString& format,
                         System::TVarArgs arguments);

} // namespace Sysutils
