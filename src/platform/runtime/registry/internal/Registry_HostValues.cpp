// SPDX-License-Identifier: MIT
#include "platform/runtime/registry/internal/Registry_HostValues.h"

#include "platform/host/Host_Path.h"
#include "platform/host/Host_UserFiles.h"
#include "platform/host/devices/Host_PortMap.h"

#include <array>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>

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

/// The folders of the user by their names there, as `"$HOME/Documents"`.
std::map<std::string, std::string> UserFolders()
{
    const UnicodeString config = Host::EnvironmentPath("XDG_CONFIG_HOME");
    const UnicodeString folder =
        config.AsView().starts_with(u'\\') ? config : Host::HomeFolder() + u"\\.config";
    std::map<std::string, std::string> folders;
    std::ifstream stream(Sysutils::HostPath(folder + u"\\user-dirs.dirs"));
    for (std::string line; std::getline(stream, line);) {
        const std::size_t equals = line.find("=\"");
        const std::size_t end = line.rfind('"');
        if (line.starts_with("XDG_") && equals != std::string::npos && end > equals + 1) {
            folders[line.substr(0, equals)] = line.substr(equals + 2, end - equals - 2);
        }
    }
    return folders;
}

UnicodeString FolderOf(const std::map<std::string, std::string>& folders, const char* variable,
                       const char* usual)
{
    constexpr std::string_view home = "$HOME";
    const auto found = folders.find(variable);
    const UnicodeString homeFolder = Host::HomeFolder();
    if (found != folders.end() && found->second.starts_with('/')) {
        return Sysutils::FromHostPath(found->second);
    }
    if (found != folders.end() && found->second.starts_with(home)) {
        return homeFolder + Sysutils::FromHostPath(found->second.substr(home.size()));
    }
    return homeFolder + u'\\' + UnicodeString(usual);
}

void AddFolders(const UnicodeString& path, Host::RegistryText& registry)
{
    struct TFolder
    {
        const char* name;
        const char* variable;
        const char* usual;
    };
    static constexpr std::array<TFolder, 6> known = {{{"Personal", "XDG_DOCUMENTS_DIR", "Documents"},
                                                      {"Desktop", "XDG_DESKTOP_DIR", "Desktop"},
                                                      {"My Pictures", "XDG_PICTURES_DIR", "Pictures"},
                                                      {"My Music", "XDG_MUSIC_DIR", "Music"},
                                                      {"My Video", "XDG_VIDEOS_DIR", "Videos"},
                                                      {"Templates", "XDG_TEMPLATES_DIR", "Templates"}}};
    const auto folders = UserFolders();
    for (const TFolder& folder : known) {
        if (registry.Find(path, folder.name) == nullptr) {
            registry.Set(path, folder.name, FolderOf(folders, folder.variable, folder.usual));
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
