// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace UTL
{

// Take this where the application has a log of its own; the other logs write files of the library.
//
// A hook for the application's own log. What the kinds, the two texts and the number stand for is between the
// application and its sink; the library only passes them on.

enum class ELogType : int
{
    /// What `LogMessage` passes.
    Message = 5,
};

/// How grave a message to the sink is.
enum class ELogSeverity : int
{
    /// What `LogTrace` passes.
    Trace = 1,
};

/// The application's own log, as `SetLoggingSink` takes it.
using FLoggingSink = void (*)(const System::UnicodeString& text, ELogType type, ELogSeverity severity,
                              const char* a, int b, const char* c);

/// Installs the sink, to be done before threads start; null removes it.
TRS8_BTL_API void SetLoggingSink(FLoggingSink sink);

/// Does nothing without a sink.
TRS8_BTL_API void LogTrace(const System::UnicodeString& text, ELogType type, const char* a, int b,
                           const char* c);
TRS8_BTL_API void LogMessage(const System::UnicodeString& text, ELogSeverity severity, const char* a, int b,
                             const char* c);

} // namespace UTL
