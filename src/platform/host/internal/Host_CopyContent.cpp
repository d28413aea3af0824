// SPDX-License-Identifier: MIT
#include "platform/host/internal/Host_CopyContent.h"

#include "platform/host/internal/Host_Descriptor.h"

#include <algorithm>
#include <cerrno>
#include <memory>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Host
{

namespace
{

using System::Int64;

/// The ways to copy a range, the best first. A pair of file systems that lacks one has it for no range.
enum class Way
{
    /// Within the file system, or from one to another of its kind.
    ByFileSystem,
    /// Within the kernel.
    ByKernel,
    ByHand,
};

constexpr Int64 MaxPiece = 1 << 30;
constexpr std::size_t BufferSize = 1 << 16;

/// Whether a call failed because the two files can't be copied so, which another way may still do.
bool IsWayClosed(int hostError)
{
    return hostError == EXDEV || hostError == EINVAL || hostError == ENOSYS || hostError == EOPNOTSUPP ||
           hostError == EBADF || hostError == EPERM || hostError == ETXTBSY;
}

/// Copies bytes of one open file to the same place of another.
class RangeCopy
{
public:
    RangeCopy(int source, int target) noexcept : mSource(source), mTarget(target) {}

    /// Copies what lies from `start` to `end`, and gives where the source ended; -1 on a failure.
    Int64 Copy(Int64 start, Int64 end)
    {
        Int64 position = start;
        while (position < end) {
            const Int64 count = CopyPiece(position, std::min(end - position, MaxPiece));
            if (count > 0) {
                position += count;
            } else if (mWay != Way::ByHand && (count == 0 || IsWayClosed(errno))) {
                // Some kernels take files of their own for empty.
                mWay = mWay == Way::ByKernel || count == 0 ? Way::ByHand : Way::ByKernel;
            } else if (count == 0) {
                break;
            } else {
                FailErrno();
                return -1;
            }
        }
        return position;
    }

private:
    Int64 CopyPiece(Int64 position, Int64 count)
    {
        off_t from = position;
        off_t to = position;
        const auto size = static_cast<std::size_t>(count);
        switch (mWay) {
        case Way::ByFileSystem:
            return Uninterrupted([&] { return copy_file_range(mSource, &from, mTarget, &to, size, 0); });
        case Way::ByKernel:
            if (lseek(mTarget, to, SEEK_SET) != to) {
                return -1;
            }
            return Uninterrupted([&] { return sendfile(mTarget, mSource, &from, size); });
        case Way::ByHand:
            return CopyByHand(position, size);
        }
        return -1;
    }

    Int64 CopyByHand(Int64 position, std::size_t count)
    {
        if (!mBuffer) {
            mBuffer = std::make_unique_for_overwrite<char[]>(BufferSize);
        }
        const std::size_t piece = std::min(count, BufferSize);
        const ssize_t got = Uninterrupted([&] { return pread(mSource, mBuffer.get(), piece, position); });
        ssize_t done = 0;
        while (done < got) {
            const ssize_t put = Uninterrupted([&] {
                return pwrite(mTarget, mBuffer.get() + done, static_cast<std::size_t>(got - done),
                              position + done);
            });
            if (put < 0) {
                return -1;
            }
            done += put;
        }
        return got;
    }

    const int mSource;
    const int mTarget;
    Way mWay = Way::ByFileSystem;
    std::unique_ptr<char[]> mBuffer;
};

/// Files of the kernel's own tell no size, but have a content all the same.
bool CopyUnsized(RangeCopy& range)
{
    Int64 position = 0;
    for (;;) {
        const Int64 end = range.Copy(position, position + MaxPiece);
        if (end <= position) {
            return end == position;
        }
        position = end;
    }
}

bool HasHoles(const struct stat& status)
{
    constexpr Int64 BlockSize = 512;
    return Int64{status.st_blocks} * BlockSize < status.st_size;
}

struct Data
{
    Int64 start;
    Int64 end;
};

/// The next bytes from `position` on that are no hole; where there are none, they are empty and at `size`.
Data NextData(int source, Int64 position, Int64 size)
{
    const off_t start = lseek(source, position, SEEK_DATA);
    if (start < 0) {
        // Not every file system tells its holes.
        return errno == ENXIO ? Data{size, size} : Data{position, size};
    }
    const off_t end = lseek(source, start, SEEK_HOLE);
    return {std::min<Int64>(start, size), end < 0 ? size : std::min<Int64>(end, size)};
}

bool CopyAroundHoles(RangeCopy& range, int source, int target, Int64 size)
{
    Int64 position = 0;
    while (position < size) {
        const Data data = NextData(source, position, size);
        position = range.Copy(data.start, data.end);
        if (position < 0) {
            return false;
        }
        if (position < data.end) {
            return true;
        }
    }
    struct stat now;
    return SetSize(target, fstat(source, &now) == 0 ? std::min<Int64>(now.st_size, size) : size);
}

} // namespace

bool CopyContent(int source, const struct stat& status, int target)
{
    const WriteSignals errorsAlone;
    RangeCopy range(source, target);
    if (status.st_size == 0) {
        return CopyUnsized(range);
    }
    if (ioctl(target, FICLONE, source) == 0) {
        return true;
    }
    if (HasHoles(status)) {
        return CopyAroundHoles(range, source, target, status.st_size);
    }
    return range.Copy(0, status.st_size) >= 0;
}

} // namespace Host
