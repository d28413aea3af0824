// SPDX-License-Identifier: MIT
#include "languages/BTL_ID_File.h"

#include "config/BTL_INI_WinIniFile.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "languages/BTL_I18N_Texts.h"
#include "languages/internal/BTL_ID_Notice.h"
#include "platform/base/Sysutils_Exception.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/sysutils/Sysutils_File.h"
#include "platform/toolkit/MessageBox.h"
#include "text/grammar/BTL_STR_Escape.h"
#include "text/numbers/BTL_NUM_Integers.h"

#include <algorithm>

namespace BTL
{

namespace
{

using System::TVarArgs;
using System::UnicodeString;
using System::WideChar;

constexpr const WideChar* DefaultSection = u"IDS";
constexpr const WideChar* KeyFormat = u"000000000";
constexpr const WideChar* FileMissing = u"IDS File \n'%s'\n is missing.";
constexpr const WideChar* KeyMissing = u"IDS-Key '%s' is missing in File \n'%s'.";
/// What no value of a file is: they have one line.
constexpr const WideChar* NoValue = u"-\n-";

UnicodeString FolderOf(EIDS_Path where)
{
    switch (where) {
    case EIDS_Path::ProgramIDS:
        return GetProgramIDSPath();
    case EIDS_Path::Bin:
        return GetBinPath();
    case EIDS_Path::None:
        break;
    }
    return {};
}

UnicodeString KeyOf(int id)
{
    return FormatInt(UnicodeString(KeyFormat), id);
}

/// What the file at hand is about may be the very table that has the format; so this one is read by itself,
/// and a wrong one gives way to that of the program.
UnicodeString FillNotice(EIDS id, const WideChar* ownFormat, TVarArgs arguments)
{
    try {
        return System::Printf(Gi18n::GetStringDef(id, ownFormat), arguments);
    } catch (const Sysutils::EConvertError&) {
        return System::Printf(ownFormat, arguments);
    }
}

UnicodeString GetFileNotice(const UnicodeString& file)
{
    return FillNotice(EIDS::LanguageFileMissing, FileMissing, {file});
}

/// Adds the text of `id`, or what tells that it isn't there; this one has an object, which nobody looks at.
void AddText(CWIN_IniFile& ini, int id, Classes::TStringList& strings)
{
    const UnicodeString key = KeyOf(id);
    const UnicodeString value = ini.ReadString(key, UnicodeString(NoValue));
    if (value != NoValue) {
        strings.Add(ApplyEscapeSequences(value));
        return;
    }
    // The name of the file isn't put through the escapes that it may look like.
    strings.AddObject(FillNotice(EIDS::LanguageKeyMissing, KeyMissing, {key, ini.getFile()}), &strings);
}

/// A file that isn't there is one notice, not as many as it would have texts.
void LogMissingTexts(const UnicodeString& file, const Classes::TStringList& strings)
{
    if (!Sysutils::FileExists(file)) {
        LogNoticeOnce(GetFileNotice(file));
        return;
    }
    for (int i = 0; i < strings.getCount(); ++i) {
        if (strings.getObjects(i) != nullptr) {
            LogNoticeOnce(strings.getStrings(i));
        }
    }
}

} // namespace

AIDSFile::AIDSFile(const int* ids) : mIds(ids) {}

AIDSFile::AIDSFile(const UnicodeString& file, const int* ids) : AIDSFile({}, file, DefaultSection, ids) {}

AIDSFile::AIDSFile(EIDS_Path where, const UnicodeString& file, const int* ids)
    : AIDSFile(FolderOf(where), file, DefaultSection, ids)
{
}

AIDSFile::AIDSFile(const UnicodeString& path, const UnicodeString& file, const UnicodeString& section,
                   const int* ids)
    : mFile(path + file), mSection(section), mIds(ids)
{
}

AIDSFile::~AIDSFile() = default;

void AIDSFile::Init(const UnicodeString& section, const UnicodeString& file, const UnicodeString& path)
{
    const WIN::CCriticalSection lock(mLock);
    Clear();
    mSection = section;
    mFile = path + file;
}

void AIDSFile::InitWithPath(const UnicodeString& path, bool check)
{
    {
        const WIN::CCriticalSection lock(mLock);
        Clear();
        mFile = path + mFile;
    }
    if (check) {
        ExistsCheck();
    }
}

void AIDSFile::Clear()
{
    const WIN::CCriticalSection lock(mLock);
    mStrings = nullptr;
}

bool AIDSFile::Exists()
{
    return Sysutils::FileExists(PlaceOfFile().file);
}

bool AIDSFile::ExistsCheck()
{
    const UnicodeString file = PlaceOfFile().file;
    if (Sysutils::FileExists(file)) {
        return true;
    }
    const UnicodeString notice = GetFileNotice(file);
    LogNoticeOnce(notice);
    MessageBoxW(notice, MB_ICONSTOP);
    return false;
}

UnicodeString AIDSFile::GetString(int index)
{
    const WIN::CCriticalSection lock(mLock);
    return LoadedStrings().getStrings(index);
}

UnicodeString AIDSFile::GetStringDef(int index, const UnicodeString& defaultValue)
{
    const auto ids = TableOfIds();
    if (index < 0 || static_cast<std::size_t>(index) >= ids.size()) {
        return ApplyEscapeSequences(defaultValue);
    }
    const TPlaceOfFile place = PlaceOfFile();
    CWIN_IniFile ini(place.file, place.section);
    return ini.ReadEscSeqString(UnicodeString(ids[static_cast<std::size_t>(index)]), defaultValue);
}

AID_Strings::TOrigin AIDSFile::GetOrigin(int index)
{
    const WIN::CCriticalSection lock(mLock);
    const bool isFormat = LoadedStrings().getObjects(index) == nullptr;
    const int id = TableOfIds()[static_cast<std::size_t>(index)];
    return {.place = GetKeyPlace(KeyOf(id), mFile), .isFormat = isFormat};
}

AIDSFile::TPlaceOfFile AIDSFile::PlaceOfFile()
{
    const WIN::CCriticalSection lock(mLock);
    return {mFile, mSection};
}

std::span<const int> AIDSFile::TableOfIds() const
{
    constexpr int end = -1;
    if (mIds == nullptr) {
        return {};
    }
    return {mIds, std::ranges::find(mIds, std::unreachable_sentinel, end)};
}

Classes::TStringList& AIDSFile::LoadedStrings()
{
    if (mStrings == nullptr) {
        mStrings = LoadStrings();
    }
    return *mStrings;
}

System::GOwner<Classes::TStringList> AIDSFile::LoadStrings() const
{
    auto strings = System::MakeOwner<Classes::TStringList>();
    CWIN_IniFile ini(mFile, mSection);
    for (const int id : TableOfIds()) {
        AddText(ini, id, *strings);
    }
    LogMissingTexts(mFile, *strings);
    return strings;
}

} // namespace BTL
