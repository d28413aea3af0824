// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <optional>
#include <vector>

// Folders, the current one among them, and the space of the disk that they lie on.
//
// All calls answer a failure with `false`, -1 or their invalid value and set the last error. A path with an
// embedded zero fails with 123; it is never cut.
//
//     CreateDirectoryW(u"out");
//     for (const System::UnicodeString& name : Host::ListFolder(u"out").value()) { ... }  // "." and ".."
//     const auto disk = Host::QueryDisk(u"out");

/// Makes one level; 183 if the name is taken. `security` is not looked at.
TRS8_BTL_API bool CreateDirectoryW(const System::UnicodeString& folder, void* security = nullptr);
/// Removes an empty folder, or a link to a folder, which leaves the folder itself alone.
TRS8_BTL_API bool RemoveDirectoryW(const System::UnicodeString& folder);

/// Paths without a root count from there, in the whole process.
TRS8_BTL_API bool SetCurrentDirectoryW(const System::UnicodeString& folder);

namespace Host
{

/// The names in a folder, with "." and "..", in the order of their characters.
[[nodiscard]] TRS8_BTL_API std::optional<std::vector<System::UnicodeString>>
ListFolder(const System::UnicodeString& folder);

/// The folder from which paths without a root count, without a final separator, unless it is the root; empty
/// on a failure.
[[nodiscard]] TRS8_BTL_API System::UnicodeString CurrentDirectory();

/// The room on the device of a folder.
struct DiskSpace
{
    /// For this user, in bytes.
    System::Int64 free;
    System::Int64 total;
};

/// Of the disk that the folder lies on.
[[nodiscard]] TRS8_BTL_API std::optional<DiskSpace> QueryDisk(const System::UnicodeString& folder);

} // namespace Host
