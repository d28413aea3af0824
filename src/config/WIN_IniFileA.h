// SPDX-License-Identifier: MIT
#pragma once

#include "config/WIN_GIniFile.h"

namespace WIN
{

/// One section of one ini file, in 8-bit text.
///
///     WIN::CIniFileA::SetPath("\\data\\");
///     WIN::CIniFileA ini("Run", "station.ini");
///     ini.WriteInt("Channels", 4);
///     const bool isCyclic = ini.GetBool("Cyclic", false);
class CIniFileA : public GIniFileGetters<EIniEngine::Ansi>
{
public:
    using GIniFileGetters::GIniFileGetters;
};

} // namespace WIN
