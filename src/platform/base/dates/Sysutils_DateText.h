// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Locale.h"
#include "platform/base/dates/System_DateTime.h"

// The texts of dates and times. No date is written with zeros and without names. Forms without settings
// follow `FormatSettings`.
//
//     FormatDateTime(u"yyyy-mm-dd hh:nn", value);                 // "2022-02-28 12:30"
//     FormatDateTime(u"d. mmmm 'at' h am/pm", value);             // "28. February at 12 pm"
//     DateTimeToStr(value);                                       // as the user's locale writes it

namespace Sysutils
{

/// The day by the picture `ShortDateFormat`.
TRS8_BTL_API System::UnicodeString DateToStr(const System::TDateTime& value);
TRS8_BTL_API System::UnicodeString DateToStr(const System::TDateTime& value, const TFormatSettings& settings);
/// The time of day by the picture `LongTimeFormat`.
TRS8_BTL_API System::UnicodeString TimeToStr(const System::TDateTime& value);
TRS8_BTL_API System::UnicodeString TimeToStr(const System::TDateTime& value, const TFormatSettings& settings);
/// As `DateToStr` and `TimeToStr` with a blank between them; at midnight the date alone.
TRS8_BTL_API System::UnicodeString DateTimeToStr(const System::TDateTime& value);
TRS8_BTL_API System::UnicodeString DateTimeToStr(const System::TDateTime& value,
                                                 const TFormatSettings& settings);

/// Writes `value` by a picture, in which case doesn't matter:
/// - `yy`, `yyyy`: the year with two or four digits
/// - `m`, `mm`, `mmm`, `mmmm`: the month; `d`, `dd`, `ddd`, `dddd`: the day. One letter is a plain number,
///   two are two digits, three the short name, four the long one
/// - `h`, `hh`, `n`, `nn`, `s`, `ss`, `z`, `zzz`: hour, minute, second, millisecond. `m` and `mm` are minutes
///   if the last letters in front of them were hours
/// - `am/pm`, `a/p`: one of the two as it stands, `ampm`: `TimeAMString` or `TimePMString`; the hour in front
///   is then one of a clock with 12
/// - `ddddd`, `dddddd`, `t`, `tt`: the pictures `ShortDateFormat`, `LongDateFormat`, `ShortTimeFormat`,
///   `LongTimeFormat`; `c`: as `DateTimeToStr`. Such a picture doesn't follow another one in turn
/// - `/`, `:`: the separators of the settings
/// - text in single or double quotes as it stands; a quote that isn't closed reaches to the end
/// - any other character as it stands.
///
/// An empty picture is `c`.
TRS8_BTL_API System::UnicodeString FormatDateTime(const System::UnicodeString& format,
                                                  const System::TDateTime& value);
TRS8_BTL_API System::UnicodeString FormatDateTime(const System::UnicodeString& format,
                                                  const System::TDateTime& value,
                                                  const TFormatSettings& settings);
/// As `FormatDateTime`, but gives the text in `result`.
TRS8_BTL_API void DateTimeToString(System::UnicodeString& result, const System::UnicodeString& format,
                                   const System::TDateTime& value);
TRS8_BTL_API void DateTimeToString(System::UnicodeString& result, const System::UnicodeString& format,
                                   const System::TDateTime& value, const TFormatSettings& settings);

} // namespace Sysutils
