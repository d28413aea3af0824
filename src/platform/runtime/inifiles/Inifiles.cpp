// SPDX-License-Identifier: MIT
#include "platform/runtime/inifiles/Inifiles.h"

#include "platform/base/Sysutils_Encoding.h"
#include "platform/base/numbers/Sysutils_Integer.h"
#include "platform/host/profile/Host_Profile.h"
#include "platform/host/profile/internal/Host_ProfileContent.h"
#include "platform/host/profile/internal/Host_ProfileText.h"
#include "platform/runtime/classes/Classes_Strings.h"

namespace Inifiles
{

namespace
{

using Classes::TStrings;
using System::UnicodeString;

[[noreturn]] void ThrowUnwritable(const UnicodeString& file)
{
    throw EIniFileException(u"Unable to write to " + file);
}

void CheckWritten(bool isWritten, const UnicodeString& file)
{
    if (!isWritten) {
        ThrowUnwritable(file);
    }
}

/// Makes the names the lines of the list.
void Fill(TStrings* list, const std::vector<UnicodeString>& names)
{
    if (list != nullptr) {
        list->Clear();
        list->AddStrings(names);
    }
}

UnicodeString Decoded(std::string_view bytes)
{
    Sysutils::TEncoding codePage(System::DefaultSystemCodePage);
    const auto [encoding, mark] = Sysutils::TEncoding::Detect(bytes, &codePage);
    return encoding->GetString(bytes.substr(static_cast<std::size_t>(mark)));
}

/// In the encoding of `former`, or in UTF-8 if that is the code page and lacks the text.
std::string Encoded(const UnicodeString& text, std::string_view former)
{
    Sysutils::TEncoding codePage(System::DefaultSystemCodePage);
    auto* encoding = Sysutils::TEncoding::Detect(former, &codePage).first;
    if (encoding == &codePage && codePage.GetString(codePage.GetBytes(text).AsView()) != text) {
        encoding = Sysutils::TEncoding::getUTF8();
    }
    return std::string(encoding->GetPreamble()).append(encoding->GetBytes(text).AsView());
}

std::vector<UnicodeString> LinesOf(const std::vector<Host::ProfileEntry>& entries)
{
    std::vector<UnicodeString> lines;
    lines.reserve(entries.size());
    for (const auto& [key, value] : entries) {
        lines.push_back(key + u'=' + value);
    }
    return lines;
}

} // namespace

EIniFileException::~EIniFileException() = default;

TCustomIniFile::TCustomIniFile(const UnicodeString& fileName) : mFileName(fileName) {}

TCustomIniFile::~TCustomIniFile() = default;

int TCustomIniFile::ReadInteger(const UnicodeString& section, const UnicodeString& key,
                                int defaultValue) const
{
    return Sysutils::StrToIntDef(ReadString(section, key, {}), defaultValue);
}

void TCustomIniFile::WriteInteger(const UnicodeString& section, const UnicodeString& key, int value)
{
    WriteString(section, key, UnicodeString(value));
}

bool TCustomIniFile::ReadBool(const UnicodeString& section, const UnicodeString& key, bool defaultValue) const
{
    return ReadInteger(section, key, defaultValue ? 1 : 0) != 0;
}

void TCustomIniFile::WriteBool(const UnicodeString& section, const UnicodeString& key, bool value)
{
    WriteInteger(section, key, value ? 1 : 0);
}

TIniFile::TIniFile(const UnicodeString& fileName) : TCustomIniFile(fileName) {}

TIniFile::~TIniFile() = default;

bool TIniFile::SectionExists(const UnicodeString& section) const
{
    return !Host::ListProfileKeys(getFileName(), section.AsView()).empty();
}

bool TIniFile::ValueExists(const UnicodeString& section, const UnicodeString& key) const
{
    return Host::ReadProfileValue(getFileName(), section.AsView(), key.AsView()).has_value();
}

UnicodeString TIniFile::ReadString(const UnicodeString& section, const UnicodeString& key,
                                   const UnicodeString& defaultValue) const
{
    return Host::ReadProfileValue(getFileName(), section.AsView(), key.AsView()).value_or(defaultValue);
}

void TIniFile::WriteString(const UnicodeString& section, const UnicodeString& key, const UnicodeString& value)
{
    CheckWritten(Host::WriteProfileValue(getFileName(), section.AsView(), key.AsView(), value.AsView()),
                 getFileName());
}

void TIniFile::ReadSections(TStrings* sections) const
{
    Fill(sections, Host::ListProfileSections(getFileName()));
}

void TIniFile::ReadSection(const UnicodeString& section, TStrings* keys) const
{
    Fill(keys, Host::ListProfileKeys(getFileName(), section.AsView()));
}

void TIniFile::ReadSectionValues(const UnicodeString& section, TStrings* lines) const
{
    Fill(lines, LinesOf(Host::ReadProfileSection(getFileName(), section.AsView())));
}

void TIniFile::EraseSection(const UnicodeString& section)
{
    CheckWritten(Host::DeleteProfileSection(getFileName(), section.AsView()), getFileName());
}

void TIniFile::DeleteKey(const UnicodeString& section, const UnicodeString& key)
{
    CheckWritten(Host::DeleteProfileKey(getFileName(), section.AsView(), key.AsView()), getFileName());
}

void TIniFile::UpdateFile() {}

TMemIniFile::TMemIniFile(const UnicodeString& fileName) : TCustomIniFile(fileName)
{
    auto bytes = Host::LoadProfileContent(fileName);
    mIsUnread = !bytes.has_value();
    mText = System::MakeOwner<Host::ProfileText>(std::move(bytes).value_or(std::string()));
}

TMemIniFile::~TMemIniFile() = default;

bool TMemIniFile::SectionExists(const UnicodeString& section) const
{
    bool hasKeys = false;
    mText->ForEachEntry(section.AsView(), [&](auto, auto) { hasKeys = true; });
    return hasKeys;
}

bool TMemIniFile::ValueExists(const UnicodeString& section, const UnicodeString& key) const
{
    return mText->Find(section.AsView(), key.AsView()).has_value();
}

UnicodeString TMemIniFile::ReadString(const UnicodeString& section, const UnicodeString& key,
                                      const UnicodeString& defaultValue) const
{
    auto value = mText->Find(section.AsView(), key.AsView());
    return value ? *std::move(value) : defaultValue;
}

void TMemIniFile::WriteString(const UnicodeString& section, const UnicodeString& key,
                              const UnicodeString& value)
{
    const Host::ProfileChange change{section, key, value};
    CheckWritten(Host::IsStorable(change), getFileName());
    mText->Apply(change);
}

void TMemIniFile::ReadSections(TStrings* sections) const
{
    Fill(sections, mText->ListSections());
}

void TMemIniFile::ReadSection(const UnicodeString& section, TStrings* keys) const
{
    std::vector<UnicodeString> names;
    mText->ForEachEntry(section.AsView(),
                        [&](std::u16string_view key, auto) { names.push_back(mText->Shown(key)); });
    Fill(keys, names);
}

void TMemIniFile::ReadSectionValues(const UnicodeString& section, TStrings* lines) const
{
    std::vector<Host::ProfileEntry> entries;
    mText->ForEachEntry(section.AsView(), [&](std::u16string_view key, std::u16string_view value) {
        entries.push_back({mText->Shown(key), mText->ShownValue(value)});
    });
    Fill(lines, LinesOf(entries));
}

void TMemIniFile::EraseSection(const UnicodeString& section)
{
    mText->Apply({section, std::nullopt, std::nullopt});
}

void TMemIniFile::DeleteKey(const UnicodeString& section, const UnicodeString& key)
{
    mText->Apply({section, key, std::nullopt});
}

void TMemIniFile::UpdateFile()
{
    const auto former = mIsUnread ? Host::FormerContent::Unread : Host::FormerContent::Read;
    CheckWritten(Host::SaveProfileContent(getFileName(), mText->Compose(), former), getFileName());
    mIsUnread = false;
}

void TMemIniFile::GetStrings(TStrings* lines) const
{
    if (lines != nullptr) {
        lines->setText(Decoded(mText->Compose()));
    }
}

void TMemIniFile::SetStrings(const TStrings* lines)
{
    const UnicodeString text = lines == nullptr ? UnicodeString() : lines->getText();
    *mText = Host::ProfileText(Encoded(text, mText->Compose()));
}

CIniBundle::CIniBundle(const UnicodeString& fileName)
    : mFileName(fileName), mBundle(System::MakeOwner<Host::ProfileBundle>(fileName))
{
}

CIniBundle::~CIniBundle() = default;

void CIniBundle::End()
{
    CheckWritten(mBundle->End(), mFileName);
}

} // namespace Inifiles
