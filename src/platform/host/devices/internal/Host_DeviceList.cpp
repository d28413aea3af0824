// SPDX-License-Identifier: MIT
#include "platform/host/devices/internal/Host_DeviceList.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <set>

#include <dirent.h>

namespace Host
{

namespace
{

/// The first line of a file of the kernel; empty if there is none.
std::string LineOf(const std::string& file)
{
    std::string line;
    std::ifstream stream(file);
    std::getline(stream, line);
    return line;
}

std::vector<std::string> NamesIn(const std::string& folder)
{
    struct Closer
    {
        void operator()(DIR* open) const { closedir(open); }
    };
    std::vector<std::string> names;
    const std::unique_ptr<DIR, Closer> open(opendir(folder.c_str()));
    if (open == nullptr) {
        return names;
    }
    for (const dirent* entry = readdir(open.get()); entry != nullptr; entry = readdir(open.get())) {
        names.emplace_back(entry->d_name);
    }
    return names;
}

/// The folder that a link of the kernel leads to; empty for none.
std::string TargetOf(const std::string& link)
{
    const std::unique_ptr<char, void (*)(void*)> path(realpath(link.c_str(), nullptr), std::free);
    return path == nullptr ? std::string() : path.get();
}

std::string ParentOf(const std::string& folder)
{
    return folder.substr(0, folder.rfind('/'));
}

/// The nearest folder from `folder` upwards that has the file; empty if none has.
std::string FolderWith(std::string folder, const std::string& file)
{
    while (!folder.empty() && LineOf(folder + '/' + file).empty()) {
        folder = ParentOf(folder);
    }
    return folder;
}

enum class Identity
{
    ByNumber,
    BySocket,
};

std::string AdapterOf(const std::string& link, Identity identity)
{
    const std::string folder = TargetOf(link);
    const std::string device = FolderWith(folder, "idVendor");
    if (device.empty()) {
        return "path:" + folder;
    }
    const std::string interface = FolderWith(folder, "bInterfaceNumber");
    const std::string number = LineOf(device + "/serial");
    const bool byNumber = identity == Identity::ByNumber && !number.empty();
    return "usb:" + LineOf(device + "/idVendor") + ':' + LineOf(device + "/idProduct") + ':' +
           (byNumber ? number : '@' + device.substr(device.rfind('/') + 1)) + ':' +
           (interface.empty() ? "00" : LineOf(interface + "/bInterfaceNumber"));
}

bool HasHardware(const std::string& folder)
{
    const std::string type = LineOf(folder + "/type");
    return !type.empty() && type != "0";
}

bool ComesBefore(const ListedDevice& a, const ListedDevice& b)
{
    // "ttyS10" behind "ttyS9".
    return a.name.size() != b.name.size() ? a.name.size() < b.name.size() : a.name < b.name;
}

} // namespace

std::vector<ListedDevice> ListDevices(const std::string& folder)
{
    std::vector<ListedDevice> devices;
    for (const std::string& name : NamesIn(folder)) {
        const std::string entry = folder + '/' + name;
        if (name.starts_with("ttyUSB") || name.starts_with("ttyACM")) {
            devices.push_back({name, AdapterOf(entry + "/device", Identity::ByNumber)});
        } else if (name.starts_with("ttyS") && name.size() > 4 &&
                   std::isdigit(static_cast<unsigned char>(name[4])) != 0 && HasHardware(entry)) {
            devices.push_back({name, ""});
        }
    }
    std::ranges::sort(devices, ComesBefore);
    // Makers give many adapters one number.
    std::set<std::string> taken;
    for (ListedDevice& device : devices) {
        if (!device.adapter.empty() && !taken.insert(device.adapter).second) {
            device.adapter = AdapterOf(folder + '/' + device.name + "/device", Identity::BySocket);
        }
    }
    return devices;
}

} // namespace Host
