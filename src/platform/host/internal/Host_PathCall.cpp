// SPDX-License-Identifier: MIT
#include "platform/host/internal/Host_PathCall.h"

#include "platform/host/Host_Error.h"

#include <cerrno>

#include <sys/stat.h>

namespace Host
{

namespace
{

std::string ParentOf(std::string_view path)
{
    path = WithoutFinalSlashes(path);
    const std::size_t slash = path.rfind('/');
    if (slash == std::string_view::npos) {
        return ".";
    }
    return std::string(slash == 0 ? "/" : path.substr(0, slash));
}

} // namespace

std::string_view WithoutFinalSlashes(std::string_view path)
{
    while (path.size() > 1 && path.ends_with('/')) {
        path.remove_suffix(1);
    }
    return path;
}

bool IsFolder(const std::string& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool IsLink(const std::string& path)
{
    struct stat status;
    return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

bool IsReadOnly(const struct stat& status)
{
    return (status.st_mode & S_IWUSR) == 0;
}

bool IsSameFile(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool FailPath(const std::string& path)
{
    const int hostError = errno;
    if ((hostError == ENOENT || hostError == ENOTDIR) && !IsFolder(ParentOf(path))) {
        return Fail(ERROR_PATH_NOT_FOUND);
    }
    return Fail(ErrorFromErrno(hostError));
}

} // namespace Host
