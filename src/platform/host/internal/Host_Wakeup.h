// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/internal/Host_Descriptor.h"

#include <cstdint>

#include <sys/eventfd.h>

namespace Host
{

/// Wakes a thread that waits in `poll` for `Get`.
class Wakeup
{
public:
    Wakeup() : mEvent(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

    bool IsOpen() const noexcept { return mEvent.IsOpen(); }
    int Get() const noexcept { return mEvent.Get(); }

    void Wake() const noexcept
    {
        const std::uint64_t one = 1;
        // A counter that is full wakes as well.
        [[maybe_unused]] const ssize_t ignored = ::write(mEvent.Get(), &one, sizeof one);
    }
    /// Whether somebody woke since the last call.
    bool Take() const noexcept
    {
        std::uint64_t count = 0;
        return ::read(mEvent.Get(), &count, sizeof count) > 0;
    }

private:
    Descriptor mEvent;
};

} // namespace Host
