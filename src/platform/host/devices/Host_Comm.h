// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/devices/Host_CommTypes.h"

// Serial ports. A handle on one closes with `CloseHandle`, which puts the device's former settings back.
//
//     const HANDLE port = CreateFileA("\\\\.\\COM7", GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
//                                     0, nullptr);
//     unsigned long count = 0;
//     if (WriteFile(port, "*IDN?\n", 6, &count, nullptr)) { ... }
//
// All calls answer a failure with `false` and the last error: 6 for what is no handle on a port, 87 for an
// argument that makes no sense, 1617 (`ERROR_DEVICE_REMOVED`) once the device is gone.

/// The accesses of `CreateFileA`.
inline constexpr unsigned long GENERIC_READ = 0x80000000;
inline constexpr unsigned long GENERIC_WRITE = 0x40000000;
/// What is opened must be there.
inline constexpr unsigned long OPEN_EXISTING = 3;
/// Waits for events may be left to the background.
inline constexpr unsigned long FILE_FLAG_OVERLAPPED = 0x40000000;

/// Opens the serial port `\\.\COMn` or `COMn` for this handle alone; `share`, `security`, `flags` and
/// `model` aren't looked at. `INVALID_HANDLE_VALUE` on a failure: 2 for a port that there isn't and for any
/// other file, 5 for one that somebody holds or that the user may not open, see `Host::GetPortRefusal`, 87
/// for a `disposition` other than `OPEN_EXISTING`. The host raises DTR and RTS as it opens a port; lines that
/// were asked off before are lowered at once.
[[nodiscard]] TRS8_BTL_API HANDLE CreateFileA(const char* name, unsigned long access, unsigned long share,
                                              void* security, unsigned long disposition, unsigned long flags,
                                              HANDLE model);

/// Reads up to `size` bytes and tells in `done` how many came. A time-out, see `COMMTIMEOUTS`, is no failure:
/// fewer bytes came. Waits here in any case; `overlapped` must be null.
TRS8_BTL_API bool ReadFile(HANDLE port, void* buffer, unsigned long size, unsigned long* done,
                           OVERLAPPED* overlapped);
/// As `ReadFile`, but writes: `done` bytes are with the host, which sends them.
TRS8_BTL_API bool WriteFile(HANDLE port, const void* buffer, unsigned long size, unsigned long* done,
                            OVERLAPPED* overlapped);

TRS8_BTL_API bool GetCommState(HANDLE port, DCB* state);
/// Sets all that `state` tells, or nothing: 87 for a speed that the device can't do, and for what
/// the records of `DCB` rule out. What the host's devices have no place for is only kept. Settings are kept
/// for the device in the process, beyond `CloseHandle`.
TRS8_BTL_API bool SetCommState(HANDLE port, const DCB* state);

TRS8_BTL_API bool GetCommTimeouts(HANDLE port, COMMTIMEOUTS* timeouts);
/// Kept for the device in the process, as settings are; all 0 at first.
TRS8_BTL_API bool SetCommTimeouts(HANDLE port, const COMMTIMEOUTS* timeouts);

/// The sizes of the queues, in bytes: a wish, as the host has queues of its own.
TRS8_BTL_API bool SetupComm(HANDLE port, unsigned long inQueue, unsigned long outQueue);
TRS8_BTL_API bool GetCommProperties(HANDLE port, COMMPROP* properties);

/// The errors of the line since the last call, a sum of `CE_...`, and what waits; either may be null.
TRS8_BTL_API bool ClearCommError(HANDLE port, unsigned long* errors, COMSTAT* status);
/// Drops what waits and ends waits, a sum of `PURGE_...`.
TRS8_BTL_API bool PurgeComm(HANDLE port, unsigned long what);

/// Switches a line of the port, see `SETDTR` and its kin; 1 for a device without these lines.
TRS8_BTL_API bool EscapeCommFunction(HANDLE port, unsigned long function);
/// The lines that are on, a sum of `MS_...`; fails with 1 for a device without them.
TRS8_BTL_API bool GetCommModemStatus(HANDLE port, unsigned long* status);

TRS8_BTL_API bool GetCommMask(HANDLE port, unsigned long* mask);
/// The events to wait for, a sum of `EV_...`. Ends a wait that another thread is in; that gets the mask 0.
TRS8_BTL_API bool SetCommMask(HANDLE port, unsigned long mask);
/// Waits for one of the events and tells in `mask` which came since the last call. 87 while there are none to
/// wait for, and while another thread waits. With `overlapped` it only looks: false with 997 if none came
/// yet.
TRS8_BTL_API bool WaitCommEvent(HANDLE port, unsigned long* mask, OVERLAPPED* overlapped);

/// What the port `name` ("COM7") is set to at first. Opens nothing, so it tells whether there is such a port,
/// whoever holds it: 87 if there isn't, 122 if `size`, at least 52, is too small.
TRS8_BTL_API bool GetDefaultCommConfigA(const char* name, COMMCONFIG* config, unsigned long* size);

namespace Host
{

/// The next `CloseHandle` leaves the device as it is set and its lines as they are, for somebody who is to
/// open it again soon.
TRS8_BTL_API bool ParkPort(HANDLE port);
/// Puts the former settings of a device back that was parked and isn't open. The device is opened for that.
TRS8_BTL_API void EndParking(const char* name);

} // namespace Host
