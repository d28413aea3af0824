// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/objects/Host_Handle.h"

#include <cstdint>

// The records and numbers of the calls on serial ports, see `Host_Comm.h`.
//
//     DCB state{};
//     GetCommState(port, &state);
//     state.BaudRate = 19200;
//     state.Parity = EVENPARITY;
//     SetCommState(port, &state);

/// What `DCB::Parity` may be.
inline constexpr std::uint8_t NOPARITY = 0;
inline constexpr std::uint8_t ODDPARITY = 1;
inline constexpr std::uint8_t EVENPARITY = 2;
inline constexpr std::uint8_t MARKPARITY = 3;
inline constexpr std::uint8_t SPACEPARITY = 4;

/// What `DCB::StopBits` may be: 1, 1.5 and 2.
inline constexpr std::uint8_t ONESTOPBIT = 0;
inline constexpr std::uint8_t ONE5STOPBITS = 1;
inline constexpr std::uint8_t TWOSTOPBITS = 2;

/// What `DCB::fDtrControl` may be.
inline constexpr std::uint32_t DTR_CONTROL_DISABLE = 0;
inline constexpr std::uint32_t DTR_CONTROL_ENABLE = 1;
inline constexpr std::uint32_t DTR_CONTROL_HANDSHAKE = 2;

/// What `DCB::fRtsControl` may be; the last one fails, since the host's devices don't know it.
inline constexpr std::uint32_t RTS_CONTROL_DISABLE = 0;
inline constexpr std::uint32_t RTS_CONTROL_ENABLE = 1;
inline constexpr std::uint32_t RTS_CONTROL_HANDSHAKE = 2;
inline constexpr std::uint32_t RTS_CONTROL_TOGGLE = 3;

/// The settings of a serial port.
struct DCB
{
    /// 28, the size of the record.
    std::uint32_t DCBlength;
    /// In baud, any number that the device can do.
    std::uint32_t BaudRate;
    std::uint32_t fBinary : 1;
    /// Whether the parity of what comes in is looked at.
    std::uint32_t fParity : 1;
    /// Sending waits for CTS. The host has one switch for this and for `RTS_CONTROL_HANDSHAKE`.
    std::uint32_t fOutxCtsFlow : 1;
    std::uint32_t fOutxDsrFlow : 1;
    std::uint32_t fDtrControl : 2;
    std::uint32_t fDsrSensitivity : 1;
    std::uint32_t fTXContinueOnXoff : 1;
    /// Sending stops at `XoffChar` and goes on at `XonChar`.
    std::uint32_t fOutX : 1;
    /// These characters are sent when the input queue fills and empties.
    std::uint32_t fInX : 1;
    std::uint32_t fErrorChar : 1;
    std::uint32_t fNull : 1;
    std::uint32_t fRtsControl : 2;
    /// Transfers fail with `ERROR_OPERATION_ABORTED` from an error of the line on, until `ClearCommError`.
    std::uint32_t fAbortOnError : 1;
    std::uint32_t fDummy2 : 17;
    std::uint16_t wReserved;
    std::uint16_t XonLim;
    std::uint16_t XoffLim;
    /// Data bits, 5 to 8.
    std::uint8_t ByteSize;
    /// `NOPARITY` and its kin.
    std::uint8_t Parity;
    /// `ONESTOPBIT` and its kin; one and a half go with 5 data bits, two with 6 to 8.
    std::uint8_t StopBits;
    char XonChar;
    char XoffChar;
    char ErrorChar;
    char EofChar;
    /// What `EV_RXFLAG` looks for.
    char EvtChar;
    std::uint16_t wReserved1;
};

/// A time-out that is none of the usual ones, see `COMMTIMEOUTS`.
inline constexpr std::uint32_t MAXDWORD = 0xFFFFFFFF;

/// How long transfers wait, in milliseconds. A transfer of n bytes takes at most n times its multiplier plus
/// its constant; with both 0 there is no such limit. A read also ends when `ReadIntervalTimeout`, unless 0,
/// passes behind a byte that came. A read with all three 0 waits for all of its bytes.
/// With `ReadIntervalTimeout` `MAXDWORD` and the others 0 a read takes what is there. With the multiplier
/// `MAXDWORD` too, and a constant between, it waits as long as that for a first byte.
struct COMMTIMEOUTS
{
    std::uint32_t ReadIntervalTimeout;
    std::uint32_t ReadTotalTimeoutMultiplier;
    std::uint32_t ReadTotalTimeoutConstant;
    std::uint32_t WriteTotalTimeoutMultiplier;
    std::uint32_t WriteTotalTimeoutConstant;
};

