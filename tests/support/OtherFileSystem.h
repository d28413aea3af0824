// SPDX-License-Identifier: MIT
#pragma once

#include "support/TempFolder.h"

#include <csignal>
#include <cstdlib>
#include <optional>
#include <string>

#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Support
{

/// A folder of a test on another file system than that of its `TempFolder`; none where the machine has but
/// one.
class OtherFileSystem
{
public:
    OtherFileSystem()
    {
        std::string path = "/dev/shm/trs8_btl_XXXXXX";
        struct stat other;
        struct stat usual;
        if (stat("/dev/shm", &other) == 0 &&
            stat(std::filesystem::temp_directory_path().c_str(), &usual) == 0 &&
            other.st_dev != usual.st_dev && mkdtemp(path.data()) != nullptr) {
            mPath = path;
        }
    }
    OtherFileSystem(const OtherFileSystem&) = delete;
    OtherFileSystem& operator=(const OtherFileSystem&) = delete;
    ~OtherFileSystem()
    {
        std::error_code ignored;
        if (mPath) {
            std::filesystem::remove_all(*mPath, ignored);
        }
    }

    bool IsThere() const { return mPath.has_value(); }
    const std::filesystem::path& Path() const { return *mPath; }

private:
    std::optional<std::filesystem::path> mPath;
};

/// In a fork: puts a file system of `bytes` over the folder, which ends with the fork. False where nobody
/// may.
inline bool MountSmallDisk(const std::filesystem::path& folder, unsigned long bytes)
{
    if (geteuid() != 0 ? unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0 : unshare(CLONE_NEWNS) != 0) {
        return false;
    }
    const std::string options = "size=" + std::to_string(bytes);
    return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount("tmpfs", folder.c_str(), "tmpfs", 0, options.c_str()) == 0;
}

/// In a fork: gives up the rights of the administrator, to whom all folders are open. The test's folders must
/// be open to all.
inline bool BecomeNobody()
{
    constexpr uid_t Nobody = 65534;
    return geteuid() != 0 || (setgid(Nobody) == 0 && setuid(Nobody) == 0);
}

} // namespace Support
