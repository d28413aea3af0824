// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>

#include <time.h>

namespace Host
{

/// The end of a wait of some milliseconds; 0xFFFFFFFF never ends.
///
///     const WaitTime deadline(milliseconds);
///     do { ... poll(&entry, 1, deadline.Remaining(100)) ... } while (!deadline.IsOver());
class WaitTime
{
public:
    explicit WaitTime(unsigned long milliseconds) noexcept
        : mIsEndless(milliseconds == 0xFFFFFFFF),
          mEnd(Now() + static_cast<std::int64_t>(milliseconds) * Milli)
    {
    }

    bool IsOver() const noexcept { return !mIsEndless && Now() >= mEnd; }

    /// The milliseconds that are left, rounded up, at most `most`.
    int Remaining(int most) const noexcept
    {
        if (mIsEndless) {
            return most;
        }
        const std::int64_t left = (std::max<std::int64_t>(mEnd - Now(), 0) + Milli - 1) / Milli;
        return static_cast<int>(std::min<std::int64_t>(left, most));
    }

private:
    static constexpr std::int64_t Milli = 1'000'000;

    static std::int64_t Now() noexcept
    {
        timespec now{};
        clock_gettime(CLOCK_MONOTONIC, &now);
        return static_cast<std::int64_t>(now.tv_sec) * 1000 * Milli + now.tv_nsec;
    }

    bool mIsEndless;
    std::int64_t mEnd;
};

} // namespace Host
