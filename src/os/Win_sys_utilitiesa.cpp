// SPDX-License-Identifier: MIT
#include "os/Win_sys_utilitiesa.h"

#include "os/WIN_LastError.h"

namespace WIN
{

namespace
{

using System::AnsiString;
using System::NativeInt;
using System::UnicodeString;

/// A text of the other width, for which null stays null.
class CWideText
{
public:
    explicit CWideText(const char* text) : mIsNull(text == nullptr), mText(text) {}

    const System::WideChar* Get() const { return mIsNull ? nullptr : mText.c_str(); }

private:
    bool mIsNull;
    UnicodeString mText;
};

/// Fills the narrow text by the wide form of a function; it stays on a failure.
bool FillBy(bool (*function)(UnicodeString&), AnsiString& text)
{
    UnicodeString wide;
    const bool isFilled = function(wide);
    if (isFilled) {
        text = wide;
    }
    return isFilled;
}

} // namespace

bool CreateProcessW(const char* application, const char* command, const char* folder, int show)
{
    return CreateProcessW(CWideText(application).Get(), CWideText(command).Get(), CWideText(folder).Get(),
                          show);
}

bool CreateProcessW(const char* application, const char* command, int show)
{
    return CreateProcessW(CWideText(application).Get(), CWideText(command).Get(), show);
}

bool CreateProcessW(const char* application, const char* command, PROCESS_INFORMATION& info)
{
    return CreateProcessW(CWideText(application).Get(), CWideText(command).Get(), info);
}

void ExecApplication(const char* application, const char* command, int show)
{
    ExecApplication(CWideText(application).Get(), CWideText(command).Get(), show);
}

bool ExecAndWait(const char* application, const char* command, int show)
{
    return ExecAndWait(CWideText(application).Get(), CWideText(command).Get(), show);
}

bool WinExecAndWait(const char* command, int show)
{
    return ExecAndWait(nullptr, CWideText(command).Get(), show);
}

bool GetUserNameW(AnsiString& name)
{
    return FillBy(GetUserNameW, name);
}

AnsiString GetUserNameA()
{
    return GetUserNameW();
}

AnsiString GetUserNameATLE()
{
    return GetUserNameWTLE();
}

bool GetDomainName(AnsiString& name)
{
    return FillBy(GetDomainName, name);
}

AnsiString GetDomainNameA()
{
    return GetDomainNameW();
}

AnsiString GetComputerNameA()
{
    constexpr unsigned long room = 16;
    System::WideChar buffer[room] = {};
    unsigned long size = room;
    if (!::GetComputerNameExW(ComputerNameNetBIOS, buffer, &size)) {
        ThrowLastError();
    }
    return UnicodeString(buffer);
}

AnsiString GetUserShellFolderPathA(const AnsiString& valueName)
{
    return GetUserShellFolderPathW(UnicodeString(valueName).c_str());
}

NativeInt ShellExecuteW(const char* operation, const char* file, const char* parameters, const char* folder,
                        int show)
{
    return ShellExecuteW(CWideText(operation).Get(), UnicodeString(file), CWideText(parameters).Get(),
                         CWideText(folder).Get(), show);
}

NativeInt ShellOpen(const char* file)
{
    return ShellOpen(UnicodeString(file));
}

NativeInt ShellPrint(const char* file)
{
    return ShellPrint(UnicodeString(file));
}

NativeInt ShellExplore(const char* file)
{
    return ShellExplore(UnicodeString(file));
}

NativeInt ShellExplore(const char* file, const char* parameters)
{
    return ShellExplore(UnicodeString(file), CWideText(parameters).Get());
}

AnsiString FindExecutableW(const char* file)
{
    return FindExecutableW(UnicodeString(file));
}

} // namespace WIN
