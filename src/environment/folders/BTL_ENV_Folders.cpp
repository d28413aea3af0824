// SPDX-License-Identifier: MIT
#include "environment/folders/BTL_ENV_Folders.h"

#include "environment/folders/internal/BTL_ENV_KeptFolder.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "foundation/UTL_Links.h"
#include "platform/host/internal/Host_PathText.h"
#include "platform/runtime/sysutils/Ioutils.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/visual/Forms.h"

#include <algorithm>
#include <vector>

namespace BTL
{

namespace
{

using Detail::KeptFolder;
using System::UnicodeString;

constexpr UTL::CFaultPlace NoName{"BTL_ENV_Folders", 135};

bool EndsWithSeparator(const UnicodeString& path)
{
    return !path.IsEmpty() && Sysutils::Detail::IsPathSeparator(path.AsView().back());
}

UnicodeString WorkOutRootPath()
{
    const UnicodeString program = GetApplicationPath();
    return ExtractFilePath(program.SubString(1, program.LastDelimiter(u"\\") - 1));
}

[[maybe_unused]] const bool linked = [] {
    UTL::Links().BinPath = GetBinPath;
    return true;
}();

} // namespace

UnicodeString GetApplicationPath()
{
    static const auto& path = KeptFolder(
        Forms::Application == nullptr ? UnicodeString() : ExtractFilePath(Forms::Application->getExeName()));
    return path;
}

UnicodeString GetBinPath()
{
    static const auto& path = KeptFolder(GetApplicationPath());
    return path;
}

UnicodeString GetRootPath()
{
    static const auto& path = KeptFolder(WorkOutRootPath());
    return path;
}

UnicodeString GetHelpPath()
{
    static const auto& path = KeptFolder(GetApplicationPath() + u"Help\\");
    return path;
}

UnicodeString GetAddInsPath()
{
    static const auto& path = KeptFolder(GetRootPath() + u"AddIns\\");
    return path;
}

UnicodeString GetUserRightsManagerAddInPath()
{
    static const auto& path = KeptFolder(GetRootPath() + u"UserRightsManager\\");
    return path;
}

UnicodeString GetPrintingAddInsPath()
{
    static const auto& path = KeptFolder(GetRootPath() + u"PrintingAddIns\\");
    return path;
}

UnicodeString GetPluginsPath()
{
    static const auto& path = KeptFolder(GetRootPath() + u"Plugins\\");
    return path;
}

UnicodeString GetProgramDataPath()
{
    static const auto& path = KeptFolder(GetRootPath() + u"ProgramData\\");
    return path;
}

UnicodeString GetProductPath()
{
    static const auto& path = KeptFolder(GetProgramDataPath() + u"Product\\");
    return path;
}

UnicodeString GetProgramIDSPath()
{
    static const auto& path = KeptFolder(GetProgramDataPath() + u"IDS\\");
    return path;
}

UnicodeString GetProgramIniPath()
{
    static const auto& path = KeptFolder(GetProgramDataPath() + u"Ini\\");
    return path;
}

UnicodeString GetProgramDBDefPath()
{
    static const auto& path = KeptFolder(GetProgramDataPath() + u"DBDef\\");
    return path;
}

UnicodeString GetProgramDBDefPath(const UnicodeString& name)
{
    if (name.IsEmpty()) {
        UTL::THROW_XAssert(NoName);
    }
    return GetProgramDBDefPath() + name + u'\\';
}

UnicodeString AddPathDelimiter(const UnicodeString& path)
{
    return path.IsEmpty() || EndsWithSeparator(path) ? path : path + u'\\';
}

UnicodeString DelPathDelimiter(const UnicodeString& path)
{
    return EndsWithSeparator(path) ? path.SubString(1, path.Length() - 1) : path;
}

UnicodeString GetFullPath(const UnicodeString& path)
{
    return Sysutils::ExtractFilePath(path).IsEmpty() ? path : Ioutils::TPath::GetFullPath(path);
}

UnicodeString ExtractFilePath(const UnicodeString& path)
{
    return GetFullPath(Sysutils::ExtractFilePath(path));
}

UnicodeString GetEndSubPath(const UnicodeString& path, int count)
{
    std::vector<UnicodeString> parts;
    UnicodeString rest = DelPathDelimiter(GetFullPath(path));
    for (UnicodeString name = Sysutils::ExtractFileName(rest); !name.IsEmpty();
         name = Sysutils::ExtractFileName(rest)) {
        parts.push_back(name);
        rest = DelPathDelimiter(ExtractFilePath(rest));
    }
    if (!rest.IsEmpty()) {
        parts.push_back(rest);
    }
    parts.resize(std::min(parts.size(), static_cast<std::size_t>(std::max(count, 0))));
    UnicodeString result;
    std::for_each(parts.rbegin(), parts.rend(), [&](const UnicodeString& part) { result += part + u'\\'; });
    return result;
}

bool FileReadOnly(const UnicodeString& file)
{
    const int attributes = Sysutils::FileGetAttr(file);
    return attributes != -1 && (attributes & Sysutils::faReadOnly) != 0;
}

bool GetFiles(const UnicodeString& folder, const UnicodeString& mask, Classes::TStrings* list)
{
    if (list == nullptr) {
        return false;
    }
    list->Clear();
    Sysutils::TSearchRec found;
    for (int error = Sysutils::FindFirst(AddPathDelimiter(folder) + mask, Sysutils::faAnyFile, found);
         error == 0; error = Sysutils::FindNext(found)) {
        if ((found.Attr & Sysutils::faDirectory) == 0) {
            list->Add(found.Name);
        }
    }
    Sysutils::FindClose(found);
    return list->getCount() > 0;
}

} // namespace BTL
