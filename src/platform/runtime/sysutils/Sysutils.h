// SPDX-License-Identifier: MIT
#pragma once

// Texts, numbers, dates and files, all at once:
// - `Sysutils_Exception.h`: `Exception` and the general classes derived from it
// - `Sysutils_Locale.h`: `FormatSettings`, which numbers and dates follow as text
// - `Sysutils_Encoding.h`: encodings of files; `Sysutils_StrictEncoding.h`: conversions that lose nothing
// - `Sysutils_Number.h`: numbers as text and back; `Sysutils_Currency.h`: money
// - `Sysutils_Date.h`: the calendar, dates as text and back; `Sysutils_IsoDate.h`: those of ISO 8601
// - `Sysutils_Text.h`: comparing, searching and replacing; `Sysutils_Format.h`: `Format`
// - `Sysutils_StringBuilder.h`: a text that is put together piece by piece
// - `Sysutils_FileName.h`: the parts of file names; `Sysutils_File.h`: files and folders;
//   `Sysutils_FindFile.h`: searching folders
//
// Not among them, since they bring large headers of the standard: `Sysutils_Chrono.h` for `std::chrono` and
// `Sysutils_StdPath.h` for `std::filesystem`.

#include "platform/base/Sysutils_Encoding.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/base/Sysutils_Locale.h"
#include "platform/base/Sysutils_StrictEncoding.h"
#include "platform/base/dates/Sysutils_Date.h"
#include "platform/base/dates/Sysutils_IsoDate.h"
#include "platform/base/numbers/Sysutils_Currency.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/runtime/sysutils/Sysutils_FileName.h"
#include "platform/runtime/sysutils/Sysutils_FindFile.h"
#include "platform/runtime/sysutils/Sysutils_Format.h"
#include "platform/runtime/sysutils/Sysutils_StringBuilder.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"
