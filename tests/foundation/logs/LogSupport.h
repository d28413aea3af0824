// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/host/Host_Path.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <regex>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace Support
{

inline std::string ReadFile(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline System::UnicodeString LibraryPath(const std::filesystem::path& file)
{
    return Sysutils::FromHostPath(file.string());
}

/// `text` with "T" in place of each time of a log.
inline std::string WithoutTimes(const std::string& text)
{
    static const std::regex time(R"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}(Z|[+-]\d\d:\d\d))");
    return std::regex_replace(text, time, "T");
}

/// The lines without their times, in an order of their own.
inline std::vector<std::string> SortedLines(const std::string& text)
{
    std::istringstream stream(WithoutTimes(text));
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

/// Lets four threads call `log` with their names "a" to "d".
inline void LogFromThreads(const std::function<void(const std::string& name)>& log)
{
    std::vector<std::thread> threads;
    for (const char* const name : {"a", "b", "c", "d"}) {
        threads.emplace_back([&log, name] { log(name); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

/// The lines that four threads leave that say `count` times each " NAME NAME" behind the time, and `end`.
inline std::vector<std::string> LinesOfThreads(int count, const std::string& end)
{
    std::vector<std::string> lines;
    for (const char* const name : {"a", "b", "c", "d"}) {
        lines.insert(lines.end(), static_cast<std::size_t>(count),
                     std::string("T ") + name + ' ' + name + end);
    }
    return lines;
}

/// Calls what was set when the global objects of the program end.
struct AtEndOfGlobals
{
    std::function<void()> call;
    ~AtEndOfGlobals()
    {
        if (call) {
            call();
        }
    }
};

inline AtEndOfGlobals atEndOfGlobals;

} // namespace Support
