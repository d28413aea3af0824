// SPDX-License-Identifier: MIT
#include "platform/host/devices/Host_Comm.h"

#include "platform/host/Host_Error.h"
#include "platform/host/devices/Host_PortMap.h"
#include "platform/host/devices/internal/Host_SerialPort.h"

#include <algorithm>
#include <mutex>
#include <string>

namespace
{

using Host::Fail;
using Host::SerialPort;

/// Calls `action` with the port; an argument that must be there is not null.
template <class Action>
bool WithPort(HANDLE handle, const void* argument, Action action)
{
    const auto port = Host::ObjectOf<SerialPort>(handle);
    if (port == nullptr) {
        return false;
    }
    return argument == nullptr ? Fail(ERROR_INVALID_PARAMETER) : action(*port);
}

template <class Action>
bool WithPort(HANDLE handle, Action action)
{
    const auto port = Host::ObjectOf<SerialPort>(handle);
    return port != nullptr && action(*port);
}

/// A transfer by `action(port, done)`; what nobody asks for isn't told.
template <class Action>
bool Transfer(HANDLE handle, const void* buffer, unsigned long* done, const OVERLAPPED* overlapped,
              Action action)
{
    if (done != nullptr) {
        *done = 0;
    }
    if (overlapped != nullptr) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    return WithPort(handle, buffer, [&](SerialPort& port) {
        std::size_t count = 0;
        const bool isDone = action(port, count);
        if (done != nullptr) {
            *done = count;
        }
        return isDone;
    });
}

bool IsThere(int number)
{
    return std::ranges::any_of(Host::ListPorts(),
                               [number](const Host::PortInfo& port) { return port.number == number; });
}

/// What a port is set to that nobody set.
DCB DefaultState()
{
    constexpr std::uint32_t speed = 9600;
    DCB state = {};
    state.DCBlength = sizeof state;
    state.BaudRate = speed;
    state.fBinary = 1;
    state.fDtrControl = DTR_CONTROL_ENABLE;
    state.fRtsControl = RTS_CONTROL_ENABLE;
    state.ByteSize = 8;
    return state;
}

bool IsParked(Host::KeptSettings& kept)
{
    const std::lock_guard lock(kept.mutex);
    return kept.former.has_value();
}

} // namespace

HANDLE CreateFileA(const char* name, unsigned long, unsigned long, void*, unsigned long disposition,
                   unsigned long, HANDLE)
{
    const int number = name == nullptr ? 0 : Host::PortNumber(name);
    if (number == 0 || disposition != OPEN_EXISTING) {
        Fail(number == 0 ? ERROR_FILE_NOT_FOUND : ERROR_INVALID_PARAMETER);
        return INVALID_HANDLE_VALUE;
    }
    auto port = SerialPort::Open(Host::PortDevice(number));
    return port == nullptr ? INVALID_HANDLE_VALUE : Host::OpenHandle(std::move(port));
}

bool ReadFile(HANDLE port, void* buffer, unsigned long size, unsigned long* done, OVERLAPPED* overlapped)
{
    return Transfer(port, buffer, done, overlapped, [&](SerialPort& device, std::size_t& count) {
        return device.Read(static_cast<char*>(buffer), size, count);
    });
}

bool WriteFile(HANDLE port, const void* buffer, unsigned long size, unsigned long* done,
               OVERLAPPED* overlapped)
{
    return Transfer(port, buffer, done, overlapped, [&](SerialPort& device, std::size_t& count) {
        return device.Write(static_cast<const char*>(buffer), size, count);
    });
}

bool GetCommState(HANDLE port, DCB* state)
{
    return WithPort(port, state, [state](SerialPort& device) { return device.GetState(*state); });
}

bool SetCommState(HANDLE port, const DCB* state)
{
    return WithPort(port, state, [state](SerialPort& device) { return device.SetState(*state); });
}

bool GetCommTimeouts(HANDLE port, COMMTIMEOUTS* timeouts)
{
    return WithPort(port, timeouts, [timeouts](SerialPort& device) {
        *timeouts = device.GetTimeouts();
        return true;
    });
}

bool SetCommTimeouts(HANDLE port, const COMMTIMEOUTS* timeouts)
{
    return WithPort(port, timeouts, [timeouts](SerialPort& device) {
        device.SetTimeouts(*timeouts);
        return true;
    });
}

