// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

/// The description of a delivered program: the section "Application" of "Application.ini" in the product
/// folder. Each field is named as its key; all keys are optional, and nothing is ever written back. Web
/// addresses stand without scheme. The first `Get` belongs to the main thread; then the object is read-only.
///
///     const auto* application = BTL::CApplicationIni::Get();
///     application->AssignToCurrApplication();                     // title, help file
///     BTL::Log(application->AppName + u" of " + application->Vendor);
class TRS8_BTL_API CApplicationIni
{
public:
    /// Reads the file.
    CApplicationIni();

    /// Reads the file anew. A missing file or key gives the defaults, and so does a number that is none.
    void Load();

    /// Makes `instance`, which isn't owned, the one that `Get` gives; null goes back to the built-in one.
    static void Set(const CApplicationIni* instance);
    /// The instance of `Set`, else the built-in one, which is made at the first call and stays.
    [[nodiscard]] static const CApplicationIni* Get();

    const System::UnicodeString& getAppName() const noexcept { return AppName; }
    const System::UnicodeString& getTitle() const noexcept { return Title; }
    /// `HelpFile` in the help folder.
    System::UnicodeString getHelpFileEx() const;
    /// `IB_ErrorHelpFile` in the help folder; empty if the field is.
    System::UnicodeString getIB_ErrorHelpFile() const;
    /// `DefaultDBFile` in the folder of the user's databases.
    System::UnicodeString getDefaultDBFileEx() const;

    /// Hands title, help file and, unless it is -1, `MainFormOnTaskBar` to `Forms::Application`, and the icon
    /// if its file is there. Raises `Graphics::EInvalidGraphic` for a damaged one.
    void AssignToCurrApplication() const;
    /// Starts `ExternalAppExe` with `ExternalAppParams` and doesn't wait; does nothing without a program. A
    /// file is started in its folder; any other text is a command, whose program is searched on the path.
    /// `WIN::XLastError` if it can't be started.
    void OpenExternalApp() const;

    /// The program's kernel.
    System::UnicodeString KernelName;
    int VendorNo = 0;
    System::UnicodeString Vendor;
    /// The vendor's name in its long form.
    System::UnicodeString VendorEx;
    System::UnicodeString VendorURL;
    int AppVersion = 0;
    int AppNo = 0;
    System::UnicodeString AppName;
    /// The program's name with its version.
    System::UnicodeString AppName_VerNo;
    System::UnicodeString AppFileName;
    /// For the application's use.
    System::UnicodeString AppAttributes;
    /// -1 leaves the application's setting, 0 is off, all else on.
    int MainFormOnTaskBar = -1;
    System::UnicodeString Title;
    /// A name in the help folder.
    System::UnicodeString HelpFile;
    /// The help on errors of the database, a name in the help folder; "IB_Error.chm" by default.
    System::UnicodeString IB_ErrorHelpFile;
    /// A name in the product folder.
    System::UnicodeString IconFile;
    /// A name in the folder of the user's databases.
    System::UnicodeString DefaultDBFile;
    /// A full folder for the user's data.
    System::UnicodeString UserDataPath;
    /// The number of the special folder that holds the user's data, hexadecimal in the file; 0 means 46.
    int UserDataLocation = 0;
    /// A folder in that one.
    System::UnicodeString UserDataSubPath;
    System::UnicodeString HomePageURL;
    System::UnicodeString NewsURL;
    System::UnicodeString ForumURL;
    System::UnicodeString SupportURL;
    /// The caption of a menu item for `ExtraURL`.
    System::UnicodeString Extra;
    System::UnicodeString ExtraURL;
    /// For the application's use.
    System::UnicodeString AutoURL;
    /// For the application's use.
    System::UnicodeString ChangeInfoURL;
    /// The program for remote support; "teamviewer" by default.
    System::UnicodeString RemoteControlExe;
    /// "TeamViewer" by default.
    System::UnicodeString RemoteControlCaption;
    /// By default the folder of `ExternalAppExe`.
    System::UnicodeString ExternalAppInstallPath;
    System::UnicodeString ExternalAppExe;
    System::UnicodeString ExternalAppParams;
    System::UnicodeString ExternalAppCaption;
};

} // namespace BTL
