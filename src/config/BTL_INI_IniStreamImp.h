// SPDX-License-Identifier: MIT
#pragma once

#include "config/BTL_INI_IniImp.h"
#include "platform/base/System_Owner.h"
#include "platform/runtime/typinfo/System_Closure.h"

namespace Classes
{
class TStream;
} // namespace Classes

namespace BTL
{

/// Told of the first line of an ini text.
using TIniHeadlineEvent = System::TClosure<void(const System::AnsiString& line)>;
/// Told of a section that is loaded; `position` is where the stream stands, behind the name.
using TIniLoadSectionEvent = System::TClosure<void(const System::AnsiString& section, int position)>;
/// Told of a key that is loaded; `position` is where the stream stands, behind the value.
using TIniLoadKeyEvent =
    System::TClosure<void(const System::AnsiString& key, const System::AnsiString& value, int position)>;
/// Told of a section before it is saved.
using TIniSaveSectionEvent = System::TClosure<void(const System::AnsiString& section)>;
/// Told of a key before it is saved; `index` counts from 0 over all sections.
using TIniSaveKeyEvent =
    System::TClosure<void(const System::AnsiString& key, const System::AnsiString& value, int index)>;

/// The store of `CIniStream`: sections in memory, loaded from and saved to any stream. Names of sections and
/// keys are told apart by case; both are listed and saved in the order of their characters.
///
///     Classes::TStringStream stream(System::AnsiString("[Range]\r\nUpper=10\r\n"));
///     BTL::CIniStreamImp store(&stream);
///     store.Load();
///     store.SetSection(u"Range");
///     store.ReadInteger(u"Upper", 0);                             // 10
///
/// The text has lines that end in CR LF: perhaps a headline, which doesn't begin with `[`, and sections of
/// "[name]" and lines "key=value". A line that begins with `;`, a control character or a byte above 127 is a
/// comment. Names are in the system's code page; values are in UTF-8, or in the code page in what `LoadAnsi`
/// and `SaveAnsi` read and write. Any bytes load: a line without `=` becomes the front of the next key, and a
/// value ends with a CR only. Outer blanks of a value, and then double quotes around it, don't come back.
class TRS8_BTL_API CIniStreamImp : public AIniImp
{
public:
    CIniStreamImp(const System::UnicodeString& file, System::Int64 userId);
    /// As `SetStream`.
    explicit CIniStreamImp(Classes::TStream* stream);
    CIniStreamImp(Classes::TStream* stream, const System::UnicodeString& file, System::Int64 userId);
    ~CIniStreamImp() override;

    /// The stream of the operations that name none; it stays the caller's and must live as long as it is
    /// used. Null binds none, and those operations do nothing then. Loads nothing.
    void SetStream(Classes::TStream* stream) noexcept { mStream = stream; }
    Classes::TStream* getStream() const noexcept { return mStream; }

    /// Replaces what the store holds by the whole stream. After that no section is the current one: reads
    /// give defaults and writes do nothing until `SetSection`. The headline is read only if there was one
    /// before. What the stream raises passes through.
    void Load() override;
    void LoadAnsi() override;
    /// Replaces the whole stream by what the store holds, but for sections without keys. A name, key or value
    /// that would not be read back as one, or become another section or key, raises `Classes::EWriteError`
    /// before the stream changes: a `]` in a section, a key with `=` or with `[` or `;` at its front, a CR in
    /// a value, a character of a name that the code page lacks.
    void Save() override;
    /// As `Save`, but what the code page lacks in a value becomes `?`.
    void SaveAnsi();
    // As `Load` to `SaveAnsi`, of a stream that isn't bound; null does nothing.
    void LoadFromStream(Classes::TStream* stream);
    void LoadAnsiFromStream(Classes::TStream* stream);
    void SaveToStream(Classes::TStream* stream);
    void SaveAnsiToStream(Classes::TStream* stream);

