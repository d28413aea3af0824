// SPDX-License-Identifier: MIT
#include "platform/runtime/sysutils/Sysutils_FindFile.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileInfo.h"
#include "platform/host/Host_Folder.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/runtime/sysutils/internal/Sysutils_FileParts.h"

#include <algorithm>
#include <optional>
#include <vector>

using System::UnicodeString;

namespace Sysutils
{

namespace Detail
{

struct TFileSearch
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

} // namespace

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
    found.FindHandle = std::make_shared<Detail::TFileSearch>(
        Detail::TFileSearch{std::move(folder), std::move(*names), 0, ~attributes & Special});
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
    Detail::TFileSearch& search = *found.FindHandle;
    while (search.next < search.names.size()) {
        const UnicodeString& name = search.names[search.next++];
        const auto info = Host::QueryFile(search.folder + name);
        if (!info || (static_cast<int>(info->attributes) & search.excluded) != 0) {
            continue;
        }
        found.Name = name;
        found.Attr = static_cast<int>(info->attributes);
        found.Size = info->size;
        found.Time = Detail::FileDateOf(info->modified);
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

} // namespace Sysutils
