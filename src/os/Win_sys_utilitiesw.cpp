// SPDX-License-Identifier: MIT
#include "os/Win_sys_utilitiesw.h"

#include "os/WIN_LastError.h"
#include "platform/host/Host_Error.h"
#include "platform/host/processes/Host_Process.h"
#include "platform/host/processes/Host_ProcessPriority.h"
#include "platform/host/system/Host_Environment.h"
#include "platform/host/system/Host_FindExecutable.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/registry/Registry.h"
#include "platform/runtime/sysutils/Sysutils_FileName.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"

#include <vector>

namespace WIN
{

namespace
{

using System::NativeInt;
using System::UnicodeString;
using System::WideChar;

constexpr unsigned long ShowWindowGiven = 1;
constexpr unsigned long FeedbackCursor = 64;

/// Results of the shell up to here are failures.
constexpr NativeInt LastShellError = 32;

STARTUPINFOW StartInfo(unsigned long flags, int show)
{
    constexpr unsigned long size = 68;
    return {size, flags, static_cast<unsigned short>(show)};
}

bool StartApart(const WideChar* application, const WideChar* command, const WideChar* folder, int show,
                PROCESS_INFORMATION& info)
{
    const STARTUPINFOW start = StartInfo(0, show);
    return ::CreateProcessW(application, command, nullptr, nullptr, false, CREATE_NEW_PROCESS_GROUP, nullptr,
                            folder, &start, &info);
}

UnicodeString ReadShellFolder(const UnicodeString& valueName)
{
    Registry::TRegistry registry(Registry::KEY_READ);
    registry.setRootKey(Registry::HKEY_CURRENT_USER);
    if (!registry.OpenKey(u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders",
                          false)) {
        return {};
    }
    Classes::TStringList names;
    registry.GetValueNames(&names);
    for (const UnicodeString& name : names) {
        // Names of the registry are found in any case, this one is not.
        if (name == valueName) {
            return registry.ReadString(name);
        }
    }
    return {};
}

} // namespace

bool CreateProcessW(const WideChar* application, const WideChar* command, const WideChar* folder, int show)
{
    PROCESS_INFORMATION info;
    if (!StartApart(application, command, folder, show, info)) {
        return false;
    }
    ::CloseHandle(info.hThread);
    ::CloseHandle(info.hProcess);
    return true;
}

bool CreateProcessW(const WideChar* application, const WideChar* command, int show)
{
    return CreateProcessW(application, command, nullptr, show);
}

bool CreateProcessW(const WideChar* application, const WideChar* command, PROCESS_INFORMATION& info)
{
    return StartApart(application, command, nullptr, 0, info);
}

void ExecApplication(const WideChar* application, const WideChar* command, int show)
{
    const UnicodeString folder = Sysutils::ExtractFileDir(application);
    // A program without a folder is searched for, and starts where this one is.
    if (!CreateProcessW(application, command, folder.IsEmpty() ? nullptr : folder.c_str(), show)) {
        ThrowLastError();
    }
}

bool ExecAndWait(const WideChar* application, const WideChar* command, int show)
{
    const STARTUPINFOW start = StartInfo(ShowWindowGiven | FeedbackCursor, show);
    PROCESS_INFORMATION info;
    if (!::CreateProcessW(application, command, nullptr, nullptr, false, NORMAL_PRIORITY_CLASS, nullptr,
                          nullptr, &start, &info)) {
        ThrowLastError();
        return false;
    }
    ::CloseHandle(info.hThread);
    const bool awaited = ::WaitForSingleObject(info.hProcess, INFINITE) != WAIT_FAILED;
    ::CloseHandle(info.hProcess);
    return awaited;
}

bool WinExecAndWait(const WideChar* command, int show)
{
    return ExecAndWait(nullptr, command, show);
}

bool GetUserNameW(UnicodeString& name)
{
    constexpr unsigned long room = 256;
    WideChar buffer[room];
    unsigned long size = room;
    if (!::GetUserNameW(buffer, &size)) {
        return false;
    }
    name = buffer;
    return true;
}

UnicodeString GetUserNameW()
{
    UnicodeString name;
    GetUserNameW(name);
    return name;
}

UnicodeString GetUserNameWTLE()
{
    UnicodeString name;
    if (!GetUserNameW(name)) {
        ThrowLastError();
    }
    return name;
}

bool GetDomainName(UnicodeString& name)
{
    constexpr unsigned long room = 257;
    WideChar buffer[room];
    const unsigned long length = ::GetEnvironmentVariableW(u"USERDNSDOMAIN", buffer, room);
    if (length == 0 || length >= room) {
        return false;
    }
    name = buffer;
    return true;
}

UnicodeString GetDomainNameW()
{
    UnicodeString name;
    GetDomainName(name);
    return name;
}

UnicodeString GetComputerNameW()
{
    unsigned long size = 0;
    ::GetComputerNameExW(ComputerNameDnsHostname, nullptr, &size);
    std::vector<WideChar> buffer(size + 1);
    if (!::GetComputerNameExW(ComputerNameDnsHostname, buffer.data(), &size)) {
        ThrowLastError();
        return {};
    }
    return buffer.data();
}

UnicodeString GetUserShellFolderPathW(const WideChar* valueName)
{
    UnicodeString folder;
    try {
        folder = ReadShellFolder(valueName);
        folder = Sysutils::StringReplace(folder, u"%USERPROFILE%", Host::ExpandVariables(u"%userprofile%"),
                                         Sysutils::TReplaceFlags() << Sysutils::rfReplaceAll);
    } catch (...) {
        // What is known until then is the answer.
    }
    return folder;
}

NativeInt ShellExecuteW(const WideChar* operation, const UnicodeString& file, const WideChar* parameters,
                        const WideChar* folder, int show)
{
    const NativeInt result = ::ShellExecuteW(nullptr, operation, file.c_str(), parameters, folder, show);
    if (result <= LastShellError) {
        throw XWinError(static_cast<unsigned long>(result), u"ShellExecute", file);
    }
    return result;
}

NativeInt ShellOpen(const UnicodeString& file)
{
    return ShellExecuteW(u"open", file, nullptr, nullptr, SW_SHOWDEFAULT);
}

NativeInt ShellPrint(const UnicodeString& file)
{
    return ShellExecuteW(u"print", file, nullptr, nullptr, SW_SHOWDEFAULT);
}

NativeInt ShellExplore(const UnicodeString& file)
{
    return ShellExplore(file, nullptr);
}

NativeInt ShellExplore(const UnicodeString& file, const WideChar* parameters)
{
    return ShellExecuteW(u"explore", file, parameters, nullptr, SW_SHOWDEFAULT);
}

UnicodeString FindExecutableW(const UnicodeString& file)
{
    UnicodeString program;
    const NativeInt result = Host::FindExecutable(file, UnicodeString(), program);
    if (result <= LastShellError) {
        throw XWinError(static_cast<unsigned long>(result));
    }
    return program;
}

} // namespace WIN

namespace BTL
{

void ExecHttp(const System::UnicodeString& url)
{
    ::ShellExecuteW(nullptr, u"open", (u"http://" + url).c_str(), nullptr, nullptr, SW_SHOWDEFAULT);
}

} // namespace BTL
