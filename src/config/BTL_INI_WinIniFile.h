// SPDX-License-Identifier: MIT
#pragma once

#include "config/BTL_INI_Ini.h"

namespace BTL
{

/// The store on a profile file, straight through the functions of `Host_Profile.h`: each write is on the
/// disk, whole, when the call ends, and what other programs write shows at the next read. A value is read up
/// to 65534 characters, and so are all names of a list together; `Clear` and `WriteMissingSectionValues` know
/// all names.
class TRS8_BTL_API CWIN_IniFileImp : public AIniImp
{
public:
    CWIN_IniFileImp();
    ~CWIN_IniFileImp() override;

    /// Takes the read-only attribute away, if the file has it.
    void Save() override;
    /// Does nothing: there is nothing left to write.
    void Flush() override;
    bool FileReadOnly() override;
    bool FileExists() override;
    /// False for a key with an empty value.
    bool KeyExists(const System::UnicodeString& section, const System::UnicodeString& key) override;
    void ReadSections(Classes::TStrings* sections) override;
    void ReadKeys(const System::UnicodeString& section, Classes::TStrings* keys) override;
    void WriteMissingSectionValues(const System::UnicodeString& section, Classes::TStrings* lines) override;
    void Clear() override;
    /// `Sysutils::Exception` with the text `EIniText::CannotWrite` if the file can't be written.
    void EraseSection(const System::UnicodeString& section) override;
    /// A failure isn't told.
    void DeleteKey(const System::UnicodeString& key) override;
    /// The number at the begin of the value, see `GetPrivateProfileIntW`.
    int ReadInteger(const System::UnicodeString& key, int defaultValue) override;
    System::UnicodeString ReadString(const System::UnicodeString& key,
                                     const System::UnicodeString& defaultValue) override;
    /// `Sysutils::Exception` with the text `EIniText::CannotWrite` if the file can't be written, and before
    /// anything is written if the text would not read back as it was or become another key or section.
    void WriteString(const System::UnicodeString& key, const System::UnicodeString& value) override;
    /// On the disk when the call ends; `Sysutils::Exception` with the text `EIniText::CannotWrite` if it
    /// can't be written.
    void InOneStep(const System::TClosure<void()>& write) override;

    /// Asks the platform to forget what it may remember of profile files.
    void DiscardCache();
};

/// Settings in a profile file that each write changes at once.
///
///     BTL::CWIN_IniFile ini(u"\\home\\me\\station.ini", u"Run");
///     if (!ini.ShowReadOnlyWarinig()) {
///         ini.WriteInt("Channels", 4);                            // on the disk
///     }
class TRS8_BTL_API CWIN_IniFile : public AIni
{
public:
    CWIN_IniFile();
    explicit CWIN_IniFile(const System::UnicodeString& file);
    CWIN_IniFile(const System::UnicodeString& file, const System::UnicodeString& section);
    ~CWIN_IniFile() override;

    /// As of `CWIN_IniFileImp`.
    void DiscardCache();

private:
    explicit CWIN_IniFile(CWIN_IniFileImp* store);

    CWIN_IniFileImp* mProfile;
};

} // namespace BTL
