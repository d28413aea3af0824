// SPDX-License-Identifier: MIT
#include "platform/host/Host_Folder.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_Path.h"
#include "platform/host/internal/Host_Descriptor.h"
#include "platform/host/internal/Host_PathCall.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string>

#include <dirent.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

using Host::FailPath;
using System::Int64;
using System::UnicodeString;

bool CreateDirectoryW(const UnicodeString& folder, void* /*security*/)
{
    const std::string path = Sysutils::HostPath(folder);
    return !path.empty() && (mkdir(path.c_str(), 0777) == 0 || FailPath(path));
}

bool RemoveDirectoryW(const UnicodeString& folder)
{
    const std::string path = Sysutils::HostPath(folder);
    if (path.empty()) {
        return false;
    }
    if (rmdir(path.c_str()) == 0) {
        return true;
    }
    const int hostError = errno;
    const std::string name(Host::WithoutFinalSlashes(path));
    struct stat status;
    if (hostError == ENOTDIR && Host::IsFolder(name) && lstat(name.c_str(), &status) == 0 &&
        S_ISLNK(status.st_mode)) {
        return unlink(name.c_str()) == 0 || FailPath(path);
    }
    errno = hostError == EEXIST ? ENOTEMPTY : hostError;
    return FailPath(path);
}

bool SetCurrentDirectoryW(const UnicodeString& folder)
{
    const std::string path = Sysutils::HostPath(folder);
    return !path.empty() && (chdir(path.c_str()) == 0 || FailPath(path));
}

namespace Host
{

std::optional<std::vector<UnicodeString>> ListFolder(const UnicodeString& folder)
{
    const std::string path = Sysutils::HostPath(folder);
    if (path.empty()) {
        return std::nullopt;
    }
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(path.c_str()), &closedir);
    if (!entries) {
        // Who asks for names in it takes the folder for a part of the way.
        Fail(errno == ENOENT || errno == ENOTDIR ? ERROR_PATH_NOT_FOUND : ErrorFromErrno(errno));
        return std::nullopt;
    }
    std::vector<UnicodeString> names;
    while (const dirent* entry = readdir(entries.get())) {
        names.push_back(Sysutils::FromHostPath(entry->d_name));
    }
    std::sort(names.begin(), names.end());
    return names;
}

UnicodeString CurrentDirectory()
{
    const std::unique_ptr<char, decltype(&std::free)> folder(getcwd(nullptr, 0), &std::free);
    if (!folder) {
        FailErrno();
        return {};
    }
    return Sysutils::FromHostPath(folder.get());
}

std::optional<DiskSpace> QueryDisk(const UnicodeString& folder)
{
    const std::string path = Sysutils::HostPath(folder);
    if (path.empty()) {
        return std::nullopt;
    }
    struct statvfs status;
    if (Uninterrupted([&] { return statvfs(path.c_str(), &status); }) != 0) {
        FailPath(path);
        return std::nullopt;
    }
    const auto bytes = [&](fsblkcnt_t blocks) {
        return static_cast<Int64>(blocks) * static_cast<Int64>(status.f_frsize);
    };
    return DiskSpace{bytes(status.f_bavail), bytes(status.f_blocks)};
}

} // namespace Host
