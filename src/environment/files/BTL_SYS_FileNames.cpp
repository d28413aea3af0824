// SPDX-License-Identifier: MIT
#include "environment/files/BTL_SYS_FileNames.h"

#include "languages/boxes/Btl_messagebox.h"
#include "platform/runtime/sysutils/Ioutils.h"
#include "platform/runtime/sysutils/Sysutils_FileName.h"
#include "platform/toolkit/MessageBox.h"
#include "text/lists/BTL_STR_StringSet.h"

#include <algorithm>

namespace BTL
{

using System::UnicodeString;

namespace
{

constexpr std::u16string_view InvalidChars = u"\r\n\\/:*?\"<>|";

/// Never destroyed: global objects may ask in their destructors.
const CStringSet& DeviceNames()
{
    static const auto* const names =
        new CStringSet(u"AUX,CON,NUL,PRN,COM1,COM2,COM3,COM4,COM5,COM6,COM7,COM8,COM9,"
                       u"LPT1,LPT2,LPT3,LPT4,LPT5,LPT6,LPT7,LPT8,LPT9");
    return *names;
}

} // namespace

bool IsFileNameCharValid(System::WideChar c)
{
    return InvalidChars.find(c) == std::u16string_view::npos;
}

bool IsFileNameValid(const UnicodeString& name)
{
    const auto text = name.AsView();
    return std::all_of(text.begin(), text.end(), IsFileNameCharValid) &&
           !DeviceNames().Contains(ExtractFileName(name, true));
}

bool IsFileNameValidOrMessageBox(const UnicodeString& name, const UnicodeString& format)
{
    const bool isValid = IsFileNameValid(name);
    if (!isValid) {
        MessageBox1_VA(format, MB_ICONSTOP, name);
    }
    return isValid;
}

UnicodeString GetValidFileName(const UnicodeString& name, char replacement)
{
    const UnicodeString wide(System::AnsiString(&replacement, 1));
    UnicodeString valid = name;
    std::replace_if(
        valid.UniqueData(), valid.UniqueData() + valid.Length(),
        [](System::WideChar c) { return !IsFileNameCharValid(c); }, wide[1]);
    return valid;
}

UnicodeString ExtractFileName(const UnicodeString& path, bool withoutExtension)
{
    const UnicodeString name = Sysutils::ExtractFileName(path);
    return withoutExtension ? Sysutils::ChangeFileExt(name, u"") : name;
}

bool IsNetPath(const UnicodeString& path)
{
    constexpr int DriveColon = 2;
    constexpr int ColonBehindPrefix = 5;
    const int colon = path.Pos(u":");
    if (colon == DriveColon) {
        return false;
    }
    if (path.Length() > 4 && Ioutils::TPath::IsExtendedPrefixed(path)) {
        return colon != ColonBehindPrefix;
    }
    const auto text = path.AsView();
    if (text.size() > 2 && (text.starts_with(u"\\\\") || text.starts_with(u"//"))) {
        return true;
    }
    return colon > DriveColon;
}

} // namespace BTL
