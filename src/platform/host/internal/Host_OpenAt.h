// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/Host_OpenFile.h"
#include "platform/host/internal/Host_Descriptor.h"

#include <sys/types.h>

struct stat;

namespace Host
{

/// A name in an open folder. With `AT_FDCWD` as the folder it is a path.
struct FilePlace
{
    int folder;
    const char* name;
};

/// Whether a name may be a symbolic link. Those on the way to it are followed in either case.
enum class Links
{
    Follow,
    Refuse,
};

/// As `OpenFile` of a path. A link that is refused fails with 1921.
[[nodiscard]] Descriptor OpenAt(const FilePlace& file, unsigned access, unsigned share,
                                Disposition disposition, Links links);
/// As `OpenAt` alone, but a new file has the permissions `mode`, less those that the user's mask takes, and
/// `status` is what the host told of the file before what was gathered for it was written.
[[nodiscard]] Descriptor OpenAt(const FilePlace& file, unsigned access, unsigned share,
                                Disposition disposition, Links links, mode_t mode, struct stat& status);

/// `FailErrno` for a call on `file`; for a path it is `FailPath`.
bool FailAt(const FilePlace& file);

} // namespace Host
