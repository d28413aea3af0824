// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_StdPath.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/host/Host_Path.h"

namespace Sysutils
{

std::filesystem::path ToPath(const System::UnicodeString& fileName)
{
    std::string path = HostPath(fileName);
    if (path.empty()) {
        throw EInOutError(u"'" + fileName + u"' is no path of the host");
    }
    return path;
}

} // namespace Sysutils
