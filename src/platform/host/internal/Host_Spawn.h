// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace Host
{

enum class ESession
{
    /// Receives what the terminal sends, as this process does.
    Same,
    /// Is no part of this process's group.
    OwnGroup,
    /// Has no terminal and no standard input.
    Own,
};

/// A program to start.
struct TSpawn
{
    /// A path with a slash.
    std::string program;
    /// The first one is the program's name for itself.
    std::vector<std::string> arguments;
    /// Empty for the current one.
    std::string folder;
    ESession session = ESession::Same;
    /// Whether all but the standard streams is closed.
    bool closesFiles = false;
    /// What takes the place of the standard output; -1 for that of this process.
    int output = -1;
};

/// The program of this name on the search path, never in the current folder; else empty, with `errno` set.
[[nodiscard]] std::string FindProgram(const std::string& name);

/// Starts a program with the signals as at a fresh start; 0 or the `errno`. No shell has a part in it. What a
/// bundle, in which this process runs, added to the search paths, is left out for programs outside of it.
[[nodiscard]] int Spawn(const TSpawn& spawn, pid_t& process);

/// What a program writes to its standard output, its end awaited; nothing if it can't be started, fails, or
/// takes longer than some seconds, after which it is killed.
[[nodiscard]] std::optional<std::string> ReadOutput(TSpawn spawn);

} // namespace Host
