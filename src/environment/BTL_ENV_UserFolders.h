// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

enum class ELanguage;

// The folders below the user's data, and the folders of the machine behind them. Each result ends with a
// separator unless its comment says otherwise, and is worked out once and then kept for the run. A folder
// that is made is made when it is first worked out; that it can't be made isn't told. The first request for
// one below the user's data reads the description of the program, `CApplicationIni`. The main thread makes
// the first calls.
//
//     const auto ini = BTL::GetUserIniPath() + u"station.ini";            // the folder is made
//     const auto columns = BTL::GetUserDBColumnsPath(u"Measurements");
//     const auto scratch = BTL::GetUserDataPath(u"Scratch\\Today\\");

/// A folder of the user or machine by its number among the special folders, such as 38 (programs), 46 (common
/// documents), 26 (settings) or 28 (data of the user); empty for a number that the host has no folder for. It
/// isn't kept.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetShellPath(int csidl);
/// The folder of installed programs. It isn't kept.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetProgramFilesPath();

/// The user's data: `UserDataPath` of the program's description if that folder exists; else the folder that
/// `UserDataSubPath` names, or "TARMIS\" with the name of the root folder, in the special folder
/// `UserDataLocation` (46 for 0), if it exists; else "UserData" in the root. It isn't made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserDataPath();
/// The user's data with `sub` behind, as it comes, without a separator added. It is made at each call.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserDataPath(const System::UnicodeString& sub);

/// "Ini" in the user's data. It is made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserIniPath();
/// "I18N" in the user's data. It is made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserI18NPath();
/// "Sisulizer" in the user's data. It is made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserSisulizerPath();
/// "Filter" in the user's data. It is made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserFilterPath();
/// "Columns" in the user's data. It is made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserDBColumnsPath();
/// `name` in "Columns". It is made, and kept until another name is asked for. An empty name is an internal
/// fault.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserDBColumnsPath(const System::UnicodeString& name);
/// "FormIni" in the user's data, for the state of forms. It is made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserFormIniPath();
/// "Grd" in the user's data. It is made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserDBGridPath();
/// "AddIns" in the user's data. It is made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserAddInDataPath();
/// "Log" in the user's data. It is made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetLogPath();
/// "Profiler" in the user's data. It is made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetProfilerPath();
/// "Temp" in the user's data. It is made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetTempPathW();
/// As `GetTempPathW`, in the code page.
[[nodiscard]] TRS8_BTL_API System::AnsiString GetTempPathA();
/// "FR" in the user's data. It isn't made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserFRPath();
/// "DB" in the user's data. It isn't made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetUserDBPath();

/// "CustDBDef" in the folder `name` of the user's databases. It is made, and kept until another name is asked
/// for. An empty name is an internal fault.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetCustomDBDefPath(const System::UnicodeString& name);
/// "CustFormDef" in the folder `name` of the user's databases; as `GetCustomDBDefPath`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetCustomFormDefPath(const System::UnicodeString& name);
/// "SchemaCache_" and `name` in the user's databases, without a final separator. It is made at each call.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetDBSchemaCacheDir(const System::UnicodeString& name);

/// The folder with the English name of the language in "I18N" of the user's data. It is made, and kept until
/// that of another language is asked for.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetI18NLanguageDataPath(ELanguage language);
/// As `GetI18NLanguageDataPath` of the current language.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetI18NLanguageDataPath();

/// "Export" in the user's temporary folder. It is made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetExportPath();
/// "UnitTest" in the user's temporary folder. It is made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetTempUnitTestPath();
/// "Replica" in the user's temporary folder. It is made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetReplicationTempPath();

/// "TARMIS\TestData" in the common documents if that exists, else "TestData" in the root. It isn't made.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetTestDataPath();

} // namespace BTL
