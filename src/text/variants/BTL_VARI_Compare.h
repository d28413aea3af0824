// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/variants/System_Variant.h"

namespace BTL
{

// Comparing variants.
//
//     const int order = BTL::Compare(System::Variant::Null(), 1);       // -1: Null is first
//     const bool same = BTL::AreEqual(u"5", 5);

/// -1, 0 or 1. Null is first and equals Null; other values that can't be compared give -1.
[[nodiscard]] TRS8_BTL_API int Compare(const System::Variant& a, const System::Variant& b);
/// As `Variants::VarSameValue`, and for the same object. Arrays are equal if their bounds and, by this very
/// function, all pairs of their elements are.
[[nodiscard]] TRS8_BTL_API bool AreEqual(const System::Variant& a, const System::Variant& b);

} // namespace BTL
