// SPDX-License-Identifier: MIT
#include "platform/host/internal/Host_ShellFile.h"

#include "platform/host/Host_Folder.h"
#include "platform/host/Host_Path.h"
#include "platform/host/internal/Host_Descriptor.h"

#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>

namespace Host
{

std::string AbsolutePath(const System::UnicodeString& file, const std::string& folder)
{
    std::string path = Sysutils::HostPath(file);
    if (path.empty() || path.starts_with('/')) {
        return path;
    }
    const std::string start = folder.starts_with('/') ? folder : Sysutils::HostPath(CurrentDirectory());
    if (start.empty()) {
        return {};
    }
    const std::string between = folder.empty() || folder.starts_with('/') ? "/" : "/" + folder + "/";
    return start + between + path;
}

bool IsProgram(const std::string& path)
{
    struct stat status;
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode) || access(path.c_str(), X_OK) != 0) {
        return false;
    }
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    char magic[4] = {};
    const ssize_t length = file.IsOpen() ? read(file.Get(), magic, sizeof magic) : 0;
    return (length == 4 && std::memcmp(magic, "\177ELF", 4) == 0) ||
           (length >= 2 && std::memcmp(magic, "#!", 2) == 0);
}

} // namespace Host
