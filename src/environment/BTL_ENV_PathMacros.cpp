// SPDX-License-Identifier: MIT
#include "environment/BTL_ENV_PathMacros.h"

#include "environment/BTL_ENV_UserFolders.h"
#include "environment/folders/BTL_ENV_Folders.h"

namespace BTL
{

void AddDefaultPathMacrosTo(CStringPairs& pairs)
{
    pairs.Add(u"%Root", GetRootPath());
    pairs.Add(u"%Bin", GetBinPath());
    pairs.Add(u"%AddIns", GetAddInsPath());
    pairs.Add(u"%ProgramData", GetProgramDataPath());
    pairs.Add(u"%TestData", GetTestDataPath());
    pairs.Add(u"%UserData", GetUserDataPath());
    pairs.Add(u"%Temp", GetTempPathW());
}

void AddDefaultPathMacrosTo2(CStringPairs& pairs)
{
    AddDefaultPathMacrosTo(pairs);
    pairs.Add(u"%DATA", GetUserDataPath());
    pairs.Add(u"%PDATA", GetProgramDataPath());
    pairs.Add(u"%TDATA", GetTestDataPath());
}

System::UnicodeString ReplaceMacroToPath(const System::UnicodeString& text)
{
    CStringPairs macros;
    AddDefaultPathMacrosTo2(macros);
    return macros.ReplaceMacroToPath(text);
}

System::UnicodeString ReplacePathToMacro(const System::UnicodeString& path)
{
    CStringPairs macros;
    AddDefaultPathMacrosTo(macros);
    return macros.ReplacePathToMacro(path);
}

} // namespace BTL
