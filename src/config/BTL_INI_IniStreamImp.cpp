// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniStreamImp.h"

#include "config/internal/BTL_INI_IniText.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/classes/internal/Classes_StreamWindow.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "text/editing/BTL_STR_Cut.h"
#include "text/lists/BTL_STR_StrStrMap.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <map>
#include <numeric>
#include <string>
#include <utility>

namespace BTL
{

using Classes::TStream;
using Classes::TStrings;
using System::AnsiString;
using System::Int64;
using System::UnicodeString;

class CIniStreamImp::CSection : public CStrStrMap
{
public:
    explicit CSection(const UnicodeString& name) : mName(name) {}

    const UnicodeString& getName() const noexcept { return mName; }

    /// Looks first in front of `hint`, and tells the place behind the key.
    const_iterator Set(const_iterator hint, UnicodeString key, UnicodeString value)
    {
        return std::next(insert_or_assign(hint, std::move(key), std::move(value)));
    }
    void Set(UnicodeString key, UnicodeString value)
    {
        Set(std::as_const(*this).end(), std::move(key), std::move(value));
    }

private:
    UnicodeString mName;
};

class CIniStreamImp::CSections : public std::map<UnicodeString, System::GOwner<CSection>>
{
};

namespace
{

/// Larger texts are read byte by byte rather than into one text.
constexpr Int64 LargestBlock = 0x40000000;

UnicodeString FromCodePage(std::string_view bytes)
{
    return UnicodeString(System::DecodeText(System::DefaultSystemCodePage, bytes));
}

/// Without the quotes around it.
UnicodeString Unquoted(UnicodeString value)
{
    const bool isQuoted = value.AsView().starts_with(u'"') && IsQuotedStr(value, u'"');
    return isQuoted ? ExtractQuotedStr(value, u'"') : value;
}

/// A position for a closure, which knows no larger ones.
int ToldPlace(Int64 position)
{
    return static_cast<int>(std::min(position, Int64{std::numeric_limits<int>::max()}));
}

/// All from the position on, in memory. `copy` keeps it where the stream doesn't.
std::string_view ReadRest(TStream& stream, AnsiString& copy)
{
    const std::string_view window = Classes::CStreamWindow::Of(stream);
    const bool isAll = Classes::CStreamWindow::ShowsEnd(stream) &&
                       static_cast<Int64>(window.size()) == stream.getSize() - stream.getPosition();
    if (isAll) {
        Classes::CStreamWindow::Pass(stream, window.size());
        return window;
    }
    copy = LoadStringFromStream(&stream);
    return copy.AsView();
}

/// Whether the text comes back from the code page as it is.
bool IsInCodePage(const UnicodeString& text)
{
    const auto isAscii = [](System::WideChar c) { return c < 0x80; };
    return std::all_of(text.begin(), text.end(), isAscii) || UnicodeString(AnsiString(text)) == text;
}

bool IsSavableHeadline(const UnicodeString& headline)
{
    return !headline.AsView().starts_with(u'[') && headline.Pos(u'\r') == 0;
}

bool IsSavableSection(const UnicodeString& name)
{
    return name.Pos(u']') == 0 && IsInCodePage(name);
}

bool IsSavableEntry(const UnicodeString& key, const UnicodeString& value)
{
    if (key.Pos(u'=') != 0 || value.Pos(u'\r') != 0 || !IsInCodePage(key)) {
        return false;
    }
    const System::WideChar first = key.IsEmpty() ? u'=' : key[1];
    if (first == u'[' || first == u';') {
        return false;
    }
    // A line that doesn't load is passed over up to its line feed, and no further.
    const bool isOneLine = key.Pos(u'\n') == 0 && value.Pos(u'\n') == 0;
    return isOneLine || Detail::BeginsKey(first < 0x80 ? static_cast<char>(first) : '\x80');
}

/// A name in a message, which may be of any length.
UnicodeString Shown(const UnicodeString& name)
{
    constexpr int longest = 80;
    return u'"' + (name.Length() > longest ? name.SubString(1, longest) + u"..." : name) + u'"';
}

[[noreturn]] void RaiseNotSavable(const UnicodeString& what)
{
    throw Classes::EWriteError(what + u" can't be saved as ini text: it would not be read back as it is");
}

template <class Map, class Part>
void AddTo(TStrings* list, const Map& map, Part part)
{
    for (const auto& entry : map) {
        list->Add(part(entry));
    }
}

constexpr auto FirstOf = [](const auto& entry) -> const UnicodeString& { return entry.first; };
constexpr auto SecondOf = [](const auto& entry) -> const UnicodeString& { return entry.second; };

} // namespace

namespace
{

/// Decodes short texts so that those that come again, as the keys of alike sections do, share one buffer.
class CTextCache
{
public:
    UnicodeString Decoded(System::CodePage codePage, std::string_view bytes)
    {
        constexpr std::size_t longest = 32;
        if (bytes.size() > longest) {
            return UnicodeString(System::DecodeText(codePage, bytes));
        }
        UnicodeString& text = mTexts[std::hash<std::string_view>()(bytes) % mTexts.size()];
        if (!IsAsciiOf(text, bytes)) {
            text = UnicodeString(System::DecodeText(codePage, bytes));
        }
        return text;
    }

private:
    static bool IsAsciiOf(const UnicodeString& text, std::string_view bytes)
    {
        const auto isSame = [](System::WideChar c, char byte) {
            return c < 0x80 && c == static_cast<unsigned char>(byte);
        };
        return std::equal(text.begin(), text.end(), bytes.begin(), bytes.end(), isSame);
    }

