// SPDX-License-Identifier: MIT
#include "platform/host/system/Host_FindIcon.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileInfo.h"
#include "platform/host/Host_Path.h"
#include "platform/host/internal/Host_ShellFile.h"
#include "platform/host/system/internal/Host_DesktopEntry.h"
#include "platform/host/system/internal/Host_DesktopTypes.h"

#include <algorithm>

#include <unistd.h>

namespace Host
{

using System::UnicodeString;

namespace
{

bool IsThere(const std::string& path)
{
    return access(path.c_str(), R_OK) == 0;
}

/// The picture of that name for applications, or for types; empty if there is none.
std::string FindPicture(const std::string& name, const char* context)
{
    constexpr const char* Sizes[] = {"32x32", "48x48", "64x64", "24x24", "128x128", "256x256", "16x16"};
    // Nothing that leaves the folders of pictures is a name.
    if (name.empty() || name.starts_with('.') || name.find('/') != std::string::npos) {
        return {};
    }
    for (const std::string& folder : DataFolders()) {
        for (const char* const size : Sizes) {
            std::string path = folder + "icons/hicolor/" + size + "/" + context + "/" + name + ".png";
            if (IsThere(path)) {
                return path;
            }
        }
        if (std::string path = folder + "pixmaps/" + name + ".png"; IsThere(path)) {
            return path;
        }
    }
    return {};
}

std::string PictureOfProgram(const std::string& icon)
{
    return icon.starts_with('/') && IsThere(icon) ? icon : FindPicture(icon, "apps");
}

std::string PictureOfDocument(const std::string& path)
{
    const std::string type = TypeOf(path);
    std::string name = type;
    std::ranges::replace(name, '/', '-');
    const std::string picture = FindPicture(name, "mimetypes");
    return picture.empty() ? PictureOfProgram(IconOfEntry(ReadEntryOf(type))) : picture;
}

} // namespace

UnicodeString FindIcon(const UnicodeString& file)
{
    const std::string path = AbsolutePath(file, std::string());
    if (file.IsEmpty() || path.empty() || !QueryFile(Sysutils::FromHostPath(path))) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return {};
    }
    const std::string picture =
        IsProgram(path) ? PictureOfProgram(path.substr(path.rfind('/') + 1)) : PictureOfDocument(path);
    if (picture.empty()) {
        SetLastError(ERROR_NOT_FOUND);
    }
    return Sysutils::FromHostPath(picture);
}

} // namespace Host
