// SPDX-License-Identifier: MIT
#include "environment/files/BTL_SYS_CopyPath.h"

#include "environment/files/BTL_SYS_Files.h"
#include "environment/files/BTL_SYS_FindFiles.h"
#include "environment/files/BTL_SYS_Folders.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "os/WIN_LastError.h"
#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileMove.h"
#include "platform/host/Host_FolderTree.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/sysutils/Sysutils_File.h"

namespace BTL
{

using System::UnicodeString;

namespace
{

constexpr int NothingToMove = -1;
constexpr int NotMoved = -2;

/// Hands on what a copy tells.
class CCopyReport : public Host::CopyWatcher
{
public:
    CCopyReport(const CFileProgress& progress, std::vector<TPassedOver>& passedOver)
        : mProgress(progress), mPassedOver(passedOver)
    {
    }

    void Enter(const UnicodeString& folder) override { mProgress.ShowFolder(folder); }
    void Done() override { mProgress.Step(); }
    void PassOver(const UnicodeString& path, unsigned long error) override
    {
        mPassedOver.push_back({path, error});
    }

private:
    const CFileProgress& mProgress;
    std::vector<TPassedOver>& mPassedOver;
};

UnicodeString OrCurrent(const UnicodeString& folder)
{
    return folder.IsEmpty() ? UnicodeString(u".") : AddPathDelimiter(folder);
}

} // namespace

bool CopyPath(const UnicodeString& source, const UnicodeString& destination)
{
    return CopyPathExt(source, destination, nullptr);
}

bool CopyPath(const UnicodeString& source, const UnicodeString& destination,
              std::vector<TPassedOver>& passedOver)
{
    return CopyPathExt(source, destination, nullptr, passedOver);
}

bool CopyPathExt(const UnicodeString& source, const UnicodeString& destination, const CFileProgress& progress)
{
    std::vector<TPassedOver> passedOver;
    return CopyPathExt(source, destination, progress, passedOver);
}

bool CopyPathExt(const UnicodeString& source, const UnicodeString& destination, const CFileProgress& progress,
                 std::vector<TPassedOver>& passedOver)
{
    passedOver.clear();
    progress.ShowFolder(source);
    // The copy makes the last level itself, and gives it the permissions of the source.
    CreatePath(Sysutils::ExtractFilePath(DelPathDelimiter(destination)));
    CCopyReport report(progress, passedOver);
    Host::CopyTree(OrCurrent(source), OrCurrent(destination), report);
    return true;
}

int MoveFiles(const UnicodeString& source, const UnicodeString& destination, bool raise)
{
    const UnicodeString from = DelPathDelimiter(source);
    const UnicodeString to = DelPathDelimiter(destination);
    if (!PathExists(from) || to.IsEmpty()) {
        return NothingToMove;
    }
    if (!PathExists(to)) {
        CreatePath(to);
    }
    Classes::TStringList files;
    SearchDirForFiles(from, u"*", &files);
    for (int i = 0; i < files.getCount(); ++i) {
        const UnicodeString file = files.getStrings(i);
        if (MoveFileW(file, to + u'\\' + Sysutils::ExtractFileName(file))) {
            continue;
        }
        if (raise) {
            WIN::ThrowLastError();
        }
        return NotMoved;
    }
    return files.getCount();
}

bool MoveDir(const UnicodeString& source, const UnicodeString& destination)
{
    const UnicodeString parent = Sysutils::ExtractFileDir(DelPathDelimiter(destination));
    if (!parent.IsEmpty() && !PathExists(parent) && !CreatePath(parent)) {
        return false;
    }
    return MoveFileW(source, destination) ||
           (::GetLastError() == ERROR_NOT_SAME_DEVICE && Host::MoveTree(source, destination));
}

bool MovePath(const UnicodeString& source, const UnicodeString& destination)
{
    return MoveDir(DelPathDelimiter(source), DelPathDelimiter(destination));
}

} // namespace BTL
