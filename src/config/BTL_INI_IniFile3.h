// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/base/System_String.h"

namespace Classes
{
class TStrings;
} // namespace Classes

namespace Inifiles
{
class TCustomIniFile;
} // namespace Inifiles

namespace BTL
{

/// Operations on the platform's ini file of the class that has one. They follow the pointer of the owner;
/// while that is null there is nothing to read.
class TRS8_BTL_API MIniFile
{
public:
    explicit MIniFile(Inifiles::TCustomIniFile*& ini) noexcept : mIni(ini) {}
    MIniFile(const MIniFile&) = delete;
    MIniFile& operator=(const MIniFile&) = delete;

    Inifiles::TCustomIniFile* getIni() const noexcept { return mIni; }
    /// The value of each key of the section in place of what the list has; null is passed over.
    void ReadValues(const System::UnicodeString& section, Classes::TStrings* list) const;

protected:
    ~MIniFile() = default;

private:
    Inifiles::TCustomIniFile*& mIni;
};

namespace Detail
{

/// The pointer that an `MIniFile` follows, in front of it.
struct TIniPointer
{
    Inifiles::TCustomIniFile* mPointer = nullptr;
};

} // namespace Detail

/// The image of an ini file in memory, to be read.
///
///     const BTL::CIniFile3 ini(u"station.ini");
///     ini.ReadValues(u"Channels", &channels);
class TRS8_BTL_API CIniFile3 : private Detail::TIniPointer, public MIniFile
{
public:
    CIniFile3();
    /// As `Init`.
    explicit CIniFile3(const System::UnicodeString& file);
    ~CIniFile3();

    /// Takes the image of this file in place of the former one. A missing file gives an empty one.
    void Init(const System::UnicodeString& file);

private:
    System::GOwner<Inifiles::TCustomIniFile> mImage;
};

} // namespace BTL
