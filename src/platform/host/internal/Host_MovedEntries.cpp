// SPDX-License-Identifier: MIT
#include "platform/host/internal/Host_MovedEntries.h"

#include "platform/host/Host_BufferedFiles.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace Host
{

namespace
{

/// With what this process gathered for it on the disk.
bool QueryWritten(const FilePlace& entry, struct stat& status)
{
    if (fstatat(entry.folder, entry.name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return false;
    }
    FlushBuffersOf(status);
    return fstatat(entry.folder, entry.name, &status, AT_SYMLINK_NOFOLLOW) == 0;
}

} // namespace

void MovedEntries::Add(const FilePlace& entry)
{
    if (struct stat status; QueryWritten(entry, status)) {
        // A file of several names is what it was at the first of them.
        mVersions.try_emplace({status.st_dev, status.st_ino}, Version{status.st_size, status.st_mtim});
    }
}

bool MovedEntries::Has(const FilePlace& entry) const
{
    struct stat status;
    if (!QueryWritten(entry, status)) {
        return false;
    }
    const auto found = mVersions.find({status.st_dev, status.st_ino});
    return found != mVersions.end() && found->second.size == status.st_size &&
           found->second.modified.tv_sec == status.st_mtim.tv_sec &&
           found->second.modified.tv_nsec == status.st_mtim.tv_nsec;
}

} // namespace Host
