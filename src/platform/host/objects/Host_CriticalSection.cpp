// SPDX-License-Identifier: MIT
#include "platform/host/objects/Host_CriticalSection.h"

#include "platform/host/objects/internal/Host_Futex.h"

#include <atomic>

namespace
{

enum EState : std::uint32_t
{
    Free,
    Taken,
    Awaited,
};

/// Its address stands for the thread, which costs no call.
thread_local constinit char Mark [[gnu::tls_model("initial-exec")]] = 0;

std::uintptr_t CallingThread() noexcept
{
    return reinterpret_cast<std::uintptr_t>(&Mark);
}

/// Only the owner finds itself there, so no order is needed.
bool IsOwner(CRITICAL_SECTION& section, std::uintptr_t thread) noexcept
{
    return std::atomic_ref(section.Owner).load(std::memory_order_relaxed) == thread;
}

bool TryTake(CRITICAL_SECTION& section) noexcept
{
    std::uint32_t state = Free;
    return std::atomic_ref(section.State).compare_exchange_strong(state, Taken, std::memory_order_acquire);
}

/// Leaves the core to others for a moment.
void Pause(int steps) noexcept
{
    for (int i = 0; i < steps; ++i) {
#if defined(__x86_64__) || defined(__i386__)
        __builtin_ia32_pause();
#else
        std::atomic_signal_fence(std::memory_order_seq_cst);
#endif
    }
}

[[gnu::noinline]] void WaitAndTake(CRITICAL_SECTION& section) noexcept
{
    // Most locks are held for less time than it takes to fall asleep. The looks come more and more seldom, so
    // that the owner is left alone with the cache line for a while.
    constexpr int shortest = 8;
    constexpr int longest = 256;
    const std::atomic_ref state(section.State);
    for (int pause = shortest; pause <= longest; pause *= 2) {
        Pause(pause);
        if (state.load(std::memory_order_relaxed) == Free && TryTake(section)) {
            return;
        }
    }
    while (state.exchange(Awaited, std::memory_order_acquire) != Free) {
        Host::FutexWait(&section.State, Awaited, -1, Host::EFutex::Private);
    }
}

void SetOwner(CRITICAL_SECTION& section, std::uintptr_t thread) noexcept
{
    std::atomic_ref(section.Owner).store(thread, std::memory_order_relaxed);
}

} // namespace

void InitializeCriticalSection(CRITICAL_SECTION* section) noexcept
{
    *section = CRITICAL_SECTION();
}

void DeleteCriticalSection(CRITICAL_SECTION* section) noexcept
{
    *section = CRITICAL_SECTION();
}

void EnterCriticalSection(CRITICAL_SECTION* section) noexcept
{
    const std::uintptr_t thread = CallingThread();
    if (!TryTake(*section)) {
        if (IsOwner(*section, thread)) {
            ++section->Depth;
            return;
        }
        WaitAndTake(*section);
    }
    SetOwner(*section, thread);
    section->Depth = 1;
}

bool TryEnterCriticalSection(CRITICAL_SECTION* section) noexcept
{
    const std::uintptr_t thread = CallingThread();
    if (!TryTake(*section)) {
        if (!IsOwner(*section, thread)) {
            return false;
        }
        ++section->Depth;
        return true;
    }
    SetOwner(*section, thread);
    section->Depth = 1;
    return true;
}

void LeaveCriticalSection(CRITICAL_SECTION* section) noexcept
{
    if (!IsOwner(*section, CallingThread()) || --section->Depth != 0) {
        return;
    }
    SetOwner(*section, 0);
    if (std::atomic_ref(section->State).exchange(Free, std::memory_order_release) == Awaited) {
        Host::FutexWake(&section->State, Host::EFutex::Private);
    }
}
