// SPDX-License-Identifier: MIT
#pragma once

#include "config/WIN_GIniFile.h"

namespace WIN
{

/// As `CIniFileW`, but with reading operations called `Read...`.
///
///     WIN::CIniFileW2 ini(u"Run", u"station.ini");
///     ini.WriteFloat(u"Interval", 0.5F);
///     const float interval = ini.ReadFloat(u"Interval", 1);
class CIniFileW2 : public GIniFile<EIniEngine::Wide2>
{
public:
    using GIniFile::GIniFile;

    using GIniFile::ReadAnsiString;
    using GIniFile::ReadBool;
    using GIniFile::ReadCommaText;
    using GIniFile::ReadEscSeqString;
    using GIniFile::ReadFloat;
    using GIniFile::ReadInt;
    using GIniFile::ReadInt64;
    using GIniFile::ReadKeys;
    using GIniFile::ReadSections;
    using GIniFile::ReadSTDString;
    using GIniFile::ReadString;
    using GIniFile::ReadStringBuf;
    using GIniFile::ReadUnicodeString;
    using GIniFile::ReadUTF8String;
};

} // namespace WIN
