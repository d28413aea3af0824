// SPDX-License-Identifier: MIT
#include "platform/base/numbers/internal/Sysutils_DecimalText.h"

#include <array>
#include <string_view>
#include <tuple>

namespace Sysutils::Detail
{

System::UnicodeString GeneralText(TDecimal value, int precision, int exponentDigits,
                                  const TFormatSettings& settings)
{
    value.Round(precision);
    // The sign, the separator and the zeros in front and in the exponent have room beside the digits.
    std::array<System::WideChar, std::tuple_size_v<decltype(value.digits)> + 16> text;
    GNumberText<System::WideChar> out(text.data());
    AddGeneral(out, value, precision, exponentDigits, settings.DecimalSeparator);
    return System::UnicodeString(std::u16string_view(text.data(), out.Length()));
}

} // namespace Sysutils::Detail
