// SPDX-License-Identifier: MIT
#include "platform/host/Host_SpecialFolder.h"

#include "platform/host/Host_Path.h"
#include "platform/host/Host_UserFiles.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string>
#include <string_view>

namespace Host
{

namespace
{

using System::UnicodeString;

/// A folder that the user's desktop names.
struct TDesktopFolder
{
    int number;
    /// Its name in `user-dirs.dirs`.
    std::string_view variable;
    /// Where it lies in the home folder if nothing names it.
    std::string_view usual;
};

constexpr std::array<TDesktopFolder, 7> desktopFolders = {
    {{DesktopFolder, "XDG_DESKTOP_DIR", "Desktop"},
     {DesktopFilesFolder, "XDG_DESKTOP_DIR", "Desktop"},
     {DocumentsFolder, "XDG_DOCUMENTS_DIR", "Documents"},
     {MusicFolder, "XDG_MUSIC_DIR", "Music"},
     {VideosFolder, "XDG_VIDEOS_DIR", "Videos"},
     {TemplatesFolder, "XDG_TEMPLATES_DIR", "Templates"},
     {PicturesFolder, "XDG_PICTURES_DIR", "Pictures"}}};

/// A variable that isn't a full path doesn't count.
UnicodeString BaseFolder(const char* variable, std::string_view usual)
{
    const UnicodeString folder = EnvironmentPath(variable);
    return folder.AsView().starts_with(u'\\') ? folder : HomeFolder() + u'\\' + Sysutils::FromHostPath(usual);
}

/// What `user-dirs.dirs` has under `variable`, as `"$HOME/Documents"` without its quotes; empty for none.
std::string ReadUserFolder(std::string_view variable)
{
    std::ifstream stream(Sysutils::HostPath(BaseFolder("XDG_CONFIG_HOME", ".config") + u"\\user-dirs.dirs"));
    std::string found;
    for (std::string line; std::getline(stream, line);) {
        const std::string_view text = line;
        if (text.starts_with(variable) && text.substr(variable.size()).starts_with("=\"")) {
            const std::string_view value = text.substr(variable.size() + 2);
            found = value.substr(0, std::min(value.rfind('"'), value.size()));
        }
    }
    return found;
}

UnicodeString DesktopFolderOf(const TDesktopFolder& folder)
{
    constexpr std::string_view home = "$HOME";
    const std::string named = ReadUserFolder(folder.variable);
    if (named.starts_with('/')) {
        return Sysutils::FromHostPath(named);
    }
    if (named.starts_with(home)) {
        return HomeFolder() + Sysutils::FromHostPath(named.substr(home.size()));
    }
    return HomeFolder() + u'\\' + Sysutils::FromHostPath(folder.usual);
}

} // namespace

UnicodeString SpecialFolder(int number)
{
    const auto* const desktop =
        std::find_if(desktopFolders.begin(), desktopFolders.end(),
                     [&](const TDesktopFolder& folder) { return folder.number == number; });
    if (desktop != desktopFolders.end()) {
        return DesktopFolderOf(*desktop);
    }
    switch (number) {
    case UserSettingsFolder:
        return BaseFolder("XDG_CONFIG_HOME", ".config");
    case UserDataFolder:
        return BaseFolder("XDG_DATA_HOME", ".local/share");
    case CommonDataFolder:
    case CommonDocumentsFolder:
        return u"\\var\\lib";
    case ProgramFilesFolder:
        return u"\\opt";
    case ProfileFolder:
        return HomeFolder();
    default:
        return {};
    }
}

} // namespace Host
