// SPDX-License-Identifier: MIT
#pragma once

#include "config/WIN_GIniFile.h"

namespace WIN
{

/// One section of one ini file, in wide text.
///
///     WIN::CIniFileW::SetPath(u"\\data\\");
///     WIN::CIniFileW ini(u"Run", u"station.ini");
///     ini.WriteInt(u"Channels", 4);
///     const bool isCyclic = ini.GetBool(u"Cyclic", false);
class CIniFileW : public GIniFileGetters<EIniEngine::Wide>
{
public:
    using GIniFileGetters::GIniFileGetters;
};

} // namespace WIN
