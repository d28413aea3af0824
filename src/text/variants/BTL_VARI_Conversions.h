// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/variants/System_Variant.h"

#include <concepts>

namespace BTL
{

// Tolerant conversions of the platform's variants. Integers are here `varSmallint`, `varInteger`,
// `varDecimal` and `varInt64`, floats `varSingle`, `varDouble` and `varCurrency`. Text is read as by the
// functions on text of the same name. Arrays are none of these. Forms with a `bool` result write their target
// only on success; what the platform's cast refuses, such as a number out of range, is a failure like any
// other.
//
//     const int count = BTL::ToIntDef(value, 0);
//     double volts = 0;
//     if (BTL::VarWithUnitToDouble(u"1,5 kV", volts)) { ... }           // 1500
//     const auto text = BTL::VarToStrDef(value, u"-");

namespace Detail
{

[[nodiscard]] TRS8_BTL_API bool IsIntVariant(const System::Variant& value);
TRS8_BTL_API bool VariantToInt(const System::Variant& value, int& result);

} // namespace Detail

/// Empty, Null, dates, `varShortInt`, `varWord` and `varLongWord` fail.
TRS8_BTL_API bool VarToDouble(const System::Variant& value, double& result);
TRS8_BTL_API double VarToDoubleDef(const System::Variant& value, double defaultValue);

// Templates, so that an argument that merely converts to a variant still finds the function on text.

/// True for the integer types, and for a text that begins like an integer.
template <std::derived_from<System::Variant> V>
bool IsIntType(const V& value)
{
    return Detail::IsIntVariant(value);
}
/// Empty and Null give 0. Booleans and numbers but `varShortInt` and `varWord` convert by the platform's
/// cast, but of integers of 64 bits the low 32 bits count. False for all other types.
template <std::derived_from<System::Variant> V>
bool ToInt(const V& value, int& result)
{
    return Detail::VariantToInt(value, result);
}
/// As `VarToDoubleDef`.
template <std::derived_from<System::Variant> V>
double ToDoubleDef(const V& value, double defaultValue)
{
    return VarToDoubleDef(value, defaultValue);
}

/// True for integers and floats, and for a text that is a float.
[[nodiscard]] TRS8_BTL_API bool IsFloatType(const System::Variant& value);
[[nodiscard]] TRS8_BTL_API bool IsStringType(const System::Variant& value);

/// Whether `ToInt` gives another number than 0.
TRS8_BTL_API bool ToBool(const System::Variant& value, bool& result);
TRS8_BTL_API bool ToBoolDef(const System::Variant& value, bool defaultValue);
/// `Sysutils::EConvertError` on failure.
TRS8_BTL_API int ToInt(const System::Variant& value);
TRS8_BTL_API int ToIntDef(const System::Variant& value, int defaultValue);
/// As `ToInt`, with all 64 bits of the wide integers and of text. The other numbers have to fit 32 bits.
TRS8_BTL_API bool ToInt64(const System::Variant& value, System::Int64& result);
/// `Sysutils::EConvertError` on failure.
TRS8_BTL_API System::Int64 ToInt64(const System::Variant& value);
TRS8_BTL_API System::Int64 ToInt64Def(const System::Variant& value, System::Int64 defaultValue);
/// As `ToIntDef`, but a text stands for what `StringToBestPropertyValue` makes of it.
TRS8_BTL_API int ToPropertyIntDef(const System::Variant& value, int defaultValue);
inline System::Variant ToVariant(System::Int64 value)
{
    return value;
}

/// As `VarToDouble`, but a text may have a unit, see `ValueWithUnitToDouble`.
TRS8_BTL_API bool VarWithUnitToDouble(const System::Variant& value, double& result);

/// The text of a text, an integer or a float; the latter as `Sysutils::FloatToStr`. All other types fail,
/// Null and dates among them.
TRS8_BTL_API bool VarToStr(const System::Variant& value, System::UnicodeString& result);
TRS8_BTL_API System::UnicodeString VarToStrDef(const System::Variant& value,
                                               const System::UnicodeString& defaultValue);
/// As `VarToStrDef`.
TRS8_BTL_API System::UnicodeString ToStrDef(const System::Variant& value,
                                            const System::UnicodeString& defaultValue);

} // namespace BTL
