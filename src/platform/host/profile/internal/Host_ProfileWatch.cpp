// SPDX-License-Identifier: MIT
#include "platform/host/profile/internal/Host_ProfileWatch.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <memory>

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>

namespace Host
{

namespace
{

/// With the tick of the clock, at most 10 ms, on top.
constexpr std::int64_t Period = 8'000'000;
/// In one period; fewer looks don't pay for the opening.
constexpr int Often = 16;

std::int64_t CoarseTime()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return std::int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
}

bool HasLinks(const std::string& path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
    return real == nullptr || path != real.get();
}

/// Whether a deletion and a move change the times of the file, and an open file is in nobody's way.
bool IsOnLocalDisk(int file)
{
    constexpr std::array<std::uint32_t, 5> known{EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC, BTRFS_SUPER_MAGIC,
                                                 F2FS_SUPER_MAGIC, TMPFS_MAGIC};
    struct statfs status;
    return fstatfs(file, &status) == 0 &&
           std::find(known.begin(), known.end(), static_cast<std::uint32_t>(status.f_type)) != known.end();
}

} // namespace

FileState ProfileWatch::Look()
{
    const std::int64_t now = CoarseTime();
    if (now - mBegin > Period) {
        if (mLooks < Often) {
            LetGo();
        }
        mBegin = now;
        mLooks = 0;
    } else if (IsHolding()) {
        if (QueryState(mFile.Get()) == mState) {
            ++mLooks;
            return mState;
        }
        LetGo();
    }
    const FileState state = QueryState(mPath);
    if (state != mState) {
        LetGo();
        mState = state;
    }
    if (++mLooks == Often) {
        Hold();
    }
    return state;
}

void ProfileWatch::Hold()
{
    // A move in the tick of the last change would not show.
    if (!S_ISREG(mState.mode) || !mState.IsSettled() || HasLinks(mPath)) {
        return;
    }
    Descriptor file(open(mPath.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    if (file.IsOpen() && IsOnLocalDisk(file.Get()) && QueryState(file.Get()) == mState) {
        mFile = std::move(file);
    }
}

void ProfileWatch::LetGo() noexcept
{
    if (!IsHolding()) {
        return;
    }
    // A program that closed all descriptors may have a file of its own under this number, this one perhaps.
    struct stat status;
    const int flags = fcntl(mFile.Get(), F_GETFL);
    const bool isOurs = flags >= 0 && (flags & O_PATH) != 0 && fstat(mFile.Get(), &status) == 0 &&
                        status.st_dev == mState.device && status.st_ino == mState.file;
    if (!isOurs) {
        mFile.Release();
    }
    mFile = Descriptor();
}

} // namespace Host
