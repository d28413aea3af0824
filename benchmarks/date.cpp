// SPDX-License-Identifier: MIT
#include "support/Each.h"

#include "platform/base/dates/Sysutils_Date.h"
#include "text/dates/BTL_DT_Reading.h"
#include "text/dates/BTL_DT_Texts.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <ctime>
#include <random>
#include <string>
#include <vector>

namespace
{

using System::TDateTime;
using System::UnicodeString;

/// Moments of twenty years, to the second.
std::vector<TDateTime> Dates()
{
    std::mt19937 random(1);
    std::vector<TDateTime> result(1000);
    for (TDateTime& date : result) {
        date = 38'000 + static_cast<int>(random() % 7300) + static_cast<int>(random() % 86'400) / 86'400.0;
    }
    return result;
}

constexpr double DayOfEpoch = 25'569;

std::vector<time_t> Times()
{
    std::vector<time_t> result;
    for (const TDateTime& date : Dates()) {
        result.push_back(std::llround((date - DayOfEpoch) * 86'400));
    }
    return result;
}

std::string HostText(time_t time, const char* format)
{
    std::tm fields = {};
    gmtime_r(&time, &fields);
    char text[40];
    const std::size_t length = std::strftime(text, sizeof text, format, &fields);
    return {text, length};
}

void WriteDateOurs(benchmark::State& state)
{
    Each(state, Dates(), [](const TDateTime& date) { return Sysutils::DateToStr(date); });
}
BENCHMARK(WriteDateOurs)->Name("date_to_text/ours");

void WriteDateHost(benchmark::State& state)
{
    Each(state, Times(), [](time_t time) { return HostText(time, "%Y-%m-%d"); });
}
BENCHMARK(WriteDateHost)->Name("date_to_text/strftime");

void WriteDateTimeOurs(benchmark::State& state)
{
    Each(state, Dates(), [](const TDateTime& date) { return Sysutils::DateTimeToStr(date); });
}
BENCHMARK(WriteDateTimeOurs)->Name("date_time_to_text/ours");

void WriteSqlOurs(benchmark::State& state)
{
    Each(state, Dates(), [](const TDateTime& date) { return BTL::GetSQLDateTimeString(date, false); });
}
BENCHMARK(WriteSqlOurs)->Name("date_time_to_sql/ours");

void WriteDateTimeHost(benchmark::State& state)
{
    Each(state, Times(), [](time_t time) { return HostText(time, "%Y-%m-%d %H:%M:%S"); });
}
BENCHMARK(WriteDateTimeHost)->Name("date_time_to_text/strftime");
BENCHMARK(WriteDateTimeHost)->Name("date_time_to_sql/strftime");

/// What the host writes, in our text or its own.
template <class Text>
std::vector<Text> Texts(const char* format)
{
    std::vector<Text> result;
    for (const time_t time : Times()) {
        result.emplace_back(HostText(time, format).c_str());
    }
    return result;
}

time_t HostTime(const std::string& text, const char* format)
{
    std::tm fields = {};
    strptime(text.c_str(), format, &fields);
    return timegm(&fields);
}

void ReadDateOurs(benchmark::State& state)
{
    Each(state, Texts<UnicodeString>("%Y-%m-%d"),
         [](const UnicodeString& text) { return Sysutils::StrToDate(text); });
}
BENCHMARK(ReadDateOurs)->Name("date_from_text/ours");

void ReadDateHost(benchmark::State& state)
{
    Each(state, Texts<std::string>("%Y-%m-%d"),
         [](const std::string& text) { return HostTime(text, "%Y-%m-%d"); });
}
BENCHMARK(ReadDateHost)->Name("date_from_text/strptime");

void ReadDateTimeOurs(benchmark::State& state)
{
    Each(state, Texts<UnicodeString>("%Y-%m-%d %H:%M:%S"),
         [](const UnicodeString& text) { return Sysutils::StrToDateTime(text); });
}
BENCHMARK(ReadDateTimeOurs)->Name("date_time_from_text/ours");

void ReadAnyDateTimeOurs(benchmark::State& state)
{
    Each(state, Texts<UnicodeString>("%Y-%m-%d %H:%M:%S"),
         [](const UnicodeString& text) { return BTL::StrToDateTime(text); });
}
BENCHMARK(ReadAnyDateTimeOurs)->Name("date_or_number_from_text/ours");

void ReadDateTimeHost(benchmark::State& state)
{
    Each(state, Texts<std::string>("%Y-%m-%d %H:%M:%S"),
         [](const std::string& text) { return HostTime(text, "%Y-%m-%d %H:%M:%S"); });
}
BENCHMARK(ReadDateTimeHost)->Name("date_time_from_text/strptime");
BENCHMARK(ReadDateTimeHost)->Name("date_or_number_from_text/strptime");

} // namespace
