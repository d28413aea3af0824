// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/base/Sysutils_Exception.h"

namespace Classes
{
class TStrings;
} // namespace Classes

namespace Host
{
class ProfileBundle;
class ProfileText;
} // namespace Host

namespace Inifiles
{

/// An ini file that can't be written, or a text that can't stand in one.
class TRS8_BTL_API EIniFileException : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EIniFileException() override;
};

/// Values by section and key in an ini file. Sections and keys are found without regard to case, and listed
/// in the order of the file. A read of what isn't there gives the default. A text that would not read back as
/// it was, or become another key or section, is refused with `EIniFileException` before anything is written:
/// a line break, a zero or a lone surrogate in any text, an empty name, a key that begins with `;` or `[` or
/// holds `=`, a section that holds `]`. A null list is not filled; any other is cleared first.
///
///     Inifiles::TIniFile ini(u"station.ini");
///     const int channels = ini.ReadInteger(u"Run", u"Channels", 4);
///     ini.WriteString(u"Run", u"Title", u"Bench 3");              // on the disk when the call ends
class TRS8_BTL_API TCustomIniFile
{
public:
    TCustomIniFile(const TCustomIniFile&) = delete;
    TCustomIniFile& operator=(const TCustomIniFile&) = delete;
    virtual ~TCustomIniFile();

    /// The name as it was given.
    const System::UnicodeString& getFileName() const noexcept { return mFileName; }

    /// Whether the section has a key.
    virtual bool SectionExists(const System::UnicodeString& section) const = 0;
    /// Whether the section has the key, with whatever value.
    virtual bool ValueExists(const System::UnicodeString& section,
                             const System::UnicodeString& key) const = 0;
    virtual System::UnicodeString ReadString(const System::UnicodeString& section,
                                             const System::UnicodeString& key,
                                             const System::UnicodeString& defaultValue) const = 0;
    virtual void WriteString(const System::UnicodeString& section, const System::UnicodeString& key,
                             const System::UnicodeString& value) = 0;
    /// Decimal, or hexadecimal behind `$` or `0x`; any other text gives the default.
    int ReadInteger(const System::UnicodeString& section, const System::UnicodeString& key,
                    int defaultValue) const;
    void WriteInteger(const System::UnicodeString& section, const System::UnicodeString& key, int value);
    /// Any integer but 0 is true.
    bool ReadBool(const System::UnicodeString& section, const System::UnicodeString& key,
                  bool defaultValue) const;
    /// As 1 or 0.
    void WriteBool(const System::UnicodeString& section, const System::UnicodeString& key, bool value);

    /// The names of all sections.
    virtual void ReadSections(Classes::TStrings* sections) const = 0;
    /// The keys of the section.
    virtual void ReadSection(const System::UnicodeString& section, Classes::TStrings* keys) const = 0;
    /// The lines "key=value" of the section.
    virtual void ReadSectionValues(const System::UnicodeString& section, Classes::TStrings* lines) const = 0;
    virtual void EraseSection(const System::UnicodeString& section) = 0;
    virtual void DeleteKey(const System::UnicodeString& section, const System::UnicodeString& key) = 0;
    /// Brings the file up to date.
    virtual void UpdateFile() = 0;

protected:
    explicit TCustomIniFile(const System::UnicodeString& fileName);

private:
    System::UnicodeString mFileName;
};

/// The file itself: each write is on the disk, whole, when the call ends, and what other programs write shows
/// at the next read. The file needn't exist.
class TRS8_BTL_API TIniFile : public TCustomIniFile
{
public:
    explicit TIniFile(const System::UnicodeString& fileName);
    ~TIniFile() override;

    bool SectionExists(const System::UnicodeString& section) const override;
    bool ValueExists(const System::UnicodeString& section, const System::UnicodeString& key) const override;
    System::UnicodeString ReadString(const System::UnicodeString& section, const System::UnicodeString& key,
                                     const System::UnicodeString& defaultValue) const override;
    void WriteString(const System::UnicodeString& section, const System::UnicodeString& key,
                     const System::UnicodeString& value) override;
    void ReadSections(Classes::TStrings* sections) const override;
    void ReadSection(const System::UnicodeString& section, Classes::TStrings* keys) const override;
    void ReadSectionValues(const System::UnicodeString& section, Classes::TStrings* lines) const override;
    void EraseSection(const System::UnicodeString& section) override;
    void DeleteKey(const System::UnicodeString& section, const System::UnicodeString& key) override;
    /// Does nothing: there is nothing left to write.
    void UpdateFile() override;
};

/// The image of a file in memory, taken when the object is made; a missing file gives an empty one. Writes
/// change the image alone, until `UpdateFile` makes it the file.
class TRS8_BTL_API TMemIniFile : public TCustomIniFile
{
public:
    explicit TMemIniFile(const System::UnicodeString& fileName);
    ~TMemIniFile() override;

    bool SectionExists(const System::UnicodeString& section) const override;
    bool ValueExists(const System::UnicodeString& section, const System::UnicodeString& key) const override;
    System::UnicodeString ReadString(const System::UnicodeString& section, const System::UnicodeString& key,
                                     const System::UnicodeString& defaultValue) const override;
    void WriteString(const System::UnicodeString& section, const System::UnicodeString& key,
                     const System::UnicodeString& value) override;
    void ReadSections(Classes::TStrings* sections) const override;
    void ReadSection(const System::UnicodeString& section, Classes::TStrings* keys) const override;
    void ReadSectionValues(const System::UnicodeString& section, Classes::TStrings* lines) const override;
    void EraseSection(const System::UnicodeString& section) override;
    void DeleteKey(const System::UnicodeString& section, const System::UnicodeString& key) override;
    /// Replaces the file in one step, whatever others wrote to it meanwhile. `EIniFileException` if it can't
    /// be written; the file is as it was then. One that couldn't be read is kept beside first.
    void UpdateFile() override;

    /// All lines of the image, comments and blank ones too.
    void GetStrings(Classes::TStrings* lines) const;
    /// Makes the lines the image; null empties it. Only `UpdateFile` writes them.
    void SetStrings(const Classes::TStrings* lines);

private:
    System::GOwner<Host::ProfileText> mText;
    /// Whether the image lacks what the file held.
    bool mIsUnread;
};

/// Bundles what `TIniFile` objects write to one file: it can be read in the process at once, and is on the
/// disk in one step at the end.
///
///     Inifiles::CIniBundle bundle(ini.getFileName());
///     for (const auto& [key, value] : settings) {
///         ini.WriteString(u"Run", key, value);
///     }
///     bundle.End();
class TRS8_BTL_API CIniBundle
{
public:
    explicit CIniBundle(const System::UnicodeString& fileName);
    CIniBundle(const CIniBundle&) = delete;
    CIniBundle& operator=(const CIniBundle&) = delete;
    /// Writes what was written before an exception, and tells no failure.
    ~CIniBundle();

    /// `EIniFileException` if the file can't be written, which is as it was then.
    void End();

private:
    System::UnicodeString mFileName;
    System::GOwner<Host::ProfileBundle> mBundle;
};

} // namespace Inifiles
