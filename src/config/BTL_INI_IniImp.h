// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/runtime/typinfo/System_Closure.h"

namespace Classes
{
class TStrings;
} // namespace Classes

namespace BTL
{

/// A store of `AIni`: values by section and key. A concrete store overrides what is abstract here, which all
/// else rests on. One thread at a time uses it. A null list as an argument counts as empty, and filling it
/// does nothing.
///
///     class CMapStore : public BTL::AIniImp { /* the six abstract operations */ };
///     BTL::AIni ini(new CMapStore);                               // owns the store
class TRS8_BTL_API AIniImp
{
public:
    AIniImp() = default;
    AIniImp(const AIniImp&) = delete;
    AIniImp& operator=(const AIniImp&) = delete;
    virtual ~AIniImp();

    // The life of the data. These do nothing where a store doesn't say otherwise.

    virtual void Load();
    /// As `Load`, from text in the system's code page.
    virtual void LoadAnsi();
    virtual void Save();
    virtual void Flush();
    virtual void Begin();
    virtual void End();
    virtual void OnError();

    /// Sets a number of the caller's.
    virtual void SetUserId(System::Int64 userId);
    /// Also sets the path, which is full, and the name without it.
    virtual void SetFile(const System::UnicodeString& file);
    virtual void SetSection(const System::UnicodeString& section);

    /// A number of the caller's; stores don't look at it.
    System::Int64 getUserId() const noexcept { return mUserId; }
    /// The name as it was set.
    const System::UnicodeString& getFile() const noexcept { return mFile; }
    /// The folder of the file with a final separator; empty if the name has none.
    const System::UnicodeString& getPath() const noexcept { return mPath; }
    const System::UnicodeString& getFileName() const noexcept { return mFileName; }
    /// The section that operations with only a key work in.
    const System::UnicodeString& getSection() const noexcept { return mSection; }

    /// False where a store doesn't say otherwise.
    virtual bool FileReadOnly();
    /// True where a store doesn't say otherwise.
    virtual bool FileExists();
    /// Whether the section has a key.
    virtual bool SectionExists(const System::UnicodeString& section);
    virtual bool KeyExists(const System::UnicodeString& section, const System::UnicodeString& key);
    /// In the current section.
    virtual bool KeyExists2(const System::UnicodeString& key);

    // What fills a list clears it first.

    virtual void ReadSections(Classes::TStrings* sections) = 0;
    virtual void ReadKeys(const System::UnicodeString& section, Classes::TStrings* keys) = 0;
    /// The values in the order of the keys.
    virtual void ReadValues(const System::UnicodeString& section, Classes::TStrings* values);
    /// The lines "key=value".
    virtual void ReadSectionValues(const System::UnicodeString& section, Classes::TStrings* lines);
    virtual void ReadSectionValues2(const System::UnicodeString& section, Classes::TStrings* keys,
                                    Classes::TStrings* values);
    /// As `WriteSectionValues`, but without the keys that the section has.
    virtual void WriteMissingSectionValues(const System::UnicodeString& section, Classes::TStrings* lines);
    /// Writes each line with a `=` as what stands in front of the first one and behind it, both trimmed.
    virtual void WriteSectionValues(const System::UnicodeString& section, Classes::TStrings* lines);

    /// Erases every section.
    virtual void Clear();
    virtual void EraseSection(const System::UnicodeString& section) = 0;
    virtual void DeleteKey(const System::UnicodeString& key) = 0;

    // Values of the current section. A missing key gives the default, and so does a text that is no number
    // where one is read.

    /// Any integer but 0 is true; a word gives the default.
    virtual bool ReadBool(const System::UnicodeString& key, bool defaultValue);
    /// The low byte of the first character; 0 if the text is empty.
    virtual char ReadChar(const System::UnicodeString& key, char defaultValue);
    /// The first character; 0 if the text is empty.
    virtual System::WideChar ReadWChar(const System::UnicodeString& key, System::WideChar defaultValue);
    virtual int ReadInteger(const System::UnicodeString& key, int defaultValue);
    virtual System::Int64 ReadInt64(const System::UnicodeString& key, System::Int64 defaultValue);
    /// Either decimal separator is read. "+oo" gives the largest `double`, "-oo" the smallest positive one of
    /// full precision.
    virtual double ReadFloat(const System::UnicodeString& key, double defaultValue);
    virtual System::UnicodeString ReadString(const System::UnicodeString& key,
                                             const System::UnicodeString& defaultValue) = 0;
    /// As 1 or 0.
    virtual void WriteBool(const System::UnicodeString& key, bool value);
    virtual void WriteChar(const System::UnicodeString& key, char value);
    virtual void WriteWChar(const System::UnicodeString& key, System::WideChar value);
    virtual void WriteInteger(const System::UnicodeString& key, int value);
    virtual void WriteInt64(const System::UnicodeString& key, System::Int64 value);
    /// As `Sysutils::FloatToStr`, with the active decimal separator.
    virtual void WriteFloat(const System::UnicodeString& key, double value);
    virtual void WriteString(const System::UnicodeString& key, const System::UnicodeString& value) = 0;

    /// Calls `write`, which writes many values; what it raises comes out. A store whose writes reach a file
    /// at once overrides this to bring them there in one step at the end.
    virtual void InOneStep(const System::TClosure<void()>& write);

    // Bytes as hexadecimal digits.

    [[nodiscard]] System::AnsiString ReadBinaryData(const System::UnicodeString& key);
    /// Fills `buffer` as far as it goes. The result is the count of bytes that are stored, whatever the size
    /// of the buffer; a null buffer or a size below 1 only counts.
    int ReadBinaryData(const System::UnicodeString& key, void* buffer, int size);
    /// A null pointer or a size below 1 writes the empty text.
    void WriteBinaryData(const System::UnicodeString& key, const void* data, int size);

protected:
    /// Calls `SetFile` of this class: that of a derived one isn't there yet.
    AIniImp(const System::UnicodeString& file, System::Int64 userId);

private:
    System::Int64 mUserId = 0;
    System::UnicodeString mFile;
    System::UnicodeString mPath;
    System::UnicodeString mFileName;
    System::UnicodeString mSection;
};

/// Another current section of a store for a scope. The store must not be null and must outlive it.
class TRS8_BTL_API CIniImpSection
{
public:
    CIniImpSection(AIniImp* store, const System::UnicodeString& section);
    CIniImpSection(const CIniImpSection&) = delete;
    CIniImpSection& operator=(const CIniImpSection&) = delete;
    /// What the store raises as it goes back is lost.
    ~CIniImpSection();

private:
    AIniImp* mStore;
    System::UnicodeString mFormer;
};

} // namespace BTL
