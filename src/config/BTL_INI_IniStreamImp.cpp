// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniStreamImp.h"

#include "config/internal/BTL_INI_IniStreamLoader.h"
#include "config/internal/BTL_INI_IniStreamSaver.h"
#include "config/internal/BTL_INI_IniText.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/classes/internal/Classes_StreamWindow.h"
#include "platform/runtime/sysutils/Sysutils_File.h"

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

namespace
{

/// Larger texts are read byte by byte rather than into one text.
constexpr Int64 LargestBlock = 0x40000000;

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

void CheckHeadline(const UnicodeString& headline)
{
    if (!Detail::IsSavableHeadline(headline)) {
        RaiseNotSavable(u"The headline " + Shown(headline));
    }
}

void CheckSection(const UnicodeString& name)
{
    if (!Detail::IsSavableSection(name)) {
        RaiseNotSavable(u"The section " + Shown(name));
    }
}

void CheckEntry(const UnicodeString& section, const UnicodeString& key, std::u16string_view value)
{
    if (!Detail::IsSavableEntry(key, value)) {
        RaiseNotSavable(u"The key " + Shown(key) + u" of the section " + Shown(section));
    }
}

} // namespace

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
    CheckHeadline(mHeadline);
    for (const auto& [name, section] : *mSections) {
        if (!section->empty()) {
            CheckSection(name);
        }
        section->ForEach([&name = name](const UnicodeString& key, std::u16string_view value) {
            CheckEntry(name, key, value);
        });
    }
}

void CIniStreamImp::SaveValues(TStream* stream, EValues values)
{
    if (stream == nullptr) {
        return;
    }
    CSaver saver(*stream);
    // Nothing is written before all is checked. Closures are called for a stream with all that stands before,
    // so the check goes ahead of them; else both are one way through the entries, which may be many.
    const bool mustStep = mOnSaveSection || mOnSaveKey;
    if (mustStep) {
        CheckSavable();
        saver.Flush();
    }
    CheckHeadline(mHeadline);
    if (!mHeadline.IsEmpty()) {
        saver.Put(mHeadline.AsView(), EValues::CodePage);
        saver.Put("\r\n\r\n");
    }
    int index = 0;
    for (const auto& [name, section] : *mSections) {
        if (section->empty()) {
            continue;
        }
        if (mOnSaveSection) {
            saver.Flush();
            mOnSaveSection(AnsiString(name));
        }
        if (!mustStep) {
            CheckSection(name);
        }
        saver.Put("[");
        saver.Put(name.AsView(), EValues::CodePage);
        saver.Put("]\r\n");
        if (mOnSaveKey) {
            section->ForEachInSteps([&, &entries = *section](const UnicodeString& key) {
                saver.Flush();
                mOnSaveKey(AnsiString(key), AnsiString(*entries.Find(key)), index++);
                if (const auto value = entries.Find(key)) {
                    saver.PutEntry(key, *value, values);
                }
            });
        } else {
            section->ForEach([&, &name = name](const UnicodeString& key, std::u16string_view value) {
                if (!mustStep) {
                    CheckEntry(name, key, value);
                }
                saver.PutEntry(key, value, values);
            });
        }
        saver.Put("\r\n");
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
        if (section->empty()) {
            continue;
        }
        lines->Add(u'[' + name + u']');
        section->ForEach([lines](const UnicodeString& key, std::u16string_view value) {
            lines->Add(key + u'=' + UnicodeString(value));
        });
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
            section->Set(line.SubString(1, equals - 1).Trim(), line.SubString(equals + 1).AsView());
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
    return found != nullptr && found->Find(key).has_value();
}

bool CIniStreamImp::KeyExists2(const UnicodeString& key)
{
    return mCurrent != nullptr && mCurrent->Find(key).has_value();
}

void CIniStreamImp::ReadSections(TStrings* sections)
{
    if (sections != nullptr) {
        for (const auto& [name, section] : *mSections) {
            sections->Add(name);
        }
    }
}

void CIniStreamImp::ReadKeys(const UnicodeString& section, TStrings* keys)
{
    const CSection* found = FindSection(section);
    if (found != nullptr && keys != nullptr) {
        found->ForEach([keys](const UnicodeString& key, const UnicodeString&) { keys->Add(key); });
    }
}

void CIniStreamImp::ReadValues(const UnicodeString& section, TStrings* values)
{
    const CSection* found = FindSection(section);
    if (found != nullptr && values != nullptr) {
        found->ForEach(
            [values](const UnicodeString&, std::u16string_view value) { values->Add(UnicodeString(value)); });
    }
}

void CIniStreamImp::EraseSection(const UnicodeString& section)
{
    const auto found = mSections->find(section);
    if (found != mSections->end()) {
        found->second->Clear();
    }
}

void CIniStreamImp::DeleteKey(const UnicodeString& key)
{
    if (mCurrent != nullptr) {
        mCurrent->Remove(key);
    }
}

UnicodeString CIniStreamImp::ReadString(const UnicodeString& key, const UnicodeString& defaultValue)
{
    if (mCurrent == nullptr) {
        return defaultValue;
    }
    const auto value = mCurrent->Find(key);
    return value ? UnicodeString(*value) : defaultValue;
}

void CIniStreamImp::WriteString(const UnicodeString& key, const UnicodeString& value)
{
    if (mCurrent != nullptr) {
        mCurrent->Set(key.Trim(), value.AsView());
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
