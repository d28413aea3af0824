// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/objects/Host_CriticalSection.h"

namespace WIN
{

/// A lock among the threads of the process, which its owner may enter again.
///
///     WIN::CCriticalSectionObject gate;
///     {
///         const WIN::CCriticalSection lock(gate);         // until the end of the block
///         ++count;
///     }
class CCriticalSectionObject
{
public:
    CCriticalSectionObject() noexcept { InitializeCriticalSection(&mSection); }
    CCriticalSectionObject(const CCriticalSectionObject&) = delete;
    CCriticalSectionObject& operator=(const CCriticalSectionObject&) = delete;
    ~CCriticalSectionObject() { DeleteCriticalSection(&mSection); }

    /// Waits until the lock is the thread's.
    void Enter() noexcept { EnterCriticalSection(&mSection); }
    /// Gives the lock back once; does nothing if it isn't the thread's.
    void Leave() noexcept { LeaveCriticalSection(&mSection); }

private:
    CRITICAL_SECTION mSection;
};

/// The lock of the process that `CCriticalSection` takes by itself; it outlives every global object.
TRS8_BTL_API CCriticalSectionObject& GlobalCriticalSection() noexcept;

/// Holds a lock for its life. The lock must outlive it.
class [[nodiscard]] CCriticalSection
{
public:
    /// Enters the lock of the process.
    CCriticalSection() noexcept : CCriticalSection(GlobalCriticalSection()) {}
    explicit CCriticalSection(CCriticalSectionObject& section) noexcept : mSection(&section)
    {
        mSection->Enter();
    }
    CCriticalSection(const CCriticalSection&) = delete;
    CCriticalSection& operator=(const CCriticalSection&) = delete;
    ~CCriticalSection() { mSection->Leave(); }

private:
    CCriticalSectionObject* mSection;
};

} // namespace WIN
