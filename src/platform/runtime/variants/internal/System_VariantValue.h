// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/internal/System_Int128.h"
#include "platform/runtime/variants/System_Variant.h"

#include <optional>

namespace System::Detail
{

/// A value as a number, each kind in a type that holds all of it.
using TVariantNumber = std::variant<Int128, Currency, double>;

/// Nothing for Null, an array, and a text that is no number. A date gives its days.
std::optional<TVariantNumber> TryNumber(const Variant& value);
double ToDouble(const TVariantNumber& number);
/// Nothing for a text that is no boolean, for Null and for an array.
std::optional<bool> TryBool(const Variant& value);
/// Nothing for a text that is no date, for Null and for an array.
std::optional<double> TryDate(const Variant& value);

/// True if both are arrays with equal bounds, whose elements are arrays that are equal so or else hold by
/// `areEqual`. Arrays that are elements many times are compared once.
bool AreArraysEqual(const Variant& a, const Variant& b, bool (*areEqual)(const Variant&, const Variant&));

/// What the array of a variant is known by while a variant holds it: copies of it have the same.
const void* ArrayIdentity(const Variant& array);

/// Raise `Sysutils::EVariantError`.
[[noreturn]] void ThrowVariantCast(const Variant& value, Word to);
[[noreturn]] void ThrowVariantOverflow(Word from, Word to);
[[noreturn]] void ThrowVariantOperation();

} // namespace System::Detail
