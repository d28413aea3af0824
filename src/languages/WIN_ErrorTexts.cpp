// SPDX-License-Identifier: MIT
#include "languages/WIN_ErrorTexts.h"

#include "config/BTL_INI_WinIniFile.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "os/WIN_LastError.h"
#include "platform/runtime/sysutils/System_Printf.h"

#include <mutex>

namespace WIN
{

using System::UnicodeString;

namespace
{

/// Where the texts come from.
class CErrorTextPath
{
public:
    UnicodeString Get()
    {
        const std::scoped_lock lock(mGate);
        return mPath.IsEmpty() ? BTL::GetProgramIDSPath() : mPath;
    }
    void Set(const UnicodeString& path)
    {
        const std::scoped_lock lock(mGate);
        mPath = path;
    }

private:
    std::mutex mGate;
    UnicodeString mPath;
};

CErrorTextPath& ErrorTextPath()
{
    // Never destroyed: calls fail in the destructors of global objects too.
    static auto& path = *new CErrorTextPath;
    return path;
}

[[maybe_unused]] const bool linked = [] {
    GetSectionMessage = ReadErrorText;
    return true;
}();

} // namespace

UnicodeString ReadErrorText(unsigned long code, const UnicodeString& section)
{
    BTL::CWIN_IniFile ini(ErrorTextPath().Get() + u"WIN_Error_German.ids", section);
    if (!ini.FileExists()) {
        return u"WIN-Error-IDS File is missing.";
    }
    const UnicodeString text = ini.ReadEscSeqString(UnicodeString(code), UnicodeString());
    // Large codes are known as negative numbers too.
    return text.IsEmpty() ? System::Printf(u"Unexpected error %d in %s.", static_cast<int>(code), section)
                          : text;
}

void SetErrorTextPath(const UnicodeString& path)
{
    ErrorTextPath().Set(path);
}

} // namespace WIN
