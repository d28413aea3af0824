// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Locale.h"
#include "platform/base/dates/System_DateTime.h"

// Reading dates and times. The whole text must fit; blanks may stand around its parts. `EConvertError` on
// failure; the other forms give false and leave `value` alone, or the default. Forms without settings follow
// `FormatSettings`.
//
//     TFormatSettings settings;
//     settings.ShortDateFormat = u"d.M.yyyy";
//     settings.DateSeparator = u'.';
//     TDateTime value;
//     if (TryStrToDateTime(u"28.2.2022 12:30", value, settings)) { ... }

namespace Sysutils
{

/// Reads day, month and year as numbers in the order of `ShortDateFormat`, with `DateSeparator` between them
/// and perhaps behind them. Without a year it is the current one; one of up to two digits gets its century by
/// `TwoDigitYearCenturyWindow`. Where the format lacks the day or the month, the text has none and it is the
/// first; a year that the format lacks may stand behind.
TRS8_BTL_API System::TDateTime StrToDate(const System::UnicodeString& text);
TRS8_BTL_API System::TDateTime StrToDate(const System::UnicodeString& text, const TFormatSettings& settings);
/// As `StrToDate`, but gives `defaultValue` for a text that doesn't fit.
TRS8_BTL_API System::TDateTime StrToDateDef(const System::UnicodeString& text,
                                            const System::TDateTime& defaultValue);
TRS8_BTL_API System::TDateTime StrToDateDef(const System::UnicodeString& text,
                                            const System::TDateTime& defaultValue,
                                            const TFormatSettings& settings);
/// As `StrToDate`, but gives false for a text that doesn't fit and then leaves `value` alone.
TRS8_BTL_API bool TryStrToDate(const System::UnicodeString& text, System::TDateTime& value);
TRS8_BTL_API bool TryStrToDate(const System::UnicodeString& text, System::TDateTime& value,
                               const TFormatSettings& settings);

/// Reads hour, minute and second with `TimeSeparator` between them, the latter two optional, then perhaps
/// `DecimalSeparator` or `.` and a number of milliseconds. `TimeAMString`, `TimePMString`, "AM" or "PM" in
/// front or behind, case aside, make it a clock with 12 hours.
TRS8_BTL_API System::TDateTime StrToTime(const System::UnicodeString& text);
TRS8_BTL_API System::TDateTime StrToTime(const System::UnicodeString& text, const TFormatSettings& settings);
/// As `StrToTime`, but gives `defaultValue` for a text that doesn't fit.
TRS8_BTL_API System::TDateTime StrToTimeDef(const System::UnicodeString& text,
                                            const System::TDateTime& defaultValue);
TRS8_BTL_API System::TDateTime StrToTimeDef(const System::UnicodeString& text,
                                            const System::TDateTime& defaultValue,
                                            const TFormatSettings& settings);
/// As `StrToTime`, but gives false for a text that doesn't fit and then leaves `value` alone.
TRS8_BTL_API bool TryStrToTime(const System::UnicodeString& text, System::TDateTime& value);
TRS8_BTL_API bool TryStrToTime(const System::UnicodeString& text, System::TDateTime& value,
                               const TFormatSettings& settings);

/// Reads a date and perhaps a time behind it.
TRS8_BTL_API System::TDateTime StrToDateTime(const System::UnicodeString& text);
TRS8_BTL_API System::TDateTime StrToDateTime(const System::UnicodeString& text,
                                             const TFormatSettings& settings);
/// As `StrToDateTime`, but gives `defaultValue` for a text that doesn't fit.
TRS8_BTL_API System::TDateTime StrToDateTimeDef(const System::UnicodeString& text,
                                                const System::TDateTime& defaultValue);
TRS8_BTL_API System::TDateTime StrToDateTimeDef(const System::UnicodeString& text,
                                                const System::TDateTime& defaultValue,
                                                const TFormatSettings& settings);
/// As `StrToDateTime`, but gives false for a text that doesn't fit and then leaves `value` alone.
TRS8_BTL_API bool TryStrToDateTime(const System::UnicodeString& text, System::TDateTime& value);
TRS8_BTL_API bool TryStrToDateTime(const System::UnicodeString& text, System::TDateTime& value,
                                   const TFormatSettings& settings);

} // namespace Sysutils
