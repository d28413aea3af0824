// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

#include <sys/resource.h>

namespace Support
{

/// As a disk that is full: from here on no file of this process grows beyond `bytes`, which may be raised
/// again. For child programs.
inline void LimitFileSize(rlim_t bytes)
{
    if (const rlimit limit{bytes, RLIM_INFINITY}; setrlimit(RLIMIT_FSIZE, &limit) != 0) {
        throw std::runtime_error("The size of files can't be limited.");
    }
}

} // namespace Support
