// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_STR_String.h"
#include "platform/base/System_String.h"

#include <type_traits>

namespace WIN
{

/// The engines on ini files, which differ in width and in the names of their reading operations.
enum class EIniEngine
{
    Ansi,
    Wide,
    /// As `Wide`, but each reading operation is called `Read...`.
    Wide2,
};

/// What `CIniFileA`, `CIniFileW` and `CIniFileW2` have in common: one section of one ini file, of which typed
/// values are read and written. There is no cache and no parser here: each read asks the platform's profile
/// functions (`Host_Profile.h`), and each write is on the disk when it returns.
///
/// A reading operation never fails: a missing file, section or key gives the default. A writing one raises
/// `XLastError` where nothing else is said. Texts have at most 32767 characters, longer ones are read cut.
template <EIniEngine Engine>
class TRS8_BTL_API GIniFile
{
public:
    /// The text of the engine's width, and its characters.
    using TText = std::conditional_t<Engine == EIniEngine::Ansi, System::AnsiString, System::UnicodeString>;
    using TChar = typename TText::CharType;
    /// The characters of the other width.
    using TOtherChar = std::conditional_t<Engine == EIniEngine::Ansi, System::WideChar, char>;

    /// Nothing is bound: reads and writes go to the user's own profile.
    GIniFile() = default;
    /// As `Init`.
    explicit GIniFile(const TText& section);
    GIniFile(const TText& section, const TText& file);
    GIniFile(const TText& section, const TText& file, const TText& path);
    /// Takes both texts as they are; the number is not looked at.
    GIniFile(int, const TText& file, const TText& section);

    /// Binds the section of the user's own profile.
    void Init(const TText& section);
    /// Binds the section of the file; one without a folder lies in that of `SetPath`, the empty name is the
    /// user's own profile. A name without an extension is an internal fault.
    void Init(const TText& section, const TText& file);
    /// Binds the section of the file `path` + `file`; if that is empty, of the user's own profile.
    void Init(const TText& section, const TText& file, const TText& path);
    /// Binds nothing.
    void Clear();
    /// Binds another section of the file. With an empty one there is none to read or to write.
    void SetSection(const TText& section);
    /// What stands in front of a file name without a folder from now on, for all objects of the class: a
    /// folder with its final separator, at start the empty text.
    static void SetPath(const TText& path);

    /// Whether the bound file is there.
    bool FileExists() const;
    /// Whether the bound file is there and has the read-only attribute.
    bool FileReadOnly();
    /// Whether the file is read-only; the user is told so then.
    bool ShowReadOnlyWarinig();
    /// Takes the read-only attribute away from the file. 0, or the error of `Sysutils::FileSetAttr`.
    int PrepareWrite();
    /// Brings the file up to date, which each write has done already.
    void Flush();
    /// Drops what the platform keeps of the file, which it looks at anew before each use. Gives the result of
    /// the platform's call.
    int DiscardCache();

    /// Stores the text; a text with a line break is refused with error 87.
    bool WriteString(const TText& key, const TText& value);
    bool WriteSTDString(const TText& key, const UTL::CString& value);
    bool WriteInt(const TText& key, int value);
    bool WriteInt64(const TText& key, System::Int64 value);
    /// With six significant digits.
    bool WriteFloat(const TText& key, float value);
    /// "TRUE" or "FALSE".
    bool WriteBool(const TText& key, bool value);
    bool WriteBool(const TText& key, bool value, const TText& trueText, const TText& falseText);
    /// Line breaks, tabs and backslashes are written as escapes, so that texts of several lines can be
    /// stored.
    bool WriteEscSeqString(const TText& key, const TText& value);
    /// In brackets, so that no quote of the list is taken for one around it.
    bool WriteCommaText(const TText& key, const TText& value);
    /// Stores key and value as UTF-8 in a file of the 8-bit code page. The wide engines give false on a
    /// failure and don't raise.
    bool WriteUTF8String(const TText& key, const TText& value);
    /// False on a failure, with the last error; a missing key or section is none.
    bool DeleteKey(const TText& key);
    bool DeleteSection();

protected:
    // Copied as values, never deleted through this class.
    ~GIniFile() = default;
    GIniFile(const GIniFile&) = default;
    GIniFile(GIniFile&&) noexcept = default;
    GIniFile& operator=(const GIniFile&) = default;
    GIniFile& operator=(GIniFile&&) noexcept = default;

