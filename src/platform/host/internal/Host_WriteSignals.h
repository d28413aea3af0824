// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>

namespace Host
{

/// For its life, a write of this thread that the host refuses is an error alone. The host would also send a
/// signal, which ends programs: for a pipe that nobody reads any more, and for a file that would outgrow its
/// limit.
class WriteSignals
{
public:
    WriteSignals() noexcept;
    WriteSignals(const WriteSignals&) = delete;
    WriteSignals& operator=(const WriteSignals&) = delete;
    ~WriteSignals();

private:
    sigset_t mFormerMask;
    /// Those that waited before, which are somebody else's.
    sigset_t mPending;
};

} // namespace Host
