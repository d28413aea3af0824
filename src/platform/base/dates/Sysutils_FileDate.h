// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/dates/System_DateTime.h"

// The packed file dates of `FileAge`, in steps of two seconds.
//
//     const int packed = DateTimeToFileDate(EncodeDate(2022, 2, 28));
//     const TDateTime value = FileDateToDateTime(packed);         // 28 February 2022

namespace Sysutils
{

/// Packs `value`. One outside the years 1980 to 2107 gives the first or last file date, one that is no number
/// the first.
TRS8_BTL_API int DateTimeToFileDate(const System::TDateTime& value);
/// The value of a packed date. `EConvertError` for a date that doesn't exist.
TRS8_BTL_API System::TDateTime FileDateToDateTime(int fileDate);

} // namespace Sysutils
