// SPDX-License-Identifier: MIT
#include "languages/BTL_ID_Ini.h"

#include "config/BTL_INI_WinIniFile.h"
#include "languages/internal/BTL_ID_Notice.h"
#include "text/numbers/BTL_NUM_Integers.h"

namespace BTL
{

namespace
{

using System::UnicodeString;
using System::WideChar;

constexpr const WideChar* DefaultKeyFormat = u"000000000";

} // namespace

AIDSIni::AIDSIni() : mKeyFormat(DefaultKeyFormat) {}

AIDSIni::AIDSIni(AIniImp* store) : AIni(store), mKeyFormat(DefaultKeyFormat) {}

AIDSIni::AIDSIni(AIniImp* store, const char* format) : AIni(store)
{
    SetKeyFormat(format);
}

AIDSIni::AIDSIni(AIniImp* store, const WideChar* format) : AIni(store)
{
    SetKeyFormat(format);
}

AIDSIni::~AIDSIni() = default;

void AIDSIni::SetDefaultKeyFormat()
{
    mKeyFormat = DefaultKeyFormat;
}

void AIDSIni::SetKeyFormat(const char* format)
{
    mKeyFormat = format == nullptr ? UnicodeString(DefaultKeyFormat) : UnicodeString(format);
}

void AIDSIni::SetKeyFormat(const WideChar* format)
{
    mKeyFormat = format == nullptr ? DefaultKeyFormat : format;
}

UnicodeString AIDSIni::KeyOf(int id) const
{
    return FormatInt(mKeyFormat, id);
}

bool AIDSIni::IDKeyExists(int id)
{
    return KeyExists(KeyOf(id));
}

void AIDSIni::WriteIDString(int id, const UnicodeString& text)
{
    WriteEscSeqString(KeyOf(id), text);
}

UnicodeString AIDSIni::GetString(int id)
{
    return GetStringDef(id, {});
}

UnicodeString AIDSIni::GetStringDef(int id, const UnicodeString& defaultValue)
{
    return ReadEscSeqString(KeyOf(id), defaultValue);
}

AID_Strings::TOrigin AIDSIni::GetOrigin(int id)
{
    return {.place = GetKeyPlace(KeyOf(id), getFile())};
}

CIDSIniFile::CIDSIniFile() : AIDSIni(new CWIN_IniFileImp) {}

CIDSIniFile::CIDSIniFile(const UnicodeString& file) : CIDSIniFile()
{
    setFile(file);
}

CIDSIniFile::CIDSIniFile(const UnicodeString& file, const UnicodeString& section, const char* format)
    : CIDSIniFile(file)
{
    setSection(section);
    SetKeyFormat(format);
}

CIDSIniFile::CIDSIniFile(const UnicodeString& file, const UnicodeString& section, const WideChar* format)
    : CIDSIniFile(file)
{
    setSection(section);
    SetKeyFormat(format);
}

CIDSIniFile::~CIDSIniFile() = default;

} // namespace BTL
