// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_Compare.h"

#include "platform/runtime/variants/Variants.h"
#include "platform/runtime/variants/internal/System_VariantValue.h"

namespace BTL
{

using System::Variant;

int Compare(const Variant& a, const Variant& b)
{
    if (a.IsNull() || b.IsNull()) {
        return static_cast<int>(b.IsNull()) - static_cast<int>(a.IsNull());
    }
    if (Variants::VarSameValue(a, b)) {
        return 0;
    }
    return a > b ? 1 : -1;
}

bool AreEqual(const Variant& a, const Variant& b)
{
    if (&a == &b) {
        return true;
    }
    return a.IsArray() && b.IsArray() ? System::Detail::AreArraysEqual(a, b, AreEqual)
                                      : Variants::VarSameValue(a, b);
}

} // namespace BTL
