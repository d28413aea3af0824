// SPDX-License-Identifier: MIT
#pragma once

#include "os/Win_sys_utilitiesw.h"

// The functions of Win_sys_utilitiesw.h for 8-bit text. Characters of the system's answers that the code page
// lacks become `?`.
//
//     WIN::WinExecAndWait("sort data.txt -o sorted.txt");
//     const System::AnsiString user = WIN::GetUserNameA();

namespace WIN
{

/// As for wide text.
TRS8_BTL_API bool CreateProcessW(const char* application, const char* command, const char* folder, int show);
TRS8_BTL_API bool CreateProcessW(const char* application, const char* command, int show);
TRS8_BTL_API bool CreateProcessW(const char* application, const char* command, PROCESS_INFORMATION& info);
TRS8_BTL_API void ExecApplication(const char* application, const char* command, int show);
TRS8_BTL_API bool ExecAndWait(const char* application, const char* command, int show);
TRS8_BTL_API bool WinExecAndWait(const char* command, int show = SW_SHOWNORMAL);

/// The name under which the process works. False, and `name` stays, on a failure.
TRS8_BTL_API bool GetUserNameW(System::AnsiString& name);
/// The name under which the process works, empty on a failure.
[[nodiscard]] TRS8_BTL_API System::AnsiString GetUserNameA();
/// The name under which the process works; a failure goes to `ThrowLastError`.
[[nodiscard]] TRS8_BTL_API System::AnsiString GetUserNameATLE();
/// As for wide text.
TRS8_BTL_API bool GetDomainName(System::AnsiString& name);
/// The variable `USERDNSDOMAIN` of the environment; empty where `GetDomainName` gives false.
[[nodiscard]] TRS8_BTL_API System::AnsiString GetDomainNameA();
/// At most 15 characters of the host name, in capitals; a failure goes to `ThrowLastError`.
[[nodiscard]] TRS8_BTL_API System::AnsiString GetComputerNameA();

/// As `GetUserShellFolderPathW`.
[[nodiscard]] TRS8_BTL_API System::AnsiString GetUserShellFolderPathA(const System::AnsiString& valueName);

/// As for wide text.
TRS8_BTL_API System::NativeInt ShellExecuteW(const char* operation, const char* file, const char* parameters,
                                             const char* folder, int show);
TRS8_BTL_API System::NativeInt ShellOpen(const char* file);
TRS8_BTL_API System::NativeInt ShellPrint(const char* file);
TRS8_BTL_API System::NativeInt ShellExplore(const char* file);
TRS8_BTL_API System::NativeInt ShellExplore(const char* file, const char* parameters);
[[nodiscard]] TRS8_BTL_API System::AnsiString FindExecutableW(const char* file);

} // namespace WIN
