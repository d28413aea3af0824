// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/dates/System_DateTime.h"

#include <optional>
#include <string_view>

// Dates and times in the form of ISO 8601, the same in every locale.
//
//     DateTimeToIso(value);                                  // "2022-02-28T12:30:00"
//     DateTimeToIso(value, 60);                              // "2022-02-28T12:30:00+01:00"
//     DateToIso(value);                                      // "2022-02-28"
//     const TIsoDateTime read = IsoToDateTime(u"2022-02-28 12:30:00.25Z");
//     read.value;                                            // 28 February 2022, 12:30 and a quarter second
//     read.offset;                                           // 0: the text says universal time
//     read.InUniversalTime();                                // the moment itself

namespace Sysutils
{

/// What a text of ISO 8601 says: the date and the time of day as they stand there, and how far the clock of
/// that place is ahead of universal time.
struct TIsoDateTime
{
    System::TDateTime value;
    /// In minutes, positive to the east; 0 for `Z`. Nothing if the text doesn't tell.
    std::optional<int> offset;

    /// The moment in universal time; the value as it is if the text has no offset.
    TRS8_BTL_API System::TDateTime InUniversalTime() const;

    friend bool operator==(const TIsoDateTime&, const TIsoDateTime&) = default;
};

/// The form "2022-02-28T12:30:00", with ".250" behind it unless the milliseconds are 0, and with the offset
/// in minutes as "+01:00", or "Z" for 0. `EConvertError` for a value without a date, and for an offset of a
/// day or more.
TRS8_BTL_API System::UnicodeString DateTimeToIso(const System::TDateTime& value,
                                                 std::optional<int> offset = {});

/// The date alone, as "2022-02-28"; the time of day is left out. `IsoToDateTime` reads it. `EConvertError`
/// for a value without a date.
TRS8_BTL_API System::UnicodeString DateToIso(const System::TDateTime& value);

/// Reads "2022-02-28", perhaps with a time behind `T` or a blank: "12:30", "12:30:00" or "12:30:00.25", where
/// a comma may stand for the point; and then perhaps `Z` or an offset such as "+01:00", "+0100" or "+01".
/// Letters may be small. Each field has all its digits. The fraction of a second is rounded to milliseconds.
/// "24:00" ends the day, and second 60, a leap second, counts as the begin of the next minute.
/// `EConvertError` for any other text, with the place and the kind of the fault.
TRS8_BTL_API TIsoDateTime IsoToDateTime(std::u16string_view text);
/// As `IsoToDateTime`, but gives false for a text that doesn't fit and then leaves `value` alone.
TRS8_BTL_API bool TryIsoToDateTime(std::u16string_view text, TIsoDateTime& value);

} // namespace Sysutils
