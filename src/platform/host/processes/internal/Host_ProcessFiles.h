// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <sys/types.h>

// What the host tells of a process in its files.

namespace Host
{

/// The fields of the file "stat" of a process.
struct TProcessStat
{
    std::string name;
    char state = 0;
    pid_t parent = 0;
    unsigned long pageFaults = 0;
    int nice = 0;
    unsigned threads = 0;
    /// In ticks since the host started.
    std::uint64_t start = 0;
};

/// Nothing, and `errno` set, if there is no such file. `folder` is that of all processes.
[[nodiscard]] std::optional<std::string> ReadProcessFile(int folder, pid_t process, std::string_view file);

/// Nothing for a text that isn't what the host writes.
[[nodiscard]] std::optional<TProcessStat> ParseProcessStat(std::string_view text);

/// Whether it runs: it doesn't if it only awaits to be awaited.
[[nodiscard]] inline bool IsAlive(const TProcessStat& stat) noexcept
{
    return stat.state != 'Z' && stat.state != 'X';
}

/// Since when a process runs.
struct TProcessStart
{
    /// In ticks since the host started: with the number it stands for the process and no later one.
    std::uint64_t ticks;
    /// As seconds ago, by the clock that nobody sets.
    double secondsAgo;
};

/// Nothing for a process that isn't alive.
[[nodiscard]] std::optional<TProcessStart> ReadProcessStart(unsigned long process);

} // namespace Host
