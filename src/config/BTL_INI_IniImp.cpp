// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniImp.h"

#include "environment/folders/BTL_ENV_Folders.h"
#include "platform/base/numbers/Sysutils_FloatText.h"
#include "platform/base/numbers/Sysutils_Integer.h"
#include "platform/runtime/sysutils/Sysutils_FileName.h"
#include "text/bytes/BTL_BIN_BinaryData.h"
#include "text/lists/BTL_STR_StringList.h"
#include "text/numbers/BTL_NUM_Floats.h"

#include <limits>
#include <optional>

namespace BTL
{

namespace
{

using Classes::TStringList;
using Classes::TStrings;
using System::UnicodeString;

struct TLine
{
    UnicodeString key;
    UnicodeString value;
};

std::optional<TLine> CutLine(const UnicodeString& line)
{
    const auto text = line.AsView();
    const auto equals = text.find(u'=');
    if (equals == std::u16string_view::npos) {
        return std::nullopt;
    }
    return TLine{UnicodeString(text.substr(0, equals)).Trim(), UnicodeString(text.substr(equals + 1)).Trim()};
}

/// Calls `take(key, value)` for each key of `section`.
template <class Take>
void ForEachValue(AIniImp& store, const UnicodeString& section, Take take)
{
    const CIniImpSection scope(&store, section);
    TStringList keys;
    store.ReadKeys(section, &keys);
    for (int i = 0; i < keys.getCount(); ++i) {
        take(keys.At(i), store.ReadString(keys.At(i), {}));
    }
}

} // namespace

AIniImp::AIniImp(const UnicodeString& file, System::Int64 userId) : mUserId(userId)
{
    AIniImp::SetFile(file);
}

AIniImp::~AIniImp() = default;

void AIniImp::Load() {}

void AIniImp::LoadAnsi() {}

void AIniImp::Save() {}

void AIniImp::Flush() {}

void AIniImp::Begin() {}

void AIniImp::End() {}

void AIniImp::OnError() {}

void AIniImp::SetUserId(System::Int64 userId)
{
    mUserId = userId;
}

void AIniImp::SetFile(const UnicodeString& file)
{
    // What comes in may be the name that this already has.
    const UnicodeString name = file; // NOLINT(performance-unnecessary-copy-initialization)
    mPath = ExtractFilePath(name);
    mFileName = Sysutils::ExtractFileName(name);
    mFile = name;
}

void AIniImp::SetSection(const UnicodeString& section)
{
    mSection = section;
}

bool AIniImp::FileReadOnly()
{
    return false;
}

bool AIniImp::FileExists()
{
    return true;
}

bool AIniImp::SectionExists(const UnicodeString& section)
{
    TStringList keys;
    ReadKeys(section, &keys);
    return !keys.empty();
}

bool AIniImp::KeyExists(const UnicodeString& section, const UnicodeString& key)
{
    TStringList keys;
    ReadKeys(section, &keys);
    return keys.IndexOf(key) >= 0;
}

bool AIniImp::KeyExists2(const UnicodeString& key)
{
    return KeyExists(mSection, key);
}

void AIniImp::ReadValues(const UnicodeString& section, TStrings* values)
{
    if (values == nullptr) {
        return;
    }
    values->Clear();
    ForEachValue(*this, section,
                 [&](const UnicodeString&, const UnicodeString& value) { values->Add(value); });
}

void AIniImp::ReadSectionValues(const UnicodeString& section, TStrings* lines)
{
    if (lines == nullptr) {
        return;
    }
    lines->Clear();
    ForEachValue(*this, section, [&](const UnicodeString& key, const UnicodeString& value) {
        lines->Add(key + u'=' + value);
    });
}

void AIniImp::ReadSectionValues2(const UnicodeString& section, TStrings* keys, TStrings* values)
{
    if (keys == nullptr || values == nullptr) {
        return;
    }
    keys->Clear();
    values->Clear();
    const CIniImpSection scope(this, section);
    ReadKeys(section, keys);
    for (const UnicodeString& key : *keys) {
        values->Add(ReadString(key, {}));
    }
}

void AIniImp::WriteMissingSectionValues(const UnicodeString& section, TStrings* lines)
{
    if (lines == nullptr) {
        return;
    }
    InOneStep([&] {
        const CIniImpSection scope(this, section);
        CSortedStringList present(Classes::dupIgnore);
        ReadKeys(section, present.getList());
        for (const UnicodeString& text : *lines) {
            const auto line = CutLine(text);
            if (line.has_value() && !present.Contains(line->key)) {
                WriteString(line->key, line->value);
            }
        }
    });
}

void AIniImp::WriteSectionValues(const UnicodeString& section, TStrings* lines)
{
    if (lines == nullptr) {
        return;
    }
    InOneStep([&] {
        const CIniImpSection scope(this, section);
        for (const UnicodeString& text : *lines) {
            if (const auto line = CutLine(text)) {
                WriteString(line->key, line->value);
            }
        }
    });
}

void AIniImp::Clear()
{
    TStringList sections;
    ReadSections(&sections);
    InOneStep([&] {
        for (const UnicodeString& section : sections) {
            EraseSection(section);
        }
    });
}

bool AIniImp::ReadBool(const UnicodeString& key, bool defaultValue)
{
    return Sysutils::StrToIntDef(ReadString(key, {}), defaultValue ? 1 : 0) != 0;
}

char AIniImp::ReadChar(const UnicodeString& key, char defaultValue)
{
    const UnicodeString text = ReadString(key, UnicodeString(defaultValue));
    return text.IsEmpty() ? '\0' : static_cast<char>(text[1] & 0xFF);
}

System::WideChar AIniImp::ReadWChar(const UnicodeString& key, System::WideChar defaultValue)
{
    const UnicodeString text = ReadString(key, UnicodeString(defaultValue));
    return text.IsEmpty() ? u'\0' : text[1];
}

int AIniImp::ReadInteger(const UnicodeString& key, int defaultValue)
{
    return Sysutils::StrToIntDef(ReadString(key, {}), defaultValue);
}

System::Int64 AIniImp::ReadInt64(const UnicodeString& key, System::Int64 defaultValue)
{
    return Sysutils::StrToInt64Def(ReadString(key, {}), defaultValue);
}

double AIniImp::ReadFloat(const UnicodeString& key, double defaultValue)
{
    const UnicodeString text = ReadString(key, {});
    if (text == u"+oo") {
        return std::numeric_limits<double>::max();
    }
    if (text == u"-oo") {
        return std::numeric_limits<double>::min();
    }
    return ToDoubleDef(text, defaultValue);
}

void AIniImp::WriteBool(const UnicodeString& key, bool value)
{
    WriteString(key, value ? u"1" : u"0");
}

void AIniImp::WriteChar(const UnicodeString& key, char value)
{
    WriteString(key, UnicodeString(value));
}

void AIniImp::WriteWChar(const UnicodeString& key, System::WideChar value)
{
    WriteString(key, UnicodeString(value));
}

void AIniImp::WriteInteger(const UnicodeString& key, int value)
{
    WriteString(key, UnicodeString(value));
}

void AIniImp::WriteInt64(const UnicodeString& key, System::Int64 value)
{
    WriteString(key, UnicodeString(value));
}

void AIniImp::WriteFloat(const UnicodeString& key, double value)
{
    WriteString(key, Sysutils::FloatToStr(value));
}

void AIniImp::InOneStep(const System::TClosure<void()>& write)
{
    write();
}

System::AnsiString AIniImp::ReadBinaryData(const UnicodeString& key)
{
    return HexToBinaryData(ReadString(key, {}));
}

int AIniImp::ReadBinaryData(const UnicodeString& key, void* buffer, int size)
{
    const UnicodeString text = ReadString(key, {});
    HexToBinaryData(text, buffer, size);
    return text.Length() / 2;
}

void AIniImp::WriteBinaryData(const UnicodeString& key, const void* data, int size)
{
    WriteString(key, BinaryDataToHexW(data, size));
}

CIniImpSection::CIniImpSection(AIniImp* store, const UnicodeString& section)
    : mStore(store), mFormer(store->getSection())
{
    mStore->SetSection(section);
}

CIniImpSection::~CIniImpSection()
{
    try {
        mStore->SetSection(mFormer);
    } catch (...) { // NOLINT(bugprone-empty-catch): a store that takes no section now has none to go back to
    }
}

} // namespace BTL
