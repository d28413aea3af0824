// SPDX-License-Identifier: MIT
#include "Sources.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

namespace Station
{

namespace
{

namespace fs = std::filesystem;
using System::UnicodeString;
using TValue = std::optional<double>;

TValue ReadLoad(int column)
{
    std::ifstream file("/proc/loadavg");
    double value = 0;
    for (int i = 0; i <= column; ++i) {
        file >> value;
    }
    return file ? TValue(value) : std::nullopt;
}

/// A line of the memory table, which is in kB, as bytes.
TValue ReadMemory(const std::string& name)
{
    std::ifstream file("/proc/meminfo");
    std::string key;
    double value = 0;
    std::string rest;
    while (file >> key >> value && std::getline(file, rest)) {
        if (key == name + ":") {
            return value * 1024;
        }
    }
    return std::nullopt;
}

TValue Difference(TValue total, TValue part)
{
    return total && part ? TValue(*total - *part) : std::nullopt;
}

TValue CountProcesses()
{
    std::error_code error;
    const fs::directory_iterator entries("/proc", error);
    return static_cast<double>(
        std::count_if(begin(entries), end(entries), [](const fs::directory_entry& entry) {
            // Each process has a folder that is named by its number.
            return entry.path().filename().string().find_first_not_of("0123456789") == std::string::npos;
        }));
}

TValue ReadTemperature(const fs::path& file)
{
    std::ifstream stream(file);
    double milliDegrees = 0;
    return stream >> milliDegrees ? TValue(milliDegrees / 1000) : std::nullopt;
}

bool IsTemperature(const fs::path& file)
{
    const std::string name = file.filename().string();
    return name == "temp" || (name.starts_with("temp") && name.ends_with("_input"));
}

/// The files in which the host shows temperatures, in the order of their names.
std::vector<fs::path> FindTemperatures()
{
    std::vector<fs::path> files;
    for (const char* root : {"/sys/class/thermal", "/sys/class/hwmon"}) {
        std::error_code error;
        for (const fs::directory_entry& device : fs::directory_iterator(root, error)) {
            for (const fs::directory_entry& entry : fs::directory_iterator(device.path(), error)) {
                if (IsTemperature(entry.path()) && ReadTemperature(entry.path())) {
                    files.push_back(entry.path());
                }
            }
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

std::vector<TSource> HostSources()
{
    const UnicodeString bytes = u"B";
    std::vector<TSource> sources = {
        {u"load.1", {}, [] { return ReadLoad(0); }},
        {u"load.5", {}, [] { return ReadLoad(1); }},
        {u"load.15", {}, [] { return ReadLoad(2); }},
        {u"memory.total", bytes, [] { return ReadMemory("MemTotal"); }},
        {u"memory.free", bytes, [] { return ReadMemory("MemFree"); }},
        {u"memory.available", bytes, [] { return ReadMemory("MemAvailable"); }},
        {u"memory.used", bytes,
         [] { return Difference(ReadMemory("MemTotal"), ReadMemory("MemAvailable")); }},
        {u"swap.used", bytes, [] { return Difference(ReadMemory("SwapTotal"), ReadMemory("SwapFree")); }},
        {u"processes", {}, CountProcesses},
    };
    int number = 0;
    for (const fs::path& file : FindTemperatures()) {
        sources.push_back(
            {u"temperature." + UnicodeString(++number), u"°C", [file] { return ReadTemperature(file); }});
    }
    return sources;
}

} // namespace Station
