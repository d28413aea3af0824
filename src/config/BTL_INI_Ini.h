// SPDX-License-Identifier: MIT
#pragma once

#include "config/BTL_INI_IniImp.h"
#include "platform/base/System_Owner.h"
#include "platform/base/dates/System_DateTime.h"
#include "platform/runtime/sysutils/System_VarArgs.h"

namespace UTL
{
class CDoubleVector;
class CFlags;
class CInt64Vector;
class CIntVector;
} // namespace UTL

namespace BTL
{

class CStringPairs;

/// Typed values by section and key, wherever a store keeps them. Who has settings takes one of these, and
/// neither it nor its caller knows where they live.
///
/// A read of what isn't there gives the default, and so does a text that is no number where one is read. What
/// a write that fails does is the store's business. Without a store every call raises `Sysutils::Exception`.
/// A null list as an argument counts as empty, and filling it does nothing; what fills a list clears it
/// first. A null `source` changes nothing. A key is wide text or a literal of 8-bit text. One thread at a
/// time.
///
///     BTL::CMemIniFile ini(u"station.ini", u"Run");               // or any other store
///     const int channels = ini.ReadInt("Channels", 4);
///     ini.WriteFloat("Limit", 2.5);                               // "2.5" whatever the locale
///     ini.WriteEscSeqString("Note", u"two\nlines");
///     ini.Save();
class TRS8_BTL_API AIni
{
public:
    AIni() noexcept;
    /// Takes the store over.
    explicit AIni(AIniImp* store) noexcept;
    AIni(const AIni&) = delete;
    AIni& operator=(const AIni&) = delete;
    virtual ~AIni();

    /// Takes the store over and destroys the former one, if it is another.
    void SetImp(AIniImp* store) noexcept;
    /// Sets the section, and then the file `path` + `file`.
    void Init(const System::UnicodeString& section, const System::UnicodeString& file,
              const System::UnicodeString& path);

    // The life of the data.

    /// Loads the store, and then what a derived class mirrors.
    void Load();
    /// As `Load`, from text in the system's code page.
    void LoadAnsi();
    /// Saves what a derived class mirrors, and then the store.
    void Save();
    void Flush();
    void Begin();
    void End();
    void OnError();
    /// Erases every section.
    void Clear();

    void setFile(const System::UnicodeString& file);
    void setSection(const System::UnicodeString& section);
    void setUserId(System::Int64 userId);
    /// The full name of the file.
    System::UnicodeString getFile() const;
    /// The folder of the file with a final separator.
    System::UnicodeString getPath() const;
    System::UnicodeString getFileName() const;
    /// The section that operations with only a key work in.
    System::UnicodeString getSection() const;
    /// A number of the caller's.
    System::Int64 getUserId() const;

    /// Whether the store can tell that its file is read-only.
    bool FileReadOnly() const;
    /// Whether the file is there; true in a store without files.
    bool FileExists() const;
    /// Whether the section has a key.
    bool SectionExists(const System::UnicodeString& section) const;
    bool KeyExists(const System::UnicodeString& section, const System::UnicodeString& key) const;
    bool KeyExists(const System::UnicodeString& key) const;
    /// Warns the user in a box if the file is read-only, and tells whether it is.
    bool ShowReadOnlyWarinig();

    // Lists, in the order of the store.

    void ReadSections(Classes::TStrings* sections);
    void ReadKeys(Classes::TStrings* keys);
    void ReadKeys(const System::UnicodeString& section, Classes::TStrings* keys);
    void ReadValues(const System::UnicodeString& section, Classes::TStrings* values);
    /// The lines "key=value".
    void ReadSectionValues(const System::UnicodeString& section, Classes::TStrings* lines);
    /// Unequal counts, which a correct store never gives, are an internal fault.
    void ReadSectionValues(const System::UnicodeString& section, Classes::TStrings* keys,
                           Classes::TStrings* values);
    void ReadSectionValues(const System::UnicodeString& section, CStringPairs& pairs);

    // Copies. They go by lines "key=value": a line without a `=` is passed over, and outer blanks of keys and
    // values are lost. An empty `sourceSection` is the section of the same name. `Write` leaves what else is
    // there, `WriteMissing` leaves every key that is there, and `Set` erases the rest; where the source is
    // this store it is read before anything is erased.

