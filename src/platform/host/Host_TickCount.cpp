// SPDX-License-Identifier: MIT
#include "platform/host/Host_TickCount.h"

#include <atomic>
#include <chrono>
#include <thread>

#include <sched.h>
#include <time.h> // NOLINT(modernize-deprecated-headers): <ctime> needn't have what is the host's alone

namespace
{

/// What tests have put the counter ahead by.
std::atomic<std::uint32_t> Ahead{0};

std::uint32_t TicksOfHost() noexcept
{
    constexpr std::int64_t thousand = 1000;
    // Counts the time that the machine sleeps, as the host's own time since its start does.
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<std::uint32_t>(now.tv_sec * thousand + now.tv_nsec / (thousand * thousand));
}

} // namespace

std::uint32_t GetTickCount() noexcept
{
    return TicksOfHost() + Ahead.load(std::memory_order_relaxed);
}

void Sleep(unsigned long milliseconds) noexcept
{
    constexpr unsigned long forEver = 0xFFFFFFFF;
    if (milliseconds == 0) {
        sched_yield();
        return;
    }
    do {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    } while (milliseconds == forEver);
}

void Host::SetTickCount(std::uint32_t now) noexcept
{
    Ahead.store(now - TicksOfHost(), std::memory_order_relaxed);
}
