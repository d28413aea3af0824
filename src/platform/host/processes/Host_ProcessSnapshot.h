// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Types.h"
#include "platform/host/objects/Host_Handle.h"

// The processes that run, one by one.
//
//     const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
//     tagPROCESSENTRY32W entry;
//     for (bool more = Process32FirstW(snapshot, &entry); more; more = Process32NextW(snapshot, &entry)) {
//     ... } CloseHandle(snapshot);

inline constexpr unsigned long TH32CS_SNAPPROCESS = 2;

/// A process in a snapshot.
struct tagPROCESSENTRY32W
{
    /// At least 556 where the structure is handed over.
    unsigned long dwSize = 556;
    unsigned long cntUsage = 0;
    unsigned long th32ProcessID = 0;
    unsigned long th32DefaultHeapID = 0;
    unsigned long th32ModuleID = 0;
    unsigned long cntThreads = 0;
    unsigned long th32ParentProcessID = 0;
    /// 4, 6, 8, 10, 13 or 24, from `IDLE_PRIORITY_CLASS` to `REALTIME_PRIORITY_CLASS`.
    long pcPriClassBase = 0;
    unsigned long dwFlags = 0;
    /// The name of the program's file; where the host doesn't tell it, that by which the program was called,
    /// or else the host's short name. At most 259 characters.
    System::WideChar szExeFile[260] = {};
};

using PROCESSENTRY32W = tagPROCESSENTRY32W;

/// The processes that run now, as a handle that the caller closes; those that ended and that nobody awaited
/// yet are left out. `INVALID_HANDLE_VALUE` on a failure, with the last error 87 for other `flags` than
/// `TH32CS_SNAPPROCESS`. `id` is not looked at.
TRS8_BTL_API HANDLE CreateToolhelp32Snapshot(unsigned long flags, unsigned long id);

/// The first process of the snapshot. False with the last error 18 if there is none, with 122 for a size that
/// is too small.
TRS8_BTL_API bool Process32FirstW(HANDLE snapshot, tagPROCESSENTRY32W* entry);
/// As `Process32FirstW`, but the process behind the one that was given last.
TRS8_BTL_API bool Process32NextW(HANDLE snapshot, tagPROCESSENTRY32W* entry);
