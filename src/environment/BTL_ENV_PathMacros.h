// SPDX-License-Identifier: MIT
#pragma once

#include "text/lists/BTL_STR_StringPairs.h"

namespace BTL
{

// Macros that stand for folders in stored texts, so that these stay valid when the program is moved: "%Root",
// "%Bin", "%AddIns", "%ProgramData", "%TestData", "%UserData" and "%Temp". On reading, "%DATA", "%PDATA" and
// "%TDATA" are the user's, the program's and the test data too.
//
//     const auto stored = BTL::ReplacePathToMacro(BTL::GetTempPathW() + u"a.txt");
//     const auto path = BTL::ReplaceMacroToPath(stored);          // the file where the folder is now

/// Adds the seven macros with their folders.
TRS8_BTL_API void AddDefaultPathMacrosTo(CStringPairs& pairs);
/// As `AddDefaultPathMacrosTo`, and the three short ones behind them.
TRS8_BTL_API void AddDefaultPathMacrosTo2(CStringPairs& pairs);

/// Puts its folder in the place of the first macro of a stored text that is known, the short ones among them.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ReplaceMacroToPath(const System::UnicodeString& text);
/// The reverse, never with a short macro.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ReplacePathToMacro(const System::UnicodeString& path);

} // namespace BTL
