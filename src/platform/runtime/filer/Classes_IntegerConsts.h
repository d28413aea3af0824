// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/Typinfo.h"

#include <span>

namespace Classes
{

/// Gives the value of a name; false if it has none.
using TIdentToInt = bool (*)(const System::UnicodeString& ident, int& value);
/// Gives the name of a value; false if it has none.
using TIntToIdent = bool (*)(int value, System::UnicodeString& ident);

// Integers with names, such as colours: form resources have the name of a value that has one. The type is the
// one that `Typinfo::TPropOptions` gives such a property. The register may be used from any thread.
//
//     RegisterIntegerConsts(TypeInfoOfColor(), IdentToColor, ColorToIdent);   // once, as a module starts

/// Properties of the type `type` are read and written by names. The last functions of a type hold; null
/// functions, or a null type, are ignored.
TRS8_BTL_API void RegisterIntegerConsts(const Typinfo::TTypeInfo* type, TIdentToInt identToInt,
                                        TIntToIdent intToIdent);
/// Null for a type without names.
TRS8_BTL_API TIdentToInt FindIdentToInt(const Typinfo::TTypeInfo* type);
/// Null for a type without names.
TRS8_BTL_API TIntToIdent FindIntToIdent(const Typinfo::TTypeInfo* type);

/// A value and its name.
struct TIdentMapEntry
{
    int Value;
    const System::WideChar* Name;
};

/// The value of the name, case aside, in a table; false if it isn't there.
TRS8_BTL_API bool IdentToInt(const System::UnicodeString& ident, int& value,
                             std::span<const TIdentMapEntry> map);
/// The first name of the value in a table; false if it isn't there.
TRS8_BTL_API bool IntToIdent(int value, System::UnicodeString& ident, std::span<const TIdentMapEntry> map);

} // namespace Classes
