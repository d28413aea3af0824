// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

// Folders with all that is in them. None of these walks enters a folder that a link leads to, nor one that
// takes the place of another meanwhile; the folder that is named itself may be a link unless a comment says
// otherwise. Names are taken as the host has them, whether or not they are text.
//
//     Host::CopyWatcher nobody;
//     Host::CopyTree(u"\\data\\run1", u"\\backup\\run1", nobody);
//     if (!Host::DeleteTree(u"\\data\\run1", Host::ReadOnly::Kept)) { ... }

namespace Host
{

/// Is told of each step of a copy; what it raises ends the copy there.
class TRS8_BTL_API CopyWatcher
{
public:
    CopyWatcher() = default;
    CopyWatcher(const CopyWatcher&) = delete;
    CopyWatcher& operator=(const CopyWatcher&) = delete;
    virtual ~CopyWatcher();

    /// A folder below the source is next; the path ends with a separator.
    virtual void Enter(const System::UnicodeString& folder);
    /// An entry that is no folder is done, copied or not.
    virtual void Done();
    /// A file, link or folder below the source, or the source itself, has no full copy, by `error`. Of a
    /// folder that can't be made each file is told, and then the folder.
    virtual void PassOver(const System::UnicodeString& path, unsigned long error);
};

/// Copies what is in a folder to another one, of which the last level is made if it isn't there: files with
/// their content, holes, permissions and times, which take the place of those that exist; folders, those that
/// are new with permissions and times too; links as links. Devices, pipes and sockets are passed over, and so
/// is the target where it lies in the source. No folder is merged into one that a link below the target leads
/// to. Entries come in the order of their names, folders among the others.
TRS8_BTL_API void CopyTree(const System::UnicodeString& source, const System::UnicodeString& target,
                           CopyWatcher& watcher);

/// What becomes of files with the read-only attribute.
enum class ReadOnly
{
    Kept,
    Deleted,
};

/// Deletes a folder with all that can be deleted of it; of a link the link alone. False if the folder is
/// still there or never was, with the last error set. The root of the host is refused with 5, untouched.
[[nodiscard]] TRS8_BTL_API bool DeleteTree(const System::UnicodeString& folder, ReadOnly readOnly);
/// Deletes the files and links directly in a folder, but for links to folders. False, with the last error
/// set, if one is left or the folder can't be read.
[[nodiscard]] TRS8_BTL_API bool DeleteFilesIn(const System::UnicodeString& folder);

/// Moves a folder to another device, by a copy that is deleted again if it isn't whole. Fails with 183 if
/// `to` exists, and with 32 if somebody writes to the folder while it is copied. What comes later stays in
/// the source, which then fails with 145 beside the whole copy.
[[nodiscard]] TRS8_BTL_API bool MoveTree(const System::UnicodeString& from, const System::UnicodeString& to);

/// How many entries of a folder and those below it are neither a folder nor a link to one. What can't be read
/// has none.
[[nodiscard]] TRS8_BTL_API System::Int64 CountTree(const System::UnicodeString& folder);
/// How many entries a folder has of its own, "." and ".." among them; 0 if it can't be read.
[[nodiscard]] TRS8_BTL_API System::Int64 CountEntries(const System::UnicodeString& folder);

} // namespace Host
