// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/devices/internal/Host_DeviceList.h"

#include <map>
#include <string>
#include <vector>

namespace Host
{

inline constexpr int MaxPort = 256;

/// Numbers by what stands for an adapter.
using AdapterNumbers = std::map<std::string, int>;

/// The paths of devices by the numbers of their ports: first those that are `named`, then the built-in ones,
/// then the adapters by the numbers that `remembered` has; an adapter without one, or whose number is taken,
/// gets the next free one behind the built-in ones, and `remembered` has it from then on.
[[nodiscard]] TRS8_BTL_API std::map<int, std::string> NumberPorts(const std::map<int, std::string>& named,
                                                                  const std::vector<ListedDevice>& devices,
                                                                  AdapterNumbers& remembered);

} // namespace Host
