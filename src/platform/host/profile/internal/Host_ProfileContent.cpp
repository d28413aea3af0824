// SPDX-License-Identifier: MIT
#include "platform/host/profile/internal/Host_ProfileContent.h"

#include "platform/host/Host_Path.h"
#include "platform/host/profile/internal/Host_ProfileFile.h"

namespace Host
{

namespace
{

/// What can't be read is kept beside by a read too.
bool KeepUnread(LockedProfile& profile, FormerContent former)
{
    return former == FormerContent::Read ? profile.Read().has_value()
                                         : !profile.Exists() || profile.KeepAside();
}

} // namespace

std::optional<std::string> LoadProfileContent(const System::UnicodeString& file)
{
    const std::string path = Sysutils::HostPath(file);
    auto read = path.empty() ? std::nullopt : ReadProfile(path);
    return read ? std::optional(std::move(read->bytes)) : std::nullopt;
}

bool SaveProfileContent(const System::UnicodeString& file, std::string_view bytes, FormerContent former)
{
    const std::string path = Sysutils::HostPath(file);
    if (path.empty()) {
        return false;
    }
    LockedProfile profile;
    for (;;) {
        if (!profile.Lock(path) || !KeepUnread(profile, former)) {
            return false;
        }
        const auto replaced = profile.Replace(bytes);
        if (replaced != LockedProfile::Replaced::Raced) {
            return replaced == LockedProfile::Replaced::Done;
        }
    }
}

} // namespace Host
