// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniFile3.h"

#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/inifiles/Inifiles.h"

namespace BTL
{

using System::UnicodeString;

void MIniFile::ReadValues(const UnicodeString& section, Classes::TStrings* list) const
{
    if (list == nullptr) {
        return;
    }
    list->Clear();
    if (mIni == nullptr) {
        return;
    }
    Classes::TStringList keys;
    mIni->ReadSection(section, &keys);
    for (const UnicodeString& key : keys) {
        list->Add(mIni->ReadString(section, key, {}));
    }
}

CIniFile3::CIniFile3() : MIniFile(mPointer) {}

CIniFile3::CIniFile3(const UnicodeString& file) : CIniFile3()
{
    Init(file);
}

CIniFile3::~CIniFile3() = default;

void CIniFile3::Init(const UnicodeString& file)
{
    mImage = System::GOwner<Inifiles::TCustomIniFile>(new Inifiles::TMemIniFile(file));
    mPointer = mImage.get();
}

} // namespace BTL
