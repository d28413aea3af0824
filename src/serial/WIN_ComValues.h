// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"
#include "platform/host/devices/Host_CommTypes.h"

namespace WIN
{

/// A serial port by its place: 0 is "COM1", 255 is "COM256".
enum class ECom : int
{
    First = 0,
    Last = 255,
};

/// The port of the number in a port's name, 7 for "COM7".
constexpr ECom Int2Com(int number)
{
    return static_cast<ECom>(number - 1);
}
/// The number in the name of a port.
constexpr int Com2Int(ECom port)
{
    return static_cast<int>(port) + 1;
}

/// The usual speeds.
enum class EBaud : int
{
    Baud110,
    Baud300,
    Baud600,
    Baud1200,
    Baud2400,
    Baud4800,
    Baud9600,
    Baud14400,
    Baud19200,
    Baud28800,
    Baud38400,
    Baud56000,
    Baud57600,
    Baud115200,
    Baud128000,
    Baud256000,
};

/// In baud; 9600 for what is none of the speeds.
[[nodiscard]] TRS8_BTL_API int Baud2Int(EBaud baud);
/// The speed of a number in baud; `EBaud::Baud9600` for a number that isn't one of them.
[[nodiscard]] TRS8_BTL_API EBaud Int2Baud(int baud);

/// The frame of a serial port, each field a place in a small table.
struct CComValues
{
    EBaud baud = EBaud::Baud4800;
    /// 0 to 3 for 5 to 8 data bits.
    std::uint32_t byteSize = 3;
    /// 0 none, 1 even, 2 odd, 3 mark.
    std::uint32_t parity = 0;
    /// 0 to 2 for one, one and a half, two; one and a half go with 5 data bits alone.
    std::uint32_t stopBits = 0;

    friend bool operator==(const CComValues&, const CComValues&) = default;
};

/// The sizes of a port's queues, in bytes.
struct CComBufferSize
{
    std::uint32_t in = 5120;
    std::uint32_t out = 5120;
};

/// How long transfers wait, see `COMMTIMEOUTS`.
///
///     port.SetTimeouts(&timeouts = CCommTimeouts(EBaud::Baud9600, 200, 500));    // milliseconds
struct CCommTimeouts : COMMTIMEOUTS
{
    /// All 0: a read waits for all of its bytes.
    CCommTimeouts() : COMMTIMEOUTS{} {}
    CCommTimeouts(std::uint32_t readInterval, std::uint32_t readMultiplier, std::uint32_t readConstant,
                  std::uint32_t writeMultiplier, std::uint32_t writeConstant)
        : COMMTIMEOUTS{readInterval, readMultiplier, readConstant, writeMultiplier, writeConstant}
    {
    }
    /// In milliseconds, beside the time that the bytes themselves take at that speed. `readTimeout` is also
    /// the longest time between two bytes.
    TRS8_BTL_API CCommTimeouts(EBaud baud, int readTimeout, int writeTimeout);

    CCommTimeouts& operator=(const COMMTIMEOUTS& timeouts)
    {
        COMMTIMEOUTS::operator=(timeouts);
        return *this;
    }
};

/// An `OVERLAPPED` of zeros, without an event.
struct COverlapped : OVERLAPPED
{
    COverlapped() : OVERLAPPED{} {}
};

/// One change of the lines' control in a `DCB`.
enum class EDCB : int
{
    RtsDisable,
    RtsEnable,
    Nothing,
    /// Fails on this host.
    RtsToggle,
    RtsHandshake,
    DtrDisable,
    DtrEnable,
    DtrHandshake,
};

} // namespace WIN
