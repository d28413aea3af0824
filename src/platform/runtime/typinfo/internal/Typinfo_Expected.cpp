// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/internal/Typinfo_Expected.h"

#include "platform/base/Sysutils_Locale.h"
#include "platform/base/dates/Sysutils_DateText.h"

namespace Typinfo::Detail
{

using System::Int64;
using System::UnicodeString;

namespace
{

/// The values that have names; empty for a type without.
UnicodeString NamesOf(const TTypeInfo& type)
{
    const bool isSet = type.Kind == tkSet;
    const TTypeInfo& named = isSet ? *type.ElementType : type;
    const Int64 first = isSet ? type.LowestElement : type.MinValue;
    UnicodeString names;
    for (Int64 value = first; !GetEnumName(&named, value).IsEmpty(); ++value) {
        if (isSet && type.MaxValue >> (value - first) == 0) {
            break;
        }
        names += (names.IsEmpty() ? u"" : u", ") + GetEnumName(&named, value);
    }
    return names;
}

UnicodeString RangeOf(const TTypeInfo& type)
{
    // The bounds of this one are those of its bits.
    const bool isUnsigned64 = &type == IntegerTypeInfo(sizeof(Int64), false);
    const UnicodeString lowest(isUnsigned64 ? 0 : type.MinValue);
    const UnicodeString highest = isUnsigned64 ? UnicodeString(UINT64_MAX) : UnicodeString(type.MaxValue);
    return u"a whole number from " + lowest + u" to " + highest;
}

UnicodeString FormOfFloat(const TTypeInfo& type)
{
    if (&type == DateTimeTypeInfo()) {
        return u"a date such as " + Sysutils::DateToStr(System::TDateTime(2022, 2, 28));
    }
    return u"a number with '" + UnicodeString(Sysutils::DecimalSeparator) + u"' as decimal separator";
}

UnicodeString Expected(const TTypeInfo& type)
{
    switch (type.Kind) {
    case tkInteger:
    case tkInt64:
        return RangeOf(type);
    case tkFloat:
        return FormOfFloat(type);
    case tkChar:
        return u"one character of the 8-bit code page";
    case tkWChar:
        return u"one character of 16 bits";
    case tkEnumeration:
    case tkSet:
        return NamesOf(type);
    default:
        return {};
    }
}

} // namespace

UnicodeString ExpectedText(const TTypeInfo& type)
{
    const UnicodeString expected = Expected(type);
    return expected.IsEmpty() ? expected : u": " + expected;
}

} // namespace Typinfo::Detail
