// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/devices/Host_CommTypes.h"

#include <memory>

// The settings of a terminal device of the host, as a whole and as a `DCB`.

namespace Host
{

/// All settings that the host keeps for a device.
class LineSettings
{
public:
    LineSettings();
    LineSettings(const LineSettings& other);
    LineSettings& operator=(const LineSettings& other);
    ~LineSettings();

    /// False, with `errno`, for what is no terminal device.
    [[nodiscard]] bool Read(int device);
    [[nodiscard]] bool Write(int device) const;

    /// Bytes go through as they are, hanging up doesn't lower the lines, and the fields of `state` that the
    /// host has a place for are taken over. The speed may be one that the device can't do.
    void Take(const DCB& state);
    /// What the device is set to. The fields without a place are as a device that nobody set has them.
    [[nodiscard]] DCB State() const;

    /// Whether `wanted` holds: drivers take what they can and tell it by what is then read.
    [[nodiscard]] bool HasTaken(const DCB& wanted, bool isPseudoTerminal) const;

private:
    struct Record;
    std::unique_ptr<Record> mRecord;
};

/// Whether the records of a `DCB` make sense on this host.
[[nodiscard]] bool IsPossible(const DCB& state);

} // namespace Host
