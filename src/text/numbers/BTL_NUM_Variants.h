// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/variants/System_Variant.h"

namespace BTL
{

/// The value of `text` in the type that fits best: a `varInt64` if `ToInt` reads it, else a `varDouble` if
/// `ToDouble` does, else the text itself. `ToInt` ignores what follows the digits, so "12abc" gives 12 and
/// "1.5" gives 1.
///
///     const System::Variant number = BTL::GetVariant(u"12");      // a whole number
///     const System::Variant text = BTL::GetVariant(u"abc");
///     const auto shown = BTL::GetStringW(number);                 // "12"
TRS8_BTL_API System::Variant GetVariant(const System::UnicodeString& text);
TRS8_BTL_API System::Variant GetVariant(const System::AnsiString& text);
/// A literal of 8-bit text; null counts as the empty text.
inline System::Variant GetVariant(const char* text)
{
    return GetVariant(System::AnsiString(text));
}

/// The text of `value`; floats of both widths as `Sysutils::FloatToStr` writes a `double`, all else as the
/// variant converts. `Sysutils::EVariantError` for Null and arrays.
TRS8_BTL_API System::UnicodeString GetStringW(const System::Variant& value);
TRS8_BTL_API System::AnsiString GetStringA(const System::Variant& value);

} // namespace BTL