bool SetupComm(HANDLE port, unsigned long inQueue, unsigned long outQueue)
{
    return WithPort(port, [=](SerialPort& device) {
        return device.SetQueueSizes(static_cast<std::uint32_t>(inQueue),
                                    static_cast<std::uint32_t>(outQueue));
    });
}

bool GetCommProperties(HANDLE port, COMMPROP* properties)
{
    // A serial port of the kind RS-232, with time-outs, lines and flow control, at any speed and frame.
    constexpr std::uint32_t serialPort = 1;
    constexpr std::uint32_t rs232 = 1;
    constexpr std::uint32_t capabilities = 0xFF;
    constexpr std::uint32_t settable = 0x7F;
    constexpr std::uint32_t anySpeed = 0x10000000;
    constexpr std::uint16_t sizes5To8 = 0x0F;
    constexpr std::uint16_t anyStopBitsAndParity = 0x1F07;
    return WithPort(port, properties, [properties](SerialPort& device) {
        COMMPROP told{};
        told.wPacketLength = sizeof told;
        told.wPacketVersion = 2;
        told.dwServiceMask = serialPort;
        told.dwMaxBaud = anySpeed;
        told.dwProvSubType = rs232;
        told.dwProvCapabilities = capabilities;
        told.dwSettableParams = settable;
        told.dwSettableBaud = anySpeed;
        told.wSettableData = sizes5To8;
        told.wSettableStopParity = anyStopBitsAndParity;
        if (!device.GetQueueSizes(told.dwCurrentRxQueue, told.dwCurrentTxQueue)) {
            return false;
        }
        *properties = told;
        return true;
    });
}

bool ClearCommError(HANDLE port, unsigned long* errors, COMSTAT* status)
{
    return WithPort(port, [=](SerialPort& device) {
        unsigned long seen = 0;
        COMSTAT state{};
        if (!device.ClearError(seen, state)) {
            return false;
        }
        if (errors != nullptr) {
            *errors = seen;
        }
        if (status != nullptr) {
            *status = state;
        }
        return true;
    });
}

bool PurgeComm(HANDLE port, unsigned long what)
{
    return WithPort(port, [what](SerialPort& device) { return device.Purge(what); });
}

bool EscapeCommFunction(HANDLE port, unsigned long function)
{
    return WithPort(port, [function](SerialPort& device) { return device.SwitchLine(function); });
}

bool GetCommModemStatus(HANDLE port, unsigned long* status)
{
    return WithPort(port, status, [status](SerialPort& device) { return device.GetLines(*status); });
}

bool GetCommMask(HANDLE port, unsigned long* mask)
{
    return WithPort(port, mask, [mask](SerialPort& device) {
        *mask = device.GetMask();
        return true;
    });
}

bool SetCommMask(HANDLE port, unsigned long mask)
{
    return WithPort(port, [mask](SerialPort& device) { return device.SetMask(mask); });
}

bool WaitCommEvent(HANDLE port, unsigned long* mask, OVERLAPPED* overlapped)
{
    return WithPort(port, mask,
                    [=](SerialPort& device) { return device.WaitEvent(*mask, overlapped != nullptr); });
}

bool GetDefaultCommConfigA(const char* name, COMMCONFIG* config, unsigned long* size)
{
    constexpr unsigned long configSize = 52;
    const int number = name == nullptr ? 0 : Host::PortNumber(name);
    if (number == 0 || config == nullptr || size == nullptr || !IsThere(number)) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    if (*size < configSize) {
        *size = configSize;
        return Fail(ERROR_INSUFFICIENT_BUFFER);
    }
    *size = configSize;
    *config = {};
    config->dwSize = configSize;
    config->wVersion = 1;
    config->dcb = DefaultState();
    config->dwProviderSubType = 1;
    return true;
}

bool Host::ParkPort(HANDLE port)
{
    return WithPort(port, [](SerialPort& device) {
        device.Park();
        return true;
    });
}

void Host::EndParking(const char* name)
{
    const std::string path = PortDevice(name == nullptr ? 0 : PortNumber(name));
    if (!path.empty() && IsParked(*KeptSettingsOf(path))) {
        // Closing sets it back.
        const auto port = SerialPort::Open(path);
    }
}
