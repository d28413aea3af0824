// SPDX-License-Identifier: MIT
#pragma once

#include "platform/host/profile/Host_Profile.h"
#include "platform/host/profile/internal/Host_ProfileIndex.h"
#include "platform/host/profile/internal/Host_ProfileName.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
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
[[nodiscard]] TRS8_BTL_API bool IsStorable(const ProfileChange& change);

class TRS8_BTL_API ProfileText
{
public:
    /// Any bytes are a profile file: what is no section, no key and no text in the encoding just stays.
    explicit ProfileText(std::string_view bytes = {});

    [[nodiscard]] std::optional<System::UnicodeString> Find(std::u16string_view section,
                                                            std::u16string_view key) const;
    /// The value without its quotes, a view until the next change; bytes that are no text show in it as the
    /// codes that they are kept as.
    [[nodiscard]] std::optional<std::u16string_view> FindView(std::u16string_view section,
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
    enum class LineEnd : std::uint8_t
    {
        None,
        Cr,
        Lf,
        CrLf,
    };
    /// One with neither text nor end was deleted. There is one for each key, so it is kept short; no file
    /// has a line that is longer.
    struct Line
    {
        Line() = default;
        Line(std::u16string_view text, LineEnd lineEnd)
            : begin(text.data()), size(static_cast<std::uint32_t>(text.size())), end(lineEnd)
        {
        }

        [[nodiscard]] std::u16string_view Text() const noexcept { return {begin, size}; }
        [[nodiscard]] bool IsDeleted() const noexcept { return size == 0 && end == LineEnd::None; }

        const char16_t* begin = nullptr;
        std::uint32_t size = 0;
        LineEnd end = LineEnd::None;
    };
    using Place = ProfilePlace;
    /// Any thread that reads may note it. A copy begins without.
    class LastPlace
    {
    public:
        LastPlace() = default;
        LastPlace(const LastPlace&) noexcept {}
        LastPlace& operator=(const LastPlace&) noexcept
        {
            Forget();
            return *this;
        }
        ~LastPlace() = default;

        void Note(const Place& place) noexcept
        {
            mPlace.store(std::uint64_t{place.section} << 32 | place.line, std::memory_order_relaxed);
        }
        void Forget() noexcept { Note({}); }
        /// In front of the first section, where nobody finds a key, if there is none.
        [[nodiscard]] Place Get() const noexcept
        {
            const std::uint64_t place = mPlace.load(std::memory_order_relaxed);
            return PlaceAt(place >> 32, place & UINT32_MAX);
        }

    private:
        std::atomic<std::uint64_t> mPlace{0};
    };
    struct Section
    {
        Line header;
        std::u16string_view name;
        std::vector<Line> lines;
        std::size_t group;
    };
    /// The sections of one name.
    struct Group
    {
        std::vector<std::size_t> sections;
        ProfileIndex keys;
        bool hasRepeatedKeys = false;
    };
    using Names = std::unordered_map<std::u16string_view, std::size_t, NameHash, NameEqual>;

    void Decode(std::string_view bytes);
    void Parse(std::u16string_view text);
    void AddSection(const Line& header, std::u16string_view name);
    void AddLine(const Line& line);
    void NoteKey(const Place& place);
    [[nodiscard]] static LineEnd LineEndAt(std::u16string_view text);
    [[nodiscard]] static std::u16string_view TextOf(LineEnd end);
    [[nodiscard]] auto IsKey(std::u16string_view key) const;
    [[nodiscard]] const Place* FindPlace(const Group& group, std::u16string_view key) const;
    [[nodiscard]] const Group* FindGroup(std::u16string_view section) const;
    [[nodiscard]] static Place PlaceAt(std::size_t section, std::size_t line)
    {
        return {static_cast<std::uint32_t>(section), static_cast<std::uint32_t>(line)};
    }
    [[nodiscard]] const Line& LineAt(const Place& place) const
    {
        return mSections[place.section].lines[place.line];
    }
    /// The place behind the key that was found last, if it is in the section; most programs read the keys in
    /// the order of the file.
    [[nodiscard]] std::optional<Place> NextPlace(std::u16string_view section) const;
    [[nodiscard]] bool IsFirstOfKey(const Group& group, const Place& place) const;

    bool Set(std::u16string_view section, std::u16string_view key, std::u16string_view value);
    bool SetLine(const Place& place, const std::u16string& value);
    void InsertKey(Group& group, const std::u16string& text);
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
    LineEnd mLineEnd = LineEnd::CrLf;
    Encoding mEncoding = Encoding::CodePage;
    /// Half a character at the end.
    std::string mTail;
    bool mHasForeignBytes = false;
    std::size_t mLiveLines = 0;
    std::size_t mDeadLines = 0;
    mutable LastPlace mLast;
};

namespace Detail
{

/// The trimmed key in front of the first `=`; empty for a line that has none.
[[nodiscard]] TRS8_BTL_API std::u16string_view KeyOfLine(std::u16string_view line);
/// The trimmed text behind the first `=`, with its quotes.
[[nodiscard]] TRS8_BTL_API std::u16string_view ValueOfLine(std::u16string_view line);

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
            if (IsFirstOfKey(*group, PlaceAt(number, i))) {
                use(Detail::KeyOfLine(lines[i].Text()), Detail::ValueOfLine(lines[i].Text()));
            }
        }
    }
}

} // namespace Host
