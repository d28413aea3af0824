// SPDX-License-Identifier: MIT
#pragma once

#include "config/WIN_IniFileW.h"
#include "platform/runtime/typinfo/System_Closure.h"

namespace Classes
{
class TStrings;
} // namespace Classes

namespace BTL
{

/// A section of an ini file whose keys can be walked through. All keys together have at most 65534
/// characters, further ones are left out.
///
///     BTL::CIniFile ini(u"Channels", u"station.ini", [&](const UnicodeString& key, BTL::CIniFile* file) {
///         Add(key, file->GetInt(key, 0));
///     });
///     ini.ReadAll();
class TRS8_BTL_API CIniFile : public WIN::CIniFileW
{
public:
    /// Gets each key that is read.
    using TReadHandler = System::TClosure<void(const System::UnicodeString& key, CIniFile* file)>;

    /// What is done with each name.
    class TRS8_BTL_API AReadAction
    {
    public:
        virtual ~AReadAction();
        virtual void operator()(const System::UnicodeString& name) = 0;

    protected:
        AReadAction() = default;
        AReadAction(const AReadAction&) = default;
        AReadAction& operator=(const AReadAction&) = default;
    };

    CIniFile();
    /// As `Init` of `WIN::CIniFileW`; the form without a section has the names of the sections for keys.
    CIniFile(const System::UnicodeString& file, const TReadHandler& handler);
    CIniFile(const System::UnicodeString& section, const System::UnicodeString& file,
             const TReadHandler& handler);
    CIniFile(const System::UnicodeString& section, const System::UnicodeString& file,
             const System::UnicodeString& path, const TReadHandler& handler);
    virtual ~CIniFile();

    /// The names of all sections in place of what the list has.
    void ReadSections(Classes::TStrings* list) const;
    /// Adds every key of the section; null is passed over.
    void GetAllKeys(Classes::TStrings* list) const;
    /// Calls `Read` for every key of the section.
    void ReadAll();
    /// Calls the handler, if there is one.
    virtual void Read(const System::UnicodeString& key);
    /// Calls the action for every key of the section, in the order of the file.
    void DoReadAll(AReadAction& action) const;

protected:
    /// Takes both texts as they are; the number is not looked at.
    CIniFile(int, const System::UnicodeString& file, const System::UnicodeString& section);

private:
    TReadHandler mHandler;
};

/// The sections of an ini file, to be walked through.
///
///     BTL::CSectionReader reader(u"station.ini", [](const UnicodeString& section, const WideChar* file) {
///         Open(BTL::CWIN_IniFile(file, section));
///     });
///     reader.ReadAll();
class TRS8_BTL_API CSectionReader : public CIniFile
{
public:
    /// Gets each section that is read.
    using TSectionHandler =
        System::TClosure<void(const System::UnicodeString& section, const System::WideChar* file)>;

    CSectionReader(const System::UnicodeString& file, const TSectionHandler& handler);
    ~CSectionReader() override;

    /// Whether the section has a key.
    bool SectionExists(const System::UnicodeString& section) const;
    /// Adds the names of all sections; null is passed over.
    void GetAllSections(Classes::TStrings* list) const;
    /// Calls the handler, if there is one.
    void Read(const System::UnicodeString& section) override;

private:
    TSectionHandler mHandler;
};

/// As `CIniFile`, but the file is named as it is, and values are read under the names that `AIni` uses. The
/// texts are those of `WIN::CIniFileW`.
class TRS8_BTL_API CIniFile2 : public CIniFile
{
public:
    CIniFile2();
    explicit CIniFile2(const System::UnicodeString& file);
    CIniFile2(const System::UnicodeString& section, const System::UnicodeString& file);
    ~CIniFile2() override;

    /// As `WIN::CIniFileW::GetInt`.
    int ReadInt(const System::UnicodeString& key, int defaultValue) const
    {
        return GetInt(key, defaultValue);
    }
    /// As `WIN::CIniFileW::GetFloat`: seven digits survive.
    double ReadFloat(const System::UnicodeString& key, double defaultValue) const;
    /// As `WIN::CIniFileW::WriteFloat`.
    bool WriteFloat(const System::UnicodeString& key, double value);
    /// As `WIN::CIniFileW::GetVclString`.
    System::UnicodeString ReadString(const System::UnicodeString& key,
                                     const System::UnicodeString& defaultValue = {})
    {
        return GetVclString(key, defaultValue);
    }
    /// As `WIN::CIniFileW::GetCommaText`.
    System::UnicodeString ReadCommaText(const System::UnicodeString& key,
                                        const System::UnicodeString& defaultValue = {}) const
    {
        return GetCommaText(key, defaultValue);
    }
};

} // namespace BTL
