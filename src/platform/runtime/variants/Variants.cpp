// SPDX-License-Identifier: MIT
#include "platform/runtime/variants/Variants.h"

#include "platform/base/numbers/Sysutils_Number.h"

#include <algorithm>

namespace Variants
{

using namespace System;

namespace
{

UnicodeString NameOf(Word code)
{
    constexpr std::array<const WideChar*, varUInt64 + 1> names = {
        u"Empty",    u"Null",     u"SmallInt", u"Integer",  u"Single",  u"Double",  u"Currency", u"Date",
        u"OleStr",   u"Dispatch", u"Error",    u"Boolean",  u"Variant", u"Unknown", u"Decimal",  nullptr,
        u"ShortInt", u"Byte",     u"Word",     u"LongWord", u"Int64",   u"UInt64"};
    if (code < names.size() && names[code] != nullptr) {
        return names[code];
    }
    if (code == varString) {
        return u"String";
    }
    return code == varUString ? UnicodeString(u"UnicodeString") : u"$" + Sysutils::IntToHex(code, 4);
}

} // namespace

UnicodeString VarTypeAsText(Word type)
{
    UnicodeString text = NameOf(type & varTypeMask);
    if ((type & varArray) != 0) {
        text = u"Array " + text;
    }
    return (type & varByRef) != 0 ? u"ByRef " + text : text;
}

bool VarIsType(const Variant& value, std::initializer_list<Word> types)
{
    return std::ranges::find(types, value.Type()) != types.end();
}

bool VarIsOrdinal(const Variant& value) noexcept
{
    switch (value.Type()) {
    case varSmallint:
    case varInteger:
    case varBoolean:
    case varDecimal:
    case varShortInt:
    case varByte:
    case varWord:
    case varLongWord:
    case varInt64:
    case varUInt64:
        return true;
    default:
        return false;
    }
}

bool VarIsFloat(const Variant& value) noexcept
{
    return value.Type() == varSingle || value.Type() == varDouble || value.Type() == varCurrency;
}

bool VarIsNumeric(const Variant& value) noexcept
{
    return VarIsOrdinal(value) || VarIsFloat(value);
}

UnicodeString VarToStr(const Variant& value)
{
    return VarToStrDef(value, {});
}

UnicodeString VarToStrDef(const Variant& value, const UnicodeString& defaultValue)
{
    return value.IsNull() ? defaultValue : value.As<UnicodeString>();
}

TVariantRelationship VarCompareValue(const Variant& a, const Variant& b)
{
    const bool isVoid = a.IsNull() || a.IsEmpty() || b.IsNull() || b.IsEmpty();
    if (isVoid && a.Type() != b.Type()) {
        return vrNotEqual;
    }
    const std::partial_ordering order = a <=> b;
    return std::is_eq(order)   ? vrEqual
           : std::is_lt(order) ? vrLessThan
           : std::is_gt(order) ? vrGreaterThan
                               : vrNotEqual;
}

bool VarSameValue(const Variant& a, const Variant& b)
{
    return VarCompareValue(a, b) == vrEqual;
}

} // namespace Variants
