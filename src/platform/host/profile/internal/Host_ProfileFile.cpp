// SPDX-License-Identifier: MIT
#include "platform/host/profile/internal/Host_ProfileFile.h"

#include "platform/host/Host_BufferedFiles.h"
#include "platform/host/Host_FileMove.h"
#include "platform/host/Host_FileSharing.h"
#include "platform/host/Host_OpenFile.h"
#include "platform/host/Host_Path.h"
#include "platform/host/Host_ReplaceFile.h"
#include "platform/host/Host_TickCount.h"
#include "platform/host/internal/Host_PathCall.h"
#include "platform/host/internal/Host_Successor.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <functional>
#include <thread>
#include <tuple>

#include <fcntl.h>
#include <sys/file.h>

namespace Host
{

namespace
{

constexpr off_t MaxSize = off_t{1} << 30;
constexpr std::uint32_t Patience = 5000;

FileState StateOf(const struct stat& status)
{
    return {status.st_dev,  status.st_ino,  status.st_size, status.st_mtim,
            status.st_ctim, status.st_mode, status.st_nlink};
}

std::int64_t Nanoseconds(const timespec& time)
{
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

/// Beside the file, hidden, and no longer than a name may be.
std::string SuccessorOf(const std::string& path)
{
    constexpr std::size_t longest = 200;
    const std::size_t begin = path.rfind('/') + 1;
    const std::string name = path.substr(begin);
    return path.substr(0, begin) + "." +
           (name.size() <= longest ? name : std::to_string(std::hash<std::string>()(name))) + ".profile-new";
}

/// Whether the open file still has the name.
bool HasName(int descriptor, const std::string& path)
{
    struct stat opened;
    struct stat named;
    return fstat(descriptor, &opened) == 0 && lstat(path.c_str(), &named) == 0 && IsSameFile(opened, named);
}

int OpenPath(const std::string& path, int flags, mode_t mode = 0)
{
    return Uninterrupted([&] { return open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, mode); });
}

enum class Locked
{
    Yes,
    /// Somebody else has it.
    Busy,
    Failed,
};

Locked TryLock(int descriptor)
{
    if (Uninterrupted([&] { return flock(descriptor, LOCK_EX | LOCK_NB); }) == 0) {
        return Locked::Yes;
    }
    return errno == EWOULDBLOCK ? Locked::Busy : Locked::Failed;
}

/// Taken back by a call: a child that was forked meanwhile has the same lock, and keeps it open.
void Unlock(Descriptor& file)
{
    if (file.IsOpen()) {
        flock(file.Get(), LOCK_UN);
        ReleaseSharing(file.Get());
        file = Descriptor();
    }
}

std::optional<std::string> ReadAll(int descriptor)
{
    struct stat status;
    if (fstat(descriptor, &status) != 0) {
        FailErrno();
        return std::nullopt;
    }
    if (status.st_size > MaxSize) {
        Fail(ERROR_FILE_TOO_LARGE);
        return std::nullopt;
    }
    // One byte more tells the end at the first look.
    std::string bytes(static_cast<std::size_t>(status.st_size) + 1, '\0');
    std::size_t done = 0;
    for (;;) {
        const ssize_t count = Uninterrupted([&] {
            return pread(descriptor, bytes.data() + done, bytes.size() - done, static_cast<off_t>(done));
        });
        if (count < 0) {
            FailErrno();
            return std::nullopt;
        }
        if (count == 0) {
            bytes.resize(done);
            return bytes;
        }
        done += static_cast<std::size_t>(count);
        if (done > static_cast<std::size_t>(MaxSize)) {
            Fail(ERROR_FILE_TOO_LARGE);
            return std::nullopt;
        }
        if (done == bytes.size()) {
            bytes.resize(bytes.size() * 2);
        }
    }
}

/// Programs that don't lock may write meanwhile; a content that goes on changing has no state to be known by.
std::optional<ReadBytes> ReadSteady(int descriptor)
{
    ReadBytes read{{}, {}, false};
    for (int i = 0; i < 3; ++i) {
        const FileState before = QueryState(descriptor);
        // Asked once all is read, a change in the tick of the last one might have come meanwhile.
        const bool isSettled = before.IsSettled();
        auto bytes = ReadAll(descriptor);
        if (!bytes) {
            return std::nullopt;
        }
        read.bytes = std::move(*bytes);
        if (before == QueryState(descriptor)) {
            read.state = before;
            read.isSettled = isSettled;
            break;
        }
    }
    return read;
}

} // namespace

bool FileState::operator==(const FileState& other) const noexcept
{
    const auto asTuple = [](const FileState& state) {
        return std::tuple(state.device, state.file, state.size, Nanoseconds(state.modified),
                          Nanoseconds(state.changed), state.mode, state.names);
    };
    return asTuple(*this) == asTuple(other);
}

bool FileState::IsSettled() const noexcept
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME_COARSE, &now);
    // Some file systems count whole seconds, or pairs of them.
    const std::int64_t tick = changed.tv_nsec == 0 ? 2'000'000'000 : 20'000'000;
    const std::int64_t last = std::max(Nanoseconds(changed), Nanoseconds(modified));
    return last + tick < Nanoseconds(now);
}

