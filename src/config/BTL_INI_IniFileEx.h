// SPDX-License-Identifier: MIT
#pragma once

#include "config/BTL_INI_Ini.h"

namespace Inifiles
{
class TCustomIniFile;
} // namespace Inifiles

namespace BTL
{

/// The stores on an ini file of the platform, `Inifiles::TCustomIniFile`. Without a file every call but those
/// that set names raises `Sysutils::Exception`. A text that could not be read back as it was, or become
/// another key or section, raises `Inifiles::EIniFileException`, and nothing is written.
class TRS8_BTL_API ACustomIniFileImp : public AIniImp
{
public:
    ~ACustomIniFileImp() override;

    void Save() override;
    bool FileReadOnly() override;
    bool FileExists() override;
    bool SectionExists(const System::UnicodeString& section) override;
    /// True also for a key with an empty value.
    bool KeyExists(const System::UnicodeString& section, const System::UnicodeString& key) override;
    void ReadSections(Classes::TStrings* sections) override;
    void ReadKeys(const System::UnicodeString& section, Classes::TStrings* keys) override;
    void ReadSectionValues(const System::UnicodeString& section, Classes::TStrings* lines) override;
    void EraseSection(const System::UnicodeString& section) override;
    void DeleteKey(const System::UnicodeString& key) override;
    bool ReadBool(const System::UnicodeString& key, bool defaultValue) override;
    int ReadInteger(const System::UnicodeString& key, int defaultValue) override;
    System::UnicodeString ReadString(const System::UnicodeString& key,
                                     const System::UnicodeString& defaultValue) override;
    void WriteBool(const System::UnicodeString& key, bool value) override;
    void WriteInteger(const System::UnicodeString& key, int value) override;
    void WriteString(const System::UnicodeString& key, const System::UnicodeString& value) override;

protected:
    ACustomIniFileImp();

    /// `Sysutils::Exception` if there is none yet.
    Inifiles::TCustomIniFile& File() const;
    /// Opens the file of this name, unless it is open.
    template <class File>
    void Open(const System::UnicodeString& file);

private:
    System::GOwner<Inifiles::TCustomIniFile> mFile;
};

/// The file itself: each write is on the disk, whole, when the call ends, and raises
/// `Inifiles::EIniFileException` if that fails.
class TRS8_BTL_API CIniFileImp : public ACustomIniFileImp
{
public:
    CIniFileImp();
    ~CIniFileImp() override;

    void SetFile(const System::UnicodeString& file) override;
    /// On the disk when the call ends.
    void InOneStep(const System::TClosure<void()>& write) override;
};

/// The image of a file in memory, taken when the file is set. Only `Save` writes the file; of two images the
/// last save wins.
class TRS8_BTL_API CMemIniFileImp : public ACustomIniFileImp
{
public:
    CMemIniFileImp();
    ~CMemIniFileImp() override;

    /// `Sysutils::Exception` with the text `EIniText::CannotWrite` if the file can't be written, which is as
    /// it was then.
    void Save() override;
    /// The name that the store has keeps what isn't saved, another one drops it.
    void SetFile(const System::UnicodeString& file) override;

    /// All lines of the image, comments and blank ones too.
    void GetStrings(Classes::TStrings* lines);
    /// Makes the lines the image; null empties it.
    void SetStrings(Classes::TStrings* lines);
};

/// Settings in an ini file that each write changes at once. A write costs a replacement of the file; see
/// `CMemIniFile` for many.
///
///     BTL::CIniFileEx ini(u"\\home\\me\\station.ini", u"Run");
///     ini.WriteInt("Channels", 4);                                // on the disk
class TRS8_BTL_API CIniFileEx : public AIni
{
public:
    /// Needs `setFile` before anything else.
    CIniFileEx();
    explicit CIniFileEx(const System::UnicodeString& file);
    CIniFileEx(const System::UnicodeString& file, const System::UnicodeString& section);
    ~CIniFileEx() override;
};

/// Settings in the image of an ini file, which `Save` writes.
///
///     BTL::CMemIniFile ini(u"\\home\\me\\station.ini", u"Run");
///     ini.WriteInt("Channels", 4);                                // in memory
///     ini.Save();                                                 // on the disk
class TRS8_BTL_API CMemIniFile : public AIni
{
public:
    /// Needs `setFile` before anything else.
    CMemIniFile();
    explicit CMemIniFile(const System::UnicodeString& file);
    CMemIniFile(const System::UnicodeString& file, const System::UnicodeString& section);
    ~CMemIniFile() override;
};

} // namespace BTL
