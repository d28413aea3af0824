// SPDX-License-Identifier: MIT
#include "platform/host/internal/Host_OpenAt.h"

#include "platform/host/Host_BufferedFiles.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileSharing.h"
#include "platform/host/internal/Host_PathCall.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Host
{

namespace
{

/// Standard streams that a program closed leave low numbers free, which would pass for "no file" or be
/// written to as output.
Descriptor AboveStandardStreams(Descriptor file)
{
    if (!file.IsOpen() || file.Get() > STDERR_FILENO) {
        return file;
    }
    return Descriptor(fcntl(file.Get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

int OpenFlags(unsigned access, Disposition disposition, Links links)
{
    // Without `O_NONBLOCK` the opening of a pipe would wait for its other end.
    int flags = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    flags |= access == ReadAccess ? O_RDONLY : access == WriteAccess ? O_WRONLY : O_RDWR;
    flags |= links == Links::Refuse ? O_NOFOLLOW : 0;
    switch (disposition) {
    case Disposition::Open:
        return flags;
    case Disposition::Create:
        return flags | O_CREAT;
    case Disposition::CreateNew:
        return flags | O_CREAT | O_EXCL;
    }
    return flags;
}

/// A plain file never makes anybody wait.
void BlockAgain(int descriptor, const struct stat& status)
{
    if (S_ISREG(status.st_mode)) {
        return;
    }
    const int flags = fcntl(descriptor, F_GETFL);
    if (flags != -1) {
        fcntl(descriptor, F_SETFL, flags & ~O_NONBLOCK);
    }
}

/// Tests what the host doesn't: folders, the read-only attribute, the sharing with others.
bool MayUse(const Descriptor& file, const struct stat& status, unsigned access, unsigned share)
{
    if (S_ISDIR(status.st_mode)) {
        return Fail(ERROR_ACCESS_DENIED);
    }
    if (!S_ISREG(status.st_mode)) {
        return true;
    }
    // The host lets its administrator write to such a file.
    if ((access & WriteAccess) != 0 && IsReadOnly(status)) {
        return Fail(ERROR_ACCESS_DENIED);
    }
    return ClaimSharing(file.Get(), access, share) || Fail(ERROR_SHARING_VIOLATION);
}

} // namespace

Descriptor OpenAt(const FilePlace& file, unsigned access, unsigned share, Disposition disposition,
                  Links links)
{
    struct stat status;
    return OpenAt(file, access, share, disposition, links, 0666, status);
}

Descriptor OpenAt(const FilePlace& file, unsigned access, unsigned share, Disposition disposition,
                  Links links, mode_t mode, struct stat& status)
{
    const int flags = OpenFlags(access, disposition, links);
    Descriptor opened = AboveStandardStreams(
        Descriptor(Uninterrupted([&] { return openat(file.folder, file.name, flags, mode); })));
    if (!opened.IsOpen()) {
        errno == EEXIST ? Fail(ERROR_FILE_EXISTS) : FailAt(file);
        return Descriptor();
    }
    if (fstat(opened.Get(), &status) != 0) {
        FailErrno();
        return Descriptor();
    }
    if (!MayUse(opened, status, access, share)) {
        return Descriptor();
    }
    FlushBuffersOf(status);
    // Emptied only now: before the claim the content belongs to the other opener.
    if (disposition == Disposition::Create && S_ISREG(status.st_mode)) {
        if (ftruncate(opened.Get(), 0) != 0) {
            FailErrno();
            return Descriptor();
        }
        AgeBuffersOf(opened.Get());
    }
    BlockAgain(opened.Get(), status);
    return opened;
}

bool FailAt(const FilePlace& file)
{
    return file.folder == AT_FDCWD ? FailPath(file.name) : FailErrno();
}

} // namespace Host
