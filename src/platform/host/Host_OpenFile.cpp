// SPDX-License-Identifier: MIT
#include "platform/host/Host_OpenFile.h"

#include "platform/host/Host_BufferedFiles.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileSharing.h"
#include "platform/host/Host_Path.h"
#include "platform/host/internal/Host_Descriptor.h"
#include "platform/host/internal/Host_OpenAt.h"

#include <cerrno>
#include <string>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Host
{

using System::Int64;
using System::NativeInt;
using System::UnicodeString;

namespace
{

/// Whether there is more to read where a read gave nothing: a named pipe that nobody has opened for writing
/// yet gives nothing too, and so does one whose writer came only now. Comes back when somebody has written.
bool WaitedForWriter(int descriptor)
{
    struct stat status;
    if (fstat(descriptor, &status) != 0 || !S_ISFIFO(status.st_mode)) {
        return false;
    }
    pollfd pipe{descriptor, POLLIN, 0};
    if (Uninterrupted([&] { return poll(&pipe, 1, 0); }) == 0) {
        Uninterrupted([&] { return poll(&pipe, 1, -1); });
    }
    // At its end a pipe only tells that the writers hung up.
    return (pipe.revents & POLLIN) != 0;
}

/// The descriptor for a transfer of `count` bytes; -1, with the last error set, if there is none or the bytes
/// have no place.
int DescriptorFor(NativeInt handle, const void* buffer, Int64 count)
{
    const int descriptor = DescriptorOf(handle);
    if (descriptor >= 0 && (count < 0 || (buffer == nullptr && count > 0))) {
        Fail(ERROR_INVALID_PARAMETER);
        return -1;
    }
    return descriptor;
}

} // namespace

NativeInt OpenFile(const UnicodeString& file, unsigned access, unsigned share, Disposition disposition)
{
    const std::string path = Sysutils::HostPath(file);
    if (path.empty()) {
        return InvalidHandle;
    }
    Descriptor opened = OpenAt({AT_FDCWD, path.c_str()}, access, share, disposition, Links::Follow);
    return opened.IsOpen() ? opened.Release() : InvalidHandle;
}

NativeInt OpenStandardStream(StandardStream stream)
{
    static_assert(static_cast<int>(StandardStream::Input) == STDIN_FILENO &&
                  static_cast<int>(StandardStream::Output) == STDOUT_FILENO &&
                  static_cast<int>(StandardStream::Error) == STDERR_FILENO);
    const int own = fcntl(static_cast<int>(stream), F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    if (own < 0) {
        FailErrno();
        return InvalidHandle;
    }
    return own;
}

bool CloseFile(NativeInt handle)
{
    const int descriptor = DescriptorOf(handle);
    if (descriptor < 0) {
        return false;
    }
    ReleaseSharing(descriptor);
    // After an interruption the descriptor is gone all the same.
    return close(descriptor) == 0 || errno == EINTR || FailErrno();
}

Int64 ReadFile(NativeInt handle, void* buffer, Int64 count)
{
    const int descriptor = DescriptorFor(handle, buffer, count);
    if (descriptor < 0) {
        return -1;
    }
    FlushBuffersOf(descriptor);
    const auto readOn = [&] {
        return ReadPieces(count, [&](Int64 offset, std::size_t piece) {
            return read(descriptor, static_cast<char*>(buffer) + offset, piece);
        });
    };
    const Int64 done = readOn();
    return done == 0 && count > 0 && WaitedForWriter(descriptor) ? readOn() : done;
}

Int64 PeekFile(NativeInt handle, void* buffer, Int64 count)
{
    const Int64 position = SeekFile(handle, 0, SEEK_CUR);
    if (position < 0 || buffer == nullptr || count < 0) {
        return -1;
    }
    const auto descriptor = static_cast<int>(handle);
    FlushBuffersOf(descriptor);
    return ReadPieces(count, [&](Int64 offset, std::size_t piece) {
        return pread(descriptor, static_cast<char*>(buffer) + offset, piece, position + offset);
    });
}

Int64 WriteFile(NativeInt handle, const void* buffer, Int64 count)
{
    const int descriptor = DescriptorFor(handle, buffer, count);
    if (descriptor < 0) {
        return -1;
    }
    FlushBuffersOf(descriptor);
    const Int64 done = WritePieces(count, [&](Int64 offset, std::size_t piece) {
        return write(descriptor, static_cast<const char*>(buffer) + offset, piece);
    });
    AgeBuffersOf(descriptor);
    return done;
}

Int64 SeekFile(NativeInt handle, Int64 offset, int origin)
{
    const int descriptor = DescriptorOf(handle);
    if (descriptor < 0) {
        return -1;
    }
    if (origin < SEEK_SET || origin > SEEK_END) {
        Fail(ERROR_INVALID_PARAMETER);
        return -1;
    }
    if (origin == SEEK_END) {
        FlushBuffersOf(descriptor);
    }
    const off_t position = lseek(descriptor, offset, origin);
    if (position < 0) {
        errno == EINVAL ? Fail(ERROR_NEGATIVE_SEEK) : FailErrno();
    }
    return position;
}

bool IsEndless(NativeInt handle)
{
    struct stat status;
    const auto descriptor = static_cast<int>(handle);
    if (handle <= 0 || fstat(descriptor, &status) != 0 || !S_ISCHR(status.st_mode) ||
        lseek(descriptor, 0, SEEK_CUR) != 0) {
        return false;
    }
    const bool hasNoSize = lseek(descriptor, 0, SEEK_END) == 0;
    lseek(descriptor, 0, SEEK_SET);
    return hasNoSize;
}

bool IsTerminal(NativeInt handle)
{
    const int descriptor = DescriptorOf(handle);
    return descriptor >= 0 && isatty(descriptor) == 1;
}

bool ResizeFile(NativeInt handle, Int64 size)
{
    const int descriptor = DescriptorOf(handle);
    if (descriptor < 0) {
        return false;
    }
    FlushBuffersOf(descriptor);
    if (!SetSize(descriptor, size)) {
        return false;
    }
    AgeBuffersOf(descriptor);
    return true;
}

bool FlushFile(NativeInt handle)
{
    const int descriptor = DescriptorOf(handle);
    if (descriptor < 0) {
        return false;
    }
    FlushBuffersOf(descriptor);
    return Uninterrupted([&] { return fsync(descriptor); }) == 0 || FailErrno();
}

} // namespace Host
