// SPDX-License-Identifier: MIT
#include "platform/host/Host_FileMove.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_Path.h"
#include "platform/host/Host_ReplaceFile.h"
#include "platform/host/internal/Host_CopyEntry.h"
#include "platform/host/internal/Host_MovedEntries.h"
#include "platform/host/internal/Host_PathCall.h"

#include <cerrno>
#include <cstdio>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using Host::Existing;
using Host::Fail;
using Host::FailPath;
using Host::FilePlace;
using Host::Links;
using System::LongWord;
using System::UnicodeString;

namespace
{

bool CopyToOtherDevice(const std::string& from, const std::string& to, Existing existing)
{
    const FilePlace source{AT_FDCWD, from.c_str()};
    const FilePlace target{AT_FDCWD, to.c_str()};
    return Host::IsLink(from) ? CopyLinkAt(source, target, existing)
                              : CopyFileAt(source, target, existing, Links::Refuse);
}

bool MoveToOtherDevice(const std::string& from, const std::string& to, LongWord flags)
{
    if ((flags & MOVEFILE_COPY_ALLOWED) == 0 || (Host::IsFolder(from) && !Host::IsLink(from))) {
        return Fail(ERROR_NOT_SAME_DEVICE);
    }
    const FilePlace source{AT_FDCWD, from.c_str()};
    Host::MovedEntries moved;
    moved.Add(source);
    const bool replace = (flags & MOVEFILE_REPLACE_EXISTING) != 0;
    if (!CopyToOtherDevice(from, to, replace ? Existing::Replace : Existing::Refuse)) {
        return GetLastError() == ERROR_FILE_EXISTS ? Fail(ERROR_ALREADY_EXISTS) : false;
    }
    // What somebody wrote meanwhile must not go with the source.
    const bool isUnchanged = moved.Has(source);
    if (isUnchanged && unlink(from.c_str()) == 0) {
        return true;
    }
    const unsigned long reason = isUnchanged ? Host::ErrorFromErrno(errno) : ERROR_SHARING_VIOLATION;
    // What the copy replaced is gone, so that it is all that is left there.
    if (!replace) {
        unlink(to.c_str());
    }
    return Fail(reason);
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
    return !path.empty() && Host::DeleteFileAt({AT_FDCWD, path.c_str()});
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
        return MoveToOtherDevice(source, target, flags);
    }
    struct stat status;
    const bool sourceExists = lstat(source.c_str(), &status) == 0;
    return sourceExists ? FailPath(target) : FailPath(source);
}

bool CopyFileW(const UnicodeString& from, const UnicodeString& to, bool failIfExists)
{
    const std::string source = Sysutils::HostPath(from);
    const std::string target = source.empty() ? std::string() : Sysutils::HostPath(to);
    if (target.empty()) {
        return false;
    }
    const FilePlace place{AT_FDCWD, source.c_str()};
    if (CopyFileAt(place, {AT_FDCWD, target.c_str()}, Existing::Refuse, Links::Follow)) {
        return true;
    }
    if (failIfExists || GetLastError() != ERROR_FILE_EXISTS) {
        return false;
    }
    const UnicodeString former = Host::FileToReplace(to);
    return !former.IsEmpty() && CopyFileAt(place, {AT_FDCWD, Sysutils::HostPath(former).c_str()},
                                           Existing::Replace, Links::Follow);
}
