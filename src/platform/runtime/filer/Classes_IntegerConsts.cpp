// SPDX-License-Identifier: MIT
#include "platform/runtime/filer/Classes_IntegerConsts.h"

#include <algorithm>
#include <mutex>
#include <unordered_map>

namespace Classes
{

using System::UnicodeString;
using Typinfo::TTypeInfo;

namespace
{

struct TNames
{
    TIdentToInt identToInt = nullptr;
    TIntToIdent intToIdent = nullptr;
};

struct TNameRegister
{
    std::mutex mutex;
    std::unordered_map<const TTypeInfo*, TNames> types;
};

/// Made at its first use, since modules register while they start, and never destroyed.
TNameRegister& Register()
{
    static auto* const instance = new TNameRegister;
    return *instance;
}

TNames NamesOf(const TTypeInfo* type)
{
    const std::scoped_lock lock(Register().mutex);
    const auto found = Register().types.find(type);
    return found == Register().types.end() ? TNames() : found->second;
}

} // namespace

void RegisterIntegerConsts(const TTypeInfo* type, TIdentToInt identToInt, TIntToIdent intToIdent)
{
    if (type == nullptr || identToInt == nullptr || intToIdent == nullptr) {
        return;
    }
    const std::scoped_lock lock(Register().mutex);
    Register().types[type] = {identToInt, intToIdent};
}

TIdentToInt FindIdentToInt(const TTypeInfo* type)
{
    return NamesOf(type).identToInt;
}

TIntToIdent FindIntToIdent(const TTypeInfo* type)
{
    return NamesOf(type).intToIdent;
}

bool IdentToInt(const UnicodeString& ident, int& value, std::span<const TIdentMapEntry> map)
{
    const auto found = std::ranges::find_if(
        map, [&](const TIdentMapEntry& entry) { return ident.CompareIC(entry.Name) == 0; });
    if (found == map.end()) {
        return false;
    }
    value = found->Value;
    return true;
}

bool IntToIdent(int value, UnicodeString& ident, std::span<const TIdentMapEntry> map)
{
    const auto found = std::ranges::find(map, value, &TIdentMapEntry::Value);
    if (found == map.end()) {
        return false;
    }
    ident = found->Name;
    return true;
}

} // namespace Classes
