// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <limits>

#include <poll.h>

namespace Host
{

/// A time on the clock that nobody sets, up to which something may take. As precise as the host, so that a
/// wait of 50 ms takes no 49.
///
///     const Deadline deadline = Deadline::OfWait(milliseconds);
///     while (!HasCome()) {
///         if (deadline.IsPast()) { return WAIT_TIMEOUT; }
///         deadline.Poll(descriptors);
///     }
class Deadline
{
public:
    /// Never.
    constexpr Deadline() = default;

    static Deadline In(std::uint64_t milliseconds)
    {
        constexpr std::uint64_t farAway = std::uint64_t{1} << 42U;
        constexpr std::int64_t million = 1'000'000;
        return Deadline(Now() + static_cast<std::int64_t>(std::min(milliseconds, farAway)) * million);
    }

    /// The end of a wait in the measure of the platform's calls: 0xFFFFFFFF never ends.
    static Deadline OfWait(unsigned long milliseconds)
    {
        constexpr unsigned long endless = 0xFFFFFFFF;
        return milliseconds == endless ? Deadline() : In(milliseconds);
    }

    bool IsPast() const { return mTime != Never && Now() >= mTime; }
    Deadline Earlier(Deadline other) const { return Deadline(std::min(mTime, other.mTime)); }

    /// The milliseconds that are left, rounded up, at most `most`.
    int Remaining(int most) const
    {
        constexpr std::int64_t million = 1'000'000;
        if (mTime == Never) {
            return most;
        }
        return static_cast<int>(std::min<std::int64_t>((Left() + million - 1) / million, most));
    }

    /// `poll` up to this time, or up to a signal: the count of descriptors that are ready.
    template <std::size_t N>
    int Poll(pollfd (&descriptors)[N]) const
    {
        if (mTime == Never) {
            return ppoll(descriptors, N, nullptr, nullptr);
        }
        constexpr std::int64_t billion = 1'000'000'000;
        const std::int64_t left = Left();
        const timespec time{.tv_sec = left / billion, .tv_nsec = left % billion};
        return ppoll(descriptors, N, &time, nullptr);
    }

private:
    static constexpr std::int64_t Never = std::numeric_limits<std::int64_t>::max();

    explicit constexpr Deadline(std::int64_t time) : mTime(time) {}

    std::int64_t Left() const { return std::max<std::int64_t>(mTime - Now(), 0); }

    static std::int64_t Now()
    {
        constexpr std::int64_t billion = 1'000'000'000;
        timespec now{};
        clock_gettime(CLOCK_MONOTONIC, &now);
        return now.tv_sec * billion + now.tv_nsec;
    }

    /// In nanoseconds.
    std::int64_t mTime = Never;
};

} // namespace Host
