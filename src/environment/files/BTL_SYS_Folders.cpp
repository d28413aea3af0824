// SPDX-License-Identifier: MIT
#include "environment/files/BTL_SYS_Folders.h"

#include "environment/files/internal/BTL_SYS_PathText.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileInfo.h"
#include "platform/host/Host_Folder.h"
#include "platform/host/Host_FolderTree.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/visual/Forms.h"
#include "progress/BTL_HourGlassCursor.h"

#include <algorithm>
#include <climits>

namespace BTL
{

using System::UnicodeString;

namespace
{

/// As `PathExists`, but by the exact name: a level that looks like a mask is to be made all the same.
bool IsThere(const UnicodeString& path)
{
    const auto end = path.AsView().find_last_not_of(u"\\/");
    const bool isRoot = Detail::IsRoot(path);
    const auto info = Host::QueryFile(isRoot ? path : UnicodeString(path.AsView().substr(0, end + 1)));
    return info && (info->attributes & FILE_ATTRIBUTE_SYSTEM) == 0;
}

/// Makes the levels of `rest` one by one behind `start`, each by `make` if it isn't there.
template <class Make>
bool MakeLevels(UnicodeString start, std::u16string_view rest, Make make)
{
    return Detail::ForEachPiece(rest, [&](const UnicodeString& piece) {
        start += piece;
        // Somebody else may be making the same levels.
        return IsThere(start) || make(start) || IsThere(start);
    });
}

bool IsMissing(unsigned long error)
{
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

/// `folder` is a full path with its final separator.
int SetAttributesIn(const UnicodeString& folder, int attr, bool on)
{
    Sysutils::SetCurrentDir(folder);
    Sysutils::TSearchRec entry;
    const int result = Sysutils::FindFirst(folder + u"*.*", Sysutils::faAnyFile, entry);
    for (int error = result; error == 0; error = Sysutils::FindNext(entry)) {
        Forms::Application->ProcessMessages();
        if (entry.Name == u"." || entry.Name == u".." || (entry.Attr & Sysutils::faSymLink) != 0) {
            continue;
        }
        const UnicodeString path = folder + entry.Name;
        if ((entry.Attr & Sysutils::faDirectory) == 0) {
            Sysutils::FileSetAttr(path, on ? entry.Attr | attr : entry.Attr & ~attr);
            continue;
        }
        SetAttributesIn(path + u'\\', attr, on);
        Sysutils::SetCurrentDir(folder);
    }
    return result;
}

} // namespace

bool CreateDirectoryW(const UnicodeString& path)
{
    return ::CreateDirectoryW(path);
}

bool CreatePath(const UnicodeString& path)
{
    const auto text = path.AsView();
    const std::size_t root = Detail::RootLength(text);
    return MakeLevels(UnicodeString(text.substr(0, root)), text.substr(root),
                      [](const UnicodeString& level) { return CreateDirectoryW(level); });
}

bool CreatePath(const UnicodeString& base, const UnicodeString& rest)
{
    if (!base.IsEmpty() && !IsThere(base) && !CreateDirectoryW(base)) {
        return false;
    }
    return MakeLevels(AddPathDelimiter(base), rest.AsView(),
                      [](const UnicodeString& level) { return Sysutils::ForceDirectories(level); });
}

bool DeleteAllFiles(const UnicodeString& folder)
{
    return folder.IsEmpty() || Host::DeleteFilesIn(AddPathDelimiter(folder)) || IsMissing(::GetLastError());
}

bool DeleteFolder(const UnicodeString& folder)
{
    return Host::DeleteTree(AddPathDelimiter(folder), Host::ReadOnly::Kept);
}

bool RemovePath(const UnicodeString& folder)
{
    return DeleteFolder(folder);
}

int CountFiles(const UnicodeString& folder, bool recursive)
{
    const CHourGlassCursor busy(true);
    const UnicodeString named = folder.IsEmpty() ? UnicodeString(u".") : AddPathDelimiter(folder);
    const System::Int64 count = recursive ? Host::CountTree(named) : Host::CountEntries(named);
    return static_cast<int>(std::min<System::Int64>(count, INT_MAX));
}

int DirSetAttrOn(const UnicodeString& folder, int attr)
{
    return DirSetAttr(folder, attr, true);
}

int DirSetAttrOff(const UnicodeString& folder, int attr)
{
    return DirSetAttr(folder, attr, false);
}

int DirSetAttr(const UnicodeString& folder, int attr, bool on)
{
    if (folder.IsEmpty()) {
        return static_cast<int>(ERROR_PATH_NOT_FOUND);
    }
    // The current folder changes on the way.
    return SetAttributesIn(Sysutils::ExpandFileName(AddPathDelimiter(folder)), attr, on);
}

} // namespace BTL
