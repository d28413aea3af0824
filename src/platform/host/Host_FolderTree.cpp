// SPDX-License-Identifier: MIT
#include "platform/host/Host_FolderTree.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_Folder.h"
#include "platform/host/Host_Path.h"
#include "platform/host/internal/Host_CopyEntry.h"
#include "platform/host/internal/Host_MovedEntries.h"
#include "platform/host/internal/Host_OpenFolder.h"
#include "platform/host/internal/Host_PathCall.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Host
{

using System::Int64;
using System::UnicodeString;

namespace
{

/// Each level takes a part of the stack. Who has as many descriptors gets no further.
constexpr int MaxDepth = 1000;

bool IsFolderOrLinkToOne(const FolderEntry& entry)
{
    return entry.kind == EntryKind::Folder || entry.kind == EntryKind::FolderLink;
}

// Copies

unsigned long RefusalOf(int hostError)
{
    // Below a folder that couldn't be made.
    return hostError == EBADF ? ERROR_PATH_NOT_FOUND : ErrorFromErrno(hostError);
}

/// The folder of a copy, made if it isn't there. At its end, be that by an exception, a new one has what is
/// told of the source.
struct TargetFolder
{
    TargetFolder(const FilePlace& place, Links links, mode_t mode)
        : isNew(mkdirat(place.folder, place.name, mode) == 0),
          refusal(isNew || errno == EEXIST ? ERROR_SUCCESS : RefusalOf(errno)),
          folder(place, links),
          error(refusal == ERROR_SUCCESS && !folder.IsOpen() ? GetLastError() : refusal)
    {
    }
    TargetFolder(const TargetFolder&) = delete;
    TargetFolder& operator=(const TargetFolder&) = delete;
    ~TargetFolder()
    {
        if (struct stat made; isNew && source && folder.Query(made)) {
            CopyPermissionsAndTimes(*source, folder.Get(), made);
        }
    }

    bool isNew;
    unsigned long refusal;
    OpenFolder folder;
    /// Why it isn't open.
    unsigned long error;
    std::optional<struct stat> source;
};

class TreeCopy
{
public:
    /// `moved`, which may be null, gets what is copied.
    TreeCopy(CopyWatcher& watcher, MovedEntries* moved) : mWatcher(watcher), mMoved(moved) {}

    /// `path` is the source for those who are told of it, with its final separator.
    void Copy(const FilePlace& from, const FilePlace& to, const UnicodeString& path, Links links)
    {
        const OpenFolder source(from, links);
        const unsigned long error = source.IsOpen() ? Obstacle(source) : GetLastError();
        if (error != ERROR_SUCCESS) {
            mWatcher.PassOver(path, error);
        }
        if (error != ERROR_SUCCESS && source.IsOpen()) {
            return;
        }
        // The permissions of the source come last; nobody gets in before.
        TargetFolder target(to, links, source.IsOpen() ? 0700 : 0777);
        if (struct stat made; !mRoot && target.folder.IsOpen() && target.folder.Query(made)) {
            mRoot = made;
        }
        // Reading it would set the time of its last use.
        if (struct stat status; source.IsOpen() && source.Query(status)) {
            target.source = status;
        }
        if (source.IsOpen()) {
            CopyEntries(source, target.folder, path);
        }
        if (!target.folder.IsOpen()) {
            mWatcher.PassOver(path, target.error);
        }
    }

private:
    /// Why an open folder isn't to be copied.
    unsigned long Obstacle(const OpenFolder& source) const
    {
        if (mDepth == MaxDepth) {
            return ERROR_FILENAME_EXCED_RANGE;
        }
        return mRoot && mDepth > 0 && source.IsSameAs(*mRoot) ? ERROR_INVALID_PARAMETER : ERROR_SUCCESS;
    }

    void CopyEntries(const OpenFolder& source, const OpenFolder& target, const UnicodeString& path)
    {
        const auto entries = source.Entries();
        if (!entries) {
            mWatcher.PassOver(path, GetLastError());
            return;
        }
        ++mDepth;
        for (const FolderEntry& entry : *entries) {
            Copy(entry, source, target, path + Sysutils::FromHostPath(entry.name));
        }
        --mDepth;
    }

    void Copy(const FolderEntry& entry, const OpenFolder& source, const OpenFolder& target,
              const UnicodeString& path)
    {
        if (entry.kind == EntryKind::Folder) {
            const UnicodeString folder = path + u'\\';
            mWatcher.Enter(folder);
            Copy(source.At(entry.name), target.At(entry.name), folder, Links::Refuse);
            return;
        }
        if (mMoved != nullptr) {
            mMoved->Add(source.At(entry.name));
        }
        if (!CopyEntry(entry, source, target)) {
            mWatcher.PassOver(path, GetLastError());
        }
        if (entry.kind != EntryKind::FolderLink) {
            mWatcher.Done();
        }
    }

    static bool CopyEntry(const FolderEntry& entry, const OpenFolder& source, const OpenFolder& target)
    {
        if (!target.IsOpen()) {
            return Fail(ERROR_PATH_NOT_FOUND);
        }
        const FilePlace from = source.At(entry.name);
        const FilePlace to = target.At(entry.name);
        switch (entry.kind) {
        case EntryKind::Link:
        case EntryKind::FolderLink:
            return CopyLinkAt(from, to, Existing::Replace);
        case EntryKind::Special:
            return Fail(ERROR_ACCESS_DENIED);
        default:
            return CopyFileAt(from, to, Existing::Replace, Links::Refuse);
        }
    }

    CopyWatcher& mWatcher;
    MovedEntries* const mMoved;
    /// The folder that all goes to.
    std::optional<struct stat> mRoot;
    int mDepth = 0;
};

/// Keeps the first reason why a copy isn't whole.
class WholeCopy : public CopyWatcher
{
public:
    void PassOver(const UnicodeString& /*path*/, unsigned long error) override
    {
        if (mError == ERROR_SUCCESS) {
            mError = error;
        }
    }

    unsigned long Error() const noexcept { return mError; }

private:
    unsigned long mError = ERROR_SUCCESS;
};

UnicodeString WithSeparator(const UnicodeString& folder)
{
    const bool isEnded = folder.AsView().ends_with(u'\\') || folder.AsView().ends_with(u'/');
    return isEnded ? folder : folder + u'\\';
}

void Copy(const UnicodeString& source, const UnicodeString& target, CopyWatcher& watcher, MovedEntries* moved)
{
    const std::string from = Sysutils::HostPath(source);
    const std::string to = from.empty() ? std::string() : Sysutils::HostPath(target);
    if (to.empty()) {
        watcher.PassOver(source, GetLastError());
        return;
    }
    TreeCopy(watcher, moved)
        .Copy({AT_FDCWD, from.c_str()}, {AT_FDCWD, to.c_str()}, WithSeparator(source), Links::Follow);
}

// Deleting

/// What may go.
struct Deletable
{
    ReadOnly readOnly;
    /// Nothing but these, unless it is null.
    const MovedEntries* moved = nullptr;
};

bool DeleteEntry(const FilePlace& entry, const Deletable& deletable)
{
    if (deletable.moved != nullptr && !deletable.moved->Has(entry)) {
        return Fail(ERROR_SHARING_VIOLATION);
    }
    return deletable.readOnly == ReadOnly::Kept ? DeleteFileAt(entry)
                                                : unlinkat(entry.folder, entry.name, 0) == 0 || FailAt(entry);
}

/// Deletes those entries that are no folder; false, with the last error set, if one is left.
bool DeleteFiles(const OpenFolder& folder, const std::vector<FolderEntry>& entries,
                 const Deletable& deletable)
{
    unsigned long error = ERROR_SUCCESS;
    for (const FolderEntry& entry : entries) {
        if (!IsFolderOrLinkToOne(entry) && !DeleteEntry(folder.At(entry.name), deletable)) {
            error = GetLastError();
        }
    }
    return error == ERROR_SUCCESS || Fail(error);
}

bool DeleteFolderAt(const FilePlace& place, const Deletable& deletable, int depth);

void Empty(const OpenFolder& folder, const Deletable& deletable, int depth)
{
    const auto entries = folder.Entries();
    if (!entries || depth == MaxDepth) {
        return;
    }
    // What stays behind shows when the folder itself is to go.
    static_cast<void>(DeleteFiles(folder, *entries, deletable));
    for (const FolderEntry& entry : *entries) {
        if (entry.kind == EntryKind::FolderLink) {
            static_cast<void>(DeleteEntry(folder.At(entry.name), deletable));
        } else if (entry.kind == EntryKind::Folder) {
            static_cast<void>(DeleteFolderAt(folder.At(entry.name), deletable, depth + 1));
        }
    }
}

bool DeleteFolderAt(const FilePlace& place, const Deletable& deletable, int depth)
{
    if (const OpenFolder folder(place, Links::Refuse); folder.IsOpen()) {
        Empty(folder, deletable, depth);
    }
    if (unlinkat(place.folder, place.name, AT_REMOVEDIR) == 0) {
        return true;
    }
    return errno == EEXIST ? Fail(ERROR_DIR_NOT_EMPTY) : FailAt(place);
}

bool IsRoot(const std::string& path)
{
    struct stat root;
    struct stat status;
    return stat("/", &root) == 0 && stat(path.c_str(), &status) == 0 && IsSameFile(status, root);
}

bool DeleteTree(const UnicodeString& folder, const Deletable& deletable)
{
    const std::string given = Sysutils::HostPath(folder);
    if (given.empty()) {
        return false;
    }
    const std::string path(WithoutFinalSlashes(given));
    if (IsLink(path)) {
        return RemoveDirectoryW(folder);
    }
    return IsRoot(path) ? Fail(ERROR_ACCESS_DENIED) : DeleteFolderAt({AT_FDCWD, path.c_str()}, deletable, 0);
}

/// Whether all that is in the folder was moved, and is what it was then.
bool IsMoved(const OpenFolder& folder, const MovedEntries& moved, int depth)
{
    const auto entries = folder.IsOpen() ? folder.Entries() : std::nullopt;
    if (!entries || depth == MaxDepth) {
        return false;
    }
    return std::ranges::all_of(*entries, [&](const FolderEntry& entry) {
        const FilePlace place = folder.At(entry.name);
        return entry.kind == EntryKind::Folder ? IsMoved(OpenFolder(place, Links::Refuse), moved, depth + 1)
                                               : moved.Has(place);
    });
}

// Counting

Int64 CountFiles(const OpenFolder& folder, int depth)
{
    const auto entries = folder.IsOpen() ? folder.Entries() : std::nullopt;
    if (!entries || depth == MaxDepth) {
        return 0;
    }
    Int64 count = 0;
    for (const FolderEntry& entry : *entries) {
        if (entry.kind == EntryKind::Folder) {
            count += CountFiles(OpenFolder(folder.At(entry.name), Links::Refuse), depth + 1);
        } else {
            count += entry.kind == EntryKind::FolderLink ? 0 : 1;
        }
    }
    return count;
}

} // namespace

CopyWatcher::~CopyWatcher() = default;

void CopyWatcher::Enter(const UnicodeString& /*folder*/) {}

void CopyWatcher::Done() {}

void CopyWatcher::PassOver(const UnicodeString& /*path*/, unsigned long /*error*/) {}

void CopyTree(const UnicodeString& source, const UnicodeString& target, CopyWatcher& watcher)
{
    Copy(source, target, watcher, nullptr);
}

bool DeleteTree(const UnicodeString& folder, ReadOnly readOnly)
{
    return DeleteTree(folder, Deletable{readOnly});
}

bool DeleteFilesIn(const UnicodeString& folder)
{
    const std::string path = Sysutils::HostPath(folder);
    if (path.empty()) {
        return false;
    }
    const OpenFolder opened({AT_FDCWD, path.c_str()}, Links::Follow);
    const auto entries = opened.IsOpen() ? opened.Entries() : std::nullopt;
    return entries && DeleteFiles(opened, *entries, {ReadOnly::Kept});
}

bool MoveTree(const UnicodeString& from, const UnicodeString& to)
{
    const std::string target = Sysutils::HostPath(to);
    struct stat status;
    if (target.empty()) {
        return false;
    }
    if (lstat(target.c_str(), &status) == 0) {
        return Fail(ERROR_ALREADY_EXISTS);
    }
    WholeCopy watcher;
    MovedEntries moved;
    Copy(from, to, watcher, &moved);
    unsigned long error = watcher.Error();
    const std::string source = Sysutils::HostPath(from);
    // What somebody wrote meanwhile must not go with the source.
    if (error == ERROR_SUCCESS && !IsMoved(OpenFolder({AT_FDCWD, source.c_str()}, Links::Follow), moved, 0)) {
        error = ERROR_SHARING_VIOLATION;
    }
    if (error != ERROR_SUCCESS) {
        static_cast<void>(DeleteTree(to, ReadOnly::Deleted));
        return Fail(error);
    }
    return DeleteTree(from, Deletable{ReadOnly::Deleted, &moved});
}

Int64 CountTree(const UnicodeString& folder)
{
    const std::string path = Sysutils::HostPath(folder);
    return path.empty() ? 0 : CountFiles(OpenFolder({AT_FDCWD, path.c_str()}, Links::Follow), 0);
}

Int64 CountEntries(const UnicodeString& folder)
{
    const std::string path = Sysutils::HostPath(folder);
    if (path.empty()) {
        return 0;
    }
    const OpenFolder opened({AT_FDCWD, path.c_str()}, Links::Follow);
    const auto entries = opened.IsOpen() ? opened.Entries() : std::nullopt;
    constexpr Int64 Dots = 2;
    return entries ? static_cast<Int64>(entries->size()) + Dots : 0;
}

} // namespace Host
