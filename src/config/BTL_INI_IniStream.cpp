// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniStream.h"

#include "config/internal/BTL_INI_IniText.h"

#include <string>
#include <vector>

namespace BTL
{

using Classes::TFileStream;
using Classes::TStream;
using Classes::TStringStream;
using System::AnsiString;
using System::Int64;
using System::UnicodeString;

namespace
{

/// Finds where the values stand.
struct TValuePlaces
{
    void OnSection(std::string_view) {}
    void OnKey(std::string_view, std::string_view value) { values.push_back(value); }

    std::vector<std::string_view> values;
};

/// The bytes of a text as `CIniStreamImp::Load` reads them: values in UTF-8, all else in the code page.
AnsiString IniBytes(const UnicodeString& text)
{
    const std::string utf8 = System::ToUtf8(text);
    Detail::CIniTextBytes reader(utf8);
    TValuePlaces places;
    Detail::ReadIniText(reader, places);
    AnsiString bytes;
    const char* done = utf8.data();
    const auto recodeUpTo = [&bytes, &done](const char* end) {
        bytes += AnsiString(System::FromUtf8({done, static_cast<std::size_t>(end - done)}));
        done = end;
    };
    for (const std::string_view value : places.values) {
        recodeUpTo(value.data());
        bytes.Append(value);
        done += value.size();
    }
    recodeUpTo(utf8.data() + utf8.size());
    return bytes;
}

} // namespace

CIniStream::CIniStream(CIniStreamImp* store) : AIni(store), mStreamStore(store) {}

CIniStream::CIniStream() : CIniStream(new CIniStreamImp(nullptr)) {}

CIniStream::CIniStream(TStream* stream, bool load) : CIniStream(stream, imUTF8, load) {}

CIniStream::CIniStream(TStream* stream, EIniMode mode, bool load) : CIniStream(new CIniStreamImp(stream))
{
    if (load) {
        mode == imAnsi ? LoadAnsi() : Load();
    }
}

CIniStream::CIniStream(TStream* stream, const UnicodeString& file, bool load)
    : CIniStream(new CIniStreamImp(stream, file, 0))
{
    if (load) {
        Load();
    }
}

CIniStream::~CIniStream() = default;

void CIniStream::ReadHeadline()
{
    mStreamStore->ReadHeadline();
}

void CIniStream::SaveAnsi()
{
    mStreamStore->SaveAnsi();
}

void CIniStream::LoadFromStream(TStream* stream)
{
    mStreamStore->LoadFromStream(stream);
}

void CIniStream::SaveToStream(TStream* stream)
{
    mStreamStore->SaveToStream(stream);
}

int CIniStream::GetItemCount() const
{
    return mStreamStore->GetItemCount();
}

int CIniStream::GetItemCount(const UnicodeString& section) const
{
    return mStreamStore->GetItemCount(section);
}

Int64 CIniStream::getStreamSize() const
{
    const TStream* stream = mStreamStore->getStream();
    return stream == nullptr ? 0 : stream->getSize();
}

UnicodeString CIniStream::getHeadline() const
{
    return mStreamStore->getHeadline();
}

void CIniStream::setHeadline(const UnicodeString& headline)
{
    mStreamStore->setHeadline(headline);
}

const TIniHeadlineEvent& CIniStream::getOnReadHeadline() const noexcept
{
    return mStreamStore->getOnReadHeadline();
}

void CIniStream::setOnReadHeadline(const TIniHeadlineEvent& event)
{
    mStreamStore->setOnReadHeadline(event);
}

const TIniLoadSectionEvent& CIniStream::getOnLoadSection() const noexcept
{
    return mStreamStore->getOnLoadSection();
}

void CIniStream::setOnLoadSection(const TIniLoadSectionEvent& event)
{
    mStreamStore->setOnLoadSection(event);
}

const TIniLoadKeyEvent& CIniStream::getOnLoadKey() const noexcept
{
    return mStreamStore->getOnLoadKey();
}

void CIniStream::setOnLoadKey(const TIniLoadKeyEvent& event)
{
    mStreamStore->setOnLoadKey(event);
}

const TIniSaveSectionEvent& CIniStream::getOnSaveSection() const noexcept
{
    return mStreamStore->getOnSaveSection();
}

void CIniStream::setOnSaveSection(const TIniSaveSectionEvent& event)
{
    mStreamStore->setOnSaveSection(event);
}

const TIniSaveKeyEvent& CIniStream::getOnSaveKey() const noexcept
{
    return mStreamStore->getOnSaveKey();
}

void CIniStream::setOnSaveKey(const TIniSaveKeyEvent& event)
{
    mStreamStore->setOnSaveKey(event);
}

CIniStreamEx::CIniStreamEx() = default;

CIniStreamEx::CIniStreamEx(const UnicodeString& file, const UnicodeString& section)
    : CIniStreamEx(file, Classes::fmCreate, true)
{
    setSection(section);
}

CIniStreamEx::CIniStreamEx(const UnicodeString& file, unsigned short mode, bool load)
    : CIniStream(nullptr, file, false)
{
    Bind(new TFileStream(file, mode));
    if (load) {
        Load();
    }
}

CIniStreamEx::CIniStreamEx(TStream* stream, bool load)
{
    Bind(stream);
    if (load) {
        Load();
    }
}

CIniStreamEx::~CIniStreamEx() = default;

TStream* CIniStreamEx::TextStream(const UnicodeString& text)
{
    return new TStringStream(IniBytes(text));
}

void CIniStreamEx::Bind(TStream* stream)
{
    getStore().SetStream(stream);
    mOwned = System::GOwner<TStream>(stream);
}

void CIniStreamEx::setFile(const UnicodeString& file)
{
    Bind(nullptr);
    AIni::setFile(file);
    if (!getStore().FileExists() || file.IsEmpty()) {
        return;
    }
    Bind(new TFileStream(file, Classes::fmOpenRead | Classes::fmShareDenyNone));
    if (getStreamSize() > 0) {
        Load();
    }
}

CIniStringStream::CIniStringStream() : CIniStringStream(AnsiString()) {}

CIniStringStream::CIniStringStream(const UnicodeString& text) : CIniStringStream(IniBytes(text)) {}

CIniStringStream::CIniStringStream(const AnsiString& text) : mOwned(new TStringStream(text))
{
    getStore().SetStream(mOwned.get());
    Load();
}

CIniStringStream::~CIniStringStream() = default;

} // namespace BTL
