// SPDX-License-Identifier: MIT
#pragma once

#include "environment/files/BTL_SYS_FileProgress.h"

#include <vector>

namespace BTL
{

// Trees of files are copied and moved. A folder may be named with or without its final separator. A copy
// keeps content, holes, permissions and times of files, permissions and times of the folders that it makes,
// and makes links again as links; no walk enters a folder that a link leads to, nor one that takes the place
// of another meanwhile. Names that aren't text are copied as others are.
//
//     std::vector<BTL::TPassedOver> rest;
//     BTL::CopyPath(u"\\data\\run1\\", u"\\backup\\run1\\", rest);
//     for (const BTL::TPassedOver& one : rest) {
//         log << one.Path << u": " << Sysutils::SysErrorMessage(one.Error);
//     }

/// What a copy passed over.
struct TPassedOver
{
    /// A file or link, or a folder with its final separator, in the source.
    System::UnicodeString Path;
    /// Why, see `::GetLastError`: 5 also for a device, a pipe or a socket, 87 for the destination in its own
    /// source.
    unsigned long Error;
};

/// Copies what is in `source` to `destination`, of which all levels are made that are missing. Files that
/// exist are replaced, unless they are read-only; each in one step, if its folder takes a file beside it.
/// True in every case: what can't be copied is passed over.
TRS8_BTL_API bool CopyPath(const System::UnicodeString& source, const System::UnicodeString& destination);
/// As `CopyPath` of two folders; `passedOver` becomes the list of what was passed over, empty if the copy is
/// whole.
TRS8_BTL_API bool CopyPath(const System::UnicodeString& source, const System::UnicodeString& destination,
                           std::vector<TPassedOver>& passedOver);
/// As `CopyPath` of two folders; `progress` is told each folder as its second text and each entry that is no
/// folder, copied or not, as a step. There are as many of these as `CountFiles(source, true)` gives.
TRS8_BTL_API bool CopyPathExt(const System::UnicodeString& source, const System::UnicodeString& destination,
                              const CFileProgress& progress);
/// As `CopyPathExt` without a list, which `passedOver` becomes, complete up to where an exception of
/// `progress` ended the copy.
TRS8_BTL_API bool CopyPathExt(const System::UnicodeString& source, const System::UnicodeString& destination,
                              const CFileProgress& progress, std::vector<TPassedOver>& passedOver);

/// Moves the files of `source` and the folders below it, hidden ones excepted, all right into `destination`,
/// of which all levels are made that are missing. Gives how many moved; -1 for an empty argument or a source
/// that isn't there; -2 if a file couldn't be moved, as one whose name is taken, where it stops; with `raise`
/// that goes to `WIN::ThrowLastError`.
TRS8_BTL_API int MoveFiles(const System::UnicodeString& source, const System::UnicodeString& destination,
                           bool raise);
/// Moves a file, link or folder to a free name, whose parent folders are made if they are missing. To another
/// file system it is copied and then deleted; a copy that isn't whole is deleted instead, as is one of what
/// somebody writes to meanwhile, which fails with 32. False, with the last error set, on a failure.
TRS8_BTL_API bool MoveDir(const System::UnicodeString& source, const System::UnicodeString& destination);
/// As `MoveDir`, for names that end with a separator.
TRS8_BTL_API bool MovePath(const System::UnicodeString& source, const System::UnicodeString& destination);

} // namespace BTL
