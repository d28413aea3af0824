// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_File.h"

#include "platform/base/Sysutils_Exception.h"
#include "platform/base/dates/Sysutils_Date.h"
#include "platform/base/dates/internal/Sysutils_DateParts.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_File.h"

#include <algorithm>
#include <climits>
#include <limits>
#include <optional>

using System::Int64;
using System::NativeInt;
using System::TDateTime;
using System::UnicodeString;

namespace Sysutils
{

namespace Detail
{

struct FileSearch
{
    /// With the final separator.
    UnicodeString folder;
    std::vector<UnicodeString> names;
    std::size_t next = 0;
    int excluded = 0;
};

} // namespace Detail

namespace
{

using View = std::u16string_view;

// Files

/// The share bits of a mode word for `Host::OpenFile`; -1 for no share mode.
int ShareOf(unsigned mode)
{
    switch (mode & 0xF0) {
    case fmShareCompat:
    case fmShareExclusive:
        return 0;
    case fmShareDenyWrite:
        return Host::ReadAccess;
    case fmShareDenyRead:
        return Host::WriteAccess;
    case fmShareDenyNone:
        return Host::ReadAccess | Host::WriteAccess;
    default:
        return -1;
    }
}

NativeInt Refuse(unsigned long error)
{
    SetLastError(error);
    return INVALID_HANDLE_VALUE;
}

int ErrorOf(bool done)
{
    return done ? 0 : static_cast<int>(GetLastError());
}

bool IsCountValid(unsigned count)
{
    return count <= static_cast<unsigned>(INT_MAX) || Host::Fail(ERROR_INVALID_PARAMETER);
}

// Dates

/// What the clock can't show any more lies beyond all years, what it can't show yet before them.
TDateTime LocalTime(Int64 seconds)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    return Detail::LocalTimeOf(seconds).value_or(seconds < 0 ? -infinity : infinity);
}

int PackDate(Int64 seconds)
{
    return DateTimeToFileDate(LocalTime(seconds));
}

template <class File>
int SetDate(const File& file, int age)
{
    const auto date = Detail::UnpackFileDate(age);
    if (!date) {
        return static_cast<int>(ERROR_INVALID_PARAMETER);
    }
    return ErrorOf(Host::SetModified(file, Detail::SecondsOfLocalTime(*date)));
}

// Texts of paths

bool IsSeparator(char16_t unit)
{
    return unit == u'\\' || unit == u'/';
}

bool IsLetter(char16_t unit)
{
    return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

/// 2 behind the colon of a drive, else 0.
std::size_t DriveLength(View path)
{
    return path.size() >= 2 && path[1] == u':' && IsLetter(path[0]) ? 2 : 0;
}

/// The length of the drive, or of the server and share at the begin.
std::size_t VolumeLength(View path)
{
    if (path.size() < 3 || !IsSeparator(path[0]) || !IsSeparator(path[1]) || IsSeparator(path[2])) {
        return DriveLength(path);
    }
    const auto server = path.find_first_of(u"\\/", 2);
    if (server == View::npos || server + 1 == path.size() || IsSeparator(path[server + 1])) {
        return 0;
    }
    return std::min(path.find_first_of(u"\\/", server + 1), path.size());
}

/// Where the name begins.
std::size_t NameStart(View path)
{
    const auto separator = path.find_last_of(u"\\/");
    return separator == View::npos ? DriveLength(path) : separator + 1;
}

/// Where the dot of the extension is; the end if there is none.
std::size_t ExtensionStart(View path)
{
    const auto dot = path.find_last_of(u'.');
    return dot == View::npos || dot < NameStart(path) ? path.size() : dot;
}

std::vector<View> Parts(View path)
{
    std::vector<View> parts;
    while (!path.empty()) {
        const auto end = std::min(path.find_first_of(u"\\/"), path.size());
        if (end > 0) {
            parts.push_back(path.substr(0, end));
        }
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return parts;
}

/// The parts with `.` and `..` resolved; `..` at the begin leads nowhere.
std::vector<View> ResolvedParts(View path)
{
    std::vector<View> resolved;
    for (const View part : Parts(path)) {
        if (part == u"..") {
            if (!resolved.empty()) {
                resolved.pop_back();
            }
        } else if (part != u".") {
            resolved.push_back(part);
        }
    }
    return resolved;
}

/// The folder from which a path without a separator behind its volume counts, without the volume: the current
/// directory, on a drive as far as it lies in there; else the root.
UnicodeString StartFolder(View volume)
{
    UnicodeString current = Host::CurrentDirectory();
    if (volume.empty()) {
        return current;
    }
    const std::string root = volume.size() == 2 ? GetDrive(volume[0]) : std::string();
    if (root == "/") {
        return current;
    }
    const std::string folder = HostPath(current);
    const bool isInside = !root.empty() && folder.starts_with(root + "/");
    return isInside ? FromHostPath(std::string_view(folder).substr(root.size())) : UnicodeString();
}

// Searches

/// `*` any characters, `?` one. After a misfit only the last `*` can take more: what stands before it fits
/// already, so that the work is bounded by the product of the lengths.
bool Fits(View name, View mask)
{
    std::size_t n = 0;
    std::size_t m = 0;
    std::size_t star = View::npos;
    std::size_t starName = 0;
    while (n < name.size()) {
        if (m < mask.size() && mask[m] == u'*') {
            star = m++;
            starName = n;
        } else if (m < mask.size() && (mask[m] == u'?' || mask[m] == name[n])) {
            ++m;
            ++n;
        } else if (star != View::npos) {
            m = star + 1;
            n = ++starName;
        } else {
            return false;
        }
    }
    return mask.find_first_not_of(u'*', m) == View::npos;
}

bool HasWildcards(View mask)
{
    return mask.find_first_of(u"*?") != View::npos;
}

int NoMatch(TSearchRec& found, unsigned long error)
{
    found.FindHandle.reset();
    SetLastError(error);
    return static_cast<int>(error);
}

/// The names that fit; `nullopt` with the last error set if the folder can't be read.
std::optional<std::vector<UnicodeString>> FittingNames(const UnicodeString& folder, const UnicodeString& mask)
{
    // A name without wildcards needs no look at the rest of the folder.
    if (!HasWildcards(mask.AsView())) {
        if (!Host::QueryFile(folder + mask)) {
            return std::nullopt;
        }
        return std::vector{mask};
    }
    auto names = Host::ListFolder(folder.IsEmpty() ? UnicodeString(u".") : folder);
    if (names) {
        std::erase_if(*names, [&](const UnicodeString& name) { return !FileNameFits(name, mask); });
    }
    return names;
}

// Drives

std::optional<Host::DiskSpace> QueryDrive(System::Byte drive)
{
    if (drive == 0) {
        return Host::QueryDisk(u".");
    }
    const std::string root = drive <= 26 ? GetDrive(static_cast<char16_t>(u'A' + drive - 1)) : std::string();
    if (root.empty()) {
        SetLastError(ERROR_INVALID_DRIVE);
        return std::nullopt;
    }
    return Host::QueryDisk(FromHostPath(root));
}

} // namespace

// Open files

NativeInt FileOpen(const UnicodeString& file, unsigned mode)
{
    const unsigned access = mode & 3;
    const int share = ShareOf(mode);
    if (access > fmOpenReadWrite || share < 0) {
        return Refuse(ERROR_INVALID_PARAMETER);
    }
    // The words 0 to 2 name the three sums of the access bits in their order.
    return Host::OpenFile(file, access + 1, static_cast<unsigned>(share), Host::Disposition::Open);
}

NativeInt FileCreate(const UnicodeString& file)
{
    return FileCreate(file, fmShareExclusive, 0);
}

NativeInt FileCreate(const UnicodeString& file, int rights)
{
    return FileCreate(file, fmShareExclusive, rights);
}

NativeInt FileCreate(const UnicodeString& file, unsigned mode, int /*rights*/)
{
    const int share = ShareOf(mode);
    if ((mode & 3) > fmOpenReadWrite || share < 0) {
        return Refuse(ERROR_INVALID_PARAMETER);
    }
    return Host::OpenFile(file, Host::ReadAccess | Host::WriteAccess, static_cast<unsigned>(share),
                          Host::Disposition::Create);
}

int FileRead(NativeInt handle, void* buffer, unsigned count)
{
    return IsCountValid(count) ? static_cast<int>(Host::ReadFile(handle, buffer, count)) : -1;
}

int FileWrite(NativeInt handle, const void* buffer, unsigned count)
{
    return IsCountValid(count) ? static_cast<int>(Host::WriteFile(handle, buffer, count)) : -1;
}

int FileSeek(NativeInt handle, int offset, int origin)
{
    const Int64 before = Host::SeekFile(handle, 0, 1);
    const Int64 position = Host::SeekFile(handle, offset, origin);
    if (position <= INT_MAX) {
        return static_cast<int>(position);
    }
    Host::SeekFile(handle, before, 0);
    SetLastError(ERROR_ARITHMETIC_OVERFLOW);
    return -1;
}

Int64 FileSeek(NativeInt handle, Int64 offset, int origin)
{
    return Host::SeekFile(handle, offset, origin);
}

void FileClose(NativeInt handle)
{
    Host::CloseFile(handle);
}

// Closed files

bool FileExists(const UnicodeString& file)
{
    const auto info = Host::QueryFile(file);
    if (!info || (info->attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return false;
    }
    // A link that leads nowhere is no file; one that leads to a file has a name behind it.
    return (info->attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0 || !Host::IsBrokenLink(file);
}

bool DirectoryExists(const UnicodeString& folder)
{
    const auto info = Host::QueryFile(folder);
    return info && (info->attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

int FileAge(const UnicodeString& file)
{
    Int64 seconds = 0;
    return FileModified(file, seconds) ? PackDate(seconds) : -1;
}

bool FileAge(const UnicodeString& file, TDateTime& modified)
{
    Int64 seconds = 0;
    if (!FileModified(file, seconds)) {
        return false;
    }
    modified = LocalTime(seconds);
    return true;
}

int FileGetDate(NativeInt handle)
{
    const auto info = Host::QueryFile(handle);
    return info ? PackDate(info->modified) : -1;
}

int FileSetDate(const UnicodeString& file, int age)
{
    return SetDate(file, age);
}

int FileSetDate(NativeInt handle, int age)
{
    return SetDate(handle, age);
}

bool FileModified(const UnicodeString& file, Int64& seconds)
{
    const auto info = Host::QueryFile(file);
    if (!info || (info->attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return false;
    }
    seconds = info->modified;
    return true;
}

int FileGetAttr(const UnicodeString& file)
{
    return static_cast<int>(GetFileAttributesW(file));
}

int FileSetAttr(const UnicodeString& file, int attributes)
{
    return ErrorOf(SetFileAttributesW(file, static_cast<System::LongWord>(attributes)));
}

bool FileIsReadOnly(const UnicodeString& file)
{
    const int attributes = FileGetAttr(file);
    return attributes != -1 && (attributes & faReadOnly) != 0;
}

bool FileSetReadOnly(const UnicodeString& file, bool readOnly)
{
    const int attributes = FileGetAttr(file);
    return attributes != -1 &&
           FileSetAttr(file, readOnly ? attributes | faReadOnly : attributes & ~faReadOnly) == 0;
}

bool DeleteFile(const UnicodeString& file)
{
    return DeleteFileW(file);
}

bool RenameFile(const UnicodeString& oldName, const UnicodeString& newName)
{
    return MoveFileW(oldName, newName);
}

bool RemoveDir(const UnicodeString& folder)
{
    return RemoveDirectoryW(folder);
}

bool CreateDir(const UnicodeString& folder)
{
    return CreateDirectoryW(folder);
}

bool ForceDirectories(const UnicodeString& folder)
{
    if (folder.IsEmpty()) {
        throw EInOutError(u"Unable to create directory");
    }
    if (DirectoryExists(folder)) {
        return true;
    }
    const View path = folder.AsView();
    for (std::size_t end = VolumeLength(path); end < path.size(); ++end) {
        end = std::min(path.find_first_of(u"\\/", end + 1), path.size());
        const UnicodeString level(path.substr(0, end));
        // Another process may be making the same levels.
        if (!DirectoryExists(level) && !CreateDirectoryW(level) && !DirectoryExists(level)) {
            return false;
        }
    }
    return DirectoryExists(folder);
}

UnicodeString GetCurrentDir()
{
    return Host::CurrentDirectory();
}

bool SetCurrentDir(const UnicodeString& folder)
{
    return SetCurrentDirectoryW(folder);
}

// Searches

int FindFirst(const UnicodeString& path, int attributes, TSearchRec& found)
{
    constexpr int Special = faHidden | faSysFile | faVolumeID | faDirectory;
    UnicodeString folder = ExtractFilePath(path);
    const UnicodeString mask = ExtractFileName(path);
    if (mask.IsEmpty()) {
        return NoMatch(found, ERROR_FILE_NOT_FOUND);
    }
    auto names = FittingNames(folder, mask);
    if (!names) {
        return NoMatch(found, GetLastError());
    }
    if (names->empty()) {
        return NoMatch(found, ERROR_FILE_NOT_FOUND);
    }
    found.FindHandle = std::make_shared<Detail::FileSearch>(
        Detail::FileSearch{std::move(folder), std::move(*names), 0, ~attributes & Special});
    const int error = FindNext(found);
    if (error != 0) {
        FindClose(found);
    }
    return error;
}

int FindNext(TSearchRec& found)
{
    if (!found.FindHandle) {
        return NoMatch(found, ERROR_INVALID_HANDLE);
    }
    Detail::FileSearch& search = *found.FindHandle;
    while (search.next < search.names.size()) {
        const UnicodeString& name = search.names[search.next++];
        const auto info = Host::QueryFile(search.folder + name);
        if (!info || (static_cast<int>(info->attributes) & search.excluded) != 0) {
            continue;
        }
        found.Name = name;
        found.Attr = static_cast<int>(info->attributes);
        found.Size = info->size;
        found.Time = PackDate(info->modified);
        return 0;
    }
    SetLastError(ERROR_NO_MORE_FILES);
    return static_cast<int>(ERROR_NO_MORE_FILES);
}

void FindClose(TSearchRec& found)
{
    found.FindHandle.reset();
}

bool FileNameFits(const UnicodeString& name, const UnicodeString& mask)
{
    const View pattern = mask.AsView();
    return Fits(name.AsView(), pattern) ||
           (pattern.ends_with(u".*") && Fits(name.AsView(), pattern.substr(0, pattern.size() - 2)));
}

// Parts of a path

UnicodeString ExtractFilePath(const UnicodeString& path)
{
    return path.SubString(1, static_cast<int>(NameStart(path.AsView())));
}

UnicodeString ExtractFileDir(const UnicodeString& path)
{
    const View text = path.AsView();
    std::size_t end = NameStart(text);
    // "X:\" and "\" are roots and keep theirs; so does a double separator, which may begin a server's name.
    if (end > 1 && IsSeparator(text[end - 1]) && !IsSeparator(text[end - 2]) &&
        end - 1 != DriveLength(text)) {
        --end;
    }
    return path.SubString(1, static_cast<int>(end));
}

UnicodeString ExtractFileDrive(const UnicodeString& path)
{
    return path.SubString(1, static_cast<int>(VolumeLength(path.AsView())));
}

UnicodeString ExtractFileName(const UnicodeString& path)
{
    return UnicodeString(path.AsView().substr(NameStart(path.AsView())));
}

UnicodeString ExtractFileExt(const UnicodeString& path)
{
    return UnicodeString(path.AsView().substr(ExtensionStart(path.AsView())));
}

UnicodeString ChangeFileExt(const UnicodeString& path, const UnicodeString& extension)
{
    return path.SubString(1, static_cast<int>(ExtensionStart(path.AsView()))) + extension;
}

UnicodeString ExpandFileName(const UnicodeString& path)
{
    if (path.IsEmpty()) {
        return {};
    }
    const std::size_t volume = VolumeLength(path.AsView());
    const View local = path.AsView().substr(volume);
    const bool rooted = !local.empty() && IsSeparator(local[0]);
    const UnicodeString whole =
        rooted ? UnicodeString(local)
               : StartFolder(path.AsView().substr(0, volume)) + u"\\" + UnicodeString(local);
    UnicodeString full(path.AsView().substr(0, volume));
    std::replace(full.UniqueData(), full.UniqueData() + full.Length(), u'/', u'\\');
    const std::vector<View> parts = ResolvedParts(whole.AsView());
    for (const View part : parts) {
        full += u'\\';
        full.Append(part);
    }
    if (parts.empty() || (!local.empty() && IsSeparator(local.back()))) {
        full += u'\\';
    }
    return full;
}

UnicodeString ExtractRelativePath(const UnicodeString& base, const UnicodeString& path)
{
    if (ExtractFileDrive(base) != ExtractFileDrive(path)) {
        return path;
    }
    const std::size_t volume = VolumeLength(path.AsView());
    const auto folders = [volume](const UnicodeString& text) {
        const View view = text.AsView();
        return Parts(view.substr(volume, std::max(NameStart(view), volume) - volume));
    };
    const std::vector<View> from = folders(base);
    const std::vector<View> to = folders(path);
    const auto [up, down] = std::ranges::mismatch(from, to);
    UnicodeString result;
    std::for_each(up, from.end(), [&](View) { result += u"..\\"; });
    std::for_each(down, to.end(), [&](View part) {
        result.Append(part);
        result += u'\\';
    });
    return result + ExtractFileName(path);
}

UnicodeString IncludeTrailingPathDelimiter(const UnicodeString& path)
{
    return IsPathDelimiter(path, path.Length()) ? path : path + u'\\';
}

UnicodeString ExcludeTrailingPathDelimiter(const UnicodeString& path)
{
    return IsPathDelimiter(path, path.Length()) ? path.SubString(1, path.Length() - 1) : path;
}

bool IsPathDelimiter(const UnicodeString& path, int index)
{
    return index >= 1 && index <= path.Length() && IsSeparator(path[index]);
}

UnicodeString FileSearch(const UnicodeString& name, const UnicodeString& folders)
{
    if (name.IsEmpty() || FileExists(name)) {
        return name;
    }
    View rest = folders.AsView();
    while (!rest.empty()) {
        const auto end = std::min(rest.find(u';'), rest.size());
        const UnicodeString folder(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (folder.IsEmpty()) {
            continue;
        }
        UnicodeString path = IncludeTrailingPathDelimiter(folder) + name;
        if (FileExists(path)) {
            return path;
        }
    }
    return {};
}

// Drives and errors

Int64 DiskFree(System::Byte drive)
{
    const auto space = QueryDrive(drive);
    return space ? space->free : -1;
}

Int64 DiskSize(System::Byte drive)
{
    const auto space = QueryDrive(drive);
    return space ? space->total : -1;
}

UnicodeString SysErrorMessage(unsigned long error)
{
    const unsigned long former = GetLastError();
    System::WideChar buffer[1024];
    const unsigned long length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, error, 0, buffer, std::size(buffer), nullptr);
    SetLastError(former);
    return UnicodeString(buffer, static_cast<int>(length)).TrimRight();
}

void RaiseLastOSError()
{
    RaiseLastOSError(GetLastError());
}

void RaiseLastOSError(unsigned long error)
{
    if (error == ERROR_SUCCESS) {
        throw EOSError(u"A call to an OS function failed", error);
    }
    throw EOSError(u"System Error.  Code: " + UnicodeString(error) + u".\r\n" + SysErrorMessage(error),
                   error);
}

} // namespace Sysutils