    void WriteSectionValues(const System::UnicodeString& section, Classes::TStrings* lines);
    void WriteSectionValues(const System::UnicodeString& section, const CStringPairs& pairs);
    void WriteSectionValues(const System::UnicodeString& section, AIni* source,
                            const System::UnicodeString& sourceSection);
    void WriteMissingSectionValues(const System::UnicodeString& section, Classes::TStrings* lines);
    void WriteMissingSectionValues(const System::UnicodeString& section, AIni* source,
                                   const System::UnicodeString& sourceSection);
    void SetSectionValues(const System::UnicodeString& section, Classes::TStrings* lines);
    void SetSectionValues(const System::UnicodeString& section, const CStringPairs& pairs);
    void SetSectionValues(const System::UnicodeString& section, AIni* source,
                          const System::UnicodeString& sourceSection);
    /// All sections of `source`.
    void WriteValues(AIni* source);
    void WriteMissingValues(AIni* source);
    void SetValues(AIni* source);

    /// Takes the section away with all its keys.
    void EraseSection(const System::UnicodeString& section);
    /// Erases the current section.
    void DeleteSection();
    /// In the current section.
    void DeleteKey(const System::UnicodeString& key);

    // Numbers and truth values.

    /// Any integer but 0 is true; a word gives the default.
    bool ReadBool(const System::UnicodeString& key, bool defaultValue);
    /// Compares with the words without regard to case; any other text gives the default.
    bool ReadBool(const System::UnicodeString& key, const System::UnicodeString& trueText,
                  const System::UnicodeString& falseText, bool defaultValue);
    void WriteBool(const System::UnicodeString& key, bool value);
    void WriteBool(const System::UnicodeString& key, bool value, const System::UnicodeString& trueText,
                   const System::UnicodeString& falseText);
    /// The low byte of the first character; 0 if the text is empty.
    char ReadChar(const System::UnicodeString& key, char defaultValue);
    /// A code from 128 to 159 is stored as the character of the code page, and comes back as another.
    void WriteChar(const System::UnicodeString& key, char value);
    int ReadInt(const System::UnicodeString& key, int defaultValue);
    int ReadInteger(const System::UnicodeString& key, int defaultValue);
    /// The hexadecimal number at the begin of the text, as `HexToInt` reads it.
    int ReadHex(const System::UnicodeString& key, int defaultValue);
    void WriteInt(const System::UnicodeString& key, int value);
    void WriteInteger(const System::UnicodeString& key, int value);
    System::Int64 ReadInt64(const System::UnicodeString& key, System::Int64 defaultValue);
    void WriteInt64(const System::UnicodeString& key, System::Int64 value);
    /// "+oo" gives the largest `double`, "-oo" the smallest positive one of full precision.
    double ReadFloat(const System::UnicodeString& key, double defaultValue);
    /// 15 significant digits, with a `.` in every locale.
    void WriteFloat(const System::UnicodeString& key, double value);

    // Texts.

    System::UnicodeString ReadString(const System::UnicodeString& key,
                                     const System::UnicodeString& defaultValue);
    /// As of wide keys, but the default stands in for an empty value too.
    System::UnicodeString ReadString(const char* key, const System::UnicodeString& defaultValue);
    System::UnicodeString ReadString(const char* key, const char* defaultValue);
    void WriteString(const System::UnicodeString& key, const System::UnicodeString& value);
    /// As `ReadCommaText`.
    System::UnicodeString ReadStringEx(const System::UnicodeString& key,
                                       const System::UnicodeString& defaultValue);
    void WriteStringEx(const System::UnicodeString& key, const System::UnicodeString& value);
    /// `ApplyEscapeSequences` of the stored text or the default.
    System::UnicodeString ReadEscSeqString(const System::UnicodeString& key,
                                           const System::UnicodeString& defaultValue);
    /// Stores `InsertEscapeSequences` of the value, so that text of many lines stands in one.
    void WriteEscSeqString(const System::UnicodeString& key, const System::UnicodeString& value);
    /// The text that `WriteCryptString` scrambled; an empty text counts as missing.
    System::UnicodeString ReadCryptString(const System::UnicodeString& key,
                                          const System::UnicodeString& defaultValue);
    /// Keeps the value from being read in passing, see `Encrypt`; it must be text of the 8-bit code page.
    void WriteCryptString(const System::UnicodeString& key, const System::UnicodeString& value);
    /// The stored text or the default without the brackets around it, if it has both.
    System::UnicodeString ReadCommaText(const System::UnicodeString& key,
                                        const System::UnicodeString& defaultValue);
    /// Puts brackets around the value, which keep its outer blanks and quotes.
    void WriteCommaText(const System::UnicodeString& key, const System::UnicodeString& value);
    /// Text that is kept as the bytes of its UTF-8 form, one character each; so is the key.
    System::UnicodeString ReadUTF8String(const System::UnicodeString& key,
                                         const System::UnicodeString& defaultValue);
    void WriteUTF8String(const System::UnicodeString& key, const System::UnicodeString& value);

