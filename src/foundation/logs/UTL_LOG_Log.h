// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/logs/UTL_LOG_Form.h"
#include "platform/base/System_String.h"

#include <exception>

namespace BTL
{

// Take this log for a line now and then: each call leaves a whole line in a closed file, whatever happens to
// the program next. For much output there is the stream of `UTL_LOG_LogStream.h`.
//
//     BTL::SetLogFile(u"run.txt");
//     BTL::SetLogForm({.encoding = UTL::ELogEncoding::Utf8, .time = UTL::ELogTime::Local});
//     BTL::Log(u"20 \u00B0C");          // "2022-02-28T12:30:00.250+01:00 20 °C"

/// The file of `Log`; empty switches it off. At start it is "Log.txt" in the folder of the program. To be
/// called before threads start.
TRS8_BTL_API void SetLogFile(const System::UnicodeString& name);

/// How the lines of `Log` look from now on; at start without times, in the system's code page. What the file
/// holds stays as it is. To be called before threads start.
TRS8_BTL_API void SetLogForm(const UTL::TLogForm& form);

/// Appends `text` as a line to the log file, which is open only for the time of the call. With times, each
/// line of a text that has several begins with one. Threads may call it at once, and the global objects of a
/// program while they end.
TRS8_BTL_API void Log(const System::UnicodeString& text);

/// As `Log`, but the line is the message of the exception (`Sysutils::MessageOf`). Its `what()` is UTF-8 and
/// not to be logged as a text: a `const char*` counts as text of the code page.
///
///     } catch (const std::exception& fault) {
///         BTL::Log(fault);
TRS8_BTL_API void Log(const std::exception& fault);

/// As `Log`, but tells whether the line is in the file; a log that is switched off has none to lose. A
/// program that needs its log asks with its first line: `if (!BTL::TryLog(u"started")) { ... }`.
[[nodiscard]] TRS8_BTL_API bool TryLog(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API bool TryLog(const std::exception& fault);

} // namespace BTL
