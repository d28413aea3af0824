// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/variants/System_Variant.h"

#include <initializer_list>
#include <span>

namespace Variants
{

// The functions on `System::Variant` under their free names. Conversions follow the rules of the class and
// raise as it does.
//
//     const double number = VarIsNumeric(value) ? value.As<double>() : 0.0;
//     const System::Variant row = VarArrayOf({1, u"two", 2.5});
//     VarArrayGet(row, {1});                                      // the text "two"

/// How two values stand to each other; values that can't be compared are `vrNotEqual`.
enum TVariantRelationship
{
    vrEqual,
    vrLessThan,
    vrGreaterThan,
    vrNotEqual
};

/// The variant that says that there is no value.
inline System::Variant Null() noexcept
{
    return System::Variant::Null();
}
/// The empty variant, which nothing was assigned to.
inline System::Variant Unassigned() noexcept
{
    return {};
}

/// The code, with `varArray` for an array.
inline System::Word VarType(const System::Variant& value) noexcept
{
    return value.Type();
}
/// Such as "Integer", "UnicodeString", "Array Byte"; the hexadecimal number of a code without a name.
TRS8_BTL_API System::UnicodeString VarTypeAsText(System::Word type);

/// Whether the variant is `Null`.
inline bool VarIsNull(const System::Variant& value) noexcept
{
    return value.IsNull();
}
/// Whether nothing was assigned to the variant.
inline bool VarIsEmpty(const System::Variant& value) noexcept
{
    return value.IsEmpty();
}
/// As `VarIsEmpty`.
inline bool VarIsClear(const System::Variant& value) noexcept
{
    return value.IsEmpty();
}
/// Whether the variant holds an array.
inline bool VarIsArray(const System::Variant& value) noexcept
{
    return value.IsArray();
}
inline bool VarIsType(const System::Variant& value, System::Word type) noexcept
{
    return value.Type() == type;
}
/// True for any of the types.
TRS8_BTL_API bool VarIsType(const System::Variant& value, std::initializer_list<System::Word> types);
/// Integers of all widths and booleans.
TRS8_BTL_API bool VarIsOrdinal(const System::Variant& value) noexcept;
/// Singles, doubles and money.
TRS8_BTL_API bool VarIsFloat(const System::Variant& value) noexcept;
/// Ordinals and floats; a text that is a number is none.
TRS8_BTL_API bool VarIsNumeric(const System::Variant& value) noexcept;
/// Text of both widths.
inline bool VarIsStr(const System::Variant& value) noexcept
{
    return value.IsText();
}

/// The text of a value, the empty one for Null.
TRS8_BTL_API System::UnicodeString VarToStr(const System::Variant& value);
/// The text of a value, `defaultValue` for Null.
TRS8_BTL_API System::UnicodeString VarToStrDef(const System::Variant& value,
                                               const System::UnicodeString& defaultValue);
/// As `VarToStr`; `VarToWideStrDef` is as `VarToStrDef`.
inline System::UnicodeString VarToWideStr(const System::Variant& value)
{
    return VarToStr(value);
}
/// As `VarToStrDef`.
inline System::UnicodeString VarToWideStrDef(const System::Variant& value,
                                             const System::UnicodeString& defaultValue)
{
    return VarToStrDef(value, defaultValue);
}
/// As `Variant::As<TDateTime>`.
inline System::TDateTime VarToDateTime(const System::Variant& value)
{
    return value.As<System::TDateTime>();
}
/// A variant of `varDate`.
inline System::Variant VarFromDateTime(System::TDateTime value) noexcept
{
    return value;
}

/// As `Variant::AsType`.
inline System::Variant VarAsType(const System::Variant& value, System::Word type)
{
    return value.AsType(type);
}
/// `target` stays as it was if the conversion fails.
inline void VarCast(System::Variant& target, const System::Variant& source, System::Word type)
{
    target = source.AsType(type);
}
/// Makes the variant empty.
inline void VarClear(System::Variant& value) noexcept
{
    value.Clear();
}

/// By the operators of the class, but Empty and Null equal only their own kind and are otherwise not
/// comparable.
TRS8_BTL_API TVariantRelationship VarCompareValue(const System::Variant& a, const System::Variant& b);
/// True if `VarCompareValue` gives `vrEqual`.
TRS8_BTL_API bool VarSameValue(const System::Variant& a, const System::Variant& b);

/// As `System::Variant::CreateArray`: pairs of the lowest and the highest index.
inline System::Variant VarArrayCreate(std::span<const int> bounds, System::Word elementType)
{
    return System::Variant::CreateArray(bounds, elementType);
}
inline System::Variant VarArrayCreate(std::initializer_list<int> bounds, System::Word elementType)
{
    return {bounds, elementType};
}
/// A one-dimensional array of variants, from 0.
inline System::Variant VarArrayOf(std::span<const System::Variant> values)
{
    return System::Variant::ArrayOf(values);
}
inline System::Variant VarArrayOf(std::initializer_list<System::Variant> values)
{
    return System::Variant::ArrayOf({values.begin(), values.size()});
}
/// As `Variant::ArrayDimCount`.
inline int VarArrayDimCount(const System::Variant& value) noexcept
{
    return value.ArrayDimCount();
}
/// As `Variant::ArrayLowBound`.
inline int VarArrayLowBound(const System::Variant& value, int dimension)
{
    return value.ArrayLowBound(dimension);
}
/// As `Variant::ArrayHighBound`.
inline int VarArrayHighBound(const System::Variant& value, int dimension)
{
    return value.ArrayHighBound(dimension);
}
/// As `Variant::ArrayRedim`.
inline void VarArrayRedim(System::Variant& value, int highBound)
{
    value.ArrayRedim(highBound);
}
/// As `Variant::GetElementAt`.
inline System::Variant VarArrayGet(const System::Variant& value, std::initializer_list<int> indices)
{
    return value.GetElementAt({indices.begin(), indices.size()});
}
/// As `Variant::PutElementAt`.
inline void VarArrayPut(System::Variant& value, const System::Variant& element,
                        std::initializer_list<int> indices)
{
    value.PutElementAt(element, {indices.begin(), indices.size()});
}
/// The elements of an array of bytes, for reading or for writing; null for an empty one. The address holds
/// until the variant changes, whether or not the array is unlocked.
inline const System::Byte* VarArrayLock(const System::Variant& value)
{
    return value.ArrayBytes().data();
}
inline System::Byte* VarArrayLock(System::Variant& value)
{
    return value.ArrayBytes().data();
}
/// There for symmetry: nothing is kept locked.
inline void VarArrayUnlock(const System::Variant&) noexcept {}

} // namespace Variants

namespace Varhlpr
{

/// Makes `target` wide text.
inline void VariantFromUnicodeString(System::Variant& target, const System::UnicodeString& text)
{
    target = text;
}

} // namespace Varhlpr
