// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Folders are made, emptied, deleted and counted. A folder may be named with or without its final separator:
// a drive alone is its root. No walk enters a folder that a link leads to, nor one that takes the place of
// another meanwhile; the folder that is named may itself be a link unless a comment says otherwise. Names
// that aren't text count as others.
//
//     BTL::CreatePath(u"\\data\\station\\2026\\");                  // all levels
//     BTL::CreatePath(BTL::GetUserDataPath(), u"Runs\\Today");
//     const auto files = BTL::CountFiles(u"\\data\\station\\", true);
//     BTL::DeleteFolder(u"\\data\\station\\2025");                  // with all that is in it

/// Makes one level; false, with the last error set, if that isn't possible or the name is taken.
TRS8_BTL_API bool CreateDirectoryW(const System::UnicodeString& path);
/// Makes all levels that are missing; false, with the last error set, at the first that can't be made. The
/// root, a drive or a server's share at the begin of the path is none of them, but levels below it need it.
/// True for the empty text, which has no level.
TRS8_BTL_API bool CreatePath(const System::UnicodeString& path);
/// Makes `base`, of which one level may be missing, and all levels of `rest` below it. An empty `base` is the
/// current folder.
TRS8_BTL_API bool CreatePath(const System::UnicodeString& base, const System::UnicodeString& rest);

/// Deletes the files and links directly in a folder, but for links to folders, without asking. False if one
/// is left, as read-only files are, or the folder can't be read; true for one that is missing and for the
/// empty text.
TRS8_BTL_API bool DeleteAllFiles(const System::UnicodeString& folder);
/// Deletes a folder with all that is in it, without asking; read-only files stay. Of a link to a folder and
/// of links in it only the links go. True if the folder is gone then. The root is left alone.
TRS8_BTL_API bool DeleteFolder(const System::UnicodeString& folder);
/// As `DeleteFolder`.
TRS8_BTL_API bool RemovePath(const System::UnicodeString& folder);

/// With `recursive` how many entries of the folder and those below it are no folders, nor links to folders;
/// else how many entries it has, folders, "." and ".." among them. 0 if it can't be read. An hourglass is the
/// cursor meanwhile.
TRS8_BTL_API int CountFiles(const System::UnicodeString& folder, bool recursive);

/// Adds the bits of `attr`, a sum of the `fa` values of `Sysutils`, to the attributes of all files in a
/// folder and below it; links are passed over. The folder is the current one of the process then. Messages
/// are handled at each entry, so this belongs to the main thread. 0 if the folder could be read, else the
/// error, see `Sysutils::FindFirst`.
TRS8_BTL_API int DirSetAttrOn(const System::UnicodeString& folder, int attr);
/// As `DirSetAttrOn`, but takes the bits away.
TRS8_BTL_API int DirSetAttrOff(const System::UnicodeString& folder, int attr);
/// `DirSetAttrOn` or `DirSetAttrOff`.
TRS8_BTL_API int DirSetAttr(const System::UnicodeString& folder, int attr, bool on);

} // namespace BTL
