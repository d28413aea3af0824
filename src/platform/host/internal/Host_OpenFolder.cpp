// SPDX-License-Identifier: MIT
#include "platform/host/internal/Host_OpenFolder.h"

#include "platform/host/Host_Error.h"
#include "platform/host/internal/Host_PathCall.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string_view>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace Host
{

namespace
{

EntryKind KindOf(mode_t mode)
{
    return S_ISDIR(mode) ? EntryKind::Folder : S_ISREG(mode) ? EntryKind::File : EntryKind::Special;
}

EntryKind KindOfLink(const FilePlace& link)
{
    struct stat status;
    return fstatat(link.folder, link.name, &status, 0) == 0 && S_ISDIR(status.st_mode) ? EntryKind::FolderLink
                                                                                       : EntryKind::Link;
}

/// Not every file system tells the kind along with the name.
EntryKind AskKind(const FilePlace& entry)
{
    struct stat status;
    if (fstatat(entry.folder, entry.name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return EntryKind::File;
    }
    return S_ISLNK(status.st_mode) ? KindOfLink(entry) : KindOf(status.st_mode);
}

EntryKind KindOf(const FilePlace& entry, unsigned char type)
{
    switch (type) {
    case DT_UNKNOWN:
        return AskKind(entry);
    case DT_LNK:
        return KindOfLink(entry);
    default:
        return KindOf(static_cast<mode_t>(DTTOIF(type)));
    }
}

bool IsDots(std::string_view name)
{
    return name == "." || name == "..";
}

} // namespace

OpenFolder::OpenFolder(const FilePlace& folder, Links links)
{
    const int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | (links == Links::Refuse ? O_NOFOLLOW : 0);
    mFolder = Descriptor(Uninterrupted([&] { return openat(folder.folder, folder.name, flags); }));
    if (!IsOpen()) {
        FailAt(folder);
    }
}

std::optional<std::vector<FolderEntry>> OpenFolder::Entries() const
{
    // Reading closes what it reads from.
    Descriptor own(openat(Get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(own.IsOpen() ? fdopendir(own.Get()) : nullptr,
                                                     &closedir);
    if (!folder) {
        FailErrno();
        return std::nullopt;
    }
    own.Release();
    std::vector<FolderEntry> entries;
    errno = 0;
    while (const dirent* entry = readdir(folder.get())) {
        if (!IsDots(entry->d_name)) {
            entries.push_back({entry->d_name, KindOf({Get(), entry->d_name}, entry->d_type)});
        }
        errno = 0;
    }
    if (errno != 0) {
        FailErrno();
        return std::nullopt;
    }
    std::sort(entries.begin(), entries.end(),
              [](const FolderEntry& a, const FolderEntry& b) { return a.name < b.name; });
    return entries;
}

bool OpenFolder::Query(struct stat& status) const
{
    return fstat(Get(), &status) == 0 || FailErrno();
}

bool OpenFolder::IsSameAs(const struct stat& other) const
{
    struct stat own;
    return Query(own) && IsSameFile(own, other);
}

} // namespace Host
