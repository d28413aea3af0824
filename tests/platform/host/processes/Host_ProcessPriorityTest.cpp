// SPDX-License-Identifier: MIT
#include "platform/host/processes/Host_ProcessPriority.h"

#include "platform/host/Host_Error.h"
#include "platform/host/processes/Host_CreateProcess.h"
#include "platform/host/processes/Host_Process.h"
#include "support/SecondProcess.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include <sys/resource.h>
#include <unistd.h>

namespace
{

/// The tests may run with less of the processor than is usual, and may not rise then.
int OwnNice()
{
    return getpriority(PRIO_PROCESS, 0);
}

TEST(ProcessPriorityTest, ClassesAreNiceValues)
{
    // Falling, so that any user may set them.
    for (const auto& [priorityClass, nice] : {std::pair(NORMAL_PRIORITY_CLASS, 0),
                                              {BELOW_NORMAL_PRIORITY_CLASS, 10},
                                              {IDLE_PRIORITY_CLASS, 19}}) {
        if (nice < OwnNice()) {
            continue;
        }
        PROCESS_INFORMATION info;
        ASSERT_TRUE(CreateProcessW(nullptr, u"sleep 100", nullptr, nullptr, false, priorityClass, nullptr,
                                   nullptr, nullptr, &info));
        EXPECT_EQ(GetPriorityClass(info.hProcess), priorityClass);
        EXPECT_EQ(getpriority(PRIO_PROCESS, static_cast<id_t>(info.dwProcessId)), nice);
        EXPECT_FALSE(SetPriorityClass(info.hProcess, 12345));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
        EXPECT_TRUE(SetPriorityClass(info.hProcess, IDLE_PRIORITY_CLASS));
        EXPECT_EQ(GetPriorityClass(info.hProcess), IDLE_PRIORITY_CLASS);
        EXPECT_TRUE(TerminateProcess(info.hProcess, 0));
        // Its number may be that of another one from here on.
        EXPECT_EQ(WaitForSingleObject(info.hProcess, 20'000), WAIT_OBJECT_0);
        EXPECT_FALSE(SetPriorityClass(info.hProcess, IDLE_PRIORITY_CLASS));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
        EXPECT_EQ(GetPriorityClass(info.hProcess), 0U);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
        EXPECT_TRUE(CloseHandle(info.hProcess));
        EXPECT_TRUE(CloseHandle(info.hThread));
    }
    for (const auto& [nice, priorityClass] : {std::pair(-20, REALTIME_PRIORITY_CLASS),
                                              {-10, HIGH_PRIORITY_CLASS},
                                              {-5, ABOVE_NORMAL_PRIORITY_CLASS},
                                              {3, NORMAL_PRIORITY_CLASS},
                                              {7, BELOW_NORMAL_PRIORITY_CLASS}}) {
        EXPECT_EQ(Host::PriorityClassOf(nice), priorityClass) << nice;
    }
}

TEST(ProcessPriorityTest, ARefusedRiseIsAnError)
{
    Support::SecondProcess other([](int tell) {
        const rlimit none{0, 0};
        const unsigned long own = GetPriorityClass(GetCurrentProcess());
        const bool isPlainUser = setrlimit(RLIMIT_NICE, &none) == 0 && (geteuid() != 0 || setuid(65534) == 0);
        const bool isRefused = isPlainUser && !SetPriorityClass(GetCurrentProcess(), HIGH_PRIORITY_CLASS) &&
                               GetLastError() == ERROR_ACCESS_DENIED &&
                               !SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_HIGHEST) &&
                               GetLastError() == ERROR_ACCESS_DENIED &&
                               GetThreadPriority(GetCurrentThread()) == THREAD_PRIORITY_NORMAL &&
                               GetPriorityClass(GetCurrentProcess()) == own;
        if (isRefused) {
            Support::SecondProcess::Tell(tell);
        }
    });
    EXPECT_TRUE(other.Await());
}

TEST(ProcessPriorityTest, AThreadGetsWhatItAsksForWhoeverStartedIt)
{
    const int processNice = OwnNice();
    const int lowest = std::min(processNice + 4, 19);
    std::thread([&] {
        EXPECT_TRUE(SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_LOWEST));
        // The host starts the next one with the same value.
        std::thread([&] {
            const bool isRaised = SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_NORMAL);
            EXPECT_EQ(getpriority(PRIO_PROCESS, 0), isRaised ? processNice : lowest);
        }).join();
    }).join();
}

TEST(ProcessPriorityTest, ThreadsDifferFromTheirClass)
{
    Support::SecondProcess other([](int tell) {
        const unsigned long own = GetPriorityClass(GetCurrentProcess());
        const int ownNice = OwnNice();
        const auto [lower, lowerNice] =
            ownNice <= 10 ? std::pair(BELOW_NORMAL_PRIORITY_CLASS, 14) : std::pair(IDLE_PRIORITY_CLASS, 19);
        const bool isSet =
            SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_LOWEST) &&
            GetThreadPriority(GetCurrentThread()) == THREAD_PRIORITY_LOWEST &&
            getpriority(PRIO_PROCESS, 0) == std::min(ownNice + 4, 19) &&
            GetPriorityClass(GetCurrentProcess()) == own && SetPriorityClass(GetCurrentProcess(), lower) &&
            getpriority(PRIO_PROCESS, 0) == lowerNice && GetPriorityClass(GetCurrentProcess()) == lower &&
            !SetThreadPriority(GetCurrentThread(), 7) && GetLastError() == ERROR_INVALID_PARAMETER;
        if (isSet) {
            Support::SecondProcess::Tell(tell);
        }
    });
    EXPECT_TRUE(other.Await());
    EXPECT_FALSE(SetThreadPriority(nullptr, 0));
    EXPECT_EQ(GetThreadPriority(nullptr), THREAD_PRIORITY_ERROR_RETURN);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

} // namespace
