// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Exception.h"

#include <fstream>
#include <stdexcept>

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Support
{

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TRS8_BTL_HAS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define TRS8_BTL_HAS_SANITIZER 1
#endif
#endif

/// Tests of memory that isn't there. The sanitizers need terabytes of addresses, and end a program that asks
/// for too much, so these tests run in the other builds alone.
class OutOfMemoryTest : public testing::Test
{
protected:
    void SetUp() override
    {
#ifdef TRS8_BTL_HAS_SANITIZER
        GTEST_SKIP() << "Under a sanitizer memory can't be limited.";
#endif
    }
};

/// From here on the process gets `bytes` more than it has. For child programs.
inline void LimitMemory(rlim_t bytes)
{
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlimit limit{pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + bytes, RLIM_INFINITY};
    if (setrlimit(RLIMIT_AS, &limit) != 0) {
        throw std::runtime_error("The memory can't be limited.");
    }
}

/// Whether `call` raises `Sysutils::EOutOfMemory` in a copy of this process that gets 64 MB more.
template <class Call>
bool RaisesOutOfMemory(Call call)
{
    const pid_t child = fork();
    if (child == 0) {
        bool raised = false;
        try {
            LimitMemory(rlim_t{1} << 26);
            call();
        } catch (const Sysutils::EOutOfMemory&) {
            raised = true;
        } catch (...) {
        }
        _exit(raised ? 0 : 1);
    }
    int status = -1;
    return child > 0 && waitpid(child, &status, 0) == child && status == 0;
}

} // namespace Support
