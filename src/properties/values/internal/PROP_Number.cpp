// SPDX-License-Identifier: MIT
#include "properties/values/internal/PROP_Number.h"

#include "platform/base/numbers/Sysutils_FloatText.h"
#include "platform/base/numbers/Sysutils_Number.h"
#include "platform/visual/graphics/Controls_Cursor.h"
#include "platform/visual/graphics/Graphics_Color.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace PROP
{

using System::UnicodeString;
using Typinfo::TTypeInfo;

namespace
{

/// The two types of integers that have names for values.
struct TNamedInteger
{
    std::u16string_view type;
    bool (*toName)(int value, UnicodeString& name);
    bool (*toValue)(const UnicodeString& name, int& value);
};

constexpr std::array NamedIntegers = {
    TNamedInteger{u"TColor", &Graphics::ColorToIdent, &Graphics::IdentToColor},
    TNamedInteger{u"TCursor", &Controls::CursorToIdent, &Controls::IdentToCursor},
};

const TNamedInteger* FindNamedInteger(const TTypeInfo& type)
{
    const auto* const found = std::ranges::find(NamedIntegers, type.Name.AsView(), &TNamedInteger::type);
    return found == NamedIntegers.end() ? nullptr : found;
}

} // namespace

UnicodeString IntegerText(const TTypeInfo& type, System::Int64 value)
{
    const TNamedInteger* const named = FindNamedInteger(type);
    if (named == nullptr) {
        return UnicodeString(value);
    }
    UnicodeString name;
    return named->toName(static_cast<int>(value), name) ? name : UnicodeString();
}

System::Int64 IntegerOf(const TTypeInfo& type, const UnicodeString& text)
{
    System::Int64 value = 0;
    return TryReadInteger(type, text, value) ? value : Sysutils::StrToInt(text);
}

UnicodeString FloatText(const TTypeInfo& type, System::Extended value)
{
    static constexpr std::array precisions = {7, 15, 18, 18, 18};
    return Sysutils::FloatToStrF(value, Sysutils::ffGeneral,
                                 precisions[static_cast<std::size_t>(type.FloatType)], 0);
}

System::Extended FloatOf(const TTypeInfo& type, const UnicodeString& text)
{
    System::Extended value = 0;
    if (!TryReadFloat(type, text, value)) {
        Sysutils::ThrowNoFloat(text);
    }
    if (!IsInRange(type, value)) {
        Typinfo::Detail::ThrowBadValue();
    }
    return value;
}

bool TryReadInteger(const TTypeInfo& type, const UnicodeString& text, System::Int64& value)
{
    const TNamedInteger* const named = FindNamedInteger(type);
    int narrow = 0;
    if (named != nullptr && named->toValue(text, narrow)) {
        value = narrow;
        return true;
    }
    // Eight hexadecimal digits are a negative number where the type has these.
    if (type.MaxValue > INT32_MAX) {
        return Sysutils::TryStrToInt64(text, value);
    }
    const bool isRead = Sysutils::TryStrToInt(text, narrow);
    value = isRead ? narrow : value;
    return isRead;
}

bool TryReadFloat(const TTypeInfo& type, const UnicodeString& text, System::Extended& value)
{
    // The width of a `double` would cut what a wider property holds.
    if (type.FloatType != Typinfo::ftSingle && type.FloatType != Typinfo::ftDouble) {
        return Sysutils::TryStrToFloat(text, value);
    }
    double narrow = 0;
    const bool isRead = Sysutils::TryStrToFloat(text, narrow);
    value = isRead ? narrow : value;
    return isRead;
}

bool IsInRange(const TTypeInfo& type, System::Extended value)
{
    if (type.FloatType == Typinfo::ftSingle) {
        return std::isfinite(static_cast<float>(value));
    }
    if (type.FloatType != Typinfo::ftCurr) {
        return true;
    }
    try {
        static_cast<void>(System::Currency(value));
    } catch (const Sysutils::EIntOverflow&) {
        return false;
    }
    return true;
}

} // namespace PROP
