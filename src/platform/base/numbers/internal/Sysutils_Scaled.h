// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/numbers/Sysutils_FloatText.h"

namespace Sysutils
{

/// As `FloatToStrF` and `FormatFloat` for the exact number of `units`, each of ten to the power -`decimals`.
System::UnicodeString ScaledToStrF(System::Int64 units, int decimals, TFloatFormat format, int digits,
                                   const TFormatSettings& settings);
System::UnicodeString FormatScaled(const System::UnicodeString& format, System::Int64 units, int decimals,
                                   const TFormatSettings& settings);

} // namespace Sysutils
