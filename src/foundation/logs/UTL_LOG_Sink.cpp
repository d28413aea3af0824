// SPDX-License-Identifier: MIT
#include "foundation/logs/UTL_LOG_Sink.h"

namespace UTL
{

namespace
{

constinit FLoggingSink loggingSink = nullptr;

} // namespace

void SetLoggingSink(FLoggingSink sink)
{
    loggingSink = sink;
}

void LogTrace(const System::UnicodeString& text, ELogType type, const char* a, int b, const char* c)
{
    if (loggingSink != nullptr) {
        loggingSink(text, type, ELogSeverity::Trace, a, b, c);
    }
}

void LogMessage(const System::UnicodeString& text, ELogSeverity severity, const char* a, int b, const char* c)
{
    if (loggingSink != nullptr) {
        loggingSink(text, ELogType::Message, severity, a, b, c);
    }
}

} // namespace UTL
