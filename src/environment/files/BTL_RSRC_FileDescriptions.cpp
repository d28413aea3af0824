// SPDX-License-Identifier: MIT
#include "environment/files/BTL_RSRC_FileDescriptions.h"

#include "environment/files/BTL_SYS_FindFiles.h"
#include "platform/runtime/classes/Classes_StringList.h"

#include <utility>

namespace BTL
{

void GetFileDescriptions(const System::UnicodeString& folder, const System::UnicodeString& mask,
                         CFileList& list, int tag)
{
    Classes::TStringList files;
    SearchDirForFiles(folder, mask, &files);
    AddFileDescriptions(files, list, tag);
}

void AddFileDescriptions(const Classes::TStrings& files, CFileList& list, int tag)
{
    for (const System::UnicodeString& file : files) {
        CVersionInfo info;
        if (ReadVersionInfo(file, info)) {
            info.Tag = tag;
            list.push_back(std::move(info));
        }
    }
}

} // namespace BTL
