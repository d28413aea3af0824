// SPDX-License-Identifier: MIT
#include "platform/host/Host_FileInfo.h"

#include "platform/host/Host_BufferedFiles.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_Path.h"
#include "platform/host/internal/Host_Descriptor.h"
#include "platform/host/internal/Host_PathCall.h"

#include <array>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>

using System::Int64;
using System::LongWord;
using System::NativeInt;
using System::UnicodeString;

namespace
{

std::string_view LastName(std::string_view path)
{
    path = Host::WithoutFinalSlashes(path);
    return path.substr(path.rfind('/') + 1);
}

/// How a name leads to its file.
enum class Way
{
    Straight,
    ByLink,
};

LongWord AttributesOf(const struct stat& status, std::string_view name, Way way)
{
    LongWord attributes = way == Way::ByLink ? FILE_ATTRIBUTE_REPARSE_POINT : 0;
    if (S_ISDIR(status.st_mode)) {
        attributes |= FILE_ATTRIBUTE_DIRECTORY;
    } else if (!S_ISREG(status.st_mode) && !S_ISLNK(status.st_mode)) {
        attributes |= FILE_ATTRIBUTE_SYSTEM;
    }
    if (Host::IsReadOnly(status)) {
        attributes |= FILE_ATTRIBUTE_READONLY;
    }
    if (name.starts_with('.') && name != "." && name != "..") {
        attributes |= FILE_ATTRIBUTE_HIDDEN;
    }
    return attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes;
}

Host::FileInfo InfoOf(const struct stat& status, std::string_view name, Way way)
{
    return {AttributesOf(status, name, way), S_ISREG(status.st_mode) ? Int64{status.st_size} : 0,
            Int64{status.st_mtim.tv_sec}};
}

std::array<timespec, 2> ModifiedAt(Int64 seconds)
{
    return {timespec{0, UTIME_OMIT}, timespec{static_cast<time_t>(seconds), 0}};
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
        return Host::FailPath(path);
    }
    const bool readOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (S_ISDIR(status.st_mode) || readOnly == Host::IsReadOnly(status)) {
        return true;
    }
    // Only the owner's bit changes, so that setting and clearing it leaves the rest as it was.
    const mode_t mode = (status.st_mode ^ S_IWUSR) & 07777;
    return chmod(path.c_str(), mode) == 0 || Host::FailPath(path);
}

namespace Host
{

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
    return InfoOf(status, LastName(path), isLink ? Way::ByLink : Way::Straight);
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
    return InfoOf(status, {}, Way::Straight);
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

} // namespace Host
