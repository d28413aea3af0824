// SPDX-License-Identifier: MIT
#include "platform/runtime/registry/internal/Registry_HostValues.h"

#include "platform/host/Host_SpecialFolder.h"
#include "platform/host/devices/Host_PortMap.h"

#include <array>

namespace Registry
{

namespace
{

using System::UnicodeString;

void AddPorts(const UnicodeString& path, Host::RegistryText& registry)
{
    registry.MakeKey(path);
    for (const Host::PortInfo& port : Host::ListPorts()) {
        registry.Set(path, u"\\Device\\" + port.kind, u"COM" + UnicodeString(port.number));
    }
}

void AddFolders(const UnicodeString& path, Host::RegistryText& registry)
{
    struct TFolder
    {
        const char* name;
        Host::ESpecialFolder folder;
    };
    static constexpr std::array<TFolder, 6> known = {{{"Personal", Host::DocumentsFolder},
                                                      {"Desktop", Host::DesktopFilesFolder},
                                                      {"My Pictures", Host::PicturesFolder},
                                                      {"My Music", Host::MusicFolder},
                                                      {"My Video", Host::VideosFolder},
                                                      {"Templates", Host::TemplatesFolder}}};
    for (const TFolder& folder : known) {
        if (registry.Find(path, folder.name) == nullptr) {
            registry.Set(path, folder.name, Host::SpecialFolder(folder.folder));
        }
    }
}

} // namespace

void AddHostValues(const UnicodeString& path, Host::RegistryText& registry)
{
    const UnicodeString folded = path.LowerCase();
    if (folded == u"hkey_local_machine\\hardware\\devicemap\\serialcomm") {
        AddPorts(path, registry);
    } else if (folded.AsView().starts_with(u"hkey_current_user\\") &&
               folded.AsView().ends_with(u"\\user shell folders")) {
        AddFolders(path, registry);
    }
}

} // namespace Registry
