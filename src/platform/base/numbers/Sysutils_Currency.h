// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/numbers/System_Currency.h"
#include "platform/base/numbers/Sysutils_Number.h"

namespace Sysutils
{

// Text of money, exact in all its digits. Forms without settings follow `FormatSettings`.
//
//     const System::Currency sum = StrToCurr(u"1234.5");
//     CurrToStr(sum);                                             // "1234.5"
//     CurrToStrF(sum, ffNumber, 2);                               // "1,234.50"

/// The shortest text: no thousand separators, no needless decimals, no currency.
TRS8_BTL_API System::UnicodeString CurrToStr(System::Currency value);
TRS8_BTL_API System::UnicodeString CurrToStr(System::Currency value, const TFormatSettings& settings);
/// As `FloatToStrF` with room for all digits.
TRS8_BTL_API System::UnicodeString CurrToStrF(System::Currency value, TFloatFormat format, int digits);
TRS8_BTL_API System::UnicodeString CurrToStrF(System::Currency value, TFloatFormat format, int digits,
                                              const TFormatSettings& settings);
/// Writes the amount by a picture of `FormatFloat`, exact in all its digits.
TRS8_BTL_API System::UnicodeString FormatCurr(const System::UnicodeString& format, System::Currency value);
TRS8_BTL_API System::UnicodeString FormatCurr(const System::UnicodeString& format, System::Currency value,
                                              const TFormatSettings& settings);

/// Reads the texts that `StrToFloat` reads, without a way through a float; a fifth decimal of 5 or more is
/// rounded away from zero. `EConvertError` if `text` is none or out of range; the other forms give false and
/// leave `value` alone, or the default.
TRS8_BTL_API System::Currency StrToCurr(const System::UnicodeString& text);
TRS8_BTL_API System::Currency StrToCurr(const System::UnicodeString& text, const TFormatSettings& settings);
TRS8_BTL_API System::Currency StrToCurrDef(const System::UnicodeString& text, System::Currency defaultValue);
TRS8_BTL_API bool TryStrToCurr(const System::UnicodeString& text, System::Currency& value);
TRS8_BTL_API bool TryStrToCurr(const System::UnicodeString& text, System::Currency& value,
                               const TFormatSettings& settings);

} // namespace Sysutils
