// SPDX-License-Identifier: MIT
#include "platform/base/numbers/internal/Sysutils_Decimal.h"

namespace Sysutils::Detail
{

System::UnicodeString FromAscii(std::string_view text)
{
    System::UnicodeString result;
    result.SetLength(static_cast<int>(text.size()));
    std::copy(text.begin(), text.end(), result.UniqueData());
    return result;
}

TDecimal ScaledToDecimal(System::Int64 units, int decimals)
{
    TDecimal result;
    std::array<char, 24> text;
    const char* const end = std::to_chars(text.data(), text.data() + text.size(), units).ptr;
    result.negative = units < 0;
    const char* const begin = text.data() + (result.negative ? 1 : 0);
    std::copy(begin, end, result.digits.begin());
    result.count = static_cast<int>(end - begin);
    result.exponent = result.count - decimals;
    result.Round(result.count);
    return result;
}

} // namespace Sysutils::Detail
