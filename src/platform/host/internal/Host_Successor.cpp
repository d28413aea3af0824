// SPDX-License-Identifier: MIT
#include "platform/host/internal/Host_Successor.h"

#include "platform/host/Host_Error.h"

#include <cerrno>
#include <vector>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace Host
{

namespace
{

constexpr const char* AccessList = "system.posix_acl_access";

bool CopyAccessList(int from, int to)
{
    std::vector<char> list(1 << 16);
    const ssize_t size = fgetxattr(from, AccessList, list.data(), list.size());
    if (size >= 0) {
        return fsetxattr(to, AccessList, list.data(), static_cast<std::size_t>(size), 0) == 0 || FailErrno();
    }
    if (errno != ENODATA && errno != ENOTSUP) {
        return FailErrno();
    }
    // The folder may have given one to its new file.
    return fremovexattr(to, AccessList) == 0 || errno == ENODATA || errno == ENOTSUP || FailErrno();
}

} // namespace

std::string FolderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

bool TakeOver(int from, int to)
{
    struct stat old;
    struct stat made;
    if (fstat(from, &old) != 0 || fstat(to, &made) != 0) {
        return FailErrno();
    }
    const bool isOwned = old.st_uid == made.st_uid && old.st_gid == made.st_gid;
    if (!isOwned && fchown(to, old.st_uid, old.st_gid) != 0) {
        return errno == EPERM ? Fail(ERROR_ACCESS_DENIED) : FailErrno();
    }
    return CopyAccessList(from, to) && (fchmod(to, old.st_mode & 07777U) == 0 || FailErrno());
}

bool SyncFolder(int folder)
{
    // Not every file system can.
    return fsync(folder) == 0 || errno == EINVAL || errno == ENOSYS || errno == EBADF || FailErrno();
}

} // namespace Host
