// SPDX-License-Identifier: MIT
#include "environment/BTL_ENV_ReplicationFolders.h"

#include "environment/BTL_ENV_UserFolders.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "platform/runtime/sysutils/Sysutils_File.h"

namespace BTL
{

namespace
{

using System::UnicodeString;

/// Empty until the default is worked out. Never destroyed: global objects of programs ask for it in their
/// destructors too.
UnicodeString& BaseFolder()
{
    static auto& folder = *new UnicodeString;
    return folder;
}

} // namespace

void SetReplicationPath(const UnicodeString& path)
{
    BaseFolder() = AddPathDelimiter(path.Trim());
}

UnicodeString GetReplicationPath()
{
    if (BaseFolder().IsEmpty()) {
        BaseFolder() = GetUserDataPath(u"Replication\\");
    }
    return BaseFolder();
}

UnicodeString GetReplicationDir(const UnicodeString& name)
{
    UnicodeString folder = GetReplicationPath() + name;
    Sysutils::ForceDirectories(folder);
    return folder;
}

UnicodeString GetReplicationPath(const UnicodeString& name)
{
    return AddPathDelimiter(GetReplicationDir(name));
}

UnicodeString GetReplicationTemp2Path()
{
    return GetReplicationPath(u"Temp");
}

} // namespace BTL