/// What holds a port, and how many bytes wait.
struct COMSTAT
{
    std::uint32_t fCtsHold : 1;
    std::uint32_t fDsrHold : 1;
    std::uint32_t fRlsdHold : 1;
    std::uint32_t fXoffHold : 1;
    std::uint32_t fXoffSent : 1;
    std::uint32_t fEof : 1;
    std::uint32_t fTxim : 1;
    std::uint32_t fReserved : 25;
    /// Bytes that came and aren't read.
    std::uint32_t cbInQue;
    /// Bytes that are written and not sent.
    std::uint32_t cbOutQue;
};

/// What a port can do.
struct COMMPROP
{
    std::uint16_t wPacketLength;
    std::uint16_t wPacketVersion;
    std::uint32_t dwServiceMask;
    std::uint32_t dwReserved1;
    std::uint32_t dwMaxTxQueue;
    std::uint32_t dwMaxRxQueue;
    std::uint32_t dwMaxBaud;
    std::uint32_t dwProvSubType;
    std::uint32_t dwProvCapabilities;
    std::uint32_t dwSettableParams;
    std::uint32_t dwSettableBaud;
    std::uint16_t wSettableData;
    std::uint16_t wSettableStopParity;
    std::uint32_t dwCurrentTxQueue;
    std::uint32_t dwCurrentRxQueue;
};

/// What a port is set to before anybody opens it.
struct COMMCONFIG
{
    std::uint32_t dwSize;
    std::uint16_t wVersion;
    std::uint16_t wReserved;
    DCB dcb;
    std::uint32_t dwProviderSubType;
    std::uint32_t dwProviderOffset;
    std::uint32_t dwProviderSize;
    std::uint16_t wcProviderData[1];
};

/// A call that needn't be over when it returns.
struct OVERLAPPED
{
    std::uintptr_t Internal;
    std::uintptr_t InternalHigh;
    std::uint32_t Offset;
    std::uint32_t OffsetHigh;
    HANDLE hEvent;
};

// The events of `SetCommMask`.

/// A byte came.
inline constexpr unsigned long EV_RXCHAR = 1;
/// `DCB::EvtChar` came.
inline constexpr unsigned long EV_RXFLAG = 2;
/// The last byte that was written is sent.
inline constexpr unsigned long EV_TXEMPTY = 4;
/// These lines changed.
inline constexpr unsigned long EV_CTS = 8;
inline constexpr unsigned long EV_DSR = 16;
inline constexpr unsigned long EV_RLSD = 32;
/// A break came.
inline constexpr unsigned long EV_BREAK = 64;
/// A byte came with an error of its frame or parity, or was lost.
inline constexpr unsigned long EV_ERR = 128;
inline constexpr unsigned long EV_RING = 256;

// The errors of `ClearCommError`.

/// The input queue was full, a byte wasn't taken in time, parity, frame, a break.
inline constexpr unsigned long CE_RXOVER = 1;
inline constexpr unsigned long CE_OVERRUN = 2;
inline constexpr unsigned long CE_RXPARITY = 4;
inline constexpr unsigned long CE_FRAME = 8;
inline constexpr unsigned long CE_BREAK = 16;

// The functions of `EscapeCommFunction`.

/// As if `XoffChar` or `XonChar` had come; the lines on or off; a break begins or ends.
inline constexpr unsigned long SETXOFF = 1;
inline constexpr unsigned long SETXON = 2;
inline constexpr unsigned long SETRTS = 3;
inline constexpr unsigned long CLRRTS = 4;
inline constexpr unsigned long SETDTR = 5;
inline constexpr unsigned long CLRDTR = 6;
inline constexpr unsigned long SETBREAK = 8;
inline constexpr unsigned long CLRBREAK = 9;

/// The lines that `GetCommModemStatus` tells.
inline constexpr unsigned long MS_CTS_ON = 16;
inline constexpr unsigned long MS_DSR_ON = 32;
inline constexpr unsigned long MS_RING_ON = 64;
inline constexpr unsigned long MS_RLSD_ON = 128;

// What `PurgeComm` ends and drops.

/// Writes and reads that wait in other threads end with `ERROR_OPERATION_ABORTED`.
inline constexpr unsigned long PURGE_TXABORT = 1;
inline constexpr unsigned long PURGE_RXABORT = 2;
/// What waits to be sent, and to be read, is dropped.
inline constexpr unsigned long PURGE_TXCLEAR = 4;
inline constexpr unsigned long PURGE_RXCLEAR = 8;
