// SPDX-License-Identifier: MIT
#include "platform/host/objects/internal/Host_Futex.h"

#include <linux/futex.h>
#include <sys/syscall.h>
#include <time.h> // NOLINT(modernize-deprecated-headers): <ctime> needn't have what is the host's alone
#include <unistd.h>

namespace Host
{

namespace
{

int Operation(int operation, EFutex kind)
{
    return kind == EFutex::Private ? operation | FUTEX_PRIVATE_FLAG : operation;
}

} // namespace

void FutexWait(std::uint32_t* word, std::uint32_t value, int milliseconds, EFutex kind) noexcept
{
    const timespec time{milliseconds / 1000, milliseconds % 1000 * 1'000'000L};
    syscall(SYS_futex, word, Operation(FUTEX_WAIT, kind), value, milliseconds < 0 ? nullptr : &time, nullptr,
            0);
}

void FutexWake(std::uint32_t* word, EFutex kind) noexcept
{
    syscall(SYS_futex, word, Operation(FUTEX_WAKE, kind), 1, nullptr, nullptr, 0);
}

} // namespace Host
