// SPDX-License-Identifier: MIT
#pragma once

#include "os/Win_sys_facts.h"
#include "platform/base/System_String.h"
#include "platform/host/Host_Shell.h"
#include "platform/host/processes/Host_CreateProcess.h"

// Programs are started and files handed to the desktop, never through a shell: no text can become a command.
// The forms for 8-bit text are in Win_sys_utilitiesa.h.
//
//     WIN::ExecApplication(u"\\opt\\plot\\plot", u"plot data.txt", SW_SHOWNORMAL);    // starts in \opt\plot
//     WIN::WinExecAndWait(u"sort data.txt -o sorted.txt");
//     WIN::ShellOpen(u"manual.pdf");
//     const auto documents = WIN::GetUserShellFolderPathW(u"Personal");

namespace WIN
{

// In all of these `application` may be null; `command` has the program then. Else as `::CreateProcessW`.
// `show` never reaches the program: its windows are its own affair.

/// Starts a program in `folder`, in a process group of its own; null is the current folder. False, with the
/// last error set, on a failure; nothing is raised.
TRS8_BTL_API bool CreateProcessW(const System::WideChar* application, const System::WideChar* command,
                                 const System::WideChar* folder, int show);
/// Starts a program in the current folder, in a process group of its own. False, with the last error set, on
/// a failure; nothing is raised.
TRS8_BTL_API bool CreateProcessW(const System::WideChar* application, const System::WideChar* command,
                                 int show);
/// Starts a program in the current folder, in a process group of its own, and hands out its handles, which
/// are the caller's to close. False, with the last error set, on a failure; nothing is raised.
TRS8_BTL_API bool CreateProcessW(const System::WideChar* application, const System::WideChar* command,
                                 PROCESS_INFORMATION& info);
/// Starts a program in its own folder, in a process group of its own. A failure goes to `ThrowLastError`.
TRS8_BTL_API void ExecApplication(const System::WideChar* application, const System::WideChar* command,
                                  int show);
/// Starts a program and blocks the thread until it ended; its exit code isn't looked at. A program that can't
/// be started goes to `ThrowLastError`. False only for a wait that failed, or where nothing was raised.
TRS8_BTL_API bool ExecAndWait(const System::WideChar* application, const System::WideChar* command, int show);
/// `ExecAndWait` of a command alone.
TRS8_BTL_API bool WinExecAndWait(const System::WideChar* command, int show = SW_SHOWNORMAL);

/// The name under which the process works. False, and `name` stays, on a failure.
TRS8_BTL_API bool GetUserNameW(System::UnicodeString& name);
/// The name under which the process works, empty on a failure.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserNameW();
/// The name under which the process works; a failure goes to `ThrowLastError`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserNameWTLE();
/// The variable `USERDNSDOMAIN` of the environment. False, and `name` stays, if it is unset, empty or has
/// more than 256 characters.
TRS8_BTL_API bool GetDomainName(System::UnicodeString& name);
/// The variable `USERDNSDOMAIN` of the environment; empty where `GetDomainName` gives false.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetDomainNameW();
/// The host name up to its first dot; a failure goes to `ThrowLastError`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetComputerNameW();

/// A folder of the user by its name in the registry's key "User Shell Folders", such as "Personal" or
/// "Desktop"; the name counts by its case. "%USERPROFILE%" in it becomes the user's own folder, other
/// variables stay. Empty for a name that isn't there.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserShellFolderPathW(const System::WideChar* valueName);

/// Hands a file, folder or address to the desktop, see `::ShellExecuteW`, of which it gives the result. Null
/// texts count as empty. `XWinError` of the section "ShellExecute", with the file in its message, for a
/// failure.
TRS8_BTL_API System::NativeInt ShellExecuteW(const System::WideChar* operation,
                                             const System::UnicodeString& file,
                                             const System::WideChar* parameters,
                                             const System::WideChar* folder, int show);
/// Opens a file, folder or address; else as `ShellExecuteW`.
TRS8_BTL_API System::NativeInt ShellOpen(const System::UnicodeString& file);
/// Prints a file on the user's usual printer; else as `ShellExecuteW`.
TRS8_BTL_API System::NativeInt ShellPrint(const System::UnicodeString& file);
/// Shows a folder; else as `ShellExecuteW`.
TRS8_BTL_API System::NativeInt ShellExplore(const System::UnicodeString& file);
TRS8_BTL_API System::NativeInt ShellExplore(const System::UnicodeString& file,
                                            const System::WideChar* parameters);
/// The full path of the program that the desktop opens the file with; a program stands for itself.
/// `XWinError` if there is none.
[[nodiscard]] TRS8_BTL_API System::UnicodeString FindExecutableW(const System::UnicodeString& file);

} // namespace WIN

namespace BTL
{

/// Opens "http://" and the address, which comes without a scheme. A failure is passed over.
TRS8_BTL_API void ExecHttp(const System::UnicodeString& url);

} // namespace BTL
