// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <filesystem>

#include <unistd.h>

namespace Support
{

/// A name for a shared object that no other test has.
inline System::UnicodeString OwnName(const System::UnicodeString& name)
{
    return u"test/" + System::UnicodeString(getpid()) + u'/' + name;
}

/// How many entries a folder has.
inline std::ptrdiff_t CountEntries(const std::filesystem::path& folder)
{
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

/// How many names of `OwnName` there are in this process's part.
inline std::ptrdiff_t CountOwnNames()
{
    std::error_code ignored;
    const std::string begin = "n.test%002f" + std::to_string(getpid()) + "%002f";
    std::ptrdiff_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/dev/shm/TRS8_BTL", ignored)) {
        count += entry.path().filename().string().starts_with(begin) ? 1 : 0;
    }
    return count;
}

} // namespace Support
