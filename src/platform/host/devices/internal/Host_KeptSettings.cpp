// SPDX-License-Identifier: MIT
#include "platform/host/devices/internal/Host_KeptSettings.h"

#include "platform/host/devices/internal/Host_DeviceKind.h"

#include <map>
#include <mutex>

#include <sys/stat.h>

namespace Host
{

namespace
{

/// A number of a pseudo-terminal goes to another pair soon; the time at which it was made tells them apart.
std::string KeyOf(const std::string& path)
{
    struct stat status;
    if (stat(path.c_str(), &status) != 0 || !IsPseudoTerminal(status)) {
        return path;
    }
    return path + ' ' + std::to_string(status.st_ctim.tv_sec) + ' ' + std::to_string(status.st_ctim.tv_nsec);
}

struct Register
{
    std::mutex mutex;
    std::map<std::string, std::shared_ptr<KeptSettings>> devices;
};

} // namespace

std::shared_ptr<KeptSettings> KeptSettingsOf(const std::string& path)
{
    // Never destroyed: the destructors of global objects still close ports.
    static auto* const all = new Register;
    const std::lock_guard lock(all->mutex);
    std::shared_ptr<KeptSettings>& kept = all->devices[KeyOf(path)];
    if (kept == nullptr) {
        kept = std::make_shared<KeptSettings>();
    }
    return kept;
}

} // namespace Host
