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

bool IsSameFile(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

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

bool FillFrom(int source, const struct stat& status, int target)
{
    if (!CopyContent(source, status, target)) {
        return false;
    }
    CopyPermissionsAndTimes(status, target);
    return true;
}

bool CopyToNew(const Descriptor& source, const struct stat& status, const FilePlace& to)
{
    const Descriptor target = OpenAt(to, WriteAccess, 0, Disposition::CreateNew, Links::Refuse);
    return target.IsOpen() && (FillFrom(source.Get(), status, target.Get()) || GiveUp(to));
}

/// `former` is what has the name, if that is a file.
bool CopyToSuccessor(const Descriptor& source, const struct stat& status, const FilePlace& to,
                     const Descriptor& former)
{
    const SpareName spare(to);
    const FilePlace place = spare.Place();
    const Descriptor target = OpenAt(place, WriteAccess, 0, Disposition::CreateNew, Links::Refuse);
    if (!target.IsOpen()) {
        // Who may write a file can perhaps not write its folder.
        return former.IsOpen() && GetLastError() == ERROR_ACCESS_DENIED && SetSize(former.Get(), 0) &&
               FillFrom(source.Get(), status, former.Get());
    }
    // An owner that can't be kept is no reason to keep the old content.
    if (former.IsOpen() && !TakeOver(former.Get(), target.Get())) {
        SetLastError(ERROR_SUCCESS);
    }
    return (FillFrom(source.Get(), status, target.Get()) || GiveUp(place)) && MoveOver(place, to);
}

bool CopyOnto(const Descriptor& source, const struct stat& status, const FilePlace& to)
{
    struct stat taken;
    if (fstatat(to.folder, to.name, &taken, AT_SYMLINK_NOFOLLOW) != 0) {
        return FailAt(to);
    }
    if (S_ISLNK(taken.st_mode)) {
        return CopyToSuccessor(source, status, to, Descriptor());
    }
    if (!S_ISREG(taken.st_mode)) {
        return Fail(ERROR_ACCESS_DENIED);
    }
    if (IsSameFile(status, taken)) {
        return Fail(ERROR_SHARING_VIOLATION);
    }
    const Descriptor former = OpenAt(to, WriteAccess, 0, Disposition::Open, Links::Refuse);
    return former.IsOpen() && CopyToSuccessor(source, status, to, former);
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
    const Descriptor source = OpenAt(from, ReadAccess, ReadAccess | WriteAccess, Disposition::Open, links);
    if (!source.IsOpen()) {
        return false;
    }
    struct stat status;
    if (fstat(source.Get(), &status) != 0) {
        return FailErrno();
    }
    // A pipe or a device has no end to copy to.
    if (!S_ISREG(status.st_mode)) {
        return Fail(ERROR_ACCESS_DENIED);
    }
    if (CopyToNew(source, status, to)) {
        return true;
    }
    return GetLastError() == ERROR_FILE_EXISTS && existing == Existing::Replace &&
           CopyOnto(source, status, to);
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

void CopyPermissionsAndTimes(const struct stat& status, int target)
{
    struct stat made;
    // Who runs with the rights of a file's owner must not get those of another one by a copy.
    const bool hasSameOwner =
        fstat(target, &made) == 0 && made.st_uid == status.st_uid && made.st_gid == status.st_gid;
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
