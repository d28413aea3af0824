// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace Support
{

/// Runs one test of this test program alone, in a process of its own, and gives what it printed between the
/// lines of `PrintResult`. The test is found by its full name; name it `DISABLED_...`, so that it runs only
/// this way. A child that fails throws `std::runtime_error`.
std::string RunChildTest(const std::string& test);

/// As `RunChildTest` of the test alone, but with a copy of the program at `program`.
std::string RunChildTest(const std::string& test, const std::filesystem::path& program);

/// Called by the child: hands `text` to the parent.
void PrintResult(const std::string& text);

} // namespace Support