    const TText& getFile() const { return mFile; }

    /// The names of all sections, each ended by a zero and the list by a second one, in a buffer of `size`
    /// characters. Gives the count of characters without the last zero; a list that doesn't fit is cut, ends
    /// with two zeros, and the count is `size` - 2. The form of the other width allows a null buffer and
    /// gives the count alone.
    unsigned ReadSections(TChar* buffer, unsigned size) const;
    unsigned ReadSections(TOtherChar* buffer, unsigned size) const;
    /// As `ReadSections`, but of the keys of the bound section.
    unsigned ReadKeys(TChar* buffer, unsigned size) const;
    unsigned ReadKeys(TOtherChar* buffer, unsigned size) const;

    /// Copies the text or the default, null for an empty one, to a buffer of `size` characters; what doesn't
    /// fit is cut. Gives the count without the zero at the end.
    unsigned ReadStringBuf(const TText& key, TChar* buffer, unsigned size, const TChar* defaultText) const;
    unsigned ReadStringBuf(const System::AnsiString& key, TOtherChar* buffer, unsigned size,
                           const TOtherChar* defaultText) const;
    /// Whether the text, or the default, isn't empty.
    bool ReadStringBuf(const TText& key, TText& out, const TText& defaultText = {}) const;
    TText ReadString(const TText& key, const TText& defaultText = {});
    System::AnsiString ReadAnsiString(const System::AnsiString& key, const char* defaultText) const;
    System::UnicodeString ReadUnicodeString(const System::UnicodeString& key,
                                            const System::WideChar* defaultText) const;
    UTL::CString ReadSTDString(const System::AnsiString& key, const char* defaultText) const;

    /// The number at the begin of the text; what follows is passed over.
    int ReadInt(const TText& key, int defaultValue) const;
    /// As `Sysutils::StrToInt64Def`.
    System::Int64 ReadInt64(const TText& key, System::Int64 defaultValue) const;
    /// The number at the begin of the text, with a point. "+oo" is the largest number, and "-oo" the smallest
    /// positive one.
    float ReadFloat(const TText& key, float defaultValue) const;
    /// By "TRUE" and "FALSE" in any case, or by the words given; any other text gives the default.
    bool ReadBool(const TText& key, bool defaultValue) const;
    bool ReadBool(const TText& key, const TText& trueText, const TText& falseText, bool defaultValue) const;

    /// The text with its escapes replaced, the default likewise.
    TText ReadEscSeqString(const TText& key, const TChar* defaultText) const;
    /// The text without its brackets; one that has none as it is.
    TText ReadCommaText(const TText& key, const TText& defaultText) const;
    /// As `ReadCommaText`; false if the key gave no text, and `out` is the default then.
    bool ReadCommaText(const TText& key, TText& out, const TText& defaultText) const;
    /// What `WriteUTF8String` stored.
    TText ReadUTF8String(const TText& key, const System::UnicodeString& defaultText) const;

private:
    const TChar* SectionText() const { return mSection.IsEmpty() ? nullptr : mSection.c_str(); }
    const TChar* FileText() const { return mFile.IsEmpty() ? nullptr : mFile.c_str(); }
    TText ReadText(const TText& key, const TChar* defaultText) const;
    bool Store(const TText& key, const TText& value);

    TText mSection;
    TText mFile;
};

extern template class TRS8_BTL_API GIniFile<EIniEngine::Ansi>;
extern template class TRS8_BTL_API GIniFile<EIniEngine::Wide>;
extern template class TRS8_BTL_API GIniFile<EIniEngine::Wide2>;

/// The reading operations under their usual names; each is as the one called `Read...` of `CIniFileW2`.
template <EIniEngine Engine>
class GIniFileGetters : public GIniFile<Engine>
{
    using TBase = GIniFile<Engine>;

public:
    using TBase::TBase;
    using typename TBase::TChar;
    using typename TBase::TOtherChar;
    using typename TBase::TText;

