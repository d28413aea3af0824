// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/dates/System_DateTime.h"

namespace BTL
{

// Dates and times for users, by `Sysutils::FormatSettings`.
//
//     const auto shown = BTL::GetDateTimeStringWithMSec(Sysutils::Now());
//     const auto sql = u"SELECT * FROM t WHERE day = " + BTL::GetSQLDateString(Sysutils::Now(), true);
//     const auto file = u"Log_" + BTL::GetValidFileName(Sysutils::Now()) + u".txt";

/// The text of `Sysutils::Now`, as `Sysutils::DateTimeToStr` writes it.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetLocalTime();
/// The text of the local day, as `Sysutils::DateToStr` writes it.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetCurrentDate();

/// The date that `GetValidDate` makes of any text, as `Sysutils::DateToStr` writes it.
TRS8_BTL_API System::UnicodeString GetValidDateString(const System::UnicodeString& text);
/// The value that `GetValidDateTime` makes of a text, as `GetDateTimeStringWithMSec` writes it.
TRS8_BTL_API System::UnicodeString GetValidDateTimeString(const System::UnicodeString& text);
/// As `Sysutils::DateTimeToStr`, and with milliseconds behind it if there are any and `LongTimeFormat` shows
/// none.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetDateTimeStringWithMSec(const System::TDateTime& value);

// Dates and times for SQL, in single quotes if `quoted`.

/// The parts of a date as `DecodeDate` finds them, as "yyyy-mm-dd"; parts that are missing at the end are
/// left out, so that the text can serve `LIKE`, as can parts that are "%" or "_". The year is one of
/// `To4DigitYear`. The quotes hold together whatever the parts are.
TRS8_BTL_API System::UnicodeString GetSQLDateString(const System::UnicodeString& text, bool quoted);
/// As `GetSQLDateString`, but with the parts of a time, as "yyyy-mm-dd hh:nn:ss.ccc". A single digit of
/// milliseconds becomes four.
TRS8_BTL_API System::UnicodeString GetSQLDateTimeString(const System::UnicodeString& text, bool quoted);
/// "2022-2-1", without padding.
TRS8_BTL_API System::UnicodeString GetSQLDateString(const System::TDateTime& value, bool quoted);
/// "2022-2-1 10:5:9.123", without padding. Day zero, which a time alone has, shows no date, and midnight no
/// time.
TRS8_BTL_API System::UnicodeString GetSQLDateTimeString(const System::TDateTime& value, bool quoted);

/// As `GetSQLDateTimeString` without padding, but fit for the name of a file: "2022-2-1_10-5-9-123".
TRS8_BTL_API System::UnicodeString GetValidFileName(const System::TDateTime& value);

/// The month and year, "MMYY", that is `months` (12 if that is no number) after a date of day, month and
/// year. Empty if `date` isn't of this form; a length outside 6 to 10 is an internal fault.
TRS8_BTL_API System::UnicodeString GetShortDate(const System::UnicodeString& date,
                                                const System::UnicodeString& months);

} // namespace BTL
