// SPDX-License-Identifier: MIT
#include "platform/host/Host_ReplaceFile.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileMove.h"
#include "platform/host/Host_Path.h"
#include "platform/host/internal/Host_Descriptor.h"
#include "platform/host/internal/Host_PathCall.h"
#include "platform/host/internal/Host_Successor.h"

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

/// Who may write the file can perhaps not read it.
Descriptor OpenToTakeOver(const std::string& path)
{
    const auto openWith = [&](int access) {
        return Uninterrupted([&] { return open(path.c_str(), access | O_CLOEXEC | O_NOCTTY | O_NONBLOCK); });
    };
    Descriptor file(openWith(O_RDONLY));
    return file.IsOpen() || errno != EACCES ? std::move(file) : Descriptor(openWith(O_WRONLY));
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
    const Descriptor old = OpenToTakeOver(path);
    if (!old.IsOpen() && errno != ENOENT) {
        FailPath(path);
        return {};
    }
    // The permissions keep a secret from the first moment on, so that it begins with the owner's alone.
    const mode_t mode = old.IsOpen() ? 0600 : 0666;
    std::string name;
    int file = -1;
    // A program that died may have left some.
    for (int i = 1; file < 0 && i < 10'000; ++i) {
        name = path + ".new" + std::to_string(i);
        file =
            Uninterrupted([&] { return open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode); });
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
    if (old.IsOpen() && !TakeOver(old.Get(), made.Get())) {
        const unsigned long reason = GetLastError();
        unlink(name.c_str());
        // Other than a folder that may not be written to.
        Fail(reason == ERROR_ACCESS_DENIED ? ERROR_PRIVILEGE_NOT_HELD : reason);
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
    const Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // Who may not list a folder may write there all the same.
    return !opened.IsOpen() || SyncFolder(opened.Get());
}

} // namespace Host
