// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/runtime/sysutils/Sysutils_Text.h"

#include <algorithm>
#include <span>

namespace Graphics
{

/// A name that stands for a number in designs of forms.
struct TIdent
{
    const System::WideChar* name;
    int value;
};

/// The first name of the value; false, and `ident` stays, if there is none.
inline bool FindIdent(std::span<const TIdent> idents, int value, System::UnicodeString& ident)
{
    const auto found = std::ranges::find(idents, value, &TIdent::value);
    if (found == idents.end()) {
        return false;
    }
    ident = found->name;
    return true;
}

/// The value of the name, case aside; false, and `value` stays, if there is none.
inline bool FindValue(std::span<const TIdent> idents, const System::UnicodeString& ident, int& value)
{
    const auto found =
        std::ranges::find_if(idents, [&](const TIdent& row) { return Sysutils::SameText(row.name, ident); });
    if (found == idents.end()) {
        return false;
    }
    value = found->value;
    return true;
}

} // namespace Graphics
