// SPDX-License-Identifier: MIT
#include "platform/host/Host_File.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileBuffer.h"
#include "platform/host/Host_FileSharing.h"
#include "platform/host/internal/Host_Descriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

using Host::Descriptor;
using Host::Fail;
using Host::FailErrno;
using System::Int64;
using System::LongWord;
using System::NativeInt;
using System::UnicodeString;

namespace
{

/// Without the slashes at the end, but for the root.
std::string_view WithoutFinalSlashes(std::string_view path)
{
    while (path.size() > 1 && path.ends_with('/')) {
        path.remove_suffix(1);
    }
    return path;
}

std::string_view LastName(std::string_view path)
{
    path = WithoutFinalSlashes(path);
    return path.substr(path.rfind('/') + 1);
}

std::string ParentOf(std::string_view path)
{
    path = WithoutFinalSlashes(path);
    const std::size_t slash = path.rfind('/');
    if (slash == std::string_view::npos) {
        return ".";
    }
    return std::string(slash == 0 ? "/" : path.substr(0, slash));
}

bool IsFolder(const std::string& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// `Fail` for a call on a path: a missing file and a missing folder on the way to it have numbers of their
/// own.
bool FailPath(const std::string& path)
{
    const int hostError = errno;
    if ((hostError == ENOENT || hostError == ENOTDIR) && !IsFolder(ParentOf(path))) {
        return Fail(ERROR_PATH_NOT_FOUND);
    }
    return Fail(Host::ErrorFromErrno(hostError));
}

bool IsReadOnly(const struct stat& status)
{
    return (status.st_mode & S_IWUSR) == 0;
}

/// Standard streams that a program closed leave low numbers free, which would pass for "no file" or be
/// written to as output.
Descriptor AboveStandardStreams(Descriptor file)
{
    if (!file.IsOpen() || file.Get() > STDERR_FILENO) {
        return file;
    }
    return Descriptor(fcntl(file.Get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

int OpenFlags(unsigned access, Host::Disposition disposition)
{
    // Without `O_NONBLOCK` the opening of a pipe would wait for its other end.
    int flags = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    flags |= access == Host::ReadAccess ? O_RDONLY : access == Host::WriteAccess ? O_WRONLY : O_RDWR;
    switch (disposition) {
    case Host::Disposition::Open:
        return flags;
    case Host::Disposition::Create:
        return flags | O_CREAT;
    case Host::Disposition::CreateNew:
        return flags | O_CREAT | O_EXCL;
    }
    return flags;
}

void BlockAgain(int descriptor)
{
    const int flags = fcntl(descriptor, F_GETFL);
    if (flags != -1) {
        fcntl(descriptor, F_SETFL, flags & ~O_NONBLOCK);
    }
}

/// Tests what the host doesn't: folders, the read-only attribute, the sharing with others.
bool MayUse(const Descriptor& file, const struct stat& status, unsigned access, unsigned share)
{
    if (S_ISDIR(status.st_mode)) {
        return Fail(ERROR_ACCESS_DENIED);
    }
    if (!S_ISREG(status.st_mode)) {
        return true;
    }
    // The host lets its administrator write to such a file.
    if ((access & Host::WriteAccess) != 0 && IsReadOnly(status)) {
        return Fail(ERROR_ACCESS_DENIED);
    }
    return Host::ClaimSharing(file.Get(), access, share) || Fail(ERROR_SHARING_VIOLATION);
}

/// The descriptor behind a handle; -1, and the last error set, for what can't be one.
int DescriptorOf(NativeInt handle)
{
    if (handle <= 0 || handle > INT_MAX) {
        SetLastError(ERROR_INVALID_HANDLE);
        return -1;
    }
    return static_cast<int>(handle);
}

LongWord AttributesOf(const struct stat& status, std::string_view name, bool isLink)
{
    LongWord attributes = isLink ? FILE_ATTRIBUTE_REPARSE_POINT : 0;
    if (S_ISDIR(status.st_mode)) {
        attributes |= FILE_ATTRIBUTE_DIRECTORY;
    } else if (!S_ISREG(status.st_mode) && !S_ISLNK(status.st_mode)) {
        attributes |= FILE_ATTRIBUTE_SYSTEM;
    }
    if (IsReadOnly(status)) {
        attributes |= FILE_ATTRIBUTE_READONLY;
    }
    if (name.starts_with('.') && name != "." && name != "..") {
        attributes |= FILE_ATTRIBUTE_HIDDEN;
    }
    return attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes;
}

Host::FileInfo InfoOf(const struct stat& status, std::string_view name, bool isLink)
{
    return {AttributesOf(status, name, isLink), S_ISREG(status.st_mode) ? Int64{status.st_size} : 0,
            Int64{status.st_mtim.tv_sec}};
}

std::array<timespec, 2> ModifiedAt(Int64 seconds)
{
    return {timespec{0, UTIME_OMIT}, timespec{static_cast<time_t>(seconds), 0}};
}

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

LongWord GetFileAttributesW(const UnicodeString& file)
{
    const auto info = Host::QueryFile(file);
    return info ? info->attributes : INVALID_FILE_ATTRIBUTES;
}

bool SetFileAttributesW(const UnicodeString& file, LongWord attributes)
{
    const std::string path = Sysutils::HostPath(file);
    if (path.empty()) {
        return false;
    }
    struct stat status;
    if (stat(path.c_str(), &status) != 0) {
        return FailPath(path);
    }
    const bool readOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (S_ISDIR(status.st_mode) || readOnly == IsReadOnly(status)) {
        return true;
    }
    // Only the owner's bit changes, so that setting and clearing it leaves the rest as it was.
    const mode_t mode = (status.st_mode ^ S_IWUSR) & 07777;
    return chmod(path.c_str(), mode) == 0 || FailPath(path);
}

bool CreateDirectoryW(const UnicodeString& folder, void* /*security*/)
{
    const std::string path = Sysutils::HostPath(folder);
    return !path.empty() && (mkdir(path.c_str(), 0777) == 0 || FailPath(path));
}

bool RemoveDirectoryW(const UnicodeString& folder)
{
    const std::string path = Sysutils::HostPath(folder);
    if (path.empty()) {
        return false;
    }
    if (rmdir(path.c_str()) == 0) {
        return true;
    }
    const int hostError = errno;
    const std::string name(WithoutFinalSlashes(path));
    struct stat status;
    if (hostError == ENOTDIR && IsFolder(name) && lstat(name.c_str(), &status) == 0 &&
        S_ISLNK(status.st_mode)) {
        return unlink(name.c_str()) == 0 || FailPath(path);
    }
    errno = hostError == EEXIST ? ENOTEMPTY : hostError;
    return FailPath(path);
}

bool DeleteFileW(const UnicodeString& file)
{
    const std::string path = Sysutils::HostPath(file);
    if (path.empty()) {
        return false;
    }
    struct stat status;
    if (lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && IsReadOnly(status)) {
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

bool SetCurrentDirectoryW(const UnicodeString& folder)
{
    const std::string path = Sysutils::HostPath(folder);
    return !path.empty() && (chdir(path.c_str()) == 0 || FailPath(path));
}

namespace Host
{

NativeInt OpenFile(const UnicodeString& file, unsigned access, unsigned share, Disposition disposition)
{
    const std::string path = Sysutils::HostPath(file);
    if (path.empty()) {
        return InvalidHandle;
    }
    const int flags = OpenFlags(access, disposition);
    Descriptor opened = AboveStandardStreams(
        Descriptor(Host::Uninterrupted([&] { return open(path.c_str(), flags, 0666); })));
    if (!opened.IsOpen()) {
        if (errno == EEXIST) {
            Fail(ERROR_FILE_EXISTS);
        } else {
            FailPath(path);
        }
        return InvalidHandle;
    }
    struct stat status;
    if (fstat(opened.Get(), &status) != 0) {
        FailErrno();
        return InvalidHandle;
    }
    if (!MayUse(opened, status, access, share)) {
        return InvalidHandle;
    }
    FlushBuffersOf(status);
    // Emptied only now: before the claim the content belongs to the other opener.
    if (disposition == Disposition::Create && S_ISREG(status.st_mode)) {
        if (ftruncate(opened.Get(), 0) != 0) {
            FailErrno();
            return InvalidHandle;
        }
        AgeBuffersOf(opened.Get());
    }
    BlockAgain(opened.Get());
    return opened.Release();
}

bool CloseFile(NativeInt handle)
{
    const int descriptor = DescriptorOf(handle);
    // After an interruption the descriptor is gone all the same.
    return descriptor >= 0 && (close(descriptor) == 0 || errno == EINTR || FailErrno());
}

Int64 ReadFile(NativeInt handle, void* buffer, Int64 count)
{
    const int descriptor = DescriptorOf(handle);
    if (descriptor < 0) {
        return -1;
    }
    if (count < 0 || (buffer == nullptr && count > 0)) {
        Fail(ERROR_INVALID_PARAMETER);
        return -1;
    }
    FlushBuffersOf(descriptor);
    return ReadPieces(count, [&](Int64 offset, std::size_t piece) {
        return read(descriptor, static_cast<char*>(buffer) + offset, piece);
    });
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
    const int descriptor = DescriptorOf(handle);
    if (descriptor < 0) {
        return -1;
    }
    if (count < 0 || (buffer == nullptr && count > 0)) {
        Fail(ERROR_INVALID_PARAMETER);
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

bool ResizeFile(NativeInt handle, Int64 size)
{
    const int descriptor = DescriptorOf(handle);
    if (descriptor < 0) {
        return false;
    }
    FlushBuffersOf(descriptor);
    if (Host::Uninterrupted([&] { return ftruncate(descriptor, size); }) != 0) {
        return FailErrno();
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
    return Host::Uninterrupted([&] { return fsync(descriptor); }) == 0 || FailErrno();
}

std::optional<FileInfo> QueryFile(const UnicodeString& file)
{
    const std::string path = Sysutils::HostPath(file);
    if (path.empty()) {
        return std::nullopt;
    }
    FlushBuffersOf(path.c_str());
    struct stat status;
    if (lstat(path.c_str(), &status) != 0) {
        FailPath(path);
        return std::nullopt;
    }
    const bool isLink = S_ISLNK(status.st_mode);
    struct stat target;
    if (isLink && stat(path.c_str(), &target) == 0) {
        status = target;
    }
    return InfoOf(status, LastName(path), isLink);
}

std::optional<FileInfo> QueryFile(NativeInt handle)
{
    const int descriptor = DescriptorOf(handle);
    if (descriptor < 0) {
        return std::nullopt;
    }
    FlushBuffersOf(descriptor);
    struct stat status;
    if (fstat(descriptor, &status) != 0) {
        FailErrno();
        return std::nullopt;
    }
    return InfoOf(status, {}, false);
}

bool IsBrokenLink(const UnicodeString& file)
{
    const std::string path = Sysutils::HostPath(file);
    struct stat status;
    return !path.empty() && lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode) &&
           stat(path.c_str(), &status) != 0;
}

bool SetModified(const UnicodeString& file, Int64 seconds)
{
    const std::string path = Sysutils::HostPath(file);
    FlushBuffersOf(path.c_str());
    return !path.empty() &&
           (utimensat(AT_FDCWD, path.c_str(), ModifiedAt(seconds).data(), 0) == 0 || FailPath(path));
}

bool SetModified(NativeInt handle, Int64 seconds)
{
    const int descriptor = DescriptorOf(handle);
    if (descriptor < 0) {
        return false;
    }
    // A later write would set the date again.
    FlushBuffersOf(descriptor);
    return futimens(descriptor, ModifiedAt(seconds).data()) == 0 || FailErrno();
}

std::optional<std::vector<UnicodeString>> ListFolder(const UnicodeString& folder)
{
    const std::string path = Sysutils::HostPath(folder);
    if (path.empty()) {
        return std::nullopt;
    }
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(path.c_str()), &closedir);
    if (!entries) {
        // Who asks for names in it takes the folder for a part of the way.
        Fail(errno == ENOENT || errno == ENOTDIR ? ERROR_PATH_NOT_FOUND : ErrorFromErrno(errno));
        return std::nullopt;
    }
    std::vector<UnicodeString> names;
    while (const dirent* entry = readdir(entries.get())) {
        names.push_back(Sysutils::FromHostPath(entry->d_name));
    }
    std::sort(names.begin(), names.end());
    return names;
}

UnicodeString CurrentDirectory()
{
    const std::unique_ptr<char, decltype(&std::free)> folder(getcwd(nullptr, 0), &std::free);
    if (!folder) {
        FailErrno();
        return {};
    }
    return Sysutils::FromHostPath(folder.get());
}

std::optional<DiskSpace> QueryDisk(const UnicodeString& folder)
{
    const std::string path = Sysutils::HostPath(folder);
    if (path.empty()) {
        return std::nullopt;
    }
    struct statvfs status;
    if (Host::Uninterrupted([&] { return statvfs(path.c_str(), &status); }) != 0) {
        FailPath(path);
        return std::nullopt;
    }
    const auto bytes = [&](fsblkcnt_t blocks) {
        return static_cast<Int64>(blocks) * static_cast<Int64>(status.f_frsize);
    };
    return DiskSpace{bytes(status.f_bavail), bytes(status.f_blocks)};
}

UnicodeString MakeTempFile(const UnicodeString& folder, const UnicodeString& prefix)
{
    const std::string start = Sysutils::HostPath(folder + u"\\" + prefix);
    if (start.empty()) {
        return {};
    }
    std::string path = start + "XXXXXX.tmp";
    const Descriptor file(mkostemps(path.data(), 4, O_CLOEXEC));
    if (!file.IsOpen()) {
        FailPath(start);
        return {};
    }
    return Sysutils::FromHostPath(path);
}

UnicodeString EnvironmentPath(const char* name)
{
    const char* value = std::getenv(name);
    return value == nullptr ? UnicodeString() : Sysutils::FromHostPath(value);
}

UnicodeString HomeFolder()
{
    UnicodeString folder = EnvironmentPath("HOME");
    if (!folder.IsEmpty()) {
        return folder;
    }
    std::vector<char> buffer(1 << 14);
    passwd entry;
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || found == nullptr) {
        return u"\\";
    }
    return Sysutils::FromHostPath(found->pw_dir);
}

} // namespace Host
