// SPDX-License-Identifier: MIT
#include "config/BTL_INI_Utilities.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/inifiles/Inifiles.h"
#include "text/lists/BTL_STR_StringList.h"

namespace BTL
{

namespace
{

using Classes::TStringList;
using Classes::TStrings;
using System::UnicodeString;

constexpr UTL::CFaultPlace UnequalLists{"BTL_INI_Utilities.cpp", 67};

void ReadPairs(const Inifiles::TIniFile& ini, const UnicodeString& section, TStrings& names, TStrings& values)
{
    ini.ReadSection(section, &names);
    values.Clear();
    for (const UnicodeString& name : names) {
        values.Add(ini.ReadString(section, name, {}));
    }
}

void WritePairs(Inifiles::TIniFile& ini, const UnicodeString& section, const TStrings& names,
                const TStrings& values)
{
    for (int i = 0; i < names.getCount(); ++i) {
        ini.WriteString(section, names[i], values[i]);
    }
}

} // namespace

bool SectionExists(const UnicodeString& file, const UnicodeString& section)
{
    return Inifiles::TIniFile(file).SectionExists(section);
}

void ReadSections(const UnicodeString& file, TStrings* list)
{
    Inifiles::TIniFile(file).ReadSections(list);
}

void ReadSection(const UnicodeString& file, const UnicodeString& section, TStrings* names, TStrings* values)
{
    if (names != nullptr && values != nullptr) {
        ReadPairs(Inifiles::TIniFile(file), section, *names, *values);
    }
}

void ReadSectionValues(const UnicodeString& file, const UnicodeString& section, TStrings* values)
{
    CStringList names;
    ReadSection(file, section, names.getList(), values);
}

void WriteSection(const UnicodeString& file, const UnicodeString& section, TStrings* names, TStrings* values)
{
    TStringList none;
    const TStrings& keys = names == nullptr ? static_cast<TStrings&>(none) : *names;
    const TStrings& texts = values == nullptr ? static_cast<TStrings&>(none) : *values;
    if (keys.getCount() != texts.getCount()) {
        UTL::THROW_XAssert(UnequalLists);
        return;
    }
    Inifiles::TIniFile ini(file);
    Inifiles::CIniBundle bundle(file);
    WritePairs(ini, section, keys, texts);
    bundle.End();
}

void CopyIniFile(const UnicodeString& destination, const UnicodeString& source)
{
    const Inifiles::TIniFile from(source);
    Inifiles::TIniFile to(destination);
    Inifiles::CIniBundle bundle(destination);
    TStringList sections;
    from.ReadSections(&sections);
    for (const UnicodeString& section : sections) {
        TStringList names;
        TStringList values;
        ReadPairs(from, section, names, values);
        WritePairs(to, section, names, values);
    }
    bundle.End();
}

} // namespace BTL