    std::array<UnicodeString, 1024> mTexts;
};

} // namespace

/// Takes what is loaded into the store and tells the closures. Those may do with the store what they like, so
/// the section is sought again after each.
class CIniStreamImp::CLoader
{
public:
    CLoader(CIniStreamImp& store, TStream& stream, EValues values)
        : mStore(store),
          mStream(stream),
          mCodePage(values == EValues::Utf8 ? System::CP_UTF8 : System::DefaultSystemCodePage)
    {
    }

    void OnSection(std::string_view name)
    {
        mName = FromCodePage(name);
        if (mStore.mOnLoadSection) {
            mStore.mOnLoadSection(AnsiString(name), ToldPlace(mStream.getPosition()));
        }
        mSection = &mStore.NeedSection(mName);
        mBehind = std::as_const(*mSection).end();
    }

    void OnKey(std::string_view keyBytes, std::string_view valueBytes)
    {
        using System::Detail::WithoutBlanks;
        UnicodeString key = mKeys.Decoded(System::DefaultSystemCodePage, WithoutBlanks(keyBytes));
        UnicodeString value = Unquoted(mValues.Decoded(mCodePage, WithoutBlanks(valueBytes)));
        if (!mStore.mOnLoadKey) {
            // Keys often come in their order.
            mBehind = mSection->Set(mBehind, std::move(key), std::move(value));
            return;
        }
        mStore.NeedSection(mName).Set(key, value);
        mStore.mOnLoadKey(AnsiString(key), AnsiString(value), ToldPlace(mStream.getPosition()));
    }

private:
    CIniStreamImp& mStore;
    TStream& mStream;
    System::CodePage mCodePage;
    UnicodeString mName;
    CSection* mSection = nullptr;
    CSection::const_iterator mBehind;
    CTextCache mKeys;
    CTextCache mValues;
};

/// Gathers the text that is saved. A closure finds in the stream all that stands before.
class CIniStreamImp::CSaver
{
public:
    explicit CSaver(TStream& stream) : mStream(stream) {}

