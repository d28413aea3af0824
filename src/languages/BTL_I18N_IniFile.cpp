// SPDX-License-Identifier: MIT
#include "languages/BTL_I18N_IniFile.h"

#include "environment/folders/BTL_ENV_Folders.h"

namespace BTL
{

using System::UnicodeString;

Ci18nIniFile::Ci18nIniFile() = default;

Ci18nIniFile::Ci18nIniFile(const UnicodeString& prefix, const char* format)
{
    Init(prefix, format);
}

Ci18nIniFile::Ci18nIniFile(const UnicodeString& file, const UnicodeString& section, const char* format)
    : CIDSIniFile(file, section, format)
{
}

Ci18nIniFile::~Ci18nIniFile() = default;

void Ci18nIniFile::Init(const UnicodeString& prefix, const char* format)
{
    Init(u"IDS", prefix + u"_German.ids", GetProgramIDSPath(), format);
}

void Ci18nIniFile::Init(const UnicodeString& section, const UnicodeString& file, const UnicodeString& path,
                        const char* format)
{
    AIni::Init(section, file, path);
    SetKeyFormat(format);
}

bool Ci18nIniFile::Exists()
{
    return FileExists();
}

bool Ci18nIniFile::Exists(int id)
{
    return IDKeyExists(id);
}

void Ci18nIniFile::WriteString(int id, const UnicodeString& text)
{
    WriteIDString(id, text);
}

} // namespace BTL
