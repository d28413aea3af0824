// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <string>
#include <vector>

// Which device of the host is which serial port. `COMn` is `/dev/ttyS(n-1)`. Adapters get the next free
// numbers behind those, from 5 on, and keep them, on whichever socket they come back; the registry file
// remembers them. An adapter without a serial number of its own is known by its socket. The variable
// `TRS8_BTL_COMn`, or a line in the section `[Ports]` of the registry file, names a device outright. Nothing
// is opened to find out.
//
//     for (const Host::PortInfo& port : Host::ListPorts()) {
//         std::cout << "COM" << port.number << ' ' << port.device << '\n';    // COM5 /dev/ttyUSB0
//     }

namespace Host
{

/// A serial port that is there.
struct PortInfo
{
    /// 1 to 256.
    int number = 0;
    /// The path of the device on the host.
    std::string device;
    /// Its kind and number, such as "Serial0" or "USB1".
    System::UnicodeString kind;
};

/// The ports that are there, whoever holds them, in the order of their numbers.
[[nodiscard]] TRS8_BTL_API std::vector<PortInfo> ListPorts();

/// The device of port `number`, which needn't be there; empty for a number that isn't 1 to 256.
[[nodiscard]] TRS8_BTL_API std::string PortDevice(int number);

/// Makes `device` port `number` for all programs of the user, by the section `[Ports]` of the registry file,
/// until `UnnamePort`. A pseudo-terminal is no port any more once it is closed, also if its path is given to
/// another one. It takes the place of an earlier name; the variable goes before it. False, with the
/// last error, if the file can't be written, 87 for a number that isn't 1 to 256 and for an empty path.
TRS8_BTL_API bool NamePort(int number, const std::string& device);

/// Takes the name of port `number` back, unless another device has it by now. Fails as `NamePort`.
TRS8_BTL_API bool UnnamePort(int number, const std::string& device);

/// The number of a port from its name, `COMn` or `\\.\COMn` in either case; 0 for any other text.
[[nodiscard]] TRS8_BTL_API int PortNumber(std::string_view name);

/// Why the port can't be opened, for a person: which process holds its device, which group the user lacks, or
/// that there is no device. Empty if nothing stands against it.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetPortRefusal(int number);

} // namespace Host
