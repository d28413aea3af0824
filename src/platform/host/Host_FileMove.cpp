// SPDX-License-Identifier: MIT
#include "platform/host/Host_FileMove.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileInfo.h"
#include "platform/host/Host_OpenFile.h"
#include "platform/host/Host_Path.h"
#include "platform/host/internal/Host_Descriptor.h"
#include "platform/host/internal/Host_PathCall.h"

#include <cerrno>
#include <cstdio>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using Host::Descriptor;
using Host::Fail;
using Host::FailErrno;
using Host::FailPath;
using System::Int64;
using System::LongWord;
using System::NativeInt;
using System::UnicodeString;

namespace
{

bool CopyContent(NativeInt source, NativeInt target)
{
    std::vector<char> buffer(1 << 18);
    for (;;) {
        const auto room = static_cast<Int64>(buffer.size());
        const Int64 count = Host::ReadFile(source, buffer.data(), room);
        if (count <= 0) {
            return count == 0;
        }
        if (Host::WriteFile(target, buffer.data(), count) != count) {
            return false;
        }
    }
}

bool IsSameFile(int a, int b)
{
    struct stat first;
    struct stat second;
    return fstat(a, &first) == 0 && fstat(b, &second) == 0 && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino;
}

bool MoveToOtherDevice(const UnicodeString& from, const UnicodeString& to, LongWord flags)
{
    const auto info = Host::QueryFile(from);
    if (!info) {
        return false;
    }
    if ((info->attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 || (flags & MOVEFILE_COPY_ALLOWED) == 0) {
        return Fail(ERROR_NOT_SAME_DEVICE);
    }
    if (!CopyFileW(from, to, (flags & MOVEFILE_REPLACE_EXISTING) == 0)) {
        return GetLastError() == ERROR_FILE_EXISTS ? Fail(ERROR_ALREADY_EXISTS) : false;
    }
    return unlink(Sysutils::HostPath(from).c_str()) == 0 || FailErrno();
}

/// `rename` that never replaces. Where the file system lacks it, a test in front has to do.
int RenameToFree(const std::string& from, const std::string& to)
{
    const int result = renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
    if (result == 0 || (errno != EINVAL && errno != ENOSYS)) {
        return result;
    }
    struct stat status;
    if (lstat(to.c_str(), &status) == 0) {
        errno = EEXIST;
        return -1;
    }
    return rename(from.c_str(), to.c_str());
}

} // namespace

bool DeleteFileW(const UnicodeString& file)
{
    const std::string path = Sysutils::HostPath(file);
    if (path.empty()) {
        return false;
    }
    struct stat status;
    if (lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && Host::IsReadOnly(status)) {
        return Fail(ERROR_ACCESS_DENIED);
    }
    return unlink(path.c_str()) == 0 || FailPath(path);
}

bool MoveFileW(const UnicodeString& from, const UnicodeString& to)
{
    return MoveFileExW(from, to, MOVEFILE_COPY_ALLOWED);
}

bool MoveFileExW(const UnicodeString& from, const UnicodeString& to, LongWord flags)
{
    const std::string source = Sysutils::HostPath(from);
    const std::string target = source.empty() ? std::string() : Sysutils::HostPath(to);
    if (target.empty()) {
        return false;
    }
    const bool replace = (flags & MOVEFILE_REPLACE_EXISTING) != 0 || source == target;
    const int result = replace ? rename(source.c_str(), target.c_str()) : RenameToFree(source, target);
    if (result == 0) {
        return true;
    }
    if (errno == EXDEV) {
        return MoveToOtherDevice(from, to, flags);
    }
    struct stat status;
    const bool sourceExists = lstat(source.c_str(), &status) == 0;
    return sourceExists ? FailPath(target) : FailPath(source);
}

bool CopyFileW(const UnicodeString& from, const UnicodeString& to, bool failIfExists)
{
    const NativeInt source =
        Host::OpenFile(from, Host::ReadAccess, Host::ReadAccess | Host::WriteAccess, Host::Disposition::Open);
    if (source == Host::InvalidHandle) {
        return false;
    }
    const Descriptor sourceOwner(static_cast<int>(source));
    struct stat status;
    if (fstat(sourceOwner.Get(), &status) != 0) {
        return FailErrno();
    }
    // A pipe or a device has no end to copy to.
    if (!S_ISREG(status.st_mode)) {
        return Fail(ERROR_ACCESS_DENIED);
    }
    NativeInt target = Host::OpenFile(to, Host::WriteAccess, 0, Host::Disposition::CreateNew);
    const bool isNew = target != Host::InvalidHandle;
    if (!isNew && GetLastError() == ERROR_FILE_EXISTS && !failIfExists) {
        // Not emptied yet: it may be the source under another name.
        target = Host::OpenFile(to, Host::WriteAccess, 0, Host::Disposition::Open);
    }
    if (target == Host::InvalidHandle) {
        return false;
    }
    const Descriptor targetOwner(static_cast<int>(target));
    if (IsSameFile(sourceOwner.Get(), targetOwner.Get())) {
        return Fail(ERROR_SHARING_VIOLATION);
    }
    if ((!isNew && !Host::ResizeFile(target, 0)) || !CopyContent(source, target)) {
        const unsigned long reason = GetLastError();
        if (isNew) {
            unlink(Sysutils::HostPath(to).c_str());
        }
        return Fail(reason);
    }
    const timespec times[] = {status.st_atim, status.st_mtim};
    futimens(targetOwner.Get(), times);
    fchmod(targetOwner.Get(), status.st_mode & 0777);
    return true;
}