    void Put(std::string_view bytes) { mText.append(bytes); }
    void Put(const UnicodeString& text, EValues values)
    {
        values == EValues::Utf8 ? Put(System::ToUtf8(text)) : Put(AnsiString(text).AsView());
    }
    /// Empties the stream, unless that was done, and writes what is gathered.
    void Flush()
    {
        if (!std::exchange(mBegun, true)) {
            mStream.setSize(0);
            mStream.setPosition(0);
        }
        mStream.WriteBuffer(mText.data(), static_cast<Int64>(mText.size()));
        mText.clear();
    }

private:
    TStream& mStream;
    std::string mText;
    bool mBegun = false;
};

CIniStreamImp::CIniStreamImp(const UnicodeString& file, Int64 userId)
    : AIniImp(file, userId), mSections(System::MakeOwner<CSections>())
{
}

CIniStreamImp::CIniStreamImp(TStream* stream) : mSections(System::MakeOwner<CSections>()), mStream(stream) {}

CIniStreamImp::CIniStreamImp(TStream* stream, const UnicodeString& file, Int64 userId)
    : CIniStreamImp(file, userId)
{
    mStream = stream;
}

CIniStreamImp::~CIniStreamImp() = default;

void CIniStreamImp::Load()
{
    LoadFromStream(mStream);
}

void CIniStreamImp::LoadAnsi()
{
    LoadAnsiFromStream(mStream);
}

void CIniStreamImp::Save()
{
    SaveToStream(mStream);
}

void CIniStreamImp::SaveAnsi()
{
    SaveAnsiToStream(mStream);
}

void CIniStreamImp::LoadFromStream(TStream* stream)
{
    LoadValues(stream, EValues::Utf8);
}

void CIniStreamImp::LoadAnsiFromStream(TStream* stream)
{
    LoadValues(stream, EValues::CodePage);
}

void CIniStreamImp::SaveToStream(TStream* stream)
{
    SaveValues(stream, EValues::Utf8);
}

void CIniStreamImp::SaveAnsiToStream(TStream* stream)
{
    SaveValues(stream, EValues::CodePage);
}

void CIniStreamImp::LoadValues(TStream* stream, EValues values)
{
    if (stream == nullptr) {
        return;
    }
    mHeadline.IsEmpty() ? SkipHeadlineFromStream(stream) : ReadHeadlineFromStream(stream);
    CLoader loader(*this, *stream, values);
    // Closures are told the position, and may look at the stream.
    const bool mustStep = mOnLoadSection || mOnLoadKey;
    if (mustStep || GetSize(stream) > LargestBlock) {
        DeleteSections();
        Detail::CIniTextStream text(*stream);
        Detail::ReadIniText(text, loader);
        return;
    }
    AnsiString copy;
    Detail::CIniTextBytes text(ReadRest(*stream, copy));
    DeleteSections();
    Detail::ReadIniText(text, loader);
}

void CIniStreamImp::CheckSavable() const
{
    if (!IsSavableHeadline(mHeadline)) {
        RaiseNotSavable(u"The headline " + Shown(mHeadline));
    }
    for (const auto& [name, section] : *mSections) {
        const CSection& entries = *section;
        if (!entries.empty() && !IsSavableSection(name)) {
            RaiseNotSavable(u"The section " + Shown(name));
        }
        for (const auto& [key, value] : entries) {
            if (!IsSavableEntry(key, value)) {
                RaiseNotSavable(u"The key " + Shown(key) + u" of the section " + Shown(name));
            }
        }
    }
}

void CIniStreamImp::SaveValues(TStream* stream, EValues values)
{
    if (stream == nullptr) {
        return;
    }
    CheckSavable();
    constexpr std::string_view lineEnd = "\r\n";
    CSaver saver(*stream);
    if (mOnSaveSection || mOnSaveKey) {
        saver.Flush();
    }
    if (!mHeadline.IsEmpty()) {
        saver.Put(mHeadline, EValues::CodePage);
        saver.Put("\r\n\r\n");
    }
    int index = 0;
    for (const auto& [name, section] : *mSections) {
        const CSection& entries = *section;
        if (entries.empty()) {
            continue;
        }
        if (mOnSaveSection) {
            saver.Flush();
            mOnSaveSection(AnsiString(name));
        }
        saver.Put("[");
        saver.Put(name, EValues::CodePage);
        saver.Put("]\r\n");
        for (const auto& [key, value] : entries) {
            if (mOnSaveKey) {
                saver.Flush();
                mOnSaveKey(AnsiString(key), AnsiString(value), index);
            }
            ++index;
            saver.Put(key, EValues::CodePage);
            saver.Put("=");
            saver.Put(value, values);
            saver.Put(lineEnd);
        }
        saver.Put(lineEnd);
    }
    saver.Flush();
}

void CIniStreamImp::ReadHeadline()
{
    ReadHeadlineFromStream(mStream);
}

void CIniStreamImp::SkipHeadline()
{
    ReadHeadlineFromStream(mStream);
}

void CIniStreamImp::ReadHeadlineFromStream(TStream* stream)
{
    if (stream == nullptr) {
        return;
    }
    stream->setPosition(0);
    const AnsiString line = PeekChar(stream) == '[' ? AnsiString() : ReadLine(stream);
    mHeadline = line;
    if (mOnReadHeadline) {
        mOnReadHeadline(line);
    }
}

void CIniStreamImp::SkipHeadlineFromStream(TStream* stream)
{
    if (stream == nullptr) {
        return;
    }
    stream->setPosition(0);
    if (PeekChar(stream) != '[') {
        ReadLine(stream);
    }
}

void CIniStreamImp::GetStrings(TStrings* lines) const
{
    if (lines == nullptr) {
        return;
    }
    for (const auto& [name, section] : *mSections) {
        const CSection& entries = *section;
        if (entries.empty()) {
            continue;
        }
        lines->Add(u'[' + name + u']');
        AddTo(lines, entries, [](const auto& entry) { return entry.first + u'=' + entry.second; });
        lines->Add(UnicodeString());
    }
}

void CIniStreamImp::SetStrings(const TStrings* lines)
{
    DeleteSections();
    CSection* section = nullptr;
    const int count = lines == nullptr ? 0 : lines->getCount();
    for (int i = 0; i < count; ++i) {
        const UnicodeString line = lines->getStrings(i);
        if (line.AsView().starts_with(u'[')) {
            const bool isName = line.AsView().ends_with(u']');
            section = isName ? &NeedSection(line.SubString(2, line.Length() - 2)) : nullptr;
            continue;
        }
        const int equals = line.Pos(u'=');
        if (section != nullptr && equals > 0 && line[1] != u';') {
            section->Set(line.SubString(1, equals - 1).Trim(), line.SubString(equals + 1));
        }
    }
}

int CIniStreamImp::GetItemCount() const noexcept
{
    return std::accumulate(mSections->begin(), mSections->end(), 0, [](int count, const auto& entry) {
        return count + static_cast<int>(entry.second->size());
    });
}

int CIniStreamImp::GetItemCount(const UnicodeString& section) const
{
    const CSection* found = FindSection(section);
    return found == nullptr ? 0 : static_cast<int>(found->size());
}

void CIniStreamImp::SetFile(const UnicodeString& file)
{
    AIniImp::SetFile(file);
}

void CIniStreamImp::SetSection(const UnicodeString& section)
{
    if (mCurrent != nullptr && mCurrent->getName() == section) {
        return;
    }
    AIniImp::SetSection(section);
    mCurrent = section.IsEmpty() ? nullptr : &NeedSection(section);
}

bool CIniStreamImp::FileExists()
{
    return getFile().IsEmpty() || Sysutils::FileExists(getFile());
}

bool CIniStreamImp::SectionExists(const UnicodeString& section)
{
    return FindSection(section) != nullptr;
}

bool CIniStreamImp::KeyExists(const UnicodeString& section, const UnicodeString& key)
{
    const CSection* found = FindSection(section);
    return found != nullptr && found->Contains(key);
}

bool CIniStreamImp::KeyExists2(const UnicodeString& key)
{
    return mCurrent != nullptr && mCurrent->Contains(key);
}

void CIniStreamImp::ReadSections(TStrings* sections)
{
    if (sections != nullptr) {
        AddTo(sections, *mSections, FirstOf);
    }
}

void CIniStreamImp::ReadKeys(const UnicodeString& section, TStrings* keys)
{
    const CSection* found = FindSection(section);
    if (found != nullptr && keys != nullptr) {
        AddTo(keys, *found, FirstOf);
    }
}

void CIniStreamImp::ReadValues(const UnicodeString& section, TStrings* values)
{
    const CSection* found = FindSection(section);
    if (found != nullptr && values != nullptr) {
        AddTo(values, *found, SecondOf);
    }
}

void CIniStreamImp::EraseSection(const UnicodeString& section)
{
    const auto found = mSections->find(section);
    if (found != mSections->end()) {
        found->second->clear();
    }
}

void CIniStreamImp::DeleteKey(const UnicodeString& key)
{
    if (mCurrent != nullptr) {
        mCurrent->erase(key);
    }
}

UnicodeString CIniStreamImp::ReadString(const UnicodeString& key, const UnicodeString& defaultValue)
{
    if (mCurrent == nullptr) {
        return defaultValue;
    }
    const CSection& section = *mCurrent;
    const auto found = section.find(key);
    return found == section.end() ? defaultValue : found->second;
}

void CIniStreamImp::WriteString(const UnicodeString& key, const UnicodeString& value)
{
    if (mCurrent != nullptr) {
        mCurrent->Set(key.Trim(), value);
    }
}

void CIniStreamImp::DeleteSections()
{
    mCurrent = nullptr;
    mSections->clear();
}

const CIniStreamImp::CSection* CIniStreamImp::FindSection(const UnicodeString& section) const
{
    const auto found = mSections->find(section);
    return found == mSections->end() ? nullptr : found->second.get();
}

CIniStreamImp::CSection& CIniStreamImp::NeedSection(const UnicodeString& section)
{
    System::GOwner<CSection>& place = (*mSections)[section];
    if (place == nullptr) {
        place = System::MakeOwner<CSection>(section);
    }
    return *place;
}

} // namespace BTL
