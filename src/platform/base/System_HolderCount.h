// SPDX-License-Identifier: MIT
#pragma once

#include <sys/single_threaded.h>

namespace System
{

/// Counts the holders of what several values have in common. It is atomic, so that copies of a value may live
/// in different threads. By the compiler's own operations: the standard header of atomics takes a third of a
/// second in each file that includes a string. As long as the program has one thread, which the C library
/// tells, the operations that no other processor may interrupt are saved: they take most of the time of a
/// copy.
class THolderCount
{
public:
    explicit constexpr THolderCount(int count) noexcept : mCount(count) {}
    THolderCount(const THolderCount&) = delete;
    THolderCount& operator=(const THolderCount&) = delete;

    /// Whether there is one holder alone, who may then write.
    bool IsOne() const noexcept { return __atomic_load_n(&mCount, __ATOMIC_ACQUIRE) == 1; }
    /// One holder more.
    void Increment() noexcept
    {
        if (__libc_single_threaded != 0) {
            ++mCount;
        } else {
            __atomic_fetch_add(&mCount, 1, __ATOMIC_RELAXED);
        }
    }
    /// True for the last holder.
    bool Decrement() noexcept
    {
        // A sole holder needs no read-modify-write: nobody else can raise the count.
        if (IsOne()) {
            return true;
        }
        if (__libc_single_threaded != 0) {
            return --mCount == 0;
        }
        return __atomic_fetch_sub(&mCount, 1, __ATOMIC_ACQ_REL) == 1;
    }

private:
    int mCount;
};

} // namespace System