    // Lists as comma texts in brackets. A missing key gives an empty one; a part that is no number of the
    // kind raises `Sysutils::EConvertError`.

    void ReadStrings(const System::UnicodeString& key, Classes::TStrings* strings);
    void WriteStrings(const System::UnicodeString& key, Classes::TStrings* strings);
    void ReadFlags(const System::UnicodeString& key, UTL::CFlags& flags);
    void WriteFlags(const System::UnicodeString& key, const UTL::CFlags& flags);
    /// Those of `count` values that the stored list lacks get the default.
    void ReadBools(const System::UnicodeString& key, bool* values, int count, bool defaultValue);
    void WriteBools(const System::UnicodeString& key, const bool* values, int count);
    void ReadInts(const System::UnicodeString& key, UTL::CIntVector& values);
    void ReadInts(const System::UnicodeString& key, UTL::CInt64Vector& values);
    void WriteInts(const System::UnicodeString& key, const UTL::CIntVector& values);
    void WriteInts(const System::UnicodeString& key, const UTL::CInt64Vector& values);
    void ReadDoubles(const System::UnicodeString& key, UTL::CDoubleVector& values);
    void WriteDoubles(const System::UnicodeString& key, const UTL::CDoubleVector& values);

    // Bytes, as hexadecimal digits or, `Data`, as text without control characters but one.

    [[nodiscard]] System::AnsiString ReadBinaryData(const System::UnicodeString& key);
    /// As of `AIniImp`: the result is the count of the bytes that are stored.
    int ReadBinaryData(const System::UnicodeString& key, void* buffer, int size);
    void WriteBinaryData(const System::UnicodeString& key, const System::AnsiString& bytes);
    void WriteBinaryData(const System::UnicodeString& key, const void* data, int size);
    /// The default has the stored form too.
    [[nodiscard]] System::AnsiString ReadData(const System::UnicodeString& key,
                                              const System::AnsiString& defaultValue);
    void WriteData(const System::UnicodeString& key, const System::AnsiString& bytes);

    /// A time as "2022-02-01 18:30:00.000"; 0 if the text is missing or empty.
    System::TDateTime ReadSqlDateTime(const System::UnicodeString& key);

    // Texts by number, as language files have them: the key is the number in nine digits with leading zeros.
    // A text that is a format is that of `System::Printf`: one that misfits its arguments raises
    // `Sysutils::EConvertError`.

    /// As `ReadEscSeqString`.
    System::UnicodeString ReadIDString(int id, const System::UnicodeString& defaultValue);
    System::UnicodeString ReadString_V(const System::UnicodeString& key, System::TVarArgs arguments);
    System::UnicodeString ReadIDString_V(int id, System::TVarArgs arguments);
    /// As `ReadString_V`, with the arguments one by one.
    template <class... Arguments>
    System::UnicodeString ReadString_VA(const System::UnicodeString& key, const Arguments&... arguments)
    {
        return ReadString_V(key, System::TVarArgs{System::TVarRec(arguments)...});
    }
    /// As `ReadIDString_V`, with the arguments one by one.
    template <class... Arguments>
    System::UnicodeString ReadIDString_VA(int id, const Arguments&... arguments)
    {
        return ReadIDString_V(id, System::TVarArgs{System::TVarRec(arguments)...});
    }

protected:
    /// For a derived class that mirrors values in members: after the store is loaded and before it is saved.
    virtual void DoLoad();
    virtual void DoSave();

private:
    AIniImp& Store() const;
    template <class Values>
    void ReadCommaTextOf(const System::UnicodeString& key, Values& values);

    System::GOwner<AIniImp> mStore;
};

/// Another current section for a scope.
///
///     const BTL::CSetIniSection section(&ini, u"Limits");
///     const double upper = ini.ReadFloat("Upper", 0);
class TRS8_BTL_API CSetIniSection
{
public:
    /// An empty name keeps the current section. `ini` must not be null and must outlive the scope.
    CSetIniSection(AIni* ini, const System::UnicodeString& section);
    CSetIniSection(const CSetIniSection&) = delete;
    CSetIniSection& operator=(const CSetIniSection&) = delete;
    /// What the store raises as it goes back is lost.
    ~CSetIniSection();

private:
    AIni* mIni;
    System::UnicodeString mFormer;
};

} // namespace BTL
