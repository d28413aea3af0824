// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/logs/UTL_LOG_Form.h"
#include "foundation/logs/UTL_LOG_Log.h"
#include "platform/base/System_String.h"

#include <iosfwd>

namespace UTL
{

// Take this log for output that is built piece by piece with the operators of a stream; for a line now and
// then there is `BTL::Log`.
//
// One process-wide stream for log lines, opened on first use behind what the file already holds. It may be
// used up to the end of the program's global objects. Without a form nothing here is locked, and threads must
// take turns. Nothing reports an error: a stream that can't be opened swallows what is written to it.
//
//     UTL::set_log_form({.encoding = UTL::ELogEncoding::Utf8, .time = UTL::ELogTime::Local});
//     if (std::ostream* const log = UTL::get_log_stream()) {
//         *log << "channel " << channel << ": " << value << '\n';
//     }

/// The log's file; has an effect only before the stream is opened. Empty stands for "TRS_Log.txt" in the
/// application's folder.
TRS8_BTL_API void set_log_file(const System::UnicodeString& name);

/// How the log looks; has an effect only before the stream is opened. The bytes are those that are written:
/// `<<` of a `System::UnicodeString` writes UTF-8, that of a `System::AnsiString` its code page. The encoding
/// is that of the start line.
TRS8_BTL_API void set_log_form(const TLogForm& form);

/// Switches logging; it is on at start.
TRS8_BTL_API void set_logging(bool on);

/// The stream, with the start line of this run written; null while logging is off. The library owns it. With
/// a form other than the usual one each thread gets a stream of its own, whose lines come whole into the file
/// that all share; a line without an end is ended with its thread or the program.
TRS8_BTL_API std::ostream* get_log_stream();

} // namespace UTL