FileState QueryState(const std::string& path)
{
    FlushBuffersOf(path.c_str());
    struct stat status;
    return stat(path.c_str(), &status) == 0 ? StateOf(status) : FileState();
}

FileState QueryState(int descriptor)
{
    FlushBuffersOf(descriptor);
    struct stat status;
    return fstat(descriptor, &status) == 0 ? StateOf(status) : FileState();
}

std::optional<ReadBytes> ReadProfile(const std::string& path)
{
    const Descriptor file(OpenPath(path, O_RDONLY));
    if (!file.IsOpen()) {
        if (errno == ENOENT || errno == ENOTDIR) {
            return ReadBytes();
        }
        FailErrno();
        return std::nullopt;
    }
    const FileState state = QueryState(file.Get());
    // Not even its kind is known.
    if (state.mode == 0) {
        FailErrno();
        return std::nullopt;
    }
    return S_ISREG(state.mode) ? ReadSteady(file.Get()) : ReadBytes{{}, state, state.IsSettled()};
}

LockedProfile::~LockedProfile()
{
    if (mSuccessor.IsOpen()) {
        unlink(mSuccessorName.c_str());
    }
    Unlock(mSuccessor);
    Unlock(mFile);
}

bool LockedProfile::Lock(const std::string& path)
{
    if (!mIsWaiting) {
        mIsWaiting = true;
        mStart = GetTickCount();
    }
    const System::UnicodeString target = FileToReplace(Sysutils::FromHostPath(path));
    if (target.IsEmpty()) {
        return false;
    }
    mTarget = Sysutils::HostPath(target);
    Unlock(mFile);
    return OpenFolder() && OpenTarget();
}

bool LockedProfile::OpenFolder()
{
    mFolder = Descriptor(OpenPath(FolderOf(mTarget), O_RDONLY | O_DIRECTORY));
    // Who may not list a folder may write there all the same.
    return mFolder.IsOpen() || errno == EACCES || FailPath(mTarget);
}

