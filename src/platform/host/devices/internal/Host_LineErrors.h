// SPDX-License-Identifier: MIT
#pragma once

namespace Host
{

/// The device's counters of faults of the line, as they stood at some time.
class LineErrors
{
public:
    /// The errors since the counters were looked at, as a sum of `CE_...`. A device without counters has
    /// none.
    [[nodiscard]] unsigned long Since(int device) const;
    /// As `Since`, and counts from now on.
    unsigned long Take(int device);

private:
    struct Counters
    {
        int overruns = 0, losses = 0, parities = 0, frames = 0, breaks = 0;
    };
    static Counters Read(int device);
    [[nodiscard]] unsigned long Compare(const Counters& now) const;

    Counters mLast;
};

} // namespace Host
