// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Take this log for a line now and then: each call leaves a whole line in a closed file, whatever happens to
// the program next. For much output there is the stream of `UTL_LOG_LogStream.h`.

/// The file of `Log`; empty switches it off. At start it is "Log.txt" in the folder of the program.
TRS8_BTL_API void SetLogFile(const System::UnicodeString& name);

/// Appends `text` as a line to the log file, which is open only for the time of the call.
TRS8_BTL_API void Log(const System::UnicodeString& text);

} // namespace BTL
