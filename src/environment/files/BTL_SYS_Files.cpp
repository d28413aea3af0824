// SPDX-License-Identifier: MIT
#include "environment/files/BTL_SYS_Files.h"

#include "environment/files/internal/BTL_SYS_PathText.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "languages/BTL_I18N_Texts.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/toolkit/MessageBox.h"
#include "streams/BTL_STRM_Stream.h"

namespace BTL
{

using System::UnicodeString;

bool FileExists(const UnicodeString& file)
{
    return Sysutils::FileExists(file);
}

bool FileExistsEx(const UnicodeString& file, bool message)
{
    const bool exists = FileExists(file);
    if (!exists && message) {
        Gi18n::MessageBox1_VA(EIDS::FileNotFoundBox, MB_ICONSTOP, file);
    }
    return exists;
}

void CheckFileExists(const UnicodeString& file)
{
    if (!FileExists(file)) {
        throw Sysutils::Exception(Gi18n::GetString_VA(EIDS::FileNotFound, file));
    }
}

System::Int64 GetFileSize(const UnicodeString& file)
{
    const CFileStream stream(file, Sysutils::fmOpenRead | Sysutils::fmShareDenyNone);
    return stream.getStream()->getSize();
}

bool PathExists(const UnicodeString& path)
{
    if (path.IsEmpty()) {
        return false;
    }
    if (Detail::IsRoot(path)) {
        return Sysutils::DirectoryExists(path);
    }
    Sysutils::TSearchRec found;
    return Sysutils::FindFirst(DelPathDelimiter(path), Sysutils::faHidden | Sysutils::faDirectory, found) ==
           0;
}

int FileSetAttrOn(const UnicodeString& file, int attr)
{
    return Sysutils::FileSetAttr(file, Sysutils::FileGetAttr(file) | attr);
}

int FileSetAttrOff(const UnicodeString& file, int attr)
{
    return Sysutils::FileSetAttr(file, Sysutils::FileGetAttr(file) & ~attr);
}

bool DeleteFileW(const UnicodeString& file)
{
    return Gi18n::MessageBox1_VA(EIDS::DeleteFile, MB_ICONQUESTION | MB_YESNO, file) == IDYES &&
           Sysutils::DeleteFile(file);
}

} // namespace BTL
