// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"

#include <string>
#include <vector>

namespace Host
{

/// A serial device that the kernel lists.
struct ListedDevice
{
    /// As in `/dev`, "ttyUSB0".
    std::string name;
    /// What tells an adapter from all others: maker, product, serial number and interface, or the socket
    /// where it has no number of its own. Empty for a device that is built in.
    std::string adapter;
};

/// The serial devices in `folder`, `/sys/class/tty` or one made like it, by name: those built in that have
/// hardware behind them, and the adapters.
[[nodiscard]] TRS8_BTL_API std::vector<ListedDevice> ListDevices(const std::string& folder);

} // namespace Host
