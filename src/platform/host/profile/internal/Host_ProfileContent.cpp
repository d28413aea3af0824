// SPDX-License-Identifier: MIT
#include "platform/host/profile/internal/Host_ProfileContent.h"

#include "platform/host/Host_Path.h"
#include "platform/host/profile/internal/Host_ProfileFile.h"

namespace Host
{

std::string LoadProfileContent(const System::UnicodeString& file)
{
    const std::string path = Sysutils::HostPath(file);
    auto read = path.empty() ? std::nullopt : ReadProfile(path);
    return read ? std::move(read->bytes) : std::string();
}

bool SaveProfileContent(const System::UnicodeString& file, std::string_view bytes)
{
    const std::string path = Sysutils::HostPath(file);
    if (path.empty()) {
        return false;
    }
    LockedProfile profile;
    for (;;) {
        // What can't be read is kept beside by that.
        if (!profile.Lock(path) || !profile.Read()) {
            return false;
        }
        const auto replaced = profile.Replace(bytes);
        if (replaced != LockedProfile::Replaced::Raced) {
            return replaced == LockedProfile::Replaced::Done;
        }
    }
}

} // namespace Host
