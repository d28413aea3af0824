// SPDX-License-Identifier: MIT
#include "platform/host/profile/internal/Host_ProfileText.h"

#include "platform/base/internal/System_Ascii.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include <unicode/utf16.h>

namespace Host
{

using System::UnicodeString;
using System::Detail::IsUpToBlank;
using System::Detail::WithoutBlanks;
using System::Detail::WithoutBlanksInFront;

using View = std::u16string_view;

namespace
{

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view Utf16Mark = "\xFF\xFE";
constexpr std::string_view Utf16BigEndianMark = "\xFE\xFF";

/// Takes a character from the front; a byte that begins none is taken alone and gives nothing.
std::optional<char32_t> TakeCharacter(std::string_view& bytes)
{
    const auto lead = static_cast<unsigned char>(bytes.front());
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    constexpr std::array<char32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
    bool isValid = lead < 0x80 || (lead >= 0xC2 && lead <= 0xF4 && bytes.size() >= length);
    for (std::size_t i = 1; isValid && i < length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        isValid = (byte & 0xC0U) == 0x80;
        character = character << 6 | (byte & 0x3FU);
    }
    if (!isValid || character < smallest[length] || character > 0x10FFFF || U_IS_SURROGATE(character)) {
        bytes.remove_prefix(1);
        return std::nullopt;
    }
    bytes.remove_prefix(length);
    return character;
}

/// A byte that is no part of UTF-8 is kept as U+DC00 + byte, so that it survives the way there and back.
UnicodeString FromForeignUtf8(std::string_view bytes, bool& hasForeign)
{
    UnicodeString text;
    text.SetLength(static_cast<int>(bytes.size()));
    char16_t* const start = text.UniqueData();
    char16_t* out = start;
    while (!bytes.empty()) {
        const auto lead = static_cast<unsigned char>(bytes.front());
        const auto character = TakeCharacter(bytes);
        if (!character) {
            hasForeign = true;
            *out++ = static_cast<char16_t>(0xDC00 + lead);
        } else if (*character >= 0x10000) {
            *out++ = static_cast<char16_t>(0xD7C0 + (*character >> 10));
            *out++ = static_cast<char16_t>(0xDC00 + (*character & 0x3FF));
        } else {
            *out++ = static_cast<char16_t>(*character);
        }
    }
    text.SetLength(static_cast<int>(out - start));
    return text;
}

bool IsForeignByte(UChar32 c)
{
    return c >= 0xDC80 && c <= 0xDCFF;
}

/// The one at `i`, which moves behind it; a lone surrogate counts as one.
UChar32 NextCharacter(View text, std::size_t& i)
{
    UChar32 c = 0;
    U16_NEXT(text, i, text.size(), c);
    return c;
}

std::string ToForeignUtf8(View text)
{
    std::string bytes;
    bytes.reserve(text.size() + text.size() / 8);
    for (std::size_t i = 0; i < text.size();) {
        const UChar32 c = NextCharacter(text, i);
        if (c < 0x80 || IsForeignByte(c)) {
            bytes += static_cast<char>(c);
            continue;
        }
        const auto tail = [&](int shift) { return static_cast<char>(0x80 | (c >> shift & 0x3F)); };
        if (c < 0x800) {
            bytes += static_cast<char>(0xC0 | c >> 6);
        } else if (c < 0x10000) {
            bytes += static_cast<char>(0xE0 | c >> 12);
            bytes += tail(6);
        } else {
            bytes += static_cast<char>(0xF0 | c >> 18);
            bytes += tail(12);
            bytes += tail(6);
        }
        bytes += tail(0);
    }
    return bytes;
}

void SwapBytes(char16_t* text, std::size_t count)
{
    std::transform(text, text + count, text,
                   [](char16_t c) { return static_cast<char16_t>(c << 8 | c >> 8); });
}

UnicodeString FromUtf16(std::string_view bytes)
{
    UnicodeString text;
    text.SetLength(static_cast<int>(bytes.size() / 2));
    if (!text.IsEmpty()) {
        std::memcpy(text.UniqueData(), bytes.data(), text.size() * 2);
    }
    return text;
}

std::string ToUtf16(View text)
{
    return {reinterpret_cast<const char*>(text.data()), text.size() * 2};
}

bool IsInCodePage(View text)
{
    return std::all_of(text.begin(), text.end(), [](char16_t c) { return c < 0x80; }) ||
           System::DecodeText(System::DefaultSystemCodePage,
                              System::EncodeText(System::DefaultSystemCodePage, text).AsView())
                   .AsView() == text;
}

bool IsQuote(char16_t c)
{
    return c == u'"' || c == u'\'';
}

bool HasOuter(View text, char16_t quote)
{
    return text.size() >= 2 && text.front() == quote && text.back() == quote;
}

bool HasOuterBlanks(View text)
{
    return !text.empty() && (IsUpToBlank(text.front()) || IsUpToBlank(text.back()));
}

View WithoutOuter(View text)
{
    return text.substr(1, text.size() - 2);
}

/// The pair that encloses what has outer blanks and quotes of both kinds in it.
bool IsInBothQuotes(View text)
{
    if (!HasOuter(text, u'"') || !HasOuter(WithoutOuter(text), u'\'')) {
        return false;
    }
    const View inner = WithoutOuter(WithoutOuter(text));
    return HasOuterBlanks(inner) && inner.find(u'"') != View::npos && inner.find(u'\'') != View::npos;
}

View Unquoted(View text)
{
    if (text.empty() || !HasOuter(text, text.front()) || !IsQuote(text.front())) {
        return text;
    }
    if (IsInBothQuotes(text)) {
        return WithoutOuter(WithoutOuter(text));
    }
    const View inner = WithoutOuter(text);
    const char16_t quote = text.front();
    return inner.find(quote) == View::npos || HasOuter(inner, quote) ? inner : text;
}

std::u16string Quoted(View value)
{
    std::u16string text(value);
    if (HasOuterBlanks(value)) {
        const bool hasDouble = value.find(u'"') != View::npos;
        const bool hasSingle = value.find(u'\'') != View::npos;
        return hasDouble && hasSingle ? u"\"'" + text + u"'\""
               : hasDouble            ? u'\'' + text + u'\''
                                      : u'"' + text + u'"';
    }
    const bool isEnclosed = !value.empty() && IsQuote(value.front()) && HasOuter(value, value.front());
    return isEnclosed ? value.front() + text + value.front() : text;
}

/// A zero would end the text for other programs, and a lone surrogate is none in any encoding.
bool IsOneLine(View text)
{
    for (std::size_t i = 0; i < text.size();) {
        const UChar32 c = NextCharacter(text, i);
        if (c == 0 || c == '\r' || c == '\n' || U_IS_SURROGATE(c)) {
            return false;
        }
    }
    return true;
}

bool IsStorableKey(View key)
{
    const View name = WithoutBlanks(key);
    return !name.empty() && name.front() != u';' && name.front() != u'[' && name.find(u'=') == View::npos &&
           IsOneLine(key);
}

bool IsStorableSection(View section)
{
    return !WithoutBlanks(section).empty() && section.find(u']') == View::npos && IsOneLine(section);
}

/// The name of a section, of which the bracket at the end may be missing.
std::optional<View> SectionOfLine(View line)
{
    const View text = WithoutBlanksInFront(line);
    if (!text.starts_with(u'[')) {
        return std::nullopt;
    }
    return WithoutBlanks(text.substr(1, text.find(u']') - 1));
}

} // namespace

namespace Detail
{

View KeyOfLine(View line)
{
    const std::size_t mark = line.find(u'=');
    if (mark == View::npos) {
        return {};
    }
    const View key = WithoutBlanks(line.substr(0, mark));
    return key.starts_with(u';') ? View() : key;
}

View ValueOfLine(View line)
{
    return WithoutBlanks(line.substr(line.find(u'=') + 1));
}

} // namespace Detail

using Detail::KeyOfLine;
using Detail::ValueOfLine;

bool IsStorable(const ProfileChange& change)
{
    return !change.value || (IsStorableSection(change.section) && change.key && IsStorableKey(*change.key) &&
                             IsOneLine(*change.value));
}

ProfileText::ProfileText(std::string_view bytes)
{
    Decode(bytes);
    Parse(mTexts.front().AsView());
}

void ProfileText::Decode(std::string_view bytes)
{
    const auto takeMark = [&](std::string_view mark, Encoding encoding) {
        if (!bytes.starts_with(mark)) {
            return false;
        }
        mEncoding = encoding;
        bytes.remove_prefix(mark.size());
        return true;
    };
    if (takeMark(Utf8Mark, Encoding::Utf8)) {
        mTexts.push_back(FromForeignUtf8(bytes, mHasForeignBytes));
    } else if (takeMark(Utf16Mark, Encoding::Utf16) ||
               takeMark(Utf16BigEndianMark, Encoding::Utf16BigEndian)) {
        mTexts.push_back(FromUtf16(bytes));
        mTail = bytes.substr(bytes.size() / 2 * 2);
        if (mEncoding == Encoding::Utf16BigEndian) {
            SwapBytes(mTexts.front().UniqueData(), mTexts.front().size());
        }
    } else {
        mTexts.emplace_back(System::DecodeText(System::DefaultSystemCodePage, bytes));
    }
}

void ProfileText::Parse(View text)
{
    // What stands in front of the first section belongs to none that can be named.
    mGroups.emplace_back();
    mSections.push_back({Line(), {}, {}, 0});
    while (!text.empty()) {
        const std::size_t length = std::min(text.find_first_of(u"\r\n"), text.size());
        const LineEnd end = LineEndAt(text.substr(length));
        if (mLiveLines == 0 && end != LineEnd::None) {
            mLineEnd = end;
        }
        AddLine({text.substr(0, length), end});
        text.remove_prefix(length + TextOf(end).size());
    }
}

ProfileText::LineEnd ProfileText::LineEndAt(View text)
{
    return text.empty()                ? LineEnd::None
           : text.front() == u'\n'     ? LineEnd::Lf
           : text.starts_with(u"\r\n") ? LineEnd::CrLf
                                       : LineEnd::Cr;
}

View ProfileText::TextOf(LineEnd end)
{
    constexpr std::array<View, 4> texts{u"", u"\r", u"\n", u"\r\n"};
    return texts[static_cast<std::size_t>(end)];
}

void ProfileText::AddLine(const Line& line)
{
    ++mLiveLines;
    if (const auto name = SectionOfLine(line.Text())) {
        AddSection(line, *name);
        return;
    }
    mSections.back().lines.push_back(line);
    NoteKey(PlaceAt(mSections.size() - 1, mSections.back().lines.size() - 1));
}

void ProfileText::AddSection(const Line& header, View name)
{
    const auto [found, isNew] = mNames.try_emplace(name, mGroups.size());
    if (isNew) {
        mGroups.emplace_back();
    }
    mGroups[found->second].sections.push_back(mSections.size());
    mSections.push_back({header, name, {}, found->second});
}

auto ProfileText::IsKey(View key) const
{
    return [this, key](const Place& place) { return NameEqual()(KeyOfLine(LineAt(place).Text()), key); };
}

void ProfileText::NoteKey(const Place& place)
{
    const View key = KeyOfLine(LineAt(place).Text());
    const std::size_t number = mSections[place.section].group;
    if (number == 0 || key.empty()) {
        return;
    }
    Group& group = mGroups[number];
    const std::size_t hash = NameHash()(key);
    if (group.keys.Find(hash, IsKey(key)) == nullptr) {
        group.keys.Add(hash, place);
    } else {
        group.hasRepeatedKeys = true;
    }
}

const ProfileText::Place* ProfileText::FindPlace(const Group& group, View key) const
{
    return group.keys.Find(NameHash()(key), IsKey(key));
}

const ProfileText::Group* ProfileText::FindGroup(View section) const
{
    const auto found = mNames.find(WithoutBlanks(section));
    return found == mNames.end() ? nullptr : &mGroups[found->second];
}

bool ProfileText::IsFirstOfKey(const Group& group, const Place& place) const
{
    const View key = KeyOfLine(LineAt(place).Text());
    if (key.empty()) {
        return false;
    }
    if (!group.hasRepeatedKeys) {
        return true;
    }
    const Place* const first = FindPlace(group, key);
    return first != nullptr && *first == place;
}

std::optional<UnicodeString> ProfileText::Find(View section, View key) const
{
    const auto value = FindView(section, key);
    return value ? std::optional(Shown(*value)) : std::nullopt;
}

std::optional<View> ProfileText::FindView(View section, View key) const
{
    const View keyName = WithoutBlanks(key);
    const auto next = keyName.empty() ? std::nullopt : NextPlace(WithoutBlanks(section));
    if (next && IsKey(keyName)(*next)) {
        mLast.Note(*next);
        return Unquoted(ValueOfLine(LineAt(*next).Text()));
    }
    const Group* const group = FindGroup(section);
    const Place* const place = group == nullptr ? nullptr : FindPlace(*group, keyName);
    if (place == nullptr) {
        return std::nullopt;
    }
    mLast.Note(*place);
    return Unquoted(ValueOfLine(LineAt(*place).Text()));
}

/// None where an earlier line may have the key of that place.
std::optional<ProfilePlace> ProfileText::NextPlace(View section) const
{
    const Place last = mLast.Get();
    const Section& found = mSections[last.section];
    const bool isThere = last.section != 0 && last.line + 1 < found.lines.size() &&
                         !mGroups[found.group].hasRepeatedKeys && NameEqual()(found.name, section);
    return isThere ? std::optional(PlaceAt(last.section, last.line + 1)) : std::nullopt;
}

std::vector<UnicodeString> ProfileText::ListSections() const
{
    std::vector<UnicodeString> names;
    for (std::size_t i = 1; i < mSections.size(); ++i) {
        const Group& group = mGroups[mSections[i].group];
        if (!group.sections.empty() && group.sections.front() == i) {
            names.push_back(Shown(mSections[i].name));
        }
    }
    return names;
}

UnicodeString ProfileText::Shown(View text) const
{
    UnicodeString shown(text);
    if (mHasForeignBytes) {
        for (std::size_t i = 0; i < text.size();) {
            const UChar32 c = NextCharacter(text, i);
            if (IsForeignByte(c)) {
                shown[static_cast<int>(i)] = 0xFFFD;
            }
        }
    }
    return shown;
}

UnicodeString ProfileText::ShownValue(View text) const
{
    return Shown(Unquoted(text));
}

bool ProfileText::Apply(const ProfileChange& change)
{
    const bool isChanged = change.value ? Set(change.section, *change.key, *change.value)
                           : change.key ? DeleteKey(change.section, *change.key)
                                        : DeleteSection(change.section);
    if (isChanged) {
        mLast.Forget();
        TidyUp();
    }
    return isChanged;
}

bool ProfileText::Set(View section, View key, View value)
{
    const View sectionName = WithoutBlanks(section);
    const View keyName = WithoutBlanks(key);
    const std::u16string text = Quoted(value);
    if (const Group* const group = FindGroup(sectionName)) {
        if (const Place* const place = FindPlace(*group, keyName)) {
            return SetLine(*place, text);
        }
    } else {
        AppendSection(sectionName);
    }
    MakeRoomFor(keyName);
    MakeRoomFor(text);
    InsertKey(mGroups[mNames.find(sectionName)->second], std::u16string(keyName) + u'=' + text);
    return true;
}

bool ProfileText::SetLine(const Place& place, const std::u16string& value)
{
    Line& line = mSections[place.section].lines[place.line];
    const View former = line.Text();
    const std::size_t mark = former.find(u'=') + 1;
    const View behind = former.substr(mark);
    const std::size_t blanks = behind.size() - WithoutBlanksInFront(behind).size();
    const std::u16string text = std::u16string(former.substr(0, mark + blanks)) + value;
    if (text == former) {
        return false;
    }
    MakeRoomFor(value);
    line = {Keep(text), line.end};
    ++mDeadLines;
    return true;
}

/// Behind the last line of the section that isn't blank, so that the blank lines in front of the next one
/// stay there.
void ProfileText::InsertKey(Group& group, const std::u16string& text)
{
    const std::size_t number = group.sections.front();
    Section& section = mSections[number];
    const auto behind = std::find_if(section.lines.rbegin(), section.lines.rend(), [](const Line& line) {
                            return !WithoutBlanks(line.Text()).empty();
                        }).base();
    Line& before = behind == section.lines.begin() ? section.header : *std::prev(behind);
    if (before.end == LineEnd::None) {
        before.end = mLineEnd;
    }
    const View kept = Keep(text);
    const auto inserted = section.lines.insert(behind, {kept, mLineEnd});
    const auto line = static_cast<std::size_t>(inserted - section.lines.begin());
    group.keys.Add(NameHash()(KeyOfLine(kept)), PlaceAt(number, line));
    ++mLiveLines;
}

void ProfileText::AppendSection(View name)
{
    EndLastLine();
    MakeRoomFor(name);
    const View kept = Keep(u'[' + std::u16string(name) + u']');
    AddLine({kept, mLineEnd});
}

void ProfileText::EndLastLine()
{
    // The header, if it has no other.
    const auto lastOf = [](Section& section) {
        const auto last = std::find_if(section.lines.rbegin(), section.lines.rend(),
                                       [](const Line& line) { return !line.IsDeleted(); });
        return last == section.lines.rend() ? &section.header : &*last;
    };
    const auto section = std::find_if(mSections.rbegin(), mSections.rend(),
                                      [&](Section& sought) { return !lastOf(sought)->IsDeleted(); });
    if (section == mSections.rend()) {
        return;
    }
    Line& line = *lastOf(*section);
    if (line.end == LineEnd::None) {
        line.end = mLineEnd;
    }
}

bool ProfileText::DeleteKey(View section, View key)
{
    const auto name = mNames.find(WithoutBlanks(section));
    if (name == mNames.end()) {
        return false;
    }
    Group& group = mGroups[name->second];
    const Place* const found = FindPlace(group, WithoutBlanks(key));
    if (found == nullptr) {
        return false;
    }
    const Place place = *found;
    group.keys.Remove(NameHash()(WithoutBlanks(key)), IsKey(WithoutBlanks(key)));
    Delete(mSections[place.section].lines[place.line]);
    if (!group.hasRepeatedKeys) {
        return true;
    }
    // None of them may come to light now.
    for (const std::size_t number : group.sections) {
        for (Line& line : mSections[number].lines) {
            if (NameEqual()(KeyOfLine(line.Text()), WithoutBlanks(key))) {
                Delete(line);
            }
        }
    }
    return true;
}

bool ProfileText::DeleteSection(View section)
{
    const auto name = mNames.find(WithoutBlanks(section));
    if (name == mNames.end()) {
        return false;
    }
    Group& group = mGroups[name->second];
    for (const std::size_t number : group.sections) {
        Section& deleted = mSections[number];
        Delete(deleted.header);
        std::for_each(deleted.lines.begin(), deleted.lines.end(), [this](Line& line) { Delete(line); });
    }
    group = Group();
    mNames.erase(name);
    return true;
}

void ProfileText::Delete(Line& line)
{
    line = {};
    --mLiveLines;
    ++mDeadLines;
}

/// A text that the code page lacks turns the file into UTF-8.
void ProfileText::MakeRoomFor(View text)
{
    if (mEncoding == Encoding::CodePage && !IsInCodePage(text)) {
        mEncoding = Encoding::Utf8;
    }
}

View ProfileText::Keep(View text)
{
    return mTexts.emplace_back(text).AsView();
}

/// What is dead stays in memory; so that this costs no more than the changes themselves, it is thrown away in
/// bulk.
void ProfileText::TidyUp()
{
    constexpr std::size_t few = 1000;
    if (mDeadLines > mLiveLines + few) {
        *this = ProfileText(Compose());
    }
}

std::string ProfileText::Compose() const
{
    std::u16string text;
    const auto add = [&text](const Line& line) { text.append(line.Text()).append(TextOf(line.end)); };
    for (const Section& section : mSections) {
        add(section.header);
        std::for_each(section.lines.begin(), section.lines.end(), add);
    }
    switch (mEncoding) {
    case Encoding::CodePage:
        return std::string(System::EncodeText(System::DefaultSystemCodePage, text).AsView());
    case Encoding::Utf8:
        return std::string(Utf8Mark) + ToForeignUtf8(text);
    case Encoding::Utf16:
        return std::string(Utf16Mark) + ToUtf16(text) + mTail;
    case Encoding::Utf16BigEndian:
        SwapBytes(text.data(), text.size());
        return std::string(Utf16BigEndianMark) + ToUtf16(text) + mTail;
    }
    return {};
}

} // namespace Host
