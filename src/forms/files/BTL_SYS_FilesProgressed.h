// SPDX-License-Identifier: MIT
#pragma once

#include "environment/BTL_RSRC_VersionInfo.h"

namespace Classes
{
class TStrings;
} // namespace Classes

namespace BTL
{

// Operations on trees of files with a dialog that shows how far they are. It can't be cancelled, and stays
// for half a second with the news that all is done. Of the main thread, whose message loop runs meanwhile.
//
//     BTL::CopyPathProgressed(u"\\data\\", u"\\backup\\", u"Backup ...");

/// As `CopyPathExt`; the dialog's text is `text`, or "Kopiere Verzeichnis ..." if that is empty.
TRS8_BTL_API bool CopyPathProgressed(const System::UnicodeString& source,
                                     const System::UnicodeString& destination,
                                     const System::UnicodeString& text);

/// As `SearchDirForFilesExt`; the dialog's text is `text`, or "Durchsuche Verzeichnis ..." if that is empty.
TRS8_BTL_API bool SearchDirForFilesProgressed(const System::UnicodeString& folder,
                                              const System::UnicodeString& mask, Classes::TStrings* list,
                                              const System::UnicodeString& text);

/// As `GetFileDescriptions`; the dialog's text is `text`, or "Suche Versionsinformationen ..." if that is
/// empty.
TRS8_BTL_API void GetFileDescriptionsProgressed(const System::UnicodeString& folder,
                                                const System::UnicodeString& mask, CFileList& list, int tag,
                                                const System::UnicodeString& text);

} // namespace BTL
