// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/devices/Host_CommTypes.h"
#include "platform/host/devices/internal/Host_LineSettings.h"

#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace Host
{

/// What is kept for a device from one opening to the next, as a driver of its own would. Whoever holds the
/// device open has it alone.
struct KeptSettings
{
    /// None before the first opening.
    std::optional<DCB> state;
    COMMTIMEOUTS timeouts{};
    std::uint32_t inQueue = 0;
    std::uint32_t outQueue = 0;
    /// Guards what follows, which is asked for without having the device open.
    std::mutex mutex;
    /// How the device was set before it was opened, while it is parked.
    std::optional<LineSettings> former;
};

/// The record of the device at `path`, made at its first opening.
std::shared_ptr<KeptSettings> KeptSettingsOf(const std::string& path);

} // namespace Host
