// SPDX-License-Identifier: MIT
#include "config/BTL_INI_WinIniFile.h"

#include "config/internal/BTL_INI_ProfileLimit.h"
#include "config/internal/BTL_INI_Unwritable.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "platform/host/profile/Host_Profile.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "text/lists/BTL_STR_StringsUpdate.h"

#include <string_view>
#include <vector>

namespace BTL
{

namespace
{

using Classes::TStringList;
using Classes::TStrings;
using System::UnicodeString;
using System::WideChar;

/// Characters with the zero behind them.
constexpr int BufferSize = Detail::LongestProfileText + 1;

void CheckWritten(bool isWritten, const UnicodeString& file)
{
    if (!isWritten) {
        Detail::ThrowUnwritable(file);
    }
}

/// The names that a listing call gives; a null `section` lists the sections.
void ListNames(const WideChar* section, const UnicodeString& file, TStrings* names)
{
    if (names == nullptr) {
        return;
    }
    const CStringsUpdate update(names);
    names->Clear();
    std::vector<WideChar> buffer(BufferSize);
    const std::size_t count =
        GetPrivateProfileStringW(section, nullptr, u"", buffer.data(), BufferSize, file.c_str());
    std::u16string_view rest(buffer.data(), count);
    while (!rest.empty()) {
        const auto name = rest.substr(0, rest.find(u'\0'));
        names->Add(name);
        rest.remove_prefix(std::min(name.size() + 1, rest.size()));
    }
}

} // namespace

CWIN_IniFileImp::CWIN_IniFileImp() = default;

CWIN_IniFileImp::~CWIN_IniFileImp() = default;

void CWIN_IniFileImp::Save()
{
    const int attributes = Sysutils::FileGetAttr(getFile());
    const bool isReadOnly = attributes >= 0 && (attributes & Sysutils::faReadOnly) != 0;
    if (isReadOnly && Sysutils::FileSetAttr(getFile(), attributes & ~Sysutils::faReadOnly) != 0) {
        return;
    }
    Flush();
}

void CWIN_IniFileImp::Flush()
{
    WritePrivateProfileStringW(nullptr, nullptr, nullptr, getFile().c_str());
}

bool CWIN_IniFileImp::FileReadOnly()
{
    return BTL::FileReadOnly(getFile());
}

bool CWIN_IniFileImp::FileExists()
{
    return Sysutils::FileExists(getFile());
}

bool CWIN_IniFileImp::KeyExists(const UnicodeString& section, const UnicodeString& key)
{
    const auto value = Host::ReadProfileValue(getFile(), section.AsView(), key.AsView());
    return value && !value->IsEmpty();
}

void CWIN_IniFileImp::ReadSections(TStrings* sections)
{
    ListNames(nullptr, getFile(), sections);
}

void CWIN_IniFileImp::ReadKeys(const UnicodeString& section, TStrings* keys)
{
    ListNames(section.c_str(), getFile(), keys);
}

void CWIN_IniFileImp::InOneStep(const System::TClosure<void()>& write)
{
    Host::ProfileBundle bundle(getFile());
    write();
    CheckWritten(bundle.End(), getFile());
}

void CWIN_IniFileImp::WriteMissingSectionValues(const UnicodeString& section, TStrings* lines)
{
    if (lines == nullptr) {
        return;
    }
    InOneStep([&] {
        // Asked one by one: not all keys may fit into a list.
        TStringList missing;
        for (const UnicodeString& line : *lines) {
            const auto key = line.AsView().substr(0, line.AsView().find(u'='));
            if (!Host::ReadProfileValue(getFile(), section.AsView(), key)) {
                missing.Add(line);
            }
        }
        WriteSectionValues(section, &missing);
    });
}

void CWIN_IniFileImp::Clear()
{
    InOneStep([&] {
        for (const UnicodeString& section : Host::ListProfileSections(getFile())) {
            EraseSection(section);
        }
    });
}

void CWIN_IniFileImp::EraseSection(const UnicodeString& section)
{
    CheckWritten(Host::DeleteProfileSection(getFile(), section.AsView()), getFile());
}

void CWIN_IniFileImp::DeleteKey(const UnicodeString& key)
{
    static_cast<void>(Host::DeleteProfileKey(getFile(), getSection().AsView(), key.AsView()));
}

int CWIN_IniFileImp::ReadInteger(const UnicodeString& key, int defaultValue)
{
    return Host::ReadProfileNumber(getFile(), getSection().AsView(), key.AsView(), defaultValue);
}

UnicodeString CWIN_IniFileImp::ReadString(const UnicodeString& key, const UnicodeString& defaultValue)
{
    const auto value = Host::ReadProfileValue(getFile(), getSection().AsView(), key.AsView());
    if (!value) {
        return defaultValue;
    }
    return value->Length() <= Detail::LongestProfileText ? *value
                                                         : value->SubString(1, Detail::LongestProfileText);
}

void CWIN_IniFileImp::WriteString(const UnicodeString& key, const UnicodeString& value)
{
    CheckWritten(Host::WriteProfileValue(getFile(), getSection().AsView(), key.AsView(), value.AsView()),
                 getFile());
}

void CWIN_IniFileImp::DiscardCache()
{
    GetPrivateProfileIntW(u"s", u"k", 0, u"file");
}

CWIN_IniFile::CWIN_IniFile() : CWIN_IniFile(new CWIN_IniFileImp) {}

CWIN_IniFile::CWIN_IniFile(CWIN_IniFileImp* store) : AIni(store), mProfile(store) {}

CWIN_IniFile::CWIN_IniFile(const UnicodeString& file) : CWIN_IniFile()
{
    setFile(file);
}

CWIN_IniFile::CWIN_IniFile(const UnicodeString& file, const UnicodeString& section) : CWIN_IniFile(file)
{
    setSection(section);
}

CWIN_IniFile::~CWIN_IniFile() = default;

void CWIN_IniFile::DiscardCache()
{
    mProfile->DiscardCache();
}

} // namespace BTL
