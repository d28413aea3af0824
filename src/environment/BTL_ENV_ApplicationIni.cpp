// SPDX-License-Identifier: MIT
#include "environment/BTL_ENV_ApplicationIni.h"

#include "config/BTL_INI_WinIniFile.h"
#include "environment/BTL_ENV_UserFolders.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "os/Win_sys_utilitiesw.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/visual/Forms.h"
#include "platform/visual/graphics/Graphics_Icon.h"

#include <array>

namespace BTL
{

namespace
{

using System::UnicodeString;

struct TTextKey
{
    const char16_t* key;
    UnicodeString CApplicationIni::*field;
    const char16_t* usual = u"";
};

struct TNumberKey
{
    const char* key;
    int CApplicationIni::*field;
    int usual = 0;
};

constexpr TTextKey textKeys[] = {
    {u"KernelName", &CApplicationIni::KernelName},
    {u"Vendor", &CApplicationIni::Vendor},
    {u"VendorEx", &CApplicationIni::VendorEx},
    {u"VendorURL", &CApplicationIni::VendorURL},
    {u"AppName", &CApplicationIni::AppName},
    {u"AppName_VerNo", &CApplicationIni::AppName_VerNo},
    {u"AppFileName", &CApplicationIni::AppFileName},
    {u"AppAttributes", &CApplicationIni::AppAttributes},
    {u"Title", &CApplicationIni::Title},
    {u"HelpFile", &CApplicationIni::HelpFile},
    {u"IB_ErrorHelpFile", &CApplicationIni::IB_ErrorHelpFile, u"IB_Error.chm"},
    {u"IconFile", &CApplicationIni::IconFile},
    {u"DefaultDBFile", &CApplicationIni::DefaultDBFile},
    {u"UserDataPath", &CApplicationIni::UserDataPath},
    {u"UserDataSubPath", &CApplicationIni::UserDataSubPath},
    {u"HomePageURL", &CApplicationIni::HomePageURL},
    {u"NewsURL", &CApplicationIni::NewsURL},
    {u"ForumURL", &CApplicationIni::ForumURL},
    {u"SupportURL", &CApplicationIni::SupportURL},
    {u"Extra", &CApplicationIni::Extra},
    {u"ExtraURL", &CApplicationIni::ExtraURL},
    {u"AutoURL", &CApplicationIni::AutoURL},
    {u"ChangeInfoURL", &CApplicationIni::ChangeInfoURL},
    {u"RemoteControlExe", &CApplicationIni::RemoteControlExe, u"teamviewer"},
    {u"RemoteControlCaption", &CApplicationIni::RemoteControlCaption, u"TeamViewer"},
    {u"ExternalAppInstallPath", &CApplicationIni::ExternalAppInstallPath},
    {u"ExternalAppExe", &CApplicationIni::ExternalAppExe},
    {u"ExternalAppParams", &CApplicationIni::ExternalAppParams},
    {u"ExternalAppCaption", &CApplicationIni::ExternalAppCaption},
};

constexpr TNumberKey numberKeys[] = {
    {"VendorNo", &CApplicationIni::VendorNo},
    {"AppVersion", &CApplicationIni::AppVersion},
    {"AppNo", &CApplicationIni::AppNo},
    {"MainFormOnTaskBar", &CApplicationIni::MainFormOnTaskBar, -1},
};

const CApplicationIni* given = nullptr;

} // namespace

CApplicationIni::CApplicationIni()
{
    Load();
}

void CApplicationIni::Load()
{
    CWIN_IniFile ini(GetProductPath() + u"Application.ini", u"Application");
    for (const TTextKey& text : textKeys) {
        this->*text.field = ini.ReadString(UnicodeString(text.key), text.usual);
    }
    for (const TNumberKey& number : numberKeys) {
        this->*number.field = ini.ReadInt(number.key, number.usual);
    }
    UserDataLocation = ini.ReadHex("UserDataLocation", 0);
    if (ExternalAppInstallPath.IsEmpty()) {
        ExternalAppInstallPath = Sysutils::ExtractFilePath(ExternalAppExe);
    }
}

void CApplicationIni::Set(const CApplicationIni* instance)
{
    given = instance;
}

const CApplicationIni* CApplicationIni::Get()
{
    if (given != nullptr) {
        return given;
    }
    // Never destroyed: global objects of programs and add-ins ask for folders in their destructors too.
    static const auto* const builtIn = new CApplicationIni;
    return builtIn;
}

UnicodeString CApplicationIni::getHelpFileEx() const
{
    return GetHelpPath() + HelpFile;
}

UnicodeString CApplicationIni::getIB_ErrorHelpFile() const
{
    return IB_ErrorHelpFile.IsEmpty() ? UnicodeString() : GetHelpPath() + IB_ErrorHelpFile;
}

UnicodeString CApplicationIni::getDefaultDBFileEx() const
{
    return GetUserDBPath() + DefaultDBFile;
}

void CApplicationIni::AssignToCurrApplication() const
{
    if (MainFormOnTaskBar != -1) {
        Forms::Application->setMainFormOnTaskBar(MainFormOnTaskBar != 0);
    }
    Forms::Application->setTitle(getTitle());
    Forms::Application->setHelpFile(getHelpFileEx());
    if (!IconFile.IsEmpty() && Sysutils::FileExists(GetProductPath() + IconFile)) {
        Forms::Application->getIcon()->LoadFromFile(GetProductPath() + IconFile);
    }
}

void CApplicationIni::OpenExternalApp() const
{
    if (ExternalAppExe.IsEmpty()) {
        return;
    }
    // A program that is named by itself isn't searched on the path, but starts in its folder.
    const bool isFile = Sysutils::FileExists(ExternalAppExe);
    const UnicodeString program =
        isFile && ExternalAppExe.Pos(u" ") > 0 ? u'"' + ExternalAppExe + u'"' : ExternalAppExe;
    const UnicodeString command = ExternalAppParams.IsEmpty() ? program : program + u' ' + ExternalAppParams;
    WIN::ExecApplication(isFile ? ExternalAppExe.c_str() : nullptr, command.c_str(), 1);
}

} // namespace BTL
