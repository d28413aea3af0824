// SPDX-License-Identifier: MIT
#include "properties/values/PROP_Typinfo.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "properties/values/internal/PROP_Number.h"
#include "properties/values/internal/PROP_Path.h"
#include "text/editing/BTL_STR_Replace.h"
#include "text/lists/BTL_STR_StringList.h"

#include <algorithm>
#include <optional>

namespace PROP
{

using Classes::TCollection;
using Classes::TStrings;
using System::TObject;
using System::UnicodeString;
using System::Variant;
using Typinfo::TPropInfo;
using Typinfo::TTypeInfo;
using Typinfo::TTypeKind;

namespace
{

constexpr UTL::CFaultPlace NoObject{"PROP_Typinfo", 1};
constexpr UTL::CFaultPlace NoRecord{"PROP_Typinfo", 2};
constexpr UTL::CFaultPlace NoCollection{"PROP_Typinfo", 3};

bool IsThere(const void* needed, const UTL::CFaultPlace& place)
{
    if (needed == nullptr) {
        UTL::THROW_XAssert(place);
    }
    return needed != nullptr;
}

/// By the piece of a path, which is no text of its own.
TPropInfo* FindInfo(const TObject* object, std::u16string_view name)
{
    return IsThere(object, NoObject) ? object->ClassType()->FindProperty(name) : nullptr;
}

TObject* FindObject(const TObject* object, std::u16string_view name)
{
    const TPropInfo* const info = FindInfo(object, name);
    return info != nullptr && info->getKind() == Typinfo::tkClass ? Typinfo::GetObjectProp(object, info)
                                                                  : nullptr;
}

TStrings* LinesOf(TObject* object, const TPropInfo* info)
{
    return dynamic_cast<TStrings*>(Typinfo::GetObjectProp(object, info));
}

UnicodeString ClassText(TObject* object, const TPropInfo* info, bool showNames)
{
    const TTypeInfo& type = *info->getPropType();
    if (IsLines(type)) {
        const TStrings* const lines = LinesOf(object, info);
        return InBrackets(lines == nullptr ? UnicodeString() : lines->getCommaText());
    }
    return showNames ? type.Name : UnicodeString();
}

void SetEnumByName(TObject* object, const TPropInfo* info, const UnicodeString& name)
{
    const int value = Typinfo::GetEnumValue(info->getPropType(), name);
    // What stands for a name that isn't there may be a value too, and has no name if it is none.
    if (!name.IsEmpty() && Typinfo::GetEnumName(info->getPropType(), value).CompareIC(name) == 0) {
        Typinfo::SetOrdProp(object, info, value);
    }
}

void SetLines(TObject* object, const TPropInfo* info, const UnicodeString& text)
{
    TStrings* const lines = IsLines(*info->getPropType()) ? LinesOf(object, info) : nullptr;
    if (lines == nullptr) {
        return;
    }
    if (text.IsEmpty()) {
        lines->Clear();
    } else {
        lines->setCommaText(WithoutBrackets(text));
    }
}

/// Whether the path is names and points alone, so that its pieces are its names. Comma text takes all else.
bool IsPlainPath(std::u16string_view path)
{
    const auto isSpecial = [](System::WideChar c) { return c <= u' ' || c == u'"' || c == u','; };
    return !path.starts_with(u'.') && !path.ends_with(u'.') &&
           path.find(u"..") == std::u16string_view::npos && std::ranges::none_of(path, isSpecial);
}

/// Takes the first name off a plain path.
std::u16string_view TakeName(std::u16string_view& path)
{
    const std::u16string_view name = path.substr(0, path.find(u'.'));
    path.remove_prefix(std::min(name.size() + 1, path.size()));
    return name;
}

CPathEnd ResolvePlainPath(TObject* object, std::u16string_view path)
{
    std::u16string_view name = TakeName(path);
    while (!path.empty()) {
        object = FindObject(object, name);
        name = TakeName(path);
    }
    return {object, name, {}};
}

} // namespace

BTL::CStringList NamesOfPath(const UnicodeString& path)
{
    BTL::CStringList names;
    if (path.Pos(u'.') == 0) {
        names.Add(path);
    } else {
        names.setCommaText(BTL::ExchangeAll(path, u".", u","));
    }
    return names;
}

bool IsLines(const TTypeInfo& type)
{
    return type.Name == u"TStrings" || type.Name == u"TStringList";
}

System::Int64 CharCodeOf(const UnicodeString& text)
{
    const System::WideChar first = text.IsEmpty() ? u'\0' : *text.begin();
    if (first <= UINT8_MAX) {
        return first;
    }
    const System::AnsiString narrow{UnicodeString(first)};
    return UnicodeString(narrow) == UnicodeString(first) ? static_cast<unsigned char>(*narrow.begin())
                                                         : first;
}

CPathEnd ResolvePropPath(TObject* object, const UnicodeString& path)
{
    if (!IsThere(object, NoObject)) {
        return {};
    }
    if (IsPlainPath(path) || path.Pos(u'.') == 0) {
        return ResolvePlainPath(object, path);
    }
    const BTL::CStringList names = NamesOfPath(path);
    const int last = names.GetCount() - 1;
    for (int i = 0; i < last; ++i) {
        object = FindObject(object, names[i]);
    }
    CPathEnd end{.object = object, .name = {}, .kept = last < 0 ? UnicodeString() : names[last]};
    end.name = end.kept.AsView();
    return end;
}

UnicodeString WithoutBrackets(const UnicodeString& text)
{
    const std::u16string_view view = text;
    const bool isBracketed = view.size() >= 2 && view.front() == u'[' && view.back() == u']';
    return isBracketed ? text.SubString(2, text.Length() - 2) : text;
}

UnicodeString InBrackets(const UnicodeString& text)
{
    return u"[" + text + u"]";
}

TPropInfo* GetPropInfo(TObject* object, const UnicodeString& name)
{
    return FindInfo(object, name);
}

bool HasProp(TObject* object, const UnicodeString& name)
{
    return GetPropInfo(object, name) != nullptr;
}

const TTypeInfo* GetPropType(TObject* object, const UnicodeString& name)
{
    const TPropInfo* const info = GetPropInfo(object, name);
    return info == nullptr ? nullptr : info->getPropType();
}

TTypeKind GetPropTypeKind(TObject* object, const UnicodeString& name)
{
    const TPropInfo* const info = GetPropInfo(object, name);
    return info == nullptr || info->getKind() > Typinfo::tkUString ? Typinfo::tkUnknown : info->getKind();
}

TObject* GetPropObject(TObject* object, const UnicodeString& name)
{
    return FindObject(object, name);
}

TObject* GetPropPathObject(TObject* object, const UnicodeString& path)
{
    if (path.Pos(u'.') == 0) {
        return FindObject(object, path);
    }
    if (IsPlainPath(path)) {
        for (std::u16string_view rest = path; object != nullptr && !rest.empty();) {
            object = FindObject(object, TakeName(rest));
        }
        return object;
    }
    const BTL::CStringList names = NamesOfPath(path);
    for (int i = 0; i < names.GetCount() && object != nullptr; ++i) {
        object = FindObject(object, names[i]);
    }
    return object;
}

UnicodeString GetPropValueAsString(TObject* object, const TPropInfo* info, bool showNames)
{
    if (!IsThere(object, NoObject) || !IsThere(info, NoRecord)) {
        return {};
    }
    switch (info->getKind()) {
    case Typinfo::tkInteger:
        return IntegerText(*info->getPropType(), Typinfo::GetOrdProp(object, info));
    case Typinfo::tkChar:
        return UnicodeString(static_cast<char>(Typinfo::GetOrdProp(object, info)));
    case Typinfo::tkEnumeration:
        return Typinfo::GetEnumName(info->getPropType(), Typinfo::GetOrdProp(object, info));
    case Typinfo::tkFloat:
        return FloatText(*info->getPropType(), Typinfo::GetFloatProp(object, info));
    case Typinfo::tkString:
    case Typinfo::tkLString:
    case Typinfo::tkWString:
    case Typinfo::tkUString:
        return Typinfo::GetStrProp(object, info);
    case Typinfo::tkClass:
        return ClassText(object, info, showNames);
    case Typinfo::tkMethod:
        return showNames ? info->getName() : UnicodeString();
    default:
        return {};
    }
}

UnicodeString GetPropValueAsString(TObject* object, const UnicodeString& name, bool showNames)
{
    const TPropInfo* const info = GetPropInfo(object, name);
    return info == nullptr ? UnicodeString() : GetPropValueAsString(object, info, showNames);
}

void SetPropValueFromString(TObject* object, const TPropInfo* info, const UnicodeString& value)
{
    if (!IsThere(object, NoObject) || !IsThere(info, NoRecord)) {
        return;
    }
    switch (info->getKind()) {
    case Typinfo::tkInteger:
        Typinfo::SetOrdProp(object, info, IntegerOf(*info->getPropType(), value));
        break;
    case Typinfo::tkChar:
        Typinfo::SetOrdProp(object, info, CharCodeOf(value));
        break;
    case Typinfo::tkEnumeration:
        SetEnumByName(object, info, value);
        break;
    case Typinfo::tkFloat:
        Typinfo::SetFloatProp(object, info, FloatOf(*info->getPropType(), value));
        break;
    case Typinfo::tkString:
    case Typinfo::tkLString:
    case Typinfo::tkWString:
    case Typinfo::tkUString:
        Typinfo::SetStrProp(object, info, value);
        break;
    case Typinfo::tkClass:
        SetLines(object, info, value);
        break;
    default:
        break;
    }
}

void SetPropValueFromString(TObject* object, const UnicodeString& name, const UnicodeString& value)
{
    if (const TPropInfo* const info = GetPropInfo(object, name); info != nullptr) {
        SetPropValueFromString(object, info, value);
    }
}

Variant GetPropValueAsVariant(TObject* object, const TPropInfo* info)
{
    if (!IsThere(object, NoObject) || !IsThere(info, NoRecord)) {
        return Variant::Null();
    }
    switch (info->getKind()) {
    case Typinfo::tkInteger:
    case Typinfo::tkEnumeration:
        return static_cast<int>(Typinfo::GetOrdProp(object, info));
    case Typinfo::tkChar:
        return static_cast<signed char>(Typinfo::GetOrdProp(object, info));
    case Typinfo::tkFloat:
        return static_cast<double>(Typinfo::GetFloatProp(object, info));
    case Typinfo::tkString:
    case Typinfo::tkLString:
    case Typinfo::tkWString:
    case Typinfo::tkUString:
        return Typinfo::GetStrProp(object, info);
    case Typinfo::tkVariant:
        return Typinfo::GetVariantProp(object, info);
    default:
        return Variant::Null();
    }
}

Variant GetPropValueAsVariant(TObject* object, const UnicodeString& name)
{
    const TPropInfo* const info = GetPropInfo(object, name);
    return info == nullptr ? Variant::Null() : GetPropValueAsVariant(object, info);
}

UnicodeString GetPropPathValueAsString(TObject* object, const UnicodeString& path, bool showNames)
{
    const CPathEnd end = ResolvePropPath(object, path);
    const TPropInfo* const info = end.object == nullptr ? nullptr : FindInfo(end.object, end.name);
    return info == nullptr ? UnicodeString() : GetPropValueAsString(end.object, info, showNames);
}

void SetPropPathValueFromString(TObject* object, const UnicodeString& path, const UnicodeString& value)
{
    const CPathEnd end = ResolvePropPath(object, path);
    const TPropInfo* const info = end.object == nullptr ? nullptr : FindInfo(end.object, end.name);
    if (info != nullptr) {
        SetPropValueFromString(end.object, info, value);
    }
}

bool GetItemPropValuesAsString(TCollection* collection, const UnicodeString& name, UnicodeString& out)
{
    if (!IsThere(collection, NoCollection) || !Typinfo::IsPublishedProp(collection->getItemClass(), name)) {
        return false;
    }
    BTL::CStringList values;
    for (Classes::TCollectionItem* const item : *collection) {
        values.Add(GetPropValueAsString(item, name, false));
    }
    out = InBrackets(values.GetCommaText());
    return true;
}

bool SetItemPropValuesFromString(TCollection* collection, const UnicodeString& name,
                                 const UnicodeString& value)
{
    if (!IsThere(collection, NoCollection) || !Typinfo::IsPublishedProp(collection->getItemClass(), name)) {
        return false;
    }
    BTL::CStringList values;
    values.setCommaText(WithoutBrackets(value));
    std::optional<Classes::TComponentWatch> watch;
    if (const auto* const owner = dynamic_cast<Classes::TComponent*>(collection->GetOwner())) {
        watch.emplace(owner);
    }
    // A setter may take items away, and its handler the owner with all of them.
    const auto isAlive = [&watch] { return !watch || watch->IsAlive(); };
    for (int i = 0; i < values.GetCount() && isAlive() && i < collection->GetCount(); ++i) {
        SetPropValueFromString(collection->GetItem(i), name, values[i]);
    }
    return true;
}

} // namespace PROP
