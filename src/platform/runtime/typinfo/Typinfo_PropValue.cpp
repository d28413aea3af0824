// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/Typinfo_PropValue.h"

#include "platform/base/numbers/Sysutils_FloatReading.h"
#include "platform/runtime/typinfo/internal/Typinfo_Expected.h"
#include "platform/runtime/typinfo/internal/Typinfo_NeedProp.h"

#include <cmath>

namespace Typinfo
{

using Detail::NeedProp;
using System::Int64;
using System::TDateTime;
using System::TObject;
using System::UnicodeString;
using System::Variant;

namespace
{

[[noreturn]] void FailNoValue(const TPropInfo& info)
{
    throw EPropertyError(u"Property " + info.getName() + u" is an object or a method, which is no value");
}

/// The value can't be this property's.
struct TUnfit
{
};

bool IsBoolean(const TTypeInfo& type)
{
    return &type == Detail::BooleanTypeInfo();
}

bool IsUnsigned64(const TTypeInfo& type)
{
    return &type == Detail::IntegerTypeInfo(sizeof(Int64), false);
}

UnicodeString ElementName(const TTypeInfo& set, int bit)
{
    const Int64 element = set.LowestElement + bit;
    const UnicodeString name = GetEnumName(set.ElementType, element);
    return name.IsEmpty() ? UnicodeString(element) : name;
}

UnicodeString SetText(const TTypeInfo& set, Int64 bits)
{
    UnicodeString names;
    for (int bit = 0; bits >> bit != 0; ++bit) {
        if ((bits >> bit & 1) != 0) {
            names += (names.IsEmpty() ? u"" : u",") + ElementName(set, bit);
        }
    }
    return u"[" + names + u"]";
}

/// A text with a fraction is no whole number, although a variant would round it.
template <class Integer>
Integer IntegerOf(const Variant& value)
{
    const auto whole = value.As<Integer>();
    double exact = 0;
    if (value.IsText() && Sysutils::TryStrToFloat(value.As<UnicodeString>(), exact) &&
        exact != std::trunc(exact)) {
        throw TUnfit();
    }
    return whole;
}

/// The ordinal of a name or of a number as text.
Int64 OrdinalOf(const TTypeInfo* type, const UnicodeString& text)
{
    const int named = GetEnumValue(type, text);
    const bool isKnown = named != -1 || !GetEnumName(type, named).IsEmpty();
    return isKnown ? named : IntegerOf<Int64>(text);
}

std::u16string_view WithoutBrackets(std::u16string_view text)
{
    return text.starts_with(u'[') && text.ends_with(u']') ? text.substr(1, text.size() - 2) : text;
}

Int64 SetBits(const TTypeInfo& set, const UnicodeString& text)
{
    Int64 bits = 0;
    const UnicodeString names = text.Trim();
    std::u16string_view rest = WithoutBrackets(names);
    while (!rest.empty()) {
        const std::size_t end = rest.find(u',');
        const UnicodeString name = UnicodeString(rest.substr(0, end)).Trim();
        rest = end == std::u16string_view::npos ? std::u16string_view() : rest.substr(end + 1);
        const Int64 bit = OrdinalOf(set.ElementType, name) - set.LowestElement;
        if (bit < 0 || bit >= 63) {
            throw TUnfit();
        }
        bits |= Int64{1} << bit;
    }
    return bits;
}

Int64 CharacterOf(const TTypeInfo& type, const Variant& value)
{
    if (!value.IsText()) {
        return value.As<Int64>();
    }
    if (type.Kind == tkChar) {
        const auto text = value.As<System::AnsiString>();
        const auto wide = value.As<UnicodeString>();
        // What the code page lacks would become a question mark.
        if (text.Length() != 1 || UnicodeString(text) != wide) {
            throw TUnfit();
        }
        return static_cast<unsigned char>(text[1]);
    }
    const auto text = value.As<UnicodeString>();
    if (text.Length() != 1) {
        throw TUnfit();
    }
    return text[1];
}

Int64 EnumerationOf(const TTypeInfo& type, const Variant& value)
{
    if (IsBoolean(type)) {
        return value.As<bool>() ? 1 : 0;
    }
    return value.IsText() ? OrdinalOf(&type, value.As<UnicodeString>()) : value.As<Int64>();
}

Int64 SetOf(const TTypeInfo& type, const Variant& value)
{
    if (!value.IsText()) {
        return value.As<Int64>();
    }
    return SetBits(type, value.As<UnicodeString>());
}

Variant FloatOf(const TObject* object, const TPropInfo& info)
{
    const System::Extended value = GetFloatProp(object, &info);
    if (info.getPropType() == Detail::DateTimeTypeInfo()) {
        return TDateTime(static_cast<double>(value));
    }
    if (info.getPropType()->FloatType == ftCurr) {
        return System::Currency(value);
    }
    return static_cast<double>(value);
}

System::Extended FloatFrom(const TTypeInfo& type, const Variant& value)
{
    if (&type == Detail::DateTimeTypeInfo()) {
        return value.As<TDateTime>().Val;
    }
    if (type.FloatType == ftCurr) {
        return value.As<System::Currency>().AsExtended();
    }
    return value.As<double>();
}

Int64 OrdinalFrom(const TTypeInfo& type, const Variant& value)
{
    switch (type.Kind) {
    case tkChar:
    case tkWChar:
        return CharacterOf(type, value);
    case tkEnumeration:
        return EnumerationOf(type, value);
    case tkSet:
        return SetOf(type, value);
    default:
        return IsUnsigned64(type) ? static_cast<Int64>(IntegerOf<System::UInt64>(value))
                                  : IntegerOf<Int64>(value);
    }
}

/// What the property's writer takes for `value`.
TPropValue Converted(const TPropInfo& info, const Variant& value)
{
    const TTypeInfo& type = *info.getPropType();
    switch (type.Kind) {
    case tkInteger:
    case tkInt64:
    case tkChar:
    case tkWChar:
    case tkEnumeration:
    case tkSet: {
        const Int64 ordinal = OrdinalFrom(type, value);
        // A value that the type lacks would be cut to another one on its way.
        if (ordinal < type.MinValue || ordinal > type.MaxValue) {
            throw TUnfit();
        }
        return ordinal;
    }
    case tkFloat:
        return FloatFrom(type, value);
    case tkString:
    case tkLString:
    case tkWString:
    case tkUString:
        return value.As<UnicodeString>();
    case tkVariant:
        return value;
    default:
        FailNoValue(info);
    }
}

UnicodeString TextOf(const Variant& value)
{
    if (value.IsArray()) {
        return u"(array)";
    }
    return value.IsNull() ? UnicodeString() : value.As<UnicodeString>();
}

[[noreturn]] void FailUnfit(const TPropInfo& info, const Variant& value)
{
    throw EPropertyConvertError(u"'" + TextOf(value) + u"' is no value of property " + info.getName() +
                                Detail::ExpectedText(*info.getPropType()));
}

/// What the property's writer takes for `value`, or the fault of the property. What the writer itself raises
/// is another matter, and isn't taken for that.
TPropValue NeedConverted(const TPropInfo& info, const Variant& value)
{
    try {
        return Converted(info, value);
    } catch (const Sysutils::EVariantError&) {
        FailUnfit(info, value);
    } catch (const TUnfit&) {
        FailUnfit(info, value);
    }
}

} // namespace

Variant GetPropValue(const TObject* object, const TPropInfo* info)
{
    if (info == nullptr) {
        Detail::ThrowBadObject();
    }
    const TTypeInfo* type = info->getPropType();
    switch (info->getKind()) {
    case tkInteger:
        return GetInt64Prop(object, info);
    case tkInt64:
        return IsUnsigned64(*type) ? Variant(static_cast<System::UInt64>(GetInt64Prop(object, info)))
                                   : Variant(GetInt64Prop(object, info));
    case tkChar:
        return UnicodeString(static_cast<char>(GetInt64Prop(object, info)));
    case tkWChar:
        return UnicodeString(static_cast<System::WideChar>(GetInt64Prop(object, info)));
    case tkEnumeration: {
        const Int64 value = GetInt64Prop(object, info);
        if (IsBoolean(*type)) {
            return value != 0;
        }
        const UnicodeString name = GetEnumName(type, value);
        return name.IsEmpty() ? Variant(value) : Variant(name);
    }
    case tkSet:
        return SetText(*type, GetInt64Prop(object, info));
    case tkFloat:
        return FloatOf(object, *info);
    case tkString:
    case tkLString:
    case tkWString:
    case tkUString:
        return GetStrProp(object, info);
    case tkVariant:
        return GetVariantProp(object, info);
    default:
        FailNoValue(*info);
    }
}

Variant GetPropValue(const TObject* object, const UnicodeString& name)
{
    return GetPropValue(object, NeedProp(object, name));
}

void SetPropValue(TObject* object, const TPropInfo* info, const Variant& value)
{
    if (info == nullptr) {
        Detail::ThrowBadObject();
    }
    info->Write(object, NeedConverted(*info, value));
}

void SetPropValue(TObject* object, const UnicodeString& name, const Variant& value)
{
    SetPropValue(object, NeedProp(object, name), value);
}

UnicodeString GetPropText(const TObject* object, const TPropInfo* info)
{
    return TextOf(GetPropValue(object, info));
}

UnicodeString GetPropText(const TObject* object, const UnicodeString& name)
{
    return GetPropText(object, NeedProp(object, name));
}

void SetPropText(TObject* object, const TPropInfo* info, const UnicodeString& text)
{
    SetPropValue(object, info, text);
}

void SetPropText(TObject* object, const UnicodeString& name, const UnicodeString& text)
{
    SetPropValue(object, name, text);
}

} // namespace Typinfo
