// SPDX-License-Identifier: MIT
#include "platform/host/system/Host_SystemInfo.h"

#include "platform/base/System_String.h"
#include "platform/host/Host_Error.h"

#include <algorithm>
#include <climits>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <pwd.h>
#include <unistd.h>

using System::UnicodeString;

namespace
{

static_assert(sizeof(OSVERSIONINFOW) == 276 && sizeof(_MEMORYSTATUSEX) == 64);

/// What lies below the half of 48 bits, the rest is the kernel's.
constexpr std::uint64_t AddressSpace = std::uint64_t{1} << 47;

/// Whether the text with its zero fits; else `*size` is the room that it takes.
bool CopyName(const UnicodeString& name, System::WideChar* buffer, unsigned long* size)
{
    const auto room = static_cast<unsigned long>(name.Length()) + 1;
    const bool fits = buffer != nullptr && room <= *size;
    if (fits) {
        std::copy_n(name.c_str(), room, buffer);
    }
    *size = room;
    return fits;
}

UnicodeString UserName()
{
    std::vector<char> buffer(1 << 14);
    passwd entry;
    passwd* found = nullptr;
    if (getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || found == nullptr) {
        return {};
    }
    return System::FromUtf8(found->pw_name);
}

std::string HostName()
{
    char name[HOST_NAME_MAX + 1] = {};
    gethostname(name, HOST_NAME_MAX);
    return name;
}

std::optional<UnicodeString> ComputerName(COMPUTER_NAME_FORMAT format)
{
    constexpr int netBiosLength = 15;
    const std::string full = HostName();
    const std::size_t dot = std::min(full.find('.'), full.size());
    const UnicodeString first = System::FromUtf8(std::string_view(full).substr(0, dot));
    switch (format) {
    case ComputerNameNetBIOS:
        return first.SubString(1, netBiosLength).UpperCase();
    case ComputerNameDnsHostname:
        return first;
    case ComputerNameDnsDomain:
        return System::FromUtf8(std::string_view(full).substr(std::min(dot + 1, full.size())));
    case ComputerNameDnsFullyQualified:
        return System::FromUtf8(full);
    }
    return std::nullopt;
}

/// The bytes in a line such as "MemTotal:  123 kB"; 0 if there is none.
std::uint64_t BytesOf(const char* file, std::string_view field)
{
    constexpr std::uint64_t kilo = 1024;
    std::ifstream stream(file);
    for (std::string word; stream >> word;) {
        if (word == field) {
            std::uint64_t value = 0;
            stream >> value;
            return value * kilo;
        }
    }
    return 0;
}

} // namespace

bool GetUserNameW(System::WideChar* buffer, unsigned long* size)
{
    const UnicodeString name = UserName();
    if (name.IsEmpty()) {
        return Host::Fail(ERROR_NO_SUCH_USER);
    }
    return CopyName(name, buffer, size) || Host::Fail(ERROR_INSUFFICIENT_BUFFER);
}

bool GetComputerNameExW(COMPUTER_NAME_FORMAT format, System::WideChar* buffer, unsigned long* size)
{
    const auto name = ComputerName(format);
    if (!name) {
        return Host::Fail(ERROR_INVALID_PARAMETER);
    }
    if (!CopyName(*name, buffer, size)) {
        return Host::Fail(ERROR_MORE_DATA);
    }
    --*size;
    return true;
}

bool GetVersionExW(OSVERSIONINFOW* info)
{
    constexpr std::uint32_t size = sizeof(OSVERSIONINFOW);
    if (info->dwOSVersionInfoSize != size) {
        return Host::Fail(ERROR_INSUFFICIENT_BUFFER);
    }
    *info = {size, 10, 0, 0, 2, {}};
    return true;
}

bool GlobalMemoryStatusEx(_MEMORYSTATUSEX* status)
{
    constexpr std::uint64_t hundred = 100;
    constexpr std::uint32_t size = sizeof(_MEMORYSTATUSEX);
    if (status->dwLength != size) {
        return Host::Fail(ERROR_INVALID_PARAMETER);
    }
    constexpr const char* machine = "/proc/meminfo";
    const std::uint64_t total = BytesOf(machine, "MemTotal:");
    if (total == 0) {
        return Host::Fail(ERROR_NOT_SUPPORTED);
    }
    const std::uint64_t available = std::min(BytesOf(machine, "MemAvailable:"), total);
    status->dwMemoryLoad = static_cast<std::uint32_t>((total - available) / (total / hundred + 1));
    status->ullTotalPhys = total;
    status->ullAvailPhys = available;
    status->ullTotalPageFile = total + BytesOf(machine, "SwapTotal:");
    status->ullAvailPageFile = available + BytesOf(machine, "SwapFree:");
    status->ullTotalVirtual = AddressSpace;
    status->ullAvailVirtual = AddressSpace - std::min(BytesOf("/proc/self/status", "VmSize:"), AddressSpace);
    status->ullAvailExtendedVirtual = 0;
    return true;
}
