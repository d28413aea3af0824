// SPDX-License-Identifier: MIT
#include "platform/host/objects/internal/Host_NamedBlock.h"

#include "platform/host/Host_TickCount.h"
#include "platform/host/internal/Host_Deadline.h"
#include "platform/host/internal/Host_PathCall.h"
#include "platform/host/internal/Host_SessionFolder.h"
#include "platform/host/objects/internal/Host_ObjectName.h"

#include <array>
#include <cerrno>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Host
{

namespace
{

constexpr char MachineFolder[] = "/dev/shm/TRS8_BTL";

/// The byte whose lock tells that a block is held.
constexpr std::int64_t LifeByte = 0;

struct THead
{
    std::array<char, 8> mark;
    CNamedBlock::EKind kind;
    std::uint32_t version;
    std::uint64_t size;
};

constexpr std::array<char, 8> Mark = {'T', 'R', 'S', '8', 'O', 'B', 'J', '\n'};
constexpr std::uint32_t Version = 1;

mode_t ModeOf(const CNamedBlock::TWanted& wanted)
{
    return wanted.access == CNamedBlock::EAccess::Everybody ? 0666 : 0600;
}

bool SetMode(int descriptor, mode_t mode)
{
    return fchmod(descriptor, mode) == 0 || FailErrno();
}

/// Where the block of the name lies; empty, with the last error set, if the session has no folder for it.
std::string BlockPath(const System::UnicodeString& name, CNamedBlock::EScope scope)
{
    std::string folder = MachineFolder;
    if (scope == CNamedBlock::EScope::Session) {
        TSessionFolder session = OpenSessionFolder();
        if (!session.descriptor.IsOpen()) {
            return {};
        }
        folder = std::move(session.path);
    }
    return folder + '/' + ObjectFileName(name);
}

/// Opens the folder of all users' names, which everybody may add to, as the one for temporary files is. A
/// link in its place is refused.
Descriptor OpenMachineFolder()
{
    constexpr mode_t mode = 01777;
    if (mkdir(MachineFolder, mode) != 0 && errno != EEXIST) {
        FailErrno();
        return Descriptor();
    }
    Descriptor folder(open(MachineFolder, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status;
    if (!folder.IsOpen() || fstat(folder.Get(), &status) != 0) {
        FailErrno();
        return Descriptor();
    }
    // Who made it may have been cut off before this, or have been given less by a mask.
    if ((status.st_mode & 07777) != mode && status.st_uid == geteuid() && !SetMode(folder.Get(), mode)) {
        return Descriptor();
    }
    return folder;
}

/// Sets the content that a new block has. The memory is there from the begin, so that no use of it fails.
bool FillNew(int descriptor, CNamedBlock::EKind kind, std::uint64_t size)
{
    if (size > static_cast<std::uint64_t>(INT64_MAX - CNamedBlock::DataOffset)) {
        return Fail(ERROR_NOT_ENOUGH_MEMORY);
    }
    const auto length = static_cast<off_t>(size) + CNamedBlock::DataOffset;
    if (!SetSize(descriptor, 0)) {
        return false;
    }
    const WriteSignals errorsAlone;
    int error = EINTR;
    while (error == EINTR) {
        error = posix_fallocate(descriptor, 0, length);
    }
    if (error != 0) {
        return Fail(ErrorFromErrno(error));
    }
    const THead head{Mark, kind, Version, size};
    return pwrite(descriptor, &head, sizeof head, 0) == sizeof head || FailErrno();
}

/// Whether the path leads to this file, and nothing else does.
bool IsAt(int descriptor, const std::string& path)
{
    struct stat file;
    struct stat found;
    return fstat(descriptor, &file) == 0 && file.st_nlink == 1 && lstat(path.c_str(), &found) == 0 &&
           IsSameFile(file, found);
}

/// Takes the name from a block that nobody else holds.
void RemoveIfLast(int descriptor, const std::string& path)
{
    const auto lockAlone = [&] { return TryLockByte(descriptor, F_WRLCK, LifeByte); };
    // Of two who leave at once each stands in the other's way until it has given its lock back. The later one
    // to do so then gets the lock for itself.
    if (lockAlone() || (TryLockByte(descriptor, F_UNLCK, LifeByte) && lockAlone())) {
        if (IsAt(descriptor, path)) {
            unlink(path.c_str());
        }
    }
}

struct TCloseFolder
{
    void operator()(DIR* folder) const { closedir(folder); }
};

/// Removes the file if it is one that a crash left.
void RemoveIfStale(const std::string& path)
{
    const Descriptor file(open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file.IsOpen() && TryLockByte(file.Get(), F_WRLCK, LifeByte) && IsAt(file.Get(), path)) {
        unlink(path.c_str());
    }
}

/// Frees the memory of names in the folder that nobody asks for any more; true.
bool RemoveStale(const std::string& path)
{
    // A look at so many, in case that somebody filled the folder.
    constexpr int most = 1000;
    const std::unique_ptr<DIR, TCloseFolder> folder(opendir(path.c_str()));
    for (int i = 0; folder != nullptr && i < most; ++i) {
        const dirent* const entry = readdir(folder.get());
        if (entry == nullptr) {
            break;
        }
        if (entry->d_type == DT_REG) {
            RemoveIfStale(path + '/' + entry->d_name);
        }
    }
    return true;
}

} // namespace

/// Finds or makes the block of a name while others come and go.
class CBlockSearch
{
public:
    CBlockSearch(const System::UnicodeString& name, CNamedBlock::EKind kind, CNamedBlock::EScope scope)
        : mPath(BlockPath(name, scope)), mKind(kind), mScope(scope)
    {
    }

    std::optional<CNamedBlock> Open() { return Search(nullptr); }
    std::optional<CNamedBlock> Create(const CNamedBlock::TWanted& wanted) { return Search(&wanted); }

private:
    using TWanted = CNamedBlock::TWanted;

    enum class EStep
    {
        Done,
        Failed,
        /// Somebody else was faster.
        Again,
        /// Somebody is about to make or remove the block.
        Wait,
    };

    /// `wanted` tells how to make a block that isn't there; null only looks for one.
    std::optional<CNamedBlock> Search(const TWanted* wanted)
    {
        if (mPath.empty()) {
            return std::nullopt;
        }
        // Only who is stopped between two calls makes others wait so long.
        const Deadline deadline = Deadline::In(10'000);
        do {
            switch (Try(wanted)) {
            case EStep::Done:
                return CNamedBlock(std::move(mFile), mPath, mSize, mExisted);
            case EStep::Failed:
                return std::nullopt;
            case EStep::Wait:
                Sleep(1);
                break;
            case EStep::Again:
                break;
            }
        } while (!deadline.IsPast());
        SetLastError(ERROR_BUSY);
        return std::nullopt;
    }

    EStep Try(const TWanted* wanted)
    {
        // Without a word about creation: in a folder where only owners may delete, the host refuses that for
        // the files of others.
        mFile = Descriptor(open(mPath.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        if (!mFile.IsOpen()) {
            if (errno != ENOENT) {
                return Failed(FailErrno());
            }
            return wanted == nullptr ? Failed(Fail(ERROR_FILE_NOT_FOUND)) : MakeNew(*wanted);
        }
        if (const EStep step = CheckFile(); step != EStep::Done) {
            return step;
        }
        if (TryLockByte(mFile.Get(), F_WRLCK, LifeByte)) {
            return IsAt(mFile.Get(), mPath) ? TakeStale(wanted) : EStep::Again;
        }
        if (!TryLockByte(mFile.Get(), F_RDLCK, LifeByte)) {
            return EStep::Wait;
        }
        return IsAt(mFile.Get(), mPath) ? Join() : EStep::Again;
    }

    static EStep Failed(bool) { return EStep::Failed; }

    Descriptor OpenFolder() const
    {
        if (mScope == CNamedBlock::EScope::Session) {
            // There are few, and a first process leaves its own even if it ends in order.
            TSessionFolder session = OpenSessionFolder();
            if (session.descriptor.IsOpen()) {
                RemoveStale(session.path);
            }
            return std::move(session.descriptor);
        }
        Descriptor folder = OpenMachineFolder();
        // Once in a process.
        [[maybe_unused]] static const bool isTidy = folder.IsOpen() && RemoveStale(MachineFolder);
        return folder;
    }

    /// What lies under the name may be of anybody's making. A file with a second name is somebody's data.
    EStep CheckFile() const
    {
        struct stat status;
        if (fstat(mFile.Get(), &status) != 0) {
            return Failed(FailErrno());
        }
        if (status.st_nlink == 0) {
            return EStep::Again;
        }
        return S_ISREG(status.st_mode) && status.st_nlink == 1 ? EStep::Done
                                                               : Failed(Fail(ERROR_ACCESS_DENIED));
    }

    /// The file gets its name when it is whole and held, so that nobody takes it for one that was left.
    EStep MakeNew(const TWanted& wanted)
    {
        const Descriptor folder = OpenFolder();
        if (!folder.IsOpen()) {
            return EStep::Failed;
        }
        mFile = Descriptor(openat(folder.Get(), ".", O_TMPFILE | O_RDWR | O_CLOEXEC, ModeOf(wanted)));
        if (!mFile.IsOpen()) {
            return Failed(FailErrno());
        }
        if (!SetMode(mFile.Get(), ModeOf(wanted)) || !Begin(wanted)) {
            return EStep::Failed;
        }
        const std::string self = "/proc/self/fd/" + std::to_string(mFile.Get());
        if (linkat(AT_FDCWD, self.c_str(), AT_FDCWD, mPath.c_str(), AT_SYMLINK_FOLLOW) != 0) {
            return errno == EEXIST ? EStep::Again : Failed(FailErrno());
        }
        return Have(wanted.size, false);
    }

    /// Nobody else can hold the file now.
    EStep TakeStale(const TWanted* wanted)
    {
        if (unlink(mPath.c_str()) == 0 || errno == ENOENT) {
            return wanted == nullptr ? Failed(Fail(ERROR_FILE_NOT_FOUND)) : EStep::Again;
        }
        if (wanted == nullptr) {
            return Failed(Fail(ERROR_FILE_NOT_FOUND));
        }
        // Of another user, who alone may remove it.
        struct stat status;
        if (fstat(mFile.Get(), &status) != 0 || (status.st_mode & 0777) != ModeOf(*wanted)) {
            return Failed(Fail(ERROR_ACCESS_DENIED));
        }
        return Begin(*wanted) ? Have(wanted->size, false) : EStep::Failed;
    }

    bool Begin(const TWanted& wanted) const
    {
        const int file = mFile.Get();
        return FillNew(file, mKind, wanted.size) &&
               ((!wanted.isOwned || TryLockByte(file, F_WRLCK, CNamedBlock::OwnerByte)) || FailErrno()) &&
               (TryLockByte(file, F_RDLCK, LifeByte) || FailErrno());
    }

    EStep Join()
    {
        THead head;
        struct stat status;
        const bool isRead =
            pread(mFile.Get(), &head, sizeof head, 0) == sizeof head && fstat(mFile.Get(), &status) == 0;
        const bool isOurs = isRead && head.mark == Mark && head.version == Version && head.kind == mKind &&
                            status.st_size >= CNamedBlock::DataOffset &&
                            static_cast<std::uint64_t>(status.st_size - CNamedBlock::DataOffset) >= head.size;
        if (!isOurs) {
            RemoveIfLast(mFile.Get(), mPath);
            return Failed(Fail(ERROR_INVALID_HANDLE));
        }
        return Have(head.size, true);
    }

    EStep Have(std::uint64_t size, bool existed)
    {
        mSize = size;
        mExisted = existed;
        return EStep::Done;
    }

    std::string mPath;
    CNamedBlock::EKind mKind;
    CNamedBlock::EScope mScope;
    Descriptor mFile;
    std::uint64_t mSize = 0;
    bool mExisted = false;
};

std::optional<CNamedBlock> CNamedBlock::Create(const System::UnicodeString& name, EKind kind,
                                               const TWanted& wanted, EScope scope)
{
    if (!IsNameless(name, scope)) {
        return CBlockSearch(name, kind, scope).Create(wanted);
    }
    Descriptor file(memfd_create("TRS8_BTL", MFD_CLOEXEC));
    if (!file.IsOpen()) {
        FailErrno();
        return std::nullopt;
    }
    if (!FillNew(file.Get(), kind, wanted.size)) {
        return std::nullopt;
    }
    return CNamedBlock(std::move(file), std::string(), wanted.size, false);
}

std::optional<CNamedBlock> CNamedBlock::Open(const System::UnicodeString& name, EKind kind, EScope scope)
{
    if (IsNameless(name, scope)) {
        SetLastError(ERROR_INVALID_NAME);
        return std::nullopt;
    }
    return CBlockSearch(name, kind, scope).Open();
}

CNamedBlock::~CNamedBlock()
{
    if (mFile.IsOpen() && !mPath.empty()) {
        RemoveIfLast(mFile.Get(), mPath);
    }
}

bool TryLockByte(int descriptor, short type, std::int64_t byte) noexcept
{
    struct flock range = {};
    range.l_type = type;
    range.l_whence = SEEK_SET;
    range.l_start = byte;
    range.l_len = 1;
    return fcntl(descriptor, F_OFD_SETLK, &range) == 0;
}

} // namespace Host
