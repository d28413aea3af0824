// SPDX-License-Identifier: MIT
#include "foundation/logs/UTL_LOG_Sink.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using System::UnicodeString;

struct TLogged
{
    UnicodeString text;
    UTL::ELogType type;
    UTL::ELogSeverity severity;
    std::string rest;

    friend bool operator==(const TLogged&, const TLogged&) = default;
};

std::vector<TLogged> logged;

void Sink(const UnicodeString& text, UTL::ELogType type, UTL::ELogSeverity severity, const char* a, int b,
          const char* c)
{
    logged.push_back({text, type, severity, a + std::to_string(b) + c});
}

TEST(LoggingSinkTest, GetsWhatIsLogged)
{
    constexpr auto type = static_cast<UTL::ELogType>(42);
    constexpr auto severity = static_cast<UTL::ELogSeverity>(43);
    UTL::LogTrace(u"lost", type, "a", 1, "c");
    UTL::SetLoggingSink(Sink);
    UTL::LogTrace(u"trace", type, "a", 1, "c");
    UTL::LogMessage(u"message", severity, "d", 2, "e");
    UTL::SetLoggingSink(nullptr);
    UTL::LogMessage(u"lost", severity, "d", 2, "e");
    const std::vector<TLogged> expected = {{u"trace", type, static_cast<UTL::ELogSeverity>(1), "a1c"},
                                           {u"message", static_cast<UTL::ELogType>(5), severity, "d2e"}};
    EXPECT_TRUE(logged == expected);
}

} // namespace
