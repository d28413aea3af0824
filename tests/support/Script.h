// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace Support
{

/// Writes a script of the shell that the user may start.
inline void WriteScript(const std::filesystem::path& file, const std::string& body)
{
    std::ofstream(file) << "#!/bin/sh\n" << body << '\n';
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
}

/// The content of a file; empty if there is none.
inline std::string ReadText(const std::filesystem::path& file)
{
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace Support