/// The lock counts only for the file that has the name once the lock is held: while one waits for it, the
/// file is replaced.
bool LockedProfile::OpenTarget()
{
    for (;;) {
        Descriptor file(OpenPath(mTarget, O_RDWR | O_NOFOLLOW));
        if (!file.IsOpen() && errno == EACCES) {
            file = Descriptor(OpenPath(mTarget, O_WRONLY | O_NOFOLLOW));
        }
        if (!file.IsOpen()) {
            return errno == ENOENT || FailPath(mTarget);
        }
        const Locked locked = TryLock(file.Get());
        if (locked == Locked::Failed) {
            return FailErrno();
        }
        if (locked == Locked::Yes && HasName(file.Get(), mTarget)) {
            mFile = std::move(file);
            return MayReplace();
        }
        if (GetTickCount() - mStart > Patience) {
            return Fail(ERROR_LOCK_VIOLATION);
        }
        if (locked == Locked::Busy) {
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
    }
}

bool LockedProfile::MayReplace() const
{
    struct stat status;
    if (fstat(mFile.Get(), &status) != 0) {
        return FailErrno();
    }
    if (!S_ISREG(status.st_mode) || IsReadOnly(status)) {
        return Fail(ERROR_ACCESS_DENIED);
    }
    // A stream that reserved the file would go on with one that has no name any more.
    return ClaimSharing(mFile.Get(), WriteAccess, ReadAccess | WriteAccess) || Fail(ERROR_SHARING_VIOLATION);
}

FileState LockedProfile::GetState() const
{
    return Exists() ? QueryState(mFile.Get()) : FileState();
}

std::optional<ReadBytes> LockedProfile::Read()
{
    if (!Exists()) {
        return ReadBytes();
    }
    const Descriptor file(OpenPath(mTarget, O_RDONLY | O_NOFOLLOW));
    if (file.IsOpen()) {
        return ReadSteady(file.Get());
    }
    if (errno == EACCES) {
        return KeepAside() ? std::optional(ReadBytes()) : std::nullopt;
    }
    FailErrno();
    return std::nullopt;
}

bool LockedProfile::KeepAside()
{
    int result = -1;
    errno = EEXIST;
    for (int i = 1; result != 0 && errno == EEXIST && i < 1000; ++i) {
        result = link(mTarget.c_str(), (mTarget + ".unreadable" + std::to_string(i)).c_str());
    }
    return result == 0 || FailErrno();
}

/// Who holds the lock of a successor is at work on it. One without a holder was left by a program that died.
bool LockedProfile::MakeSuccessor()
{
    mSuccessorName = SuccessorOf(mTarget);
    for (;;) {
        Descriptor made(
            OpenPath(mSuccessorName, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, Exists() ? 0600 : 0666));
        const bool isMine = made.IsOpen();
        if (!isMine && errno == EEXIST) {
            made = Descriptor(OpenPath(mSuccessorName, O_RDONLY | O_NOFOLLOW));
        }
        if (!made.IsOpen() && errno != ENOENT) {
            return FailPath(mSuccessorName);
        }
        const Locked locked = made.IsOpen() ? TryLock(made.Get()) : Locked::Busy;
        if (locked == Locked::Failed) {
            FailErrno();
            if (isMine) {
                unlink(mSuccessorName.c_str());
            }
            return false;
        }
        if (locked == Locked::Yes && HasName(made.Get(), mSuccessorName)) {
            if (isMine) {
                mSuccessor = std::move(made);
                return true;
            }
            if (unlink(mSuccessorName.c_str()) != 0) {
                return FailErrno();
            }
        }
        if (GetTickCount() - mStart > Patience) {
            return Fail(ERROR_LOCK_VIOLATION);
        }
        if (locked == Locked::Busy) {
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
    }
}

/// The permissions keep a secret from the first moment on, so that the file begins with the owner's alone.
bool LockedProfile::FillSuccessor(std::string_view bytes)
{
    const int file = mSuccessor.Get();
    const auto size = static_cast<System::Int64>(bytes.size());
    return WritePieces(size, [&](System::Int64 offset,
                                 std::size_t piece) { return write(file, bytes.data() + offset, piece); }) ==
               size &&
           (!Exists() || TakeOver(mFile.Get(), file)) && (fsync(file) == 0 || FailErrno());
}

LockedProfile::Replaced LockedProfile::Replace(std::string_view bytes)
{
    if (!MakeSuccessor()) {
        return Replaced::Failed;
    }
    const System::LongWord flags = Exists() ? MOVEFILE_REPLACE_EXISTING : 0;
    const bool isMoved = FillSuccessor(bytes) && MoveFileExW(Sysutils::FromHostPath(mSuccessorName),
                                                             Sysutils::FromHostPath(mTarget), flags);
    if (!isMoved) {
        const unsigned long reason = GetLastError();
        unlink(mSuccessorName.c_str());
        Unlock(mSuccessor);
        Fail(reason);
        return reason == ERROR_ALREADY_EXISTS && !Exists() ? Replaced::Raced : Replaced::Failed;
    }
    Unlock(mFile);
    mFile = std::move(mSuccessor);
    mSuccessor = Descriptor();
    return !mFolder.IsOpen() || SyncFolder(mFolder.Get()) ? Replaced::Done : Replaced::Failed;
}

bool LockedProfile::Sync()
{
    return !Exists() || Uninterrupted([&] { return fsync(mFile.Get()); }) == 0 || FailErrno();
}

} // namespace Host
