// SPDX-License-Identifier: MIT
#include "config/BTL_INI_IniFileEx.h"

#include "config/internal/BTL_INI_Unwritable.h"
#include "environment/folders/BTL_ENV_Folders.h"
#include "platform/runtime/inifiles/Inifiles.h"
#include "platform/runtime/sysutils/Sysutils_File.h"

namespace BTL
{

using Classes::TStrings;
using System::UnicodeString;

ACustomIniFileImp::ACustomIniFileImp() = default;

ACustomIniFileImp::~ACustomIniFileImp() = default;

Inifiles::TCustomIniFile& ACustomIniFileImp::File() const
{
    if (mFile == nullptr) {
        throw Sysutils::Exception(u"The ini object has no file.");
    }
    return *mFile;
}

template <class File>
void ACustomIniFileImp::Open(const UnicodeString& file)
{
    // The name comes back as it was given or, from `AIni::getFile`, in full.
    if (mFile != nullptr && (file == getPath() + getFileName() || file == getFile())) {
        return;
    }
    mFile = nullptr;
    AIniImp::SetFile(file);
    mFile = System::GOwner<Inifiles::TCustomIniFile>(new File(getFile()));
}

void ACustomIniFileImp::Save()
{
    File().UpdateFile();
}

bool ACustomIniFileImp::FileReadOnly()
{
    return BTL::FileReadOnly(File().getFileName());
}

bool ACustomIniFileImp::FileExists()
{
    return Sysutils::FileExists(File().getFileName());
}

bool ACustomIniFileImp::SectionExists(const UnicodeString& section)
{
    return File().SectionExists(section);
}

bool ACustomIniFileImp::KeyExists(const UnicodeString& section, const UnicodeString& key)
{
    return File().ValueExists(section, key);
}

void ACustomIniFileImp::ReadSections(TStrings* sections)
{
    File().ReadSections(sections);
}

void ACustomIniFileImp::ReadKeys(const UnicodeString& section, TStrings* keys)
{
    File().ReadSection(section, keys);
}

void ACustomIniFileImp::ReadSectionValues(const UnicodeString& section, TStrings* lines)
{
    File().ReadSectionValues(section, lines);
}

void ACustomIniFileImp::EraseSection(const UnicodeString& section)
{
    File().EraseSection(section);
}

void ACustomIniFileImp::DeleteKey(const UnicodeString& key)
{
    File().DeleteKey(getSection(), key);
}

bool ACustomIniFileImp::ReadBool(const UnicodeString& key, bool defaultValue)
{
    return File().ReadBool(getSection(), key, defaultValue);
}

int ACustomIniFileImp::ReadInteger(const UnicodeString& key, int defaultValue)
{
    return File().ReadInteger(getSection(), key, defaultValue);
}

UnicodeString ACustomIniFileImp::ReadString(const UnicodeString& key, const UnicodeString& defaultValue)
{
    return File().ReadString(getSection(), key, defaultValue);
}

void ACustomIniFileImp::WriteBool(const UnicodeString& key, bool value)
{
    File().WriteBool(getSection(), key, value);
}

void ACustomIniFileImp::WriteInteger(const UnicodeString& key, int value)
{
    File().WriteInteger(getSection(), key, value);
}

void ACustomIniFileImp::WriteString(const UnicodeString& key, const UnicodeString& value)
{
    File().WriteString(getSection(), key, value);
}

CIniFileImp::CIniFileImp() = default;

CIniFileImp::~CIniFileImp() = default;

void CIniFileImp::SetFile(const UnicodeString& file)
{
    Open<Inifiles::TIniFile>(file);
}

void CIniFileImp::InOneStep(const System::TClosure<void()>& write)
{
    Inifiles::CIniBundle bundle(File().getFileName());
    write();
    bundle.End();
}

CMemIniFileImp::CMemIniFileImp() = default;

CMemIniFileImp::~CMemIniFileImp() = default;

void CMemIniFileImp::Save()
{
    try {
        ACustomIniFileImp::Save();
    } catch (const Inifiles::EIniFileException&) {
        Detail::ThrowUnwritable(getFile());
    }
}

void CMemIniFileImp::SetFile(const UnicodeString& file)
{
    Open<Inifiles::TMemIniFile>(file);
}

void CMemIniFileImp::GetStrings(TStrings* lines)
{
    static_cast<Inifiles::TMemIniFile&>(File()).GetStrings(lines);
}

void CMemIniFileImp::SetStrings(TStrings* lines)
{
    static_cast<Inifiles::TMemIniFile&>(File()).SetStrings(lines);
}

CIniFileEx::CIniFileEx() : AIni(new CIniFileImp) {}

CIniFileEx::CIniFileEx(const UnicodeString& file) : CIniFileEx()
{
    setFile(file);
}

CIniFileEx::CIniFileEx(const UnicodeString& file, const UnicodeString& section) : CIniFileEx(file)
{
    setSection(section);
}

CIniFileEx::~CIniFileEx() = default;

CMemIniFile::CMemIniFile() : AIni(new CMemIniFileImp) {}

CMemIniFile::CMemIniFile(const UnicodeString& file) : CMemIniFile()
{
    setFile(file);
}

CMemIniFile::CMemIniFile(const UnicodeString& file, const UnicodeString& section) : CMemIniFile(file)
{
    setSection(section);
}

CMemIniFile::~CMemIniFile() = default;

} // namespace BTL
