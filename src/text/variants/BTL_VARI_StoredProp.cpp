// SPDX-License-Identifier: MIT
#include "text/variants/BTL_VARI_StoredProp.h"

#include "platform/base/dates/Sysutils_IsoDate.h"
#include "platform/base/numbers/Sysutils_Integer.h"
#include "platform/runtime/typinfo/Typinfo_PropValue.h"
#include "text/editing/BTL_STR_Cut.h"
#include "text/grammar/BTL_STR_EscapeText.h"

#include <array>
#include <charconv>
#include <concepts>
#include <optional>
#include <string>
#include <string_view>

namespace BTL
{

using System::Extended;
using System::TDateTime;
using System::TObject;
using System::UnicodeString;
using System::Variant;
using Typinfo::EPropertyConvertError;
using Typinfo::TPropInfo;
using Typinfo::TTypeInfo;

namespace
{

/// The shortest digits that bring the value back.
template <std::floating_point T>
UnicodeString ExactText(T value)
{
    std::array<char, 64> text;
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value);
    return System::FromUtf8({text.data(), result.ptr});
}

template <std::floating_point T>
std::optional<T> ReadExact(const UnicodeString& text)
{
    const std::string digits = System::ToUtf8(text);
    const char* const end = digits.data() + digits.size();
    T value = 0;
    const auto result = std::from_chars(digits.data(), end, value);
    return result.ec == std::errc() && result.ptr == end ? std::optional(value) : std::nullopt;
}

UnicodeString DateText(TDateTime value)
{
    try {
        return Sysutils::DateTimeToIso(value);
    } catch (const Sysutils::EConvertError&) {
        return ExactText(value.Val);
    }
}

std::optional<double> ReadDate(const UnicodeString& text)
{
    Sysutils::TIsoDateTime date;
    if (Sysutils::TryIsoToDateTime(text, date)) {
        // A property has no place for an offset.
        return date.offset ? std::nullopt : std::optional(date.value.Val);
    }
    return ReadExact<double>(text);
}

bool IsDate(const TTypeInfo& type)
{
    return &type == Typinfo::TypeInfoOf<TDateTime>();
}

UnicodeString FloatText(const TTypeInfo& type, Extended value)
{
    if (IsDate(type)) {
        return DateText(static_cast<double>(value));
    }
    switch (type.FloatType) {
    case Typinfo::ftSingle:
        return ExactText(static_cast<float>(value));
    case Typinfo::ftDouble:
        return ExactText(static_cast<double>(value));
    default:
        return ExactText(value);
    }
}

std::optional<Extended> ReadFloat(const TTypeInfo& type, const UnicodeString& text)
{
    if (IsDate(type)) {
        return ReadDate(text);
    }
    switch (type.FloatType) {
    case Typinfo::ftSingle:
        return ReadExact<float>(text);
    case Typinfo::ftDouble:
        return ReadExact<double>(text);
    default:
        return ReadExact<Extended>(text);
    }
}

/// The value of a variant without its type.
UnicodeString PlainText(const Variant& value)
{
    switch (value.Type()) {
    case System::varEmpty:
    case System::varNull:
        return {};
    case System::varSingle:
        return ExactText(value.As<float>());
    case System::varDouble:
        return ExactText(value.As<double>());
    case System::varCurrency:
        return ExactText(value.As<System::Currency>().AsExtended());
    case System::varDate:
        return DateText(value.As<TDateTime>());
    default:
        return EscapeText(value.As<UnicodeString>());
    }
}

UnicodeString VariantText(const Variant& value)
{
    if (value.IsArray()) {
        throw EPropertyConvertError(u"An array has no stored text");
    }
    return UnicodeString(value.Type()) + u':' + PlainText(value);
}

/// The variant of a type, from the text behind the colon.
std::optional<Variant> ReadPlain(System::Word type, const UnicodeString& text)
{
    const auto made = [type](const auto& value) {
        return value ? std::optional(Variant(*value).AsType(type)) : std::nullopt;
    };
    switch (type) {
    case System::varEmpty:
        return Variant();
    case System::varNull:
        return Variant::Null();
    case System::varSingle:
        return made(ReadExact<float>(text));
    case System::varDouble:
        return made(ReadExact<double>(text));
    case System::varCurrency:
        return made(ReadExact<Extended>(text));
    case System::varDate:
        return made(ReadDate(text));
    default:
        return Variant(UnescapeText(text)).AsType(type);
    }
}

std::optional<Variant> ReadVariant(const UnicodeString& text)
{
    UnicodeString code;
    UnicodeString value;
    GetSubStrings(text, u':', code, value);
    int type = 0;
    if (!Sysutils::TryStrToInt(code, type) || type < 0 || type >= System::varArray) {
        return std::nullopt;
    }
    try {
        return ReadPlain(static_cast<System::Word>(type), value);
    } catch (const Sysutils::Exception&) {
        return std::nullopt;
    }
}

/// What a stored text of this type is, behind a colon; empty where any may be meant.
UnicodeString ExpectedText(const TTypeInfo& type)
{
    if (IsDate(type)) {
        return u": a date such as 2022-02-28T12:30:00, without an offset";
    }
    return type.Kind == Typinfo::tkFloat ? u": a number with '.' as decimal separator" : u"";
}

/// The value, or the fault that there is none in `text`.
template <class T>
const T& Need(const std::optional<T>& value, const TPropInfo& info, const UnicodeString& text)
{
    if (!value) {
        throw EPropertyConvertError(u"'" + text + u"' is no value of property " + info.getName() +
                                    ExpectedText(*info.getPropType()));
    }
    return *value;
}

const TPropInfo* NeedProp(const TObject* object, const UnicodeString& name)
{
    const TPropInfo* const info = Typinfo::GetPropInfo(object, name);
    if (info == nullptr) {
        throw Typinfo::EPropertyError(u"Property " + name + u" does not exist");
    }
    return info;
}

Typinfo::TTypeKind KindOf(const TPropInfo* info)
{
    return info == nullptr ? Typinfo::tkUnknown : info->getKind();
}

} // namespace

UnicodeString GetStoredProp(const TObject* object, const TPropInfo* info)
{
    switch (KindOf(info)) {
    case Typinfo::tkFloat:
        return FloatText(*info->getPropType(), Typinfo::GetFloatProp(object, info));
    case Typinfo::tkVariant:
        return VariantText(Typinfo::GetVariantProp(object, info));
    default:
        return EscapeText(Typinfo::GetPropText(object, info));
    }
}

UnicodeString GetStoredProp(const TObject* object, const UnicodeString& name)
{
    return GetStoredProp(object, NeedProp(object, name));
}

void SetStoredProp(TObject* object, const TPropInfo* info, const UnicodeString& text)
{
    switch (KindOf(info)) {
    case Typinfo::tkFloat:
        return Typinfo::SetFloatProp(object, info, Need(ReadFloat(*info->getPropType(), text), *info, text));
    case Typinfo::tkVariant:
        return Typinfo::SetVariantProp(object, info, Need(ReadVariant(text), *info, text));
    default:
        return Typinfo::SetPropText(object, info, UnescapeText(text));
    }
}

void SetStoredProp(TObject* object, const UnicodeString& name, const UnicodeString& text)
{
    SetStoredProp(object, NeedProp(object, name), text);
}

} // namespace BTL
