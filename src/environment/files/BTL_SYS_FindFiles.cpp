// SPDX-License-Identifier: MIT
#include "environment/files/BTL_SYS_FindFiles.h"

#include "environment/files/BTL_SYS_Files.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/host/Host_FileInfo.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/sysutils/Sysutils_File.h"

namespace BTL
{

using System::UnicodeString;

namespace
{

constexpr UTL::CFaultPlace NoList{"BTL_SYS_FileUtilities", 389};

bool IsDots(const UnicodeString& name)
{
    return name == u"." || name == u"..";
}

/// Calls `visit` with each entry until it gives true, and gives whether one did.
template <class Visit>
bool AnyEntry(const UnicodeString& pattern, int attr, Visit visit)
{
    Sysutils::TSearchRec entry;
    for (int error = Sysutils::FindFirst(pattern, attr, entry); error == 0;
         error = Sysutils::FindNext(entry)) {
        if (!IsDots(entry.Name) && visit(entry)) {
            return true;
        }
    }
    return false;
}

bool IsLink(int attributes)
{
    return (attributes & Sysutils::faSymLink) != 0;
}

bool IsFolder(int attributes)
{
    return (attributes & Sysutils::faDirectory) != 0;
}

bool SearchFile(const UnicodeString& folder, const UnicodeString& name, UnicodeString& found,
                const CFileProgress& progress)
{
    progress.ShowFolder(folder);
    const UnicodeString below = AddPathDelimiter(folder);
    return AnyEntry(below + u"*.*", Sysutils::faAnyFile, [&](const Sysutils::TSearchRec& entry) {
        bool isFound = false;
        if (!IsFolder(entry.Attr)) {
            isFound = entry.Name == name;
            if (isFound) {
                found = folder;
            }
        } else if (!IsLink(entry.Attr)) {
            isFound = SearchFile(below + entry.Name, name, found, progress);
        }
        progress.Step();
        return isFound;
    });
}

void SearchFiles(const UnicodeString& folder, const UnicodeString& mask, Classes::TStrings& list,
                 const CFileProgress& progress)
{
    if (!PathExists(folder)) {
        return;
    }
    progress.ShowFolder(folder);
    const UnicodeString below = AddPathDelimiter(folder);
    AnyEntry(below + mask, Sysutils::faSysFile, [&](const Sysutils::TSearchRec& entry) {
        list.Add(below + entry.Name);
        return false;
    });
    AnyEntry(below + u"*.*", Sysutils::faDirectory, [&](const Sysutils::TSearchRec& entry) {
        if (!IsFolder(entry.Attr) || IsLink(entry.Attr)) {
            return false;
        }
        Classes::TStringList files;
        SearchFiles(below + entry.Name, mask, files, progress);
        for (int i = 0; i < files.getCount(); ++i) {
            list.Add(files.getStrings(i));
            progress.Step();
        }
        return false;
    });
}

} // namespace

bool FindFiles(const UnicodeString& pattern, int attr, Classes::TStrings* list, bool clear)
{
    if (list == nullptr) {
        UTL::THROW_XAssert(NoList);
        return false;
    }
    if (clear) {
        list->Clear();
    }
    const int count = list->getCount();
    AnyEntry(pattern, attr, [&](const Sysutils::TSearchRec& entry) {
        list->Add(entry.Name);
        return false;
    });
    return list->getCount() != count;
}

bool FindFiles(const UnicodeString& pattern, Classes::TStrings* list, bool clear)
{
    return FindFiles(pattern, Sysutils::faAnyFile, list, clear);
}

bool SearchDirForFile(const UnicodeString& folder, const UnicodeString& name, UnicodeString& found)
{
    return SearchDirForFileExt(folder, name, found, nullptr);
}

bool SearchDirForFileExt(const UnicodeString& folder, const UnicodeString& name, UnicodeString& found,
                         const CFileProgress& progress)
{
    return !folder.IsEmpty() && SearchFile(folder, name, found, progress);
}

bool SearchDirForFiles(const UnicodeString& folder, const UnicodeString& mask, Classes::TStrings* list)
{
    return SearchDirForFilesExt(folder, mask, list, nullptr);
}

bool SearchDirForFilesExt(const UnicodeString& folder, const UnicodeString& mask, Classes::TStrings* list,
                          const CFileProgress& progress)
{
    if (list == nullptr) {
        return false;
    }
    const int count = list->getCount();
    SearchFiles(folder, mask, *list, progress);
    return list->getCount() > count;
}

} // namespace BTL
