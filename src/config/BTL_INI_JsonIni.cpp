// SPDX-License-Identifier: MIT
#include "config/BTL_INI_JsonIni.h"

#include "config/BTL_INI_WinIniFile.h"
#include "config/internal/BTL_INI_JsonIniImp.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "platform/runtime/classes/Classes_StringList.h"
#include "platform/runtime/sysutils/Sysutils_FileName.h"
#include "text/numbers/BTL_NUM_Floats.h"
#include "text/numbers/BTL_NUM_Integers.h"

#include <cmath>

namespace BTL
{

using Classes::TStringList;
using System::UnicodeString;

namespace
{

UnicodeString NameInDocument(const UnicodeString& file)
{
    return Sysutils::ChangeFileExt(Sysutils::ExtractFileName(file), UnicodeString());
}

/// Writes a text as the value that it looks like.
void WriteAsRead(AIni& ini, const UnicodeString& key, const UnicodeString& text)
{
    if (text == u"false" || text == u"true") {
        ini.WriteBool(key, text == u"true");
    } else if (IsIntStrong(text)) {
        ini.WriteInt64(key, StrToInt64Def(text, 0));
    } else if (double number = 0; ToDouble(text, number) && std::isfinite(number)) {
        ini.WriteFloat(key, number);
    } else {
        ini.WriteString(key, text);
    }
}

/// Calls `use` with each line.
template <class Use>
void ForEachOf(const TStringList& list, Use use)
{
    for (int i = 0; i < list.getCount(); ++i) {
        use(list.getStrings(i));
    }
}

} // namespace

CJsonIni::CJsonIni(Detail::CJsonIniImp* store) : AIni(store), mJson(store) {}

CJsonIni::CJsonIni(const UnicodeString& jsonFile) : CJsonIni(new Detail::CJsonIniImp(jsonFile)) {}

CJsonIni::CJsonIni(const UnicodeString& jsonFile, const UnicodeString& iniFile) : CJsonIni(jsonFile)
{
    setFile(NameInDocument(iniFile));
}

CJsonIni::~CJsonIni() = default;

const UnicodeString& CJsonIni::getJsonFileName() const noexcept
{
    return mJson->getJsonFileName();
}

bool CJsonIni::Exists() const
{
    return mJson->Exists();
}

void CJsonIni::ImportIniFiles(const UnicodeString& folder, const UnicodeString& mask)
{
    const UnicodeString path = AddPathDelimiter(folder);
    TStringList files;
    GetFiles(path, mask, &files);
    ForEachOf(files, [&](const UnicodeString& file) {
        CWIN_IniFile source(path + file);
        setFile(NameInDocument(file));
        TStringList sections;
        source.ReadSections(&sections);
        ForEachOf(sections, [&](const UnicodeString& section) {
            source.setSection(section);
            setSection(section);
            TStringList keys;
            source.ReadKeys(&keys);
            ForEachOf(keys, [&](const UnicodeString& key) {
                WriteAsRead(*this, key, source.ReadString(key, UnicodeString()));
            });
        });
    });
}

} // namespace BTL
