// SPDX-License-Identifier: MIT
#include "environment/files/Btl_sys_utilities.h"

#include "environment/BTL_ENV_UserFolders.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "platform/host/Host_Folder.h"
#include "platform/host/Host_SpecialFolder.h"
#include "platform/host/system/Host_Environment.h"
#include "platform/runtime/sysutils/Ioutils.h"
#include "platform/visual/Forms.h"

#include <algorithm>
#include <vector>

namespace BTL
{

using System::UnicodeString;

UnicodeString GetCurrentDirectoryW()
{
    return Host::CurrentDirectory();
}

UnicodeString GetCurrentPath()
{
    return AddPathDelimiter(GetCurrentDirectoryW());
}

UnicodeString GetWindowsDirectoryW()
{
    return u"\\usr";
}

UnicodeString GetWindowsPath()
{
    return AddPathDelimiter(GetWindowsDirectoryW());
}

UnicodeString GetWindowsTempPath()
{
    constexpr int MaxLength = 520;
    UnicodeString folder;
    if (!Host::FindVariable(u"TEMP", folder) || folder.IsEmpty() || folder.Length() > MaxLength) {
        return Ioutils::TPath::GetTempPath();
    }
    std::replace(folder.UniqueData(), folder.UniqueData() + folder.Length(), u'/', u'\\');
    return AddPathDelimiter(folder);
}

UnicodeString GetCommonAppDataPath()
{
    return GetShellPath(Host::CommonDataFolder);
}

UnicodeString GetModuleFileNameW(HINSTANCE module)
{
    std::vector<System::WideChar> path(4096);
    for (;;) {
        const unsigned long length = ::GetModuleFileNameW(module, path.data(), path.size());
        if (length < path.size()) {
            return UnicodeString(path.data(), static_cast<int>(length));
        }
        path.resize(path.size() * 2);
    }
}

UnicodeString GetModuleFileName2(HINSTANCE module)
{
    return GetFullPath(GetModuleFileNameW(module));
}

UnicodeString GetModulePath(HINSTANCE module)
{
    const UnicodeString path = GetModuleFileNameW(module);
    return path.SubString(1, path.LastDelimiter(u"\\"));
}

void RestartApplication()
{
    constexpr System::NativeInt FirstSuccess = 33;
    const System::NativeInt result = ShellExecuteW(nullptr, nullptr, Forms::Application->getExeName().c_str(),
                                                   nullptr, nullptr, SW_SHOWNORMAL);
    if (result < FirstSuccess) {
        throw WIN::XWinError(static_cast<unsigned long>(result), u"ShellExecute");
    }
    Forms::Application->Terminate();
}

} // namespace BTL
