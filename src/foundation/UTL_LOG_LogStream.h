// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_LOG_Log.h"
#include "platform/base/System_String.h"

#include <iosfwd>

namespace UTL
{

// Take this log for output that is built piece by piece with the operators of a stream; for a line now and
// then there is `BTL::Log`.
//
// One process-wide stream for log lines, opened on first use behind what the file already holds. Nothing here
// is locked, and nothing reports an error: a stream that can't be opened swallows what is written to it.

/// The log's file; has an effect only before the stream is opened. Empty stands for "TRS_Log.txt" in the
/// application's folder.
TRS8_BTL_API void set_log_file(const System::UnicodeString& name);

/// Switches logging; it is on at start.
TRS8_BTL_API void set_logging(bool on);

/// The stream, with the start line of this run written; null while logging is off. The library owns it.
TRS8_BTL_API std::ostream* get_log_stream();

} // namespace UTL