    /// Reads the first line from the beginning of the stream as headline; empty if it begins with `[`. Then
    /// calls the closure.
    void ReadHeadline();
    void ReadHeadlineFromStream(Classes::TStream* stream);
    /// As `ReadHeadline`.
    void SkipHeadline();
    /// Moves behind the first line, from the beginning of the stream; to the beginning if it begins with `[`.
    void SkipHeadlineFromStream(Classes::TStream* stream);

    /// Adds the text's lines to the list, with an empty one behind each section; sections without keys are
    /// left out.
    void GetStrings(Classes::TStrings* lines) const;
    /// Replaces what the store holds by the lines. Values keep their blanks and quotes.
    void SetStrings(const Classes::TStrings* lines);

    /// The keys of all sections.
    int GetItemCount() const noexcept;
    /// 0 for a section that isn't there.
    int GetItemCount(const System::UnicodeString& section) const;

    void SetFile(const System::UnicodeString& file) override;
    /// Makes the section if it is missing; with an empty name, none is the current one.
    void SetSection(const System::UnicodeString& section) override;
    /// True also if no file was set.
    bool FileExists() override;
    /// True for a section without keys too.
    bool SectionExists(const System::UnicodeString& section) override;
    bool KeyExists(const System::UnicodeString& section, const System::UnicodeString& key) override;
    bool KeyExists2(const System::UnicodeString& key) override;
    // These add to the list.
    void ReadSections(Classes::TStrings* sections) override;
    void ReadKeys(const System::UnicodeString& section, Classes::TStrings* keys) override;
    void ReadValues(const System::UnicodeString& section, Classes::TStrings* values) override;
    /// Removes the keys. The section itself is listed until the next load, and not saved.
    void EraseSection(const System::UnicodeString& section) override;
    void DeleteKey(const System::UnicodeString& key) override;
    System::UnicodeString ReadString(const System::UnicodeString& key,
                                     const System::UnicodeString& defaultValue) override;
    /// Trims the key. Reaches the stream with `Save`.
    void WriteString(const System::UnicodeString& key, const System::UnicodeString& value) override;

    /// The first line; empty for a text that begins with a section.
    const System::UnicodeString& getHeadline() const noexcept { return mHeadline; }
    void setHeadline(const System::UnicodeString& headline) { mHeadline = headline; }
    const TIniHeadlineEvent& getOnReadHeadline() const noexcept { return mOnReadHeadline; }
    void setOnReadHeadline(const TIniHeadlineEvent& event) { mOnReadHeadline = event; }
    const TIniLoadSectionEvent& getOnLoadSection() const noexcept { return mOnLoadSection; }
    void setOnLoadSection(const TIniLoadSectionEvent& event) { mOnLoadSection = event; }
    const TIniLoadKeyEvent& getOnLoadKey() const noexcept { return mOnLoadKey; }
    void setOnLoadKey(const TIniLoadKeyEvent& event) { mOnLoadKey = event; }
    const TIniSaveSectionEvent& getOnSaveSection() const noexcept { return mOnSaveSection; }
    void setOnSaveSection(const TIniSaveSectionEvent& event) { mOnSaveSection = event; }
    const TIniSaveKeyEvent& getOnSaveKey() const noexcept { return mOnSaveKey; }
    void setOnSaveKey(const TIniSaveKeyEvent& event) { mOnSaveKey = event; }

private:
    class CSection;
    class CSections;
    class CLoader;
    class CSaver;
    enum class EValues
    {
        CodePage,
        Utf8
    };

    void LoadValues(Classes::TStream* stream, EValues values);
    void SaveValues(Classes::TStream* stream, EValues values);
    void DeleteSections();
    const CSection* FindSection(const System::UnicodeString& section) const;
    CSection& NeedSection(const System::UnicodeString& section);
    void CheckSavable() const;

    System::GOwner<CSections> mSections;
    CSection* mCurrent = nullptr;
    Classes::TStream* mStream = nullptr;
    System::UnicodeString mHeadline;
    TIniHeadlineEvent mOnReadHeadline;
    TIniLoadSectionEvent mOnLoadSection;
    TIniLoadKeyEvent mOnLoadKey;
    TIniSaveSectionEvent mOnSaveSection;
    TIniSaveKeyEvent mOnSaveKey;
};

} // namespace BTL
