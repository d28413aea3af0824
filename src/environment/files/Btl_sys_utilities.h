// SPDX-License-Identifier: MIT
#pragma once

#include "os/WIN_LastError.h"
#include "os/Win_sys_utilitiesa.h"
#include "platform/host/Host_Module.h"

namespace BTL
{

// Folders of the system, files of programs and libraries, starting programs. The folders are asked for anew
// at each call, however long they are.
//
//     const auto folder = BTL::GetCurrentPath();                   // ends with a separator
//     const auto scratch = BTL::GetWindowsTempPath() + u"run.tmp";
//     const auto program = BTL::GetModuleFileName2(nullptr);       // the running one
//     BTL::WinExecAndWait(u"sort data.txt -o sorted.txt");

/// The folder from which paths without a root count, without a final separator unless it is the root.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetCurrentDirectoryW();
/// As `GetCurrentDirectoryW`, with a final separator.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetCurrentPath();
/// The folder that the system's own programs and data lie in, without a final separator. On this host that is
/// "\usr".
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetWindowsDirectoryW();
/// As `GetWindowsDirectoryW`, with a final separator.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetWindowsPath();
/// The folder for files of a short life, with a separator added: the variable `TEMP` of the environment, or
/// where that is unset, empty or has more than 520 characters, `TMPDIR`, or "\tmp".
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetWindowsTempPath();
/// The folder of data that all users of the machine share, number 35 of `GetShellPath`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetCommonAppDataPath();

/// The full path of the program or library that has the address, null being the running program; empty, with
/// the last error set, if there is none at the address.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetModuleFileNameW(HINSTANCE module);
/// As `GetModuleFileNameW`, with `.` and `..` resolved.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetModuleFileName2(HINSTANCE module);
/// The folder of a program or library, with its final separator.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetModulePath(HINSTANCE module);

/// Starts the running program once more, without arguments, and asks this one to end. `WIN::XWinError` of the
/// section "ShellExecute" if it can't be started; then this one stays.
TRS8_BTL_API void RestartApplication();

// Functions of the operating-system layer under a name of this one.

using WIN::CreateProcessW;
using WIN::GetLastError;
using WIN::GetSystemMessage;
using WIN::ThrowLastError;
using WIN::WinExecAndWait;

} // namespace BTL
