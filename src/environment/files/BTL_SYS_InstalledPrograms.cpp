// SPDX-License-Identifier: MIT
#include "environment/files/BTL_SYS_InstalledPrograms.h"

#include "platform/runtime/registry/Registry.h"

namespace BTL
{

using System::UnicodeString;

UnicodeString AppRegInstalledPath(const UnicodeString& appId)
{
    Registry::TRegistry registry;
    registry.setRootKey(Registry::HKEY_LOCAL_MACHINE);
    const UnicodeString key =
        u"\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\" + appId + u"_is1";
    return registry.OpenKeyReadOnly(key) ? registry.ReadString(u"Inno Setup: App Path") + u'\\'
                                         : UnicodeString();
}

bool AppIsInstalled(const UnicodeString& appId)
{
    return !AppRegInstalledPath(appId).IsEmpty();
}

} // namespace BTL