    /// The full name of the bound file; empty if the user's own profile is bound.
    const TText& GetIniFileName() const { return this->getFile(); }

    /// The names of all sections, each ended by a zero and the list by a second one, in a buffer of `size`
    /// characters. Gives the count of characters without the last zero; a list that doesn't fit is cut, ends
    /// with two zeros, and the count is `size` - 2. The form of the other width allows a null buffer and
    /// gives the count alone.
    unsigned GetSections(TChar* buffer, unsigned size) const { return this->ReadSections(buffer, size); }
    unsigned GetSections(TOtherChar* buffer, unsigned size) const { return this->ReadSections(buffer, size); }
    /// As `GetSections`, but of the keys of the bound section.
    unsigned GetKeys(TChar* buffer, unsigned size) const { return this->ReadKeys(buffer, size); }
    unsigned GetKeys(TOtherChar* buffer, unsigned size) const { return this->ReadKeys(buffer, size); }

    /// Copies the text or the default, null for an empty one, to a buffer of `size` characters; what doesn't
    /// fit is cut. Gives the count without the zero at the end.
    unsigned GetString(const TText& key, TChar* buffer, unsigned size, const TChar* defaultText) const
    {
        return this->ReadStringBuf(key, buffer, size, defaultText);
    }
    unsigned GetString(const System::AnsiString& key, TOtherChar* buffer, unsigned size,
                       const TOtherChar* defaultText) const
    {
        return this->ReadStringBuf(key, buffer, size, defaultText);
    }
    /// Whether the text, or the default, isn't empty.
    bool GetString(const TText& key, TText& out, const TText& defaultText = {}) const
    {
        return this->ReadStringBuf(key, out, defaultText);
    }
    TText GetVclString(const TText& key, const TText& defaultText = {})
    {
        return this->ReadString(key, defaultText);
    }
    System::AnsiString GetAnsiString(const System::AnsiString& key, const char* defaultText) const
    {
        return this->ReadAnsiString(key, defaultText);
    }
    System::UnicodeString GetUnicodeString(const System::UnicodeString& key,
                                           const System::WideChar* defaultText) const
    {
        return this->ReadUnicodeString(key, defaultText);
    }
    UTL::CString GetSTDString(const System::AnsiString& key, const char* defaultText) const
    {
        return this->ReadSTDString(key, defaultText);
    }

    /// The number at the begin of the text; what follows is passed over.
    int GetInt(const TText& key, int defaultValue) const { return this->ReadInt(key, defaultValue); }
    /// As `Sysutils::StrToInt64Def`.
    System::Int64 GetInt64(const TText& key, System::Int64 defaultValue) const
    {
        return this->ReadInt64(key, defaultValue);
    }
    /// The number at the begin of the text, with a point. "+oo" is the largest number, and "-oo" the smallest
    /// positive one.
    float GetFloat(const TText& key, float defaultValue) const { return this->ReadFloat(key, defaultValue); }
    /// By "TRUE" and "FALSE" in any case, or by the words given; any other text gives the default.
    bool GetBool(const TText& key, bool defaultValue) const { return this->ReadBool(key, defaultValue); }
    bool GetBool(const TText& key, const TText& trueText, const TText& falseText, bool defaultValue) const
    {
        return this->ReadBool(key, trueText, falseText, defaultValue);
    }

    /// The text with its escapes replaced, the default likewise.
    TText GetEscSeqString(const TText& key, const TChar* defaultText) const
    {
        return this->ReadEscSeqString(key, defaultText);
    }
    /// The text without its brackets; one that has none as it is.
    TText GetCommaText(const TText& key, const TText& defaultText) const
    {
        return this->ReadCommaText(key, defaultText);
    }
    /// As the other `GetCommaText`; false if the key gave no text, and `out` is the default then.
    bool GetCommaText(const TText& key, TText& out, const TText& defaultText) const
    {
        return this->ReadCommaText(key, out, defaultText);
    }
    /// What `WriteUTF8String` stored.
    TText GetUTF8String(const TText& key, const System::UnicodeString& defaultText) const
    {
        return this->ReadUTF8String(key, defaultText);
    }
};

} // namespace WIN
