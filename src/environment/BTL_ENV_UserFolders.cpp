// SPDX-License-Identifier: MIT
#include "environment/BTL_ENV_UserFolders.h"

#include "environment/BTL_ENV_ApplicationIni.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "environment/folders/internal/BTL_ENV_KeptFolder.h"
#include "environment/folders/internal/BTL_ENV_LastFolder.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "languages/BTL_I18N_Language.h"
#include "platform/host/Host_SpecialFolder.h"
#include "platform/runtime/sysutils/Sysutils_File.h"

namespace BTL
{

namespace
{

using Detail::KeptFolder;
using System::UnicodeString;

constexpr const char* Source = "BTL_ENV_UserFolders";
constexpr UTL::CFaultPlace NoColumnsName{Source, 40};
constexpr UTL::CFaultPlace NoDBDefName{Source, 41};
constexpr UTL::CFaultPlace NoFormDefName{Source, 42};

const UnicodeString& Made(const UnicodeString& folder)
{
    Sysutils::ForceDirectories(folder);
    return KeptFolder(folder);
}

UnicodeString WorkOutUserDataPath()
{
    const CApplicationIni& application = *CApplicationIni::Get();
    if (!application.UserDataPath.IsEmpty() && Sysutils::DirectoryExists(application.UserDataPath)) {
        return AddPathDelimiter(application.UserDataPath);
    }
    const UnicodeString sub = application.UserDataSubPath.IsEmpty()
                                  ? u"TARMIS\\" + Sysutils::ExtractFileName(DelPathDelimiter(GetRootPath()))
                                  : application.UserDataSubPath;
    const int location =
        application.UserDataLocation == 0 ? int(Host::CommonDocumentsFolder) : application.UserDataLocation;
    const UnicodeString shared = AddPathDelimiter(GetShellPath(location) + sub);
    return Sysutils::DirectoryExists(shared) ? shared : GetRootPath() + u"UserData\\";
}

UnicodeString WorkOutTestDataPath()
{
    const UnicodeString shared = GetShellPath(Host::CommonDocumentsFolder) + u"TARMIS\\TestData\\";
    return Sysutils::DirectoryExists(shared) ? shared : GetRootPath() + u"TestData\\";
}

/// The folder `sub` in that of one of the user's databases.
UnicodeString DatabaseFolder(CLastFolder& last, const UnicodeString& name, const UnicodeString& sub,
                             const UTL::CFaultPlace& noName)
{
    if (name.IsEmpty()) {
        UTL::THROW_XAssert(noName);
    }
    return last.Make(GetUserDBPath() + name + sub);
}

} // namespace

UnicodeString GetShellPath(int csidl)
{
    return AddPathDelimiter(Host::SpecialFolder(csidl));
}

UnicodeString GetProgramFilesPath()
{
    return GetShellPath(Host::ProgramFilesFolder);
}

UnicodeString GetUserDataPath()
{
    static const auto& path = KeptFolder(WorkOutUserDataPath());
    return path;
}

UnicodeString GetUserDataPath(const UnicodeString& sub)
{
    UnicodeString folder = GetUserDataPath() + sub;
    Sysutils::ForceDirectories(folder);
    return folder;
}

UnicodeString GetUserIniPath()
{
    static const auto& path = Made(GetUserDataPath() + u"Ini\\");
    return path;
}

UnicodeString GetUserI18NPath()
{
    static const auto& path = Made(GetUserDataPath() + u"I18N\\");
    return path;
}

UnicodeString GetUserSisulizerPath()
{
    static const auto& path = Made(GetUserDataPath() + u"Sisulizer\\");
    return path;
}

UnicodeString GetUserFilterPath()
{
    static const auto& path = Made(GetUserDataPath() + u"Filter\\");
    return path;
}

UnicodeString GetUserDBColumnsPath()
{
    static const auto& path = Made(GetUserDataPath() + u"Columns\\");
    return path;
}

UnicodeString GetUserDBColumnsPath(const UnicodeString& name)
{
    static auto& last = *new CLastFolder;
    if (name.IsEmpty()) {
        UTL::THROW_XAssert(NoColumnsName);
    }
    return last.Make(GetUserDBColumnsPath() + name + u'\\');
}

UnicodeString GetUserFormIniPath()
{
    static const auto& path = Made(GetUserDataPath() + u"FormIni\\");
    return path;
}

UnicodeString GetUserDBGridPath()
{
    static const auto& path = Made(GetUserDataPath() + u"Grd\\");
    return path;
}

UnicodeString GetUserAddInDataPath()
{
    static const auto& path = Made(GetUserDataPath() + u"AddIns\\");
    return path;
}

UnicodeString GetLogPath()
{
    static const auto& path = Made(GetUserDataPath() + u"Log\\");
    return path;
}

UnicodeString GetProfilerPath()
{
    static const auto& path = Made(GetUserDataPath() + u"Profiler\\");
    return path;
}

UnicodeString GetTempPathW()
{
    static const auto& path = Made(GetUserDataPath() + u"Temp\\");
    return path;
}

System::AnsiString GetTempPathA()
{
    return System::AnsiString(GetTempPathW());
}

UnicodeString GetUserFRPath()
{
    static const auto& path = KeptFolder(GetUserDataPath() + u"FR\\");
    return path;
}

UnicodeString GetUserDBPath()
{
    static const auto& path = KeptFolder(GetUserDataPath() + u"DB\\");
    return path;
}

UnicodeString GetCustomDBDefPath(const UnicodeString& name)
{
    static auto& last = *new CLastFolder;
    return DatabaseFolder(last, name, u"\\CustDBDef\\", NoDBDefName);
}

UnicodeString GetCustomFormDefPath(const UnicodeString& name)
{
    static auto& last = *new CLastFolder;
    return DatabaseFolder(last, name, u"\\CustFormDef\\", NoFormDefName);
}

UnicodeString GetDBSchemaCacheDir(const UnicodeString& name)
{
    UnicodeString folder = GetUserDBPath() + u"SchemaCache_" + name;
    Sysutils::ForceDirectories(folder);
    return folder;
}

UnicodeString GetI18NLanguageDataPath(ELanguage language)
{
    static auto& last = *new CLastFolder;
    return last.Make(GetUserDataPath() + u"I18N\\" + GetI18NLanguageName(language) + u'\\');
}

UnicodeString GetI18NLanguageDataPath()
{
    return GetI18NLanguageDataPath(GetCurLanguage());
}

UnicodeString GetExportPath()
{
    static const auto& path = Made(GetTempPathW() + u"Export\\");
    return path;
}

UnicodeString GetTempUnitTestPath()
{
    static const auto& path = Made(GetTempPathW() + u"UnitTest\\");
    return path;
}

UnicodeString GetReplicationTempPath()
{
    static const auto& path = Made(GetTempPathW() + u"Replica\\");
    return path;
}

UnicodeString GetTestDataPath()
{
    static const auto& path = KeptFolder(WorkOutTestDataPath());
    return path;
}

} // namespace BTL
