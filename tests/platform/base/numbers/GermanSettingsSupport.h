// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Sysutils_Locale.h"

namespace Support
{

/// German forms, so that no separator is right by chance.
inline Sysutils::TFormatSettings German()
{
    Sysutils::TFormatSettings settings;
    settings.DecimalSeparator = u',';
    settings.ThousandSeparator = u'.';
    settings.CurrencyString = u"EUR";
    settings.CurrencyFormat = 3;
    settings.NegCurrFormat = 8;
    return settings;
}

} // namespace Support
