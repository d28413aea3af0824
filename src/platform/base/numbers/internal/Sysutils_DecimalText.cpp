// SPDX-License-Identifier: MIT
#include "platform/base/numbers/internal/Sysutils_DecimalText.h"

namespace Sysutils::Detail
{

System::UnicodeString GeneralText(TDecimal value, int precision, int exponentDigits,
                                  const TFormatSettings& settings)
{
    value.Round(precision);
    CStringText out;
    AddGeneral(out, value, precision, exponentDigits, settings.DecimalSeparator);
    return out.Take();
}

} // namespace Sysutils::Detail
