// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_DynamicArray.h"
#include "platform/runtime/variants/System_Variant.h"

namespace BTL
{

// Arrays in variants.
//
//     const System::Variant bytes = BTL::BytesToVar({1, 2, 255});
//     const int count = BTL::VarToBytes(bytes).get_length();            // 3
//     const System::Variant sum = BTL::ForEeachVar_Sum(bytes);          // 258

/// The elements of a one-dimensional array of `varByte`; empty for any other value.
TRS8_BTL_API System::DynamicArray<unsigned char> VarToBytes(const System::Variant& value);
/// A one-dimensional array of `varByte` from 0 with these `bytes`; Null for no bytes.
TRS8_BTL_API System::Variant BytesToVar(const System::DynamicArray<unsigned char>& bytes);

/// The sum of the elements of a one-dimensional array, the integer 0 if it has none; any other value itself.
/// Raises what the variant's `+` raises.
TRS8_BTL_API System::Variant ForEeachVar_Sum(const System::Variant& value);

} // namespace BTL
