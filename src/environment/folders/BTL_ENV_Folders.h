// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/runtime/classes/Classes_StringList.h"

namespace BTL
{

// The folders that follow from the place of the running program alone. The program's folder (the bin folder)
// lies in the root. Each result ends with a separator, is worked out once and then kept for the run; no
// folder is made. The main thread makes the first calls.
//
//     const auto settings = BTL::GetProgramIniPath() + u"station.ini";
//     const auto folder = BTL::GetEndSubPath(BTL::GetBinPath(), 1);       // the last part, as "bin\"
//     Classes::TStringList names;
//     if (BTL::GetFiles(BTL::GetHelpPath(), u"*.txt", &names)) { ... }

/// The folder of the running program.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetApplicationPath();
/// As `GetApplicationPath`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetBinPath();
/// The parent of the program's folder.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetRootPath();
/// "Help" in the program's folder.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetHelpPath();

/// "AddIns" in the root.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetAddInsPath();
/// "UserRightsManager" in the root.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserRightsManagerAddInPath();
/// "PrintingAddIns" in the root.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetPrintingAddInsPath();
/// "Plugins" in the root.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetPluginsPath();

/// "ProgramData" in the root.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetProgramDataPath();
/// "Product" in the program data.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetProductPath();
/// "IDS" in the program data.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetProgramIDSPath();
/// "Ini" in the program data.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetProgramIniPath();
/// "DBDef" in the program data.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetProgramDBDefPath();
/// The folder `name` in "DBDef". An empty name is an internal fault.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetProgramDBDefPath(const System::UnicodeString& name);

/// `path` with a final separator; an empty text stays.
[[nodiscard]] TRS8_BTL_API System::UnicodeString AddPathDelimiter(const System::UnicodeString& path);
/// `path` without its final separator, of which only one is removed.
[[nodiscard]] TRS8_BTL_API System::UnicodeString DelPathDelimiter(const System::UnicodeString& path);
/// `path` with `.` and `..` resolved, from the current directory if it isn't rooted; a text without a folder
/// part stays.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetFullPath(const System::UnicodeString& path);
/// The folder part of `path` as a full path with a final separator; empty if there is none.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ExtractFilePath(const System::UnicodeString& path);
/// The last `count` parts of the full path, each followed by a separator. A drive is the first part. All
/// parts if there are not more than `count`; empty for a `count` below 1.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetEndSubPath(const System::UnicodeString& path, int count);

/// True if the file exists and is read-only.
[[nodiscard]] TRS8_BTL_API bool FileReadOnly(const System::UnicodeString& file);
/// Fills `list` with the names, without the folder, of what matches `mask` in `folder` and is no folder
/// itself; true if there is any. A null `list` gives false.
TRS8_BTL_API bool GetFiles(const System::UnicodeString& folder, const System::UnicodeString& mask,
                           Classes::TStrings* list);

} // namespace BTL
