// SPDX-License-Identifier: MIT
#include "platform/host/Host_FileSharing.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <initializer_list>
#include <mutex>
#include <random>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <pthread.h>
#include <unistd.h>

// The host knows no sharing modes, but locks on ranges of bytes that belong to one opening of a file and end
// with it, also when the process dies, unless a child that was forked still has it. Far behind any data lie
// four regions: "is read", "is written", "must not be read", "must not be written". Each opener holds a lock
// in the regions that apply to it, and looks for locks of others in the regions that clash with it. Such
// locks work between two openings in one process as well.

namespace Host
{

namespace
{

constexpr off_t Regions = off_t{1} << 62;
constexpr off_t RegionSize = 1 << 16;
constexpr unsigned RegionCount = 4;

struct flock Range(short type, off_t start, off_t length)
{
    struct flock range = {};
    range.l_type = type;
    range.l_whence = SEEK_SET;
    range.l_start = start;
    range.l_len = length;
    return range;
}

bool SetLock(int descriptor, short type, off_t start, off_t length)
{
    struct flock range = Range(type, start, length);
    return fcntl(descriptor, F_OFD_SETLK, &range) == 0;
}

bool IsRegionMarked(int descriptor, unsigned region)
{
    struct flock range = Range(F_WRLCK, Regions + region * RegionSize, RegionSize);
    return fcntl(descriptor, F_OFD_GETLK, &range) == 0 && range.l_type != F_UNLCK;
}

bool AnyMarked(int descriptor, unsigned regions)
{
    for (unsigned region = 0; region < RegionCount; ++region) {
        if ((regions >> region & 1) != 0 && IsRegionMarked(descriptor, region)) {
            return true;
        }
    }
    return false;
}

enum class Opener
{
    Reads,
    OnlyWrites,
};

/// Readers share the first byte of a region. The host gives an opener that can't read exclusive locks only,
/// so each of those needs a byte of its own.
void MarkRegion(int descriptor, unsigned region, Opener opener)
{
    const off_t start = Regions + region * RegionSize;
    if (opener == Opener::Reads) {
        SetLock(descriptor, F_RDLCK, start, 1);
        return;
    }
    for (off_t byte = 1; byte < RegionSize; ++byte) {
        if (SetLock(descriptor, F_WRLCK, start + byte, 1) || (errno != EAGAIN && errno != EACCES)) {
            return;
        }
    }
}

void MarkRegions(int descriptor, unsigned regions, Opener opener)
{
    for (unsigned region = 0; region < RegionCount; ++region) {
        if ((regions >> region & 1) != 0) {
            MarkRegion(descriptor, region, opener);
        }
    }
}

/// What this process has claimed, by descriptor. A number that stays without its file does no harm: there is
/// no mark to take back.
class ClaimedFiles
{
public:
    ClaimedFiles()
    {
        // A child has the openings of its parent, whose marks are not its own to take back.
        pthread_atfork([] { Instance().gate.lock(); }, [] { Instance().gate.unlock(); },
                       [] {
                           Instance().mClaimed.clear();
                           Instance().gate.unlock();
                       });
    }

    /// Never destroyed: files are closed until the very end of a program.
    static ClaimedFiles& Instance()
    {
        static auto* const instance = new ClaimedFiles;
        return *instance;
    }

    void Add(int descriptor)
    {
        const auto index = static_cast<std::size_t>(descriptor);
        mClaimed.resize(std::max(mClaimed.size(), index + 1));
        mClaimed[index] = true;
    }

    bool Remove(int descriptor)
    {
        const auto index = static_cast<std::size_t>(descriptor);
        const bool isClaimed = index < mClaimed.size() && mClaimed[index];
        if (isClaimed) {
            mClaimed[index] = false;
        }
        return isClaimed;
    }

    /// Guards the rest. Also makes the openers of this process come one by one: only those of other processes
    /// can race.
    std::mutex gate;

private:
    std::vector<bool> mClaimed;
};

void UnmarkAll(int descriptor)
{
    SetLock(descriptor, F_UNLCK, Regions, RegionCount * RegionSize);
}

enum class Claim
{
    Granted,
    Refused,
    /// Another opener came at the same time, and neither can tell who was first.
    Raced,
};

Claim TryClaim(int descriptor, unsigned access, unsigned share)
{
    ClaimedFiles& claimed = ClaimedFiles::Instance();
    const std::lock_guard lock(claimed.gate);

    const unsigned deny = ~share & 3U;
    const unsigned clashing = deny | access << 2;
    if (AnyMarked(descriptor, clashing)) {
        return Claim::Refused;
    }
    MarkRegions(descriptor, access | deny << 2, (access & 1) != 0 ? Opener::Reads : Opener::OnlyWrites);
    if (!AnyMarked(descriptor, clashing)) {
        claimed.Add(descriptor);
        return Claim::Granted;
    }
    UnmarkAll(descriptor);
    return Claim::Raced;
}

} // namespace

bool ClaimSharing(int descriptor, unsigned access, unsigned share)
{
    constexpr int Tries = 8;
    for (int i = 0; i < Tries; ++i) {
        const Claim claim = TryClaim(descriptor, access, share);
        if (claim != Claim::Raced) {
            return claim == Claim::Granted;
        }
        thread_local std::minstd_rand random{std::random_device{}()};
        std::this_thread::sleep_for(std::chrono::microseconds(random() % (500U << i)));
    }
    return false;
}

void ReleaseSharing(int descriptor)
{
    ClaimedFiles& claimed = ClaimedFiles::Instance();
    const std::lock_guard lock(claimed.gate);
    if (claimed.Remove(descriptor)) {
        UnmarkAll(descriptor);
    }
}

} // namespace Host
