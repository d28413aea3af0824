// SPDX-License-Identifier: MIT
#include "platform/host/devices/Host_PortMap.h"
#include "platform/host/internal/Host_Descriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <fstream>
#include <memory>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>

namespace Host
{

namespace
{

using System::UnicodeString;

/// Calls `action` with each name in a folder until it gives true; whether it did.
template <class Action>
bool AnyName(const std::string& folder, Action action)
{
    struct Closer
    {
        void operator()(DIR* open) const { closedir(open); }
    };
    const std::unique_ptr<DIR, Closer> open(opendir(folder.c_str()));
    if (open == nullptr) {
        return false;
    }
    for (const dirent* entry = readdir(open.get()); entry != nullptr; entry = readdir(open.get())) {
        if (action(std::string(entry->d_name))) {
            return true;
        }
    }
    return false;
}

bool HasOpen(const std::string& process, dev_t device)
{
    const std::string folder = "/proc/" + process + "/fd";
    return AnyName(folder, [&](const std::string& name) {
        struct stat status;
        return name != "." && name != ".." && stat((folder + '/' + name).c_str(), &status) == 0 &&
               S_ISCHR(status.st_mode) && status.st_rdev == device;
    });
}

/// The processes that have the device open, as far as the user may know.
UnicodeString HoldersOf(dev_t device)
{
    UnicodeString holders;
    AnyName("/proc", [&](const std::string& process) {
        int id = 0;
        const char* const end = process.data() + process.size();
        if (std::from_chars(process.data(), end, id).ptr != end || !HasOpen(process, device)) {
            return false;
        }
        std::string name;
        std::ifstream stream("/proc/" + process + "/comm");
        std::getline(stream, name);
        holders += holders.IsEmpty() ? u"" : u", ";
        holders += System::FromUtf8(name + " (process " + process + ')');
        return false;
    });
    return holders;
}

UnicodeString GroupName(gid_t group)
{
    std::array<char, 4096> buffer;
    struct group entry;
    struct group* found = nullptr;
    if (getgrgid_r(group, &entry, buffer.data(), buffer.size(), &found) == 0 && found != nullptr) {
        return System::FromUtf8(found->gr_name);
    }
    return UnicodeString(group);
}

bool IsMember(gid_t group)
{
    const int count = getgroups(0, nullptr);
    std::vector<gid_t> groups(static_cast<std::size_t>(std::max(count, 0)));
    return getegid() == group ||
           (getgroups(count, groups.data()) >= 0 && std::ranges::count(groups, group) > 0);
}

UnicodeString MissingRight(const std::string& path, const struct stat& status)
{
    const UnicodeString place = System::FromUtf8(path);
    constexpr mode_t rightsOfGroup = S_IRGRP | S_IWGRP;
    if ((status.st_mode & rightsOfGroup) == rightsOfGroup && !IsMember(status.st_gid)) {
        return u"The user isn't in the group " + GroupName(status.st_gid) + u", which may open " + place +
               u".";
    }
    return u"The user may not open " + place + u".";
}

} // namespace

UnicodeString GetPortRefusal(int number)
{
    const std::string path = PortDevice(number);
    struct stat status;
    if (path.empty() || stat(path.c_str(), &status) != 0 || !S_ISCHR(status.st_mode)) {
        return u"There is no device " + System::FromUtf8(path) + u".";
    }
    if (access(path.c_str(), R_OK | W_OK) != 0) {
        return MissingRight(path, status);
    }
    const UnicodeString holders = HoldersOf(status.st_rdev);
    if (!holders.IsEmpty()) {
        return System::FromUtf8(path) + u" is open in " + holders + u".";
    }
    return {};
}

} // namespace Host
