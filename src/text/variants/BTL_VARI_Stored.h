// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/variants/System_Variant.h"

namespace BTL
{

// Values with their type as text.
//
//     const auto text = BTL::VarToVStr(5);                              // "3:5"
//     const System::Variant value = BTL::VStrToVar(text);               // 5

/// The code of the type, a colon and the value, for storing: booleans and `varByte` as integers, floats with
/// the active separator and 15 digits, money and dates with `.`, text as 8-bit text in the text-safe form.
/// `Sysutils::EVariantError` for arrays and for unsigned integers above the signed ones of 64 bits.
TRS8_BTL_API System::UnicodeString VarToVStr(const System::Variant& value);
/// Reads what `VarToVStr` gives: integers become an `int` or a `System::Int64`, floats a `double`, text an
/// `System::AnsiString`. Null if there is no colon or no number before it. `Sysutils::EConvertError` for a
/// value that doesn't fit its code.
TRS8_BTL_API System::Variant VStrToVar(const System::UnicodeString& text);

} // namespace BTL
