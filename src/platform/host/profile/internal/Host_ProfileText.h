// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/profile/Host_Profile.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// The content of a profile file in memory: its lines as they stand, and where each key is.
//
//     ProfileText text(bytes);
//     text.Apply({u"Run", UnicodeString(u"Channels"), UnicodeString(u"4")});
//     Save(text.Compose());

namespace Host
{

/// What a write does to a profile file: without a value the key goes, without a key the section.
struct ProfileChange
{
    System::UnicodeString section;
    std::optional<System::UnicodeString> key;
    std::optional<System::UnicodeString> value;
};

/// Whether the change leads to lines that read back as its texts and nothing else.
[[nodiscard]] bool IsStorable(const ProfileChange& change);

/// Names that differ in case alone are one; the rule is that of Unicode, character by character.
struct NameHash
{
    std::size_t operator()(std::u16string_view name) const noexcept;
};
struct NameEqual
{
    bool operator()(std::u16string_view a, std::u16string_view b) const noexcept;
};

class ProfileText
{
public:
    /// Any bytes are a profile file: what is no section, no key and no text in the encoding just stays.
    explicit ProfileText(std::string_view bytes = {});

    [[nodiscard]] std::optional<System::UnicodeString> Find(std::u16string_view section,
                                                            std::u16string_view key) const;
    /// Calls `use(key, value)`, views for the time of the call, for each key of the section.
    template <class Use>
    void ForEachEntry(std::u16string_view section, Use use) const;
    [[nodiscard]] std::vector<System::UnicodeString> ListSections() const;

    /// The text of a view that `ForEachEntry` gave.
    [[nodiscard]] System::UnicodeString Shown(std::u16string_view text) const;
    /// The value without its quotes.
    [[nodiscard]] System::UnicodeString ShownValue(std::u16string_view text) const;

    /// Whether that changed anything. The change must be storable.
    bool Apply(const ProfileChange& change);

    /// The bytes of the file.
    [[nodiscard]] std::string Compose() const;

private:
    enum class Encoding
    {
        CodePage,
        Utf8,
        Utf16,
        Utf16BigEndian,
    };
    /// One with neither text nor end was deleted.
    struct Line
    {
        std::u16string_view text;
        std::u16string_view end;
    };
    struct Section
    {
        Line header;
        std::vector<Line> lines;
        std::size_t group;
    };
    struct Place
    {
        std::size_t section;
        std::size_t line;
    };
    /// The sections of one name.
    struct Group
    {
        std::vector<std::size_t> sections;
        std::unordered_map<std::u16string_view, Place, NameHash, NameEqual> keys;
        bool hasRepeatedKeys = false;
    };
    using Names = std::unordered_map<std::u16string_view, std::size_t, NameHash, NameEqual>;

    void Decode(std::string_view bytes);
    void Parse(std::u16string_view text);
    void AddSection(const Line& header, std::u16string_view name);
    void AddLine(const Line& line);
    void NoteKey(const Place& place);
    [[nodiscard]] const Group* FindGroup(std::u16string_view section) const;
    [[nodiscard]] const Line& LineAt(const Place& place) const
    {
        return mSections[place.section].lines[place.line];
    }
    [[nodiscard]] bool IsFirstOfKey(const Group& group, const Place& place) const;

    bool Set(std::u16string_view section, std::u16string_view key, std::u16string_view value);
    bool SetLine(const Place& place, std::u16string_view key, const std::u16string& value);
    void InsertKey(Group& group, const std::u16string& line);
    void AppendSection(std::u16string_view name);
    void EndLastLine();
    bool DeleteKey(std::u16string_view section, std::u16string_view key);
    bool DeleteSection(std::u16string_view section);
    void Delete(Line& line);
    void MakeRoomFor(std::u16string_view text);
    std::u16string_view Keep(std::u16string_view text);
    void TidyUp();

    /// What the lines are views of.
    std::vector<System::UnicodeString> mTexts;
    std::vector<Section> mSections;
    std::vector<Group> mGroups;
    Names mNames;
    std::u16string_view mLineEnd = u"\r\n";
    Encoding mEncoding = Encoding::CodePage;
    /// Half a character at the end.
    std::string mTail;
    bool mHasForeignBytes = false;
    std::size_t mLiveLines = 0;
    std::size_t mDeadLines = 0;
};

namespace Detail
{

/// The trimmed key in front of the first `=`; empty for a line that has none.
[[nodiscard]] std::u16string_view KeyOfLine(std::u16string_view line);
/// The trimmed text behind the first `=`, with its quotes.
[[nodiscard]] std::u16string_view ValueOfLine(std::u16string_view line);

} // namespace Detail

template <class Use>
void ProfileText::ForEachEntry(std::u16string_view section, Use use) const
{
    const Group* const group = FindGroup(section);
    if (group == nullptr) {
        return;
    }
    for (const std::size_t number : group->sections) {
        const std::vector<Line>& lines = mSections[number].lines;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (IsFirstOfKey(*group, {number, i})) {
                use(Detail::KeyOfLine(lines[i].text), Detail::ValueOfLine(lines[i].text));
            }
        }
    }
}

} // namespace Host
