// SPDX-License-Identifier: MIT
#include "platform/host/internal/Host_SessionFolder.h"

#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>

namespace Host
{

namespace
{

constexpr mode_t FolderMode = 0700;

/// Whether the folder is the user's, and nobody else may make or remove anything in it.
bool IsOwn(const char* folder)
{
    constexpr mode_t writableByOthers = 0022;
    struct stat status;
    return stat(folder, &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
           (status.st_mode & writableByOthers) == 0;
}

/// Opens the folder, and makes it if it isn't there.
Descriptor OpenFolder(const std::string& path)
{
    const auto tryOpen = [&path] {
        return Descriptor(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    };
    Descriptor folder = tryOpen();
    if (!folder.IsOpen() && errno == ENOENT && (mkdir(path.c_str(), FolderMode) == 0 || errno == EEXIST)) {
        folder = tryOpen();
    }
    return folder;
}

/// That of the session; empty if there is no such folder, or none of the user's own.
std::string RunTimeFolder()
{
    const char* const value = std::getenv("XDG_RUNTIME_DIR");
    return value != nullptr && *value == '/' && IsOwn(value) ? value : std::string();
}

std::string SessionPath()
{
    const std::string runTime = RunTimeFolder();
    return runTime.empty() ? "/dev/shm/TRS8_BTL-" + std::to_string(geteuid()) : runTime + "/TRS8_BTL";
}

} // namespace

TSessionFolder OpenSessionFolder()
{
    TSessionFolder session{Descriptor(), SessionPath()};
    Descriptor folder = OpenFolder(session.path);
    struct stat status;
    // Anybody may have made a folder of this name there.
    if (!folder.IsOpen() || fstat(folder.Get(), &status) != 0 || status.st_uid != geteuid()) {
        SetLastError(ERROR_ACCESS_DENIED);
        return session;
    }
    if ((status.st_mode & 0777) != FolderMode && fchmod(folder.Get(), FolderMode) != 0) {
        FailErrno();
        return session;
    }
    session.descriptor = std::move(folder);
    return session;
}

} // namespace Host
