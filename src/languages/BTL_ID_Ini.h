// SPDX-License-Identifier: MIT
#pragma once

#include "config/BTL_INI_Ini.h"
#include "languages/BTL_ID_Strings.h"

namespace BTL
{

/// Language texts of any store, by their own numbers: nothing is kept in memory, and they can be written. A
/// key is the number by a format of `FormatInt`, which is "000000000" unless another is given; a null format
/// means that one too.
///
///     BTL::AIDSIni texts(new BTL::CMemIniFileImp(u"texts.ids"), u"0000");
///     texts.setSection(u"IDS");
///     texts.WriteIDString(12, u"two\nlines");                     // key 0012
class TRS8_BTL_API AIDSIni : public AIni, public AID_Strings
{
public:
    /// Without a store.
    AIDSIni();
    /// Owns the store.
    explicit AIDSIni(AIniImp* store);
    AIDSIni(AIniImp* store, const char* format);
    AIDSIni(AIniImp* store, const System::WideChar* format);
    ~AIDSIni() override;

    /// Back to "000000000".
    void SetDefaultKeyFormat();

    /// Whether the section has a text of this number; an empty one may count as none, as the store tells.
    bool IDKeyExists(int id);
    /// Writes the text with its line breaks as escapes. What a failure does is told by the store.
    void WriteIDString(int id, const System::UnicodeString& text);

    /// Empty if there is no such text.
    System::UnicodeString GetString(int id) override;
    /// `defaultValue`, with its escapes applied, if there is no such text; an empty text is one.
    System::UnicodeString GetStringDef(int id, const System::UnicodeString& defaultValue) override;

protected:
    /// Sets the format of keys; null is the default one.
    void SetKeyFormat(const char* format);
    void SetKeyFormat(const System::WideChar* format);

    TOrigin GetOrigin(int id) override;

private:
    System::UnicodeString KeyOf(int id) const;

    System::UnicodeString mKeyFormat;
};

/// As `AIDSIni`, over a file, which is read at each text and written at once.
///
///     BTL::CIDSIniFile texts(u"station.ids", u"IDS", u"0000");
///     ShowText(texts.GetStringDef(12, u"no text"));               // key 0012
class TRS8_BTL_API CIDSIniFile : public AIDSIni
{
public:
    /// Without a file, until `setFile` tells it.
    CIDSIniFile();
    /// Without a section, until `setSection` tells it.
    explicit CIDSIniFile(const System::UnicodeString& file);
    CIDSIniFile(const System::UnicodeString& file, const System::UnicodeString& section, const char* format);
    CIDSIniFile(const System::UnicodeString& file, const System::UnicodeString& section,
                const System::WideChar* format);
    ~CIDSIniFile() override;
};

} // namespace BTL
