// SPDX-License-Identifier: MIT
#include "platform/host/internal/Host_CopyEntry.h"

#include "platform/host/Host_Error.h"
#include "platform/host/internal/Host_CopyContent.h"
#include "platform/host/internal/Host_PathCall.h"
#include "platform/host/internal/Host_Successor.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Host
{

namespace
{

/// Removes a file that has come to nothing, and gives `false` with the reason for that still the last error.
bool GiveUp(const FilePlace& file)
{
    const unsigned long reason = GetLastError();
    unlinkat(file.folder, file.name, 0);
    return Fail(reason);
}

/// A name that isn't taken, beside another one.
class SpareName
{
public:
    explicit SpareName(const FilePlace& beside) : mFolder(beside.folder)
    {
        const std::string path = mFolder == AT_FDCWD ? FolderOf(beside.name) : std::string();
        // A program that died may have left one; the next number is free then.
        static std::atomic<unsigned> counter{0};
        mName = path + ".copy-" + std::to_string(getpid()) + "-" + std::to_string(counter++);
    }

    FilePlace Place() const noexcept { return {mFolder, mName.c_str()}; }

private:
    int mFolder;
    std::string mName;
};

bool MoveOver(const FilePlace& from, const FilePlace& to)
{
    return renameat(from.folder, from.name, to.folder, to.name) == 0 || (FailAt(to), GiveUp(from));
}

/// What a new file has until it is filled: its content may be nobody else's business.
constexpr mode_t OwnersAlone = 0600;

/// A file that is open and what the host tells of it.
struct OpenedFile
{
    OpenedFile(const FilePlace& file, unsigned access, unsigned share, Disposition disposition, Links links)
        : descriptor(OpenAt(file, access, share, disposition, links, OwnersAlone, status))
    {
    }

    bool IsOpen() const noexcept { return descriptor.IsOpen(); }

    struct stat status = {};
    Descriptor descriptor;
};

bool Fill(const OpenedFile& target, const OpenedFile& source)
{
    if (!CopyContent(source.descriptor.Get(), source.status, target.descriptor.Get())) {
        return false;
    }
    CopyPermissionsAndTimes(source.status, target.descriptor.Get(), target.status);
    return true;
}

bool CopyToNew(const OpenedFile& source, const FilePlace& to)
{
    const OpenedFile target(to, WriteAccess, 0, Disposition::CreateNew, Links::Refuse);
    return target.IsOpen() && (Fill(target, source) || GiveUp(to));
}

/// `former` is what has the name, if that is a file.
bool CopyToSuccessor(const OpenedFile& source, const FilePlace& to, const OpenedFile* former)
{
    const SpareName spare(to);
    const FilePlace place = spare.Place();
    OpenedFile target(place, WriteAccess, 0, Disposition::CreateNew, Links::Refuse);
    if (!target.IsOpen()) {
        // Who may write a file can perhaps not write its folder.
        return former != nullptr && GetLastError() == ERROR_ACCESS_DENIED &&
               SetSize(former->descriptor.Get(), 0) && Fill(*former, source);
    }
    // An owner that can't be kept is no reason to keep the old content.
    if (former != nullptr && TakeOver(former->descriptor.Get(), target.descriptor.Get())) {
        target.status = former->status;
    }
    fchmod(target.descriptor.Get(), OwnersAlone);
    return (Fill(target, source) || GiveUp(place)) && MoveOver(place, to);
}

bool CopyOnto(const OpenedFile& source, const FilePlace& to)
{
    struct stat taken;
    if (fstatat(to.folder, to.name, &taken, AT_SYMLINK_NOFOLLOW) != 0) {
        return FailAt(to);
    }
    if (S_ISLNK(taken.st_mode)) {
        return CopyToSuccessor(source, to, nullptr);
    }
    if (!S_ISREG(taken.st_mode)) {
        return Fail(ERROR_ACCESS_DENIED);
    }
    if (IsSameFile(source.status, taken)) {
        return Fail(ERROR_SHARING_VIOLATION);
    }
    const OpenedFile former(to, WriteAccess, 0, Disposition::Open, Links::Refuse);
    return former.IsOpen() && CopyToSuccessor(source, to, &former);
}

bool LinkTo(const std::string& target, const FilePlace& place)
{
    return symlinkat(target.c_str(), place.folder, place.name) == 0;
}

bool LinkOver(const std::string& target, const FilePlace& to)
{
    const SpareName spare(to);
    return LinkTo(target, spare.Place()) ? MoveOver(spare.Place(), to) : FailAt(to);
}

} // namespace

bool CopyFileAt(const FilePlace& from, const FilePlace& to, Existing existing, Links links)
{
    OpenedFile source(from, ReadAccess, ReadAccess | WriteAccess, Disposition::Open, links);
    if (!source.IsOpen()) {
        return false;
    }
    // Once more: the opening wrote what was gathered for the file.
    if (fstat(source.descriptor.Get(), &source.status) != 0) {
        return FailErrno();
    }
    // A pipe or a device has no end to copy to.
    if (!S_ISREG(source.status.st_mode)) {
        return Fail(ERROR_ACCESS_DENIED);
    }
    if (CopyToNew(source, to)) {
        return true;
    }
    return GetLastError() == ERROR_FILE_EXISTS && existing == Existing::Replace && CopyOnto(source, to);
}

bool CopyLinkAt(const FilePlace& from, const FilePlace& to, Existing existing)
{
    std::array<char, PATH_MAX> text{};
    const ssize_t length = readlinkat(from.folder, from.name, text.data(), text.size());
    struct stat status;
    if (length < 0 || fstatat(from.folder, from.name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return FailAt(from);
    }
    const std::string target(text.data(), static_cast<std::size_t>(length));
    if (!LinkTo(target, to)) {
        if (errno != EEXIST) {
            return FailAt(to);
        }
        if (existing == Existing::Refuse) {
            return Fail(ERROR_FILE_EXISTS);
        }
        if (!LinkOver(target, to)) {
            return false;
        }
    }
    const timespec times[] = {status.st_atim, status.st_mtim};
    utimensat(to.folder, to.name, times, AT_SYMLINK_NOFOLLOW);
    return true;
}

void CopyPermissionsAndTimes(const struct stat& status, int target, const struct stat& made)
{
    // Who runs with the rights of a file's owner must not get those of another one by a copy.
    const bool hasSameOwner = made.st_uid == status.st_uid && made.st_gid == status.st_gid;
    fchmod(target, status.st_mode & (hasSameOwner ? 07777U : 0777U));
    const timespec times[] = {status.st_atim, status.st_mtim};
    futimens(target, times);
}

bool DeleteFileAt(const FilePlace& file)
{
    struct stat status;
    if (fstatat(file.folder, file.name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(status.st_mode) &&
        IsReadOnly(status)) {
        return Fail(ERROR_ACCESS_DENIED);
    }
    return unlinkat(file.folder, file.name, 0) == 0 || FailAt(file);
}

} // namespace Host
