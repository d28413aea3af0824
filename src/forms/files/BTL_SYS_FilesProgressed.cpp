// SPDX-License-Identifier: MIT
#include "forms/files/BTL_SYS_FilesProgressed.h"

#include "environment/files/BTL_RSRC_FileDescriptions.h"
#include "environment/files/Btl_sys_fileutilities.h"
#include "forms/labels/CTL_Label.h"
#include "forms/progress/BTL_ProgressDialog.h"
#include "platform/runtime/classes/Classes_StringList.h"

#include <chrono>
#include <thread>

namespace BTL
{

using System::UnicodeString;

namespace
{

/// So long the end is to be seen.
constexpr std::chrono::milliseconds EndShown{500};

/// Shows a dialog while `work` runs on all that is in `folder`.
template <class Work>
bool Progressed(const UnicodeString& folder, const UnicodeString& text, const UnicodeString& endText,
                Work work)
{
    CProgressDialog progress;
    TProgressDLG& dialog = *progress.getForm();
    dialog.fLabel1->setTextHasAttributes(false);
    dialog.fLabel2->setTextHasAttributes(false);
    dialog.Prepare(CountFiles(folder, true), false, false, {}, text, {}, UnicodeString(), 0);
    dialog.SetShowText2(true);
    dialog.Start(0);
    const bool result = work(CFileProgress(&dialog));
    progress.setText1(endText);
    std::this_thread::sleep_for(EndShown);
    progress.Stop();
    return result;
}

UnicodeString TextOr(const UnicodeString& text, const char16_t* standard)
{
    return text.IsEmpty() ? UnicodeString(standard) : text;
}

} // namespace

bool CopyPathProgressed(const UnicodeString& source, const UnicodeString& destination,
                        const UnicodeString& text)
{
    return Progressed(
        source, TextOr(text, u"Kopiere Verzeichnis ..."), u"Verzeichnis kopiert.",
        [&](const CFileProgress& progress) { return CopyPathExt(source, destination, progress); });
}

bool SearchDirForFilesProgressed(const UnicodeString& folder, const UnicodeString& mask,
                                 Classes::TStrings* list, const UnicodeString& text)
{
    return Progressed(
        folder, TextOr(text, u"Durchsuche Verzeichnis ..."), u"Verzeichnis durchsucht.",
        [&](const CFileProgress& progress) { return SearchDirForFilesExt(folder, mask, list, progress); });
}

void GetFileDescriptionsProgressed(const UnicodeString& folder, const UnicodeString& mask, CFileList& list,
                                   int tag, const UnicodeString& text)
{
    Classes::TStringList files;
    SearchDirForFilesProgressed(folder, mask, &files, TextOr(text, u"Suche Versionsinformationen ..."));
    AddFileDescriptions(files, list, tag);
}

} // namespace BTL
