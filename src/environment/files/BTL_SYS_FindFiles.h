// SPDX-License-Identifier: MIT
#pragma once

#include "environment/files/BTL_SYS_FileProgress.h"

namespace Classes
{
class TStrings;
} // namespace Classes

namespace BTL
{

// Searches for files. A folder may be named with or without its final separator; the entries "." and ".." are
// never found. No search enters a folder that a link leads to, but the folder that is named may itself be a
// link. Names are found in the order of their characters. An empty folder, one that is missing and one that
// can't be read have no files.
//
//     Classes::TStringList logs;
//     if (BTL::SearchDirForFiles(u"\\data", u"*.log", &logs)) { ... }      // "\data\2026\run1.log" ...
//     System::UnicodeString folder;
//     if (BTL::SearchDirForFile(u"\\data", u"station.ini", folder)) { ... }
//     BTL::FindFiles(u"\\data\\*.txt", &logs, true);                       // the names alone

/// Adds the names, without the folder, of the entries that fit the last part of `pattern`, see
/// `Sysutils::FindFirst`; entries that are hidden, of the system or folders only if `attr` has their bit.
/// With `clear` the list is emptied first. True if any was added. A null list is an internal fault, and false
/// where that is passed over.
TRS8_BTL_API bool FindFiles(const System::UnicodeString& pattern, int attr, Classes::TStrings* list,
                            bool clear);
/// `FindFiles` of entries of all kinds.
TRS8_BTL_API bool FindFiles(const System::UnicodeString& pattern, Classes::TStrings* list, bool clear);

/// Searches a folder and those below it until a file has exactly the name. True if one is found; then `found`
/// is the folder that holds it. After false, `found` has no meaning.
TRS8_BTL_API bool SearchDirForFile(const System::UnicodeString& folder, const System::UnicodeString& name,
                                   System::UnicodeString& found);
/// As `SearchDirForFile`; `progress` is told each folder as its second text and each entry
/// as a step.
TRS8_BTL_API bool SearchDirForFileExt(const System::UnicodeString& folder, const System::UnicodeString& name,
                                      System::UnicodeString& found, const CFileProgress& progress);

/// Adds the full names of the files in a folder and those below it that fit `mask`, those of a folder before
/// those of its subfolders. What is hidden, folders among it, is left out. True if any was added; false for a
/// null list.
TRS8_BTL_API bool SearchDirForFiles(const System::UnicodeString& folder, const System::UnicodeString& mask,
                                    Classes::TStrings* list);
/// As `SearchDirForFiles`; `progress` is told each folder as its second text, and for each
/// folder that the search comes back from each file below it as a step.
TRS8_BTL_API bool SearchDirForFilesExt(const System::UnicodeString& folder, const System::UnicodeString& mask,
                                       Classes::TStrings* list, const CFileProgress& progress);

} // namespace BTL
