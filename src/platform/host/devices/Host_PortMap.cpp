// SPDX-License-Identifier: MIT
#include "platform/host/devices/Host_PortMap.h"

#include "platform/base/internal/System_Ascii.h"
#include "platform/host/Host_Error.h"
#include "platform/host/devices/internal/Host_DeviceKind.h"
#include "platform/host/devices/internal/Host_PortNumbers.h"
#include "platform/host/registry/internal/Host_RegistryStore.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include <sys/stat.h>
#include <unistd.h>

namespace Host
{

namespace
{

using System::UnicodeString;

constexpr std::string_view VariableStart = "TRS8_BTL_";
constexpr auto NamedSection = u"Ports";
/// Behind the name of a port: when its device was made.
constexpr auto MadeMark = u" made";
constexpr const char* KernelList = "/sys/class/tty";

UnicodeString NameOf(int number)
{
    return u"COM" + UnicodeString(number);
}

/// Of a pseudo-terminal, whose number goes to another pair soon, perhaps to somebody's terminal; else empty.
UnicodeString TimeOfMaking(const std::string& path)
{
    struct stat status;
    if (stat(path.c_str(), &status) != 0 || !IsPseudoTerminal(status)) {
        return {};
    }
    return UnicodeString(status.st_ctim.tv_sec) + u'.' + UnicodeString(status.st_ctim.tv_nsec);
}

/// Whether the path leads to the device that was named; a line by hand doesn't tell when that was made.
bool IsStill(const std::string& path, const std::map<UnicodeString, RegistryText::Entry>& entries,
             const UnicodeString& nameOfTime)
{
    const auto time = entries.find(nameOfTime);
    return time == entries.end() || time->second.value == RegistryValue(TimeOfMaking(path));
}

template <class Change>
bool ChangeName(int number, const std::string& device, Change change)
{
    if (number < 1 || number > MaxPort || device.empty()) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    return ChangeRegistry(RegistryPart::User, change);
}

/// The devices that the user or the machine names outright.
void AddNamed(RegistryPart part, std::map<int, std::string>& named)
{
    const RegistryText registry = LoadRegistry(part);
    const RegistryText::Key* const ports = registry.FindKey(NamedSection);
    if (ports == nullptr) {
        return;
    }
    for (const auto& [folded, entry] : ports->entries) {
        const auto* const path = std::get_if<UnicodeString>(&entry.value);
        const int number = PortNumber(System::ToUtf8(entry.name));
        if (number != 0 && path != nullptr && !path->IsEmpty() &&
            IsStill(System::ToUtf8(*path), ports->entries, folded + MadeMark)) {
            named.try_emplace(number, System::ToUtf8(*path));
        }
    }
}

std::map<int, std::string> NamedPorts()
{
    std::map<int, std::string> named;
    for (char** variable = environ; variable != nullptr && *variable != nullptr; ++variable) {
        const std::string_view text = *variable;
        const std::size_t equals = text.find('=');
        if (!text.starts_with(VariableStart) || equals >= text.size() - 1) {
            continue;
        }
        const int number = PortNumber(text.substr(VariableStart.size(), equals - VariableStart.size()));
        if (number != 0) {
            named.try_emplace(number, text.substr(equals + 1));
        }
    }
    AddNamed(RegistryPart::User, named);
    AddNamed(RegistryPart::Machine, named);
    return named;
}

AdapterNumbers RememberedNumbers(const RegistryText& registry)
{
    AdapterNumbers numbers;
    const RegistryText::Key* const adapters = registry.FindKey(u"Adapters");
    if (adapters == nullptr) {
        return numbers;
    }
    for (const auto& [folded, entry] : adapters->entries) {
        const auto* const name = std::get_if<UnicodeString>(&entry.value);
        const int number = name == nullptr ? 0 : PortNumber(System::ToUtf8(*name));
        if (number != 0) {
            numbers.try_emplace(System::ToUtf8(entry.name), number);
        }
    }
    return numbers;
}

bool HasAdapters(const std::vector<ListedDevice>& devices)
{
    return !std::ranges::all_of(devices, &std::string::empty, &ListedDevice::adapter);
}

std::map<int, std::string> NumberedPorts()
{
    const std::map<int, std::string> named = NamedPorts();
    const std::vector<ListedDevice> devices = ListDevices(KernelList);
    AdapterNumbers remembered;
    if (!HasAdapters(devices)) {
        return NumberPorts(named, devices, remembered);
    }
    remembered = RememberedNumbers(LoadRegistry(RegistryPart::User));
    AdapterNumbers former = remembered;
    std::map<int, std::string> ports = NumberPorts(named, devices, remembered);
    if (remembered == former) {
        return ports;
    }
    // Anew under the lock: another process may number them just now. Where the file can't be written the
    // numbers hold as long as nobody plugs.
    ChangeRegistry(RegistryPart::User, [&](RegistryText& registry) {
        former = remembered = RememberedNumbers(registry);
        ports = NumberPorts(named, devices, remembered);
        for (const auto& [adapter, number] : remembered) {
            registry.Set(u"Adapters", System::FromUtf8(adapter), NameOf(number));
        }
        return remembered != former;
    });
    return ports;
}

bool IsDevice(const std::string& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISCHR(status.st_mode);
}

/// "Serial0" of "/dev/ttyS0", "USB1" of "/dev/ttyUSB1", "Pseudo3" of "/dev/pts/3".
UnicodeString KindOf(const std::string& path)
{
    constexpr std::string_view folderOfPairs = "/dev/pts/";
    std::string_view name = path;
    if (name.starts_with(folderOfPairs)) {
        return u"Pseudo" + System::FromUtf8(name.substr(folderOfPairs.size()));
    }
    name.remove_prefix(name.rfind('/') + 1);
    if (name.starts_with("tty")) {
        name.remove_prefix(3);
    }
    if (name.size() > 1 && name[0] == 'S' && System::Detail::IsAsciiDigit(name[1])) {
        return u"Serial" + System::FromUtf8(name.substr(1));
    }
    return System::FromUtf8(name);
}

} // namespace

std::vector<PortInfo> ListPorts()
{
    std::vector<PortInfo> ports;
    for (const auto& [number, device] : NumberedPorts()) {
        if (IsDevice(device)) {
            ports.push_back({number, device, KindOf(device)});
        }
    }
    return ports;
}

std::string PortDevice(int number)
{
    if (number < 1 || number > MaxPort) {
        return {};
    }
    const auto ports = NumberedPorts();
    const auto found = ports.find(number);
    return found != ports.end() ? found->second : "/dev/ttyS" + std::to_string(number - 1);
}

bool NamePort(int number, const std::string& device)
{
    return ChangeName(number, device, [&](RegistryText& registry) {
        registry.Set(NamedSection, NameOf(number), System::FromUtf8(device));
        registry.Delete(NamedSection, NameOf(number) + MadeMark);
        if (const UnicodeString time = TimeOfMaking(device); !time.IsEmpty()) {
            registry.Set(NamedSection, NameOf(number) + MadeMark, time);
        }
        return true;
    });
}

bool UnnamePort(int number, const std::string& device)
{
    return ChangeName(number, device, [&](RegistryText& registry) {
        const RegistryValue* const named = registry.Find(NamedSection, NameOf(number));
        if (named == nullptr || *named != RegistryValue(System::FromUtf8(device))) {
            return false;
        }
        registry.Delete(NamedSection, NameOf(number) + MadeMark);
        return registry.Delete(NamedSection, NameOf(number));
    });
}

int PortNumber(std::string_view name)
{
    constexpr std::string_view deviceStart = "\\\\.\\";
    constexpr std::string_view start = "com";
    if (name.starts_with(deviceStart)) {
        name.remove_prefix(deviceStart.size());
    }
    if (!std::ranges::equal(name.substr(0, start.size()), start, {}, System::Detail::AsciiLower<char>)) {
        return 0;
    }
    name.remove_prefix(start.size());
    int number = 0;
    const auto [end, fault] = std::from_chars(name.data(), name.data() + name.size(), number);
    const bool isWhole = fault == std::errc() && end == name.data() + name.size();
    return isWhole && name.front() != '0' && number >= 1 && number <= MaxPort ? number : 0;
}

} // namespace Host
