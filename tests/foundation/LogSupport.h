// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/host/Host_Path.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

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

} // namespace Support
