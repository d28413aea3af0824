// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/dates/System_DateTime.h"

namespace BTL
{

// Dates and times as users type them. Separators and the order of day, month and year are those of
// `Sysutils::FormatSettings`. What can't be read raises `Sysutils::EConvertError`, which names the text,
// unless told otherwise.
//
//     const TDateTime typed = BTL::StrToDateTime(u"1.2.2022 18:30");   // in a locale that writes it so
//     const TDateTime stored = BTL::StrToDateTime(u"20220201", u"yyyymmdd");
//     const TDateTime any = BTL::GetValidDate(u"31.2.2022");           // 28.2.2022: never fails

/// A text that is a number other than 0, with `.` or `,`, is the value itself; any other one is read by
/// `Sysutils::StrToDateTime`.
TRS8_BTL_API System::TDateTime StrToDateTime(const System::UnicodeString& text);
/// The whole days of such a number, if it has any; else as `Sysutils::StrToDateTime`, with its time.
TRS8_BTL_API System::TDateTime StrToDate(const System::UnicodeString& text);
/// The fraction of such a number, without its sign; else as `Sysutils::StrToTime`.
TRS8_BTL_API System::TDateTime StrToTime(const System::UnicodeString& text);

/// Reads the digit at each place of `text` into the field that `mask` names at this place: `y` year, `m`
/// month, `d` day, `h` hour, `n` minute, `s` second, `c` millisecond; any other character of the mask passes
/// over its place. The shorter of both ends the reading. A date, a time or both, as the letters of the mask
/// say; 0 without any. A character that is no digit spoils its field, which then hardly exists.
TRS8_BTL_API System::TDateTime StrToDateTime(const System::UnicodeString& text,
                                             const System::UnicodeString& mask);
/// The date alone; 0 if its year, month or day is 0.
TRS8_BTL_API System::TDateTime StrToDate(const System::UnicodeString& text,
                                         const System::UnicodeString& mask);
/// The time alone, by the letters `h`, `n`, `s` and `c` of `mask`; midnight without any.
TRS8_BTL_API System::TDateTime StrToTime(const System::UnicodeString& text,
                                         const System::UnicodeString& mask);

/// `text` trimmed and then without the date separators at both ends.
[[nodiscard]] TRS8_BTL_API System::UnicodeString TrimDate(const System::UnicodeString& text);

/// The parts of a date as they stand between the separators, in the order of the locale's short date format.
/// One that the text or the format lacks is empty. Blanks around them stay, unless the format has some too.
TRS8_BTL_API void DecodeDate(const System::UnicodeString& text, System::UnicodeString& year,
                             System::UnicodeString& month, System::UnicodeString& day);
/// As `DecodeDate` of what stands before the first blank, with the parts of a time behind it.
TRS8_BTL_API void DecodeDateTime(const System::UnicodeString& text, System::UnicodeString& year,
                                 System::UnicodeString& month, System::UnicodeString& day,
                                 System::UnicodeString& hour, System::UnicodeString& minute,
                                 System::UnicodeString& second, System::UnicodeString& milliSecond);

/// A date from any text: parts that are no numbers, or missing, count as 1, and all are held within the
/// calendar. `_` and `%` are passed over. A year of two digits stays. Never fails.
TRS8_BTL_API System::TDateTime GetValidDate(const System::UnicodeString& text);
/// As `GetValidDate` of what stands before the first blank, with the time behind it by `Sysutils::StrToTime`,
/// which may fail.
TRS8_BTL_API System::TDateTime GetValidDateTime(const System::UnicodeString& text);

} // namespace BTL
