// SPDX-License-Identifier: MIT
#include "environment/folders/internal/BTL_ENV_LastFolder.h"

#include "platform/runtime/sysutils/Sysutils_File.h"

namespace BTL
{

System::UnicodeString CLastFolder::Make(const System::UnicodeString& folder)
{
    const std::lock_guard lock(mMutex);
    if (folder != mFolder) {
        Sysutils::ForceDirectories(folder);
        mFolder = folder;
    }
    return folder;
}

} // namespace BTL
