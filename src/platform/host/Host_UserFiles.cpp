// SPDX-License-Identifier: MIT
#include "platform/host/Host_UserFiles.h"

#include "platform/host/Host_Path.h"
#include "platform/host/internal/Host_Descriptor.h"
#include "platform/host/internal/Host_PathCall.h"

#include <cstdlib>
#include <string>
#include <vector>

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

namespace Host
{

using System::UnicodeString;

UnicodeString MakeTempFile(const UnicodeString& folder, const UnicodeString& prefix)
{
    const bool isClosed = folder.IsDelimiter(u"\\/", folder.Length());
    const std::string start = Sysutils::HostPath((isClosed ? folder : folder + u'\\') + prefix);
    if (start.empty()) {
        return {};
    }
    std::string path = start + "XXXXXX.tmp";
    const Descriptor file(mkostemps(path.data(), 4, O_CLOEXEC));
    if (!file.IsOpen()) {
        FailPath(start);
        return {};
    }
    return Sysutils::FromHostPath(path);
}

UnicodeString EnvironmentPath(const char* name)
{
    const char* value = std::getenv(name);
    return value == nullptr ? UnicodeString() : Sysutils::FromHostPath(value);
}

UnicodeString HomeFolder()
{
    UnicodeString folder = EnvironmentPath("HOME");
    if (!folder.IsEmpty()) {
        return folder;
    }
    std::vector<char> buffer(1 << 14);
    passwd entry;
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || found == nullptr) {
        return u"\\";
    }
    return Sysutils::FromHostPath(found->pw_dir);
}

} // namespace Host
