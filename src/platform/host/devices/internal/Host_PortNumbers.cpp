// SPDX-License-Identifier: MIT
#include "platform/host/devices/internal/Host_PortNumbers.h"

#include <algorithm>
#include <charconv>
#include <set>

namespace Host
{

namespace
{

/// The number of a built-in device's port; 0 for none.
int BuiltInNumber(const std::string& name)
{
    constexpr std::string_view start = "ttyS";
    int index = 0;
    const char* const end = name.data() + name.size();
    const auto [stop, fault] = std::from_chars(name.data() + start.size(), end, index);
    return fault == std::errc() && stop == end && index < MaxPort ? index + 1 : 0;
}

} // namespace

std::map<int, std::string> NumberPorts(const std::map<int, std::string>& named,
                                       const std::vector<ListedDevice>& devices, AdapterNumbers& remembered)
{
    constexpr int firstOfAdapters = 5;
    std::map<int, std::string> ports = named;
    int next = firstOfAdapters;
    for (const ListedDevice& device : devices) {
        const int number = device.adapter.empty() ? BuiltInNumber(device.name) : 0;
        if (number != 0) {
            ports.try_emplace(number, "/dev/" + device.name);
            next = std::max(next, number + 1);
        }
    }
    // Also those that aren't plugged in just now keep their numbers.
    std::set<int> kept;
    for (const auto& [adapter, number] : remembered) {
        kept.insert(number);
    }
    std::vector<const ListedDevice*> others;
    for (const ListedDevice& device : devices) {
        const auto known = remembered.find(device.adapter);
        if (device.adapter.empty()) {
            continue;
        }
        if (known == remembered.end() || !ports.try_emplace(known->second, "/dev/" + device.name).second) {
            others.push_back(&device);
        }
    }
    for (const ListedDevice* device : others) {
        while (next <= MaxPort && (ports.contains(next) || kept.contains(next))) {
            ++next;
        }
        if (next <= MaxPort) {
            ports[next] = "/dev/" + device->name;
            remembered[device->adapter] = next;
        }
    }
    return ports;
}

} // namespace Host
