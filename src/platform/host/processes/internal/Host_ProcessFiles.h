// SPDX-License-Identifier: MIT
#pragma once

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
};

/// Nothing, and `errno` set, if there is no such file. `folder` is that of all processes.
[[nodiscard]] std::optional<std::string> ReadProcessFile(int folder, pid_t process, std::string_view file);

/// Nothing for a text that isn't what the host writes.
[[nodiscard]] std::optional<TProcessStat> ParseProcessStat(std::string_view text);

} // namespace Host
