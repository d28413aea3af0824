// SPDX-License-Identifier: MIT
#include "platform/host/Host_ReplaceFile.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileMove.h"
#include "platform/host/Host_Path.h"
#include "platform/host/internal/Host_Descriptor.h"
#include "platform/host/internal/Host_PathCall.h"

#include <array>
#include <cerrno>
#include <climits>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Host
{

using System::UnicodeString;

namespace
{

/// The folder of a path of the host, with the final `/`; empty for the current one.
std::string FolderOf(const std::string& path)
{
    return path.substr(0, path.rfind('/') + 1);
}

/// Follows the links that `path` itself is; `false` for a circle of them.
bool FollowLinks(std::string& path)
{
    // As many as the host follows.
    for (int i = 0; i < 40; ++i) {
        std::array<char, PATH_MAX> link{};
        const ssize_t length = readlink(path.c_str(), link.data(), link.size());
        if (length < 0) {
            return true;
        }
        const std::string next(link.data(), static_cast<std::size_t>(length));
        path = next.starts_with('/') ? next : FolderOf(path).append(next);
    }
    return Fail(ERROR_CANT_RESOLVE_FILENAME);
}

/// The permissions keep a secret from the first moment on, so that the file begins with the owner's alone.
bool TakeOver(int file, const struct stat& target)
{
    // Who may not give a file away keeps it, without the rights of a group that isn't the old one.
    const bool sameOwner = fchown(file, target.st_uid, target.st_gid) == 0;
    struct stat made;
    const bool sameGroup = sameOwner || (fstat(file, &made) == 0 && made.st_gid == target.st_gid);
    const mode_t mode = target.st_mode & (sameGroup ? 07777U : 0707U);
    return fchmod(file, mode) == 0 || FailErrno();
}

} // namespace

UnicodeString FileToReplace(const UnicodeString& file)
{
    std::string path = Sysutils::HostPath(file);
    if (path.empty() || !FollowLinks(path)) {
        return {};
    }
    struct stat status;
    if (stat(path.c_str(), &status) != 0) {
        if (errno != ENOENT) {
            FailPath(path);
            return {};
        }
    } else if (!S_ISREG(status.st_mode) || IsReadOnly(status)) {
        Fail(ERROR_ACCESS_DENIED);
        return {};
    }
    return Sysutils::FromHostPath(path);
}

UnicodeString CreateBeside(const UnicodeString& target)
{
    const std::string path = Sysutils::HostPath(target);
    if (path.empty()) {
        return {};
    }
    struct stat old;
    const bool exists = stat(path.c_str(), &old) == 0;
    std::string name;
    int file = -1;
    // A program that died may have left some.
    for (int i = 1; file < 0 && i < 10'000; ++i) {
        name = path + ".new" + std::to_string(i);
        file = Uninterrupted([&] {
            return open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, exists ? 0600 : 0666);
        });
        if (file < 0 && errno != EEXIST) {
            FailPath(name);
            return {};
        }
    }
    const Descriptor made(file);
    if (!made.IsOpen()) {
        Fail(ERROR_FILE_EXISTS);
        return {};
    }
    if (exists && !TakeOver(made.Get(), old)) {
        const unsigned long reason = GetLastError();
        unlink(name.c_str());
        Fail(reason);
        return {};
    }
    return Sysutils::FromHostPath(name);
}

bool MoveOnto(const UnicodeString& file, const UnicodeString& target)
{
    if (!MoveFileExW(file, target, MOVEFILE_REPLACE_EXISTING)) {
        return false;
    }
    const std::string folder = FolderOf(Sysutils::HostPath(target));
    const Descriptor opened(open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // Not every file system can; the file is there in any case.
    if (opened.IsOpen()) {
        fsync(opened.Get());
    }
    return true;
}

} // namespace Host
