// SPDX-License-Identifier: MIT
#include "platform/runtime/typinfo/Typinfo.h"

#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/runtime/typinfo/internal/System_ShownClass.h"
#include "platform/runtime/typinfo/internal/Typinfo_Expected.h"
#include "platform/runtime/typinfo/internal/Typinfo_NeedProp.h"

#include <algorithm>
#include <array>

namespace Typinfo
{

using System::Extended;
using System::Int64;
using System::TMetaClass;
using System::TMethod;
using System::TObject;
using System::UnicodeString;
using System::Variant;

EPropertyError::~EPropertyError() = default;
EPropertyConvertError::~EPropertyConvertError() = default;

namespace Detail
{

void ThrowBadValue()
{
    throw EPropertyConvertError(u"Invalid property value");
}

void ThrowBadObject()
{
    throw EPropertyError(u"The object has no such property");
}

namespace
{

TTypeInfo OrdinalType(TTypeKind kind, const UnicodeString& name, Int64 min, Int64 max)
{
    TTypeInfo info{.Kind = kind, .Name = name};
    info.MinValue = min;
    info.MaxValue = max;
    return info;
}

} // namespace

const TTypeInfo* IntegerTypeInfo(std::size_t size, bool isSigned)
{
    static const auto& types = *new std::array{
        OrdinalType(tkInteger, u"Byte", 0, UINT8_MAX),
        OrdinalType(tkInteger, u"ShortInt", INT8_MIN, INT8_MAX),
        OrdinalType(tkInteger, u"Word", 0, UINT16_MAX),
        OrdinalType(tkInteger, u"SmallInt", INT16_MIN, INT16_MAX),
        OrdinalType(tkInteger, u"Cardinal", 0, UINT32_MAX),
        OrdinalType(tkInteger, u"Integer", INT32_MIN, INT32_MAX),
        OrdinalType(tkInt64, u"UInt64", INT64_MIN, INT64_MAX),
        OrdinalType(tkInt64, u"Int64", INT64_MIN, INT64_MAX),
    };
    const std::size_t width = size == 1 ? 0 : size == 2 ? 1 : size == 4 ? 2 : 3;
    return &types[2 * width + (isSigned ? 1 : 0)];
}

const TTypeInfo* CharTypeInfo(bool wide)
{
    static const auto& types = *new std::array{OrdinalType(tkChar, u"AnsiChar", 0, UINT8_MAX),
                                               OrdinalType(tkWChar, u"Char", 0, UINT16_MAX)};
    return &types[wide ? 1 : 0];
}

const TTypeInfo* BooleanTypeInfo()
{
    static const auto* const type = new TTypeInfo(EnumType(u"Boolean", {u"False", u"True"}));
    return type;
}

const TTypeInfo* FloatTypeInfo(TFloatType type)
{
    static const auto& types = *[] {
        auto* const infos = new std::array<TTypeInfo, 5>;
        const std::array names{u"Single", u"Double", u"Extended", u"Comp", u"Currency"};
        for (std::size_t i = 0; i < infos->size(); ++i) {
            (*infos)[i] = {.Kind = tkFloat, .Name = names[i]};
            (*infos)[i].FloatType = static_cast<TFloatType>(i);
        }
        return infos;
    }();
    return &types.at(type);
}

const TTypeInfo* TextTypeInfo(TTypeKind kind)
{
    static const auto* const narrow = new TTypeInfo{.Kind = tkLString, .Name = u"AnsiString"};
    static const auto* const wide = new TTypeInfo{.Kind = tkUString, .Name = u"string"};
    return kind == tkLString ? narrow : wide;
}

const TTypeInfo* DateTimeTypeInfo()
{
    static const auto* const type = new TTypeInfo{.Kind = tkFloat, .Name = u"TDateTime"};
    return type;
}

const TTypeInfo* VariantTypeInfo()
{
    static const auto* const type = new TTypeInfo{.Kind = tkVariant, .Name = u"Variant"};
    return type;
}

const TTypeInfo* MethodTypeInfo(const std::type_info& signature)
{
    static const auto* const notify = new TTypeInfo{.Kind = tkMethod, .Name = u"TNotifyEvent"};
    static const auto* const other = new TTypeInfo{.Kind = tkMethod, .Name = u"TMethod"};
    return signature == typeid(Classes::TNotifyEvent::Signature) ? notify : other;
}

} // namespace Detail

TTypeInfo EnumType(const UnicodeString& name, std::vector<UnicodeString> names, Int64 first)
{
    TTypeInfo info{.Kind = tkEnumeration, .Name = name};
    info.MinValue = first;
    info.MaxValue = first + static_cast<Int64>(names.size()) - 1;
    info.EnumNames = std::move(names);
    return info;
}

TPropInfo::TPropInfo(UnicodeString name, TTypeInfoFunction type, Reader read, Writer write,
                     TPropOptions options, Detail::TShownAccess shown)
    : mName(std::move(name)),
      mType(options.type != nullptr ? options.type : type),
      mRead(std::move(read)),
      mWrite(std::move(write)),
      mOptions(std::move(options)),
      mShown(shown)
{
}

TTypeKind TPropInfo::getKind() const
{
    const TTypeInfo* type = getPropType();
    return type == nullptr ? tkUnknown : type->Kind;
}

TPropValue TPropInfo::Read(const TObject* object) const
{
    if (!CanRead()) {
        throw EPropertyError(u"Property " + mName + u" can't be read");
    }
    return IsShown(object) ? ReadShown(*object) : mRead(object);
}

void TPropInfo::Write(TObject* object, const TPropValue& value) const
{
    if (!CanWrite()) {
        throw EPropertyError(u"Property " + mName + u" is read-only");
    }
    try {
        if (IsShown(object)) {
            WriteShown(*object, value);
        } else {
            mWrite(object, value);
        }
    } catch (const std::bad_variant_access&) {
        throw EPropertyConvertError(u"Invalid value for property " + mName);
    }
}

TPropInfo* GetPropInfo(const TMetaClass* type, const UnicodeString& name)
{
    return type == nullptr ? nullptr : type->FindProperty(name);
}

TPropInfo* GetPropInfo(const TObject* object, const UnicodeString& name)
{
    return object == nullptr ? nullptr : GetPropInfo(object->ClassType(), name);
}

std::vector<TPropInfo*> GetPropList(const TMetaClass* type, bool sorted)
{
    std::vector<TPropInfo*> list;
    if (type == nullptr) {
        return list;
    }
    list = type->Properties();
    if (sorted) {
        std::ranges::sort(list, [](const TPropInfo* a, const TPropInfo* b) {
            return a->getName().CompareIC(b->getName()) < 0;
        });
    }
    return list;
}

std::vector<TPropInfo*> GetPropList(const TObject* object, bool sorted)
{
    return GetPropList(object == nullptr ? nullptr : object->ClassType(), sorted);
}

bool IsPublishedProp(const TMetaClass* type, const UnicodeString& name)
{
    return GetPropInfo(type, name) != nullptr;
}

bool IsPublishedProp(const TObject* object, const UnicodeString& name)
{
    return GetPropInfo(object, name) != nullptr;
}

bool IsStoredProp(const TObject* object, const TPropInfo* info)
{
    return info != nullptr && info->IsStored(object);
}

bool IsDefaultProp(const TObject* object, const TPropInfo* info)
{
    if (info == nullptr || !info->getDefault() || !info->CanRead()) {
        return false;
    }
    const TPropValue value = info->Read(object);
    const auto* const ordinal = std::get_if<Int64>(&value);
    return ordinal != nullptr && *ordinal == *info->getDefault();
}

TTypeKind PropType(const TObject* object, const UnicodeString& name)
{
    const TPropInfo* info = GetPropInfo(object, name);
    return info == nullptr ? tkUnknown : info->getKind();
}

const TPropInfo* Detail::NeedProp(const TObject* object, const UnicodeString& name)
{
    const TPropInfo* info = GetPropInfo(object, name);
    if (info == nullptr) {
        throw EPropertyError(u"Property " + name + u" does not exist");
    }
    return info;
}

namespace
{

using Detail::NeedProp;

template <class... Kinds>
TTypeKind NeedKind(const TPropInfo* info, Kinds... kinds)
{
    if (info == nullptr) {
        Detail::ThrowBadObject();
    }
    const TTypeKind kind = info->getKind();
    if (((kind != kinds) && ...)) {
        throw EPropertyError(u"Property " + info->getName() + u" has another type");
    }
    return kind;
}

template <class T, class... Kinds>
T Get(const TObject* object, const TPropInfo* info, Kinds... kinds)
{
    NeedKind(info, kinds...);
    const TPropValue value = info->Read(object);
    const T* typed = std::get_if<T>(&value);
    if (typed == nullptr) {
        Detail::ThrowBadValue();
    }
    return *typed;
}

template <class T, class... Kinds>
void Set(TObject* object, const TPropInfo* info, const T& value, Kinds... kinds)
{
    NeedKind(info, kinds...);
    info->Write(object, value);
}

void SetOrdinal(TObject* object, const TPropInfo* info, Int64 value)
{
    const TTypeInfo& type = *info->getPropType();
    // A value that the type lacks would be cut to another one on its way.
    if (value < type.MinValue || value > type.MaxValue) {
        throw EPropertyConvertError(UnicodeString(value) + u" is no value of property " + info->getName() +
                                    Detail::ExpectedText(type));
    }
    info->Write(object, value);
}

} // namespace

Int64 GetOrdProp(const TObject* object, const TPropInfo* info)
{
    if (NeedKind(info, tkInteger, tkChar, tkWChar, tkEnumeration, tkSet, tkClass) == tkClass) {
        return static_cast<Int64>(reinterpret_cast<std::intptr_t>(Get<TObject*>(object, info, tkClass)));
    }
    return Get<Int64>(object, info, info->getKind());
}

void SetOrdProp(TObject* object, const TPropInfo* info, Int64 value)
{
    NeedKind(info, tkInteger, tkChar, tkWChar, tkEnumeration, tkSet);
    SetOrdinal(object, info, value);
}

Int64 GetInt64Prop(const TObject* object, const TPropInfo* info)
{
    return Get<Int64>(object, info, tkInt64, tkInteger, tkChar, tkWChar, tkEnumeration, tkSet);
}

void SetInt64Prop(TObject* object, const TPropInfo* info, Int64 value)
{
    NeedKind(info, tkInt64, tkInteger, tkChar, tkWChar, tkEnumeration, tkSet);
    SetOrdinal(object, info, value);
}

UnicodeString GetStrProp(const TObject* object, const TPropInfo* info)
{
    return Get<UnicodeString>(object, info, tkUString, tkLString, tkWString, tkString);
}

void SetStrProp(TObject* object, const TPropInfo* info, const UnicodeString& value)
{
    Set(object, info, value, tkUString, tkLString, tkWString, tkString);
}

Extended GetFloatProp(const TObject* object, const TPropInfo* info)
{
    return Get<Extended>(object, info, tkFloat);
}

void SetFloatProp(TObject* object, const TPropInfo* info, Extended value)
{
    Set(object, info, value, tkFloat);
}

Variant GetVariantProp(const TObject* object, const TPropInfo* info)
{
    return Get<Variant>(object, info, tkVariant);
}

void SetVariantProp(TObject* object, const TPropInfo* info, const Variant& value)
{
    Set(object, info, value, tkVariant);
}

TObject* GetObjectProp(const TObject* object, const TPropInfo* info)
{
    return Get<TObject*>(object, info, tkClass);
}

void SetObjectProp(TObject* object, const TPropInfo* info, TObject* value)
{
    Set(object, info, value, tkClass);
}

TMethod GetMethodProp(const TObject* object, const TPropInfo* info)
{
    return Get<TMethod>(object, info, tkMethod);
}

void SetMethodProp(TObject* object, const TPropInfo* info, const TMethod& value)
{
    Set(object, info, value, tkMethod);
}

Int64 GetOrdProp(const TObject* object, const UnicodeString& name)
{
    return GetOrdProp(object, NeedProp(object, name));
}

void SetOrdProp(TObject* object, const UnicodeString& name, Int64 value)
{
    SetOrdProp(object, NeedProp(object, name), value);
}

Int64 GetInt64Prop(const TObject* object, const UnicodeString& name)
{
    return GetInt64Prop(object, NeedProp(object, name));
}

void SetInt64Prop(TObject* object, const UnicodeString& name, Int64 value)
{
    SetInt64Prop(object, NeedProp(object, name), value);
}

UnicodeString GetStrProp(const TObject* object, const UnicodeString& name)
{
    return GetStrProp(object, NeedProp(object, name));
}

void SetStrProp(TObject* object, const UnicodeString& name, const UnicodeString& value)
{
    SetStrProp(object, NeedProp(object, name), value);
}

Extended GetFloatProp(const TObject* object, const UnicodeString& name)
{
    return GetFloatProp(object, NeedProp(object, name));
}

void SetFloatProp(TObject* object, const UnicodeString& name, Extended value)
{
    SetFloatProp(object, NeedProp(object, name), value);
}

Variant GetVariantProp(const TObject* object, const UnicodeString& name)
{
    return GetVariantProp(object, NeedProp(object, name));
}

void SetVariantProp(TObject* object, const UnicodeString& name, const Variant& value)
{
    SetVariantProp(object, NeedProp(object, name), value);
}

TObject* GetObjectProp(const TObject* object, const UnicodeString& name)
{
    return GetObjectProp(object, NeedProp(object, name));
}

void SetObjectProp(TObject* object, const UnicodeString& name, TObject* value)
{
    SetObjectProp(object, NeedProp(object, name), value);
}

TMethod GetMethodProp(const TObject* object, const UnicodeString& name)
{
    return GetMethodProp(object, NeedProp(object, name));
}

void SetMethodProp(TObject* object, const UnicodeString& name, const TMethod& value)
{
    SetMethodProp(object, NeedProp(object, name), value);
}

UnicodeString GetEnumName(const TTypeInfo* type, Int64 value)
{
    if (type == nullptr || value < type->MinValue || value > type->MaxValue) {
        return {};
    }
    const auto index = static_cast<std::size_t>(value - type->MinValue);
    return index < type->EnumNames.size() ? type->EnumNames[index] : UnicodeString();
}

int GetEnumValue(const TTypeInfo* type, const UnicodeString& name)
{
    if (type == nullptr) {
        return -1;
    }
    const auto found = std::ranges::find_if(
        type->EnumNames, [&](const UnicodeString& known) { return known.CompareIC(name) == 0; });
    return found == type->EnumNames.end()
               ? -1
               : static_cast<int>(type->MinValue + (found - type->EnumNames.begin()));
}

} // namespace Typinfo
