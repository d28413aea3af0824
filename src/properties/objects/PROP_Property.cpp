// SPDX-License-Identifier: MIT
#include "properties/objects/PROP_Property.h"

#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "properties/objects/internal/PROP_Snapshot.h"
#include "properties/values/PROP_Typinfo.h"
#include "properties/values/internal/PROP_Path.h"
#include "text/lists/BTL_STR_StringsUpdate.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace PROP
{

using Classes::TCollection;
using Classes::TStrings;
using System::TObject;
using System::UnicodeString;

namespace
{

constexpr std::u16string_view True = u"true";
constexpr std::u16string_view False = u"false";

/// A word that stands for a property with its value.
struct TWord
{
    std::u16string_view word;
    std::u16string_view name;
    std::u16string_view value;
};

/// The positive word of each name first, which any value has for which there is no other.
constexpr std::array Words = {
    TWord{u"visible", u"Visible", True},   TWord{u"invisible", u"Visible", False},
    TWord{u"readonly", u"ReadOnly", True}, TWord{u"required", u"Required", True},
    TWord{u"active", u"Active", True},     TWord{u"inactive", u"Active", False},
};

/// The word of the name, with its value if that is "true", else with the other one if there is one; null if
/// the name has none.
const TWord* FindWord(std::u16string_view name, std::u16string_view value)
{
    const TWord* found = nullptr;
    for (const TWord& word : Words) {
        if (word.name == name && (found == nullptr || value != True)) {
            found = &word;
        }
    }
    return found;
}

/// Finds by name in linear time, all names taken together, however many there are.
class CFirstOfName
{
public:
    explicit CFirstOfName(const CProperties& properties) : mProperties(properties)
    {
        constexpr int fewEnough = 40;
        if (properties.size() <= fewEnough) {
            return;
        }
        mByName.reserve(static_cast<std::size_t>(properties.size()));
        for (const CProperty& property : properties) {
            mByName.push_back(&property);
        }
        std::ranges::stable_sort(mByName, {}, NameOf);
    }

    const CProperty* Find(const UnicodeString& name) const
    {
        if (mByName.empty()) {
            return mProperties.FindProperty(name);
        }
        const auto found = std::ranges::lower_bound(mByName, name.AsView(), {}, NameOf);
        return found != mByName.end() && (*found)->getName() == name ? *found : nullptr;
    }

private:
    static std::u16string_view NameOf(const CProperty* property) { return property->getName().AsView(); }

    const CProperties& mProperties;
    std::vector<const CProperty*> mByName;
};

} // namespace

CProperty::CProperty(const UnicodeString& name, TObject* object)
{
    SetProperty(name, object);
}

CProperty::CProperty(const UnicodeString& text)
{
    SetProperty(text);
}

void CProperty::SetProperty(const UnicodeString& name, TObject* object)
{
    UnicodeString value = GetPropValueAsString(object, name, false);
    mName = name;
    mValue = std::move(value);
}

void CProperty::SetProperty(const UnicodeString& text)
{
    const std::u16string_view view = text;
    for (const auto& [mark, tail] : {std::pair(u'(', std::size_t{1}), {u'=', std::size_t{0}}}) {
        if (const std::size_t place = view.find(mark); place != std::u16string_view::npos) {
            const std::u16string_view rest = view.substr(place + 1);
            UnicodeString name(view.substr(0, place));
            mValue = UnicodeString(rest.substr(0, rest.size() - std::min(tail, rest.size())));
            mName = std::move(name);
            return;
        }
    }
    if (const auto* const word = std::ranges::find(Words, view, &TWord::word); word != Words.end()) {
        mName = UnicodeString(word->name);
        mValue = UnicodeString(word->value);
    }
}

void CProperty::ApplyProperty(TObject* object) const
{
    const CPathEnd end = ResolvePropPath(object, mName);
    const UnicodeString name(end.name);
    auto* const collection = end.object == object ? nullptr : dynamic_cast<TCollection*>(end.object);
    if (collection != nullptr) {
        SetItemPropValuesFromString(collection, name, mValue);
    } else {
        SetPropValueFromString(end.object, name, mValue);
    }
}

UnicodeString CProperty::ToString() const
{
    return mName + u"=" + mValue;
}

UnicodeString CProperty::GetPropString() const
{
    const TWord* const word = FindWord(mName, mValue);
    return word != nullptr ? UnicodeString(word->word) : mName + u"(" + mValue + u")";
}

/// Not exactly: many objects one after the other would move all properties each time.
void CProperties::Reserve(int count)
{
    const std::size_t needed = mProperties.size() + static_cast<std::size_t>(count);
    if (needed > mProperties.capacity()) {
        mProperties.reserve(std::max(needed, mProperties.capacity() * 2));
    }
}

void CProperties::AddProperty(const UnicodeString& name, const UnicodeString& value)
{
    mProperties.emplace_back(name, value);
}

void CProperties::AddProperties(const TStrings* strings)
{
    if (strings == nullptr) {
        return;
    }
    for (const UnicodeString& line : *strings) {
        mProperties.emplace_back(line);
    }
}

void CProperties::AddProperties(TObject* object, const CFilter* filter)
{
    CSnapshot(filter).AddTo(*this, object);
}

void CProperties::SetProperties(TObject* object, const CFilter* filter)
{
    clear();
    AddProperties(object, filter);
}

void CProperties::SetProperty(const UnicodeString& name, const UnicodeString& value)
{
    if (CProperty* const property = FindProperty(name); property != nullptr) {
        property->setValue(value);
    } else {
        AddProperty(name, value);
    }
}

CProperty* CProperties::FindProperty(const UnicodeString& name)
{
    const auto found = std::ranges::find(mProperties, name, &CProperty::getName);
    return found == mProperties.end() ? nullptr : &*found;
}

const CProperty* CProperties::FindProperty(const UnicodeString& name) const
{
    const auto found = std::ranges::find(mProperties, name, &CProperty::getName);
    return found == mProperties.end() ? nullptr : &*found;
}

void CProperties::DeleteProperty(const UnicodeString& name)
{
    if (const auto found = std::ranges::find(mProperties, name, &CProperty::getName);
        found != mProperties.end()) {
        mProperties.erase(found);
    }
}

void CProperties::ApplyProperties(TObject* object) const
{
    std::optional<Classes::TComponentWatch> watch;
    if (const auto* const component = dynamic_cast<Classes::TComponent*>(object); component != nullptr) {
        watch.emplace(component);
    }
    for (const CProperty& property : mProperties) {
        if (watch && !watch->IsAlive()) {
            return;
        }
        property.ApplyProperty(object);
    }
}

void CProperties::GetDifferenceOf(const CProperties& other, CProperties& out) const
{
    CProperties difference;
    const CFirstOfName others(other);
    for (const CProperty& property : mProperties) {
        const CProperty* const present = others.Find(property.getName());
        if (present != nullptr && present->getValue() != property.getValue()) {
            difference.AddProperty(*present);
        }
    }
    out = std::move(difference);
}

void CProperties::GetProperties(TStrings* strings) const
{
    if (strings == nullptr) {
        return;
    }
    const BTL::CStringsUpdate update(strings);
    strings->Clear();
    for (const CProperty& property : mProperties) {
        strings->Add(property.ToString());
    }
}

} // namespace PROP
