// SPDX-License-Identifier: MIT
#include "properties/documents/PROP_Lint.h"

#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/typinfo/System_MetaClass.h"
#include "platform/visual/controls/Controls_WinControl.h"
#include "platform/visual/menus/Menus.h"
#include "properties/components/BTL_Components.h"
#include "properties/documents/PROP_Document.h"
#include "properties/documents/internal/PROP_InfoSection.h"
#include "properties/values/PROP_Utilities.h"
#include "properties/values/internal/PROP_Number.h"
#include "properties/values/internal/PROP_Path.h"
#include "text/lists/BTL_STR_StringList.h"

#include <algorithm>
#include <map>
#include <optional>

namespace PROP
{

using Classes::TCollection;
using Classes::TComponent;
using Menus::TMenuItem;
using System::TObject;
using System::UnicodeString;
using Typinfo::TPropInfo;
using Typinfo::TTypeInfo;

namespace
{

constexpr UTL::CFaultPlace NoForm{"PROP_Lint", 1};

using CFault = std::optional<ELintFault>;

CFault FaultIf(bool isFault, ELintFault fault)
{
    return isFault ? CFault(fault) : std::nullopt;
}

// Whether a text is a value, as `SetPropValueFromString` takes it.

bool IsInteger(const TTypeInfo& type, const UnicodeString& text)
{
    System::Int64 value = 0;
    return TryReadInteger(type, text, value) && type.MinValue <= value && value <= type.MaxValue;
}

bool IsFloat(const TTypeInfo& type, const UnicodeString& text)
{
    System::Extended value = 0;
    return TryReadFloat(type, text, value) && IsInRange(type, value);
}

CFault FaultOfValue(const TPropInfo& info, const UnicodeString& text)
{
    const TTypeInfo& type = *info.getPropType();
    switch (info.getKind()) {
    case Typinfo::tkInteger:
        return FaultIf(!IsInteger(type, text), ELintFault::NoValue);
    case Typinfo::tkChar:
        return FaultIf(CharCodeOf(text) > type.MaxValue, ELintFault::NoValue);
    case Typinfo::tkEnumeration:
        return FaultIf(
            std::ranges::none_of(type.EnumNames,
                                 [&](const UnicodeString& name) { return name.CompareIC(text) == 0; }),
            ELintFault::NoName);
    case Typinfo::tkFloat:
        return FaultIf(!IsFloat(type, text), ELintFault::NoValue);
    case Typinfo::tkString:
    case Typinfo::tkLString:
    case Typinfo::tkWString:
    case Typinfo::tkUString:
        return std::nullopt;
    case Typinfo::tkClass:
        return FaultIf(!IsLines(type) && !text.IsEmpty(), ELintFault::NotWritable);
    default:
        // A snapshot has these without a text.
        return FaultIf(!text.IsEmpty(), ELintFault::NotWritable);
    }
}

bool IsWritten(const TPropInfo& info)
{
    return info.CanWrite() || info.getKind() == Typinfo::tkClass;
}

CFault FaultOfProperty(const System::TMetaClass* type, const UnicodeString& name, const UnicodeString& value)
{
    const TPropInfo* const info = Typinfo::GetPropInfo(type, name);
    if (info == nullptr) {
        return ELintFault::NoProperty;
    }
    return IsWritten(*info) ? FaultOfValue(*info, value) : ELintFault::NotWritable;
}

CFault FaultOfItems(const TCollection& collection, const UnicodeString& name, const UnicodeString& text)
{
    BTL::CStringList values;
    values.setCommaText(WithoutBrackets(text));
    for (const UnicodeString& value : values) {
        if (const CFault fault = FaultOfProperty(collection.getItemClass(), name, value); fault) {
            return fault;
        }
    }
    if (values.empty()) {
        return FaultIf(!Typinfo::IsPublishedProp(collection.getItemClass(), name), ELintFault::NoProperty);
    }
    return FaultIf(values.GetCount() != collection.GetCount(), ELintFault::OtherCount);
}

CFault FaultOf(const CProperty& property, TObject* root)
{
    const BTL::CStringList names = NamesOfPath(property.getName());
    TObject* object = root;
    for (int i = 0; i < names.GetCount() - 1; ++i) {
        const TPropInfo* const info = Typinfo::GetPropInfo(object, names[i]);
        if (info == nullptr || info->getKind() != Typinfo::tkClass || !info->CanRead()) {
            return ELintFault::NoProperty;
        }
        object = Typinfo::GetObjectProp(object, info);
        if (object == nullptr) {
            return ELintFault::NoObject;
        }
    }
    const UnicodeString last = names.empty() ? UnicodeString() : names[names.GetCount() - 1];
    const auto* const collection = object == root ? nullptr : dynamic_cast<TCollection*>(object);
    return collection == nullptr ? FaultOfProperty(object->ClassType(), last, property.getValue())
                                 : FaultOfItems(*collection, last, property.getValue());
}

/// The components and menu items that the objects of a document are applied to.
class CTargets
{
public:
    CTargets(const ADocument& document, TComponent* form)
    {
        if (form != nullptr) {
            AddComponents(*form);
        }
        const auto* const menuDocument = dynamic_cast<const CMenuDoc*>(&document);
        if (menuDocument != nullptr && menuDocument->getMenu() != nullptr) {
            AddItems(*menuDocument->getMenu()->getItems());
        } else {
            AddItems(BTL::CComponents(form));
        }
    }

    TComponent* Find(const CObject& object) const
    {
        const bool isItem = dynamic_cast<const CMenuItem*>(&object) != nullptr;
        const auto& targets = isItem ? mItems : mComponents;
        const auto found = targets.find(object.getName());
        return found == targets.end() ? nullptr : found->second;
    }

private:
    using CByName = std::map<UnicodeString, TComponent*>;

    void AddComponents(TComponent& form)
    {
        mComponents.emplace(form.getName(), &form);
        for (TComponent* const component :
             BTL::CComponents(&form, System::ClassOf<Controls::TWinControl>())) {
            mComponents.emplace(GetComponentName(component), component);
        }
    }

    void AddItems(const TMenuItem& parent)
    {
        for (int i = 0; i < parent.GetCount(); ++i) {
            TMenuItem* const item = parent.GetItem(i);
            mItems.emplace(item->getName(), item);
            AddItems(*item);
        }
    }

    void AddItems(const BTL::CComponents& components)
    {
        for (TComponent* const component : components) {
            if (dynamic_cast<TMenuItem*>(component) != nullptr) {
                mItems.emplace(component->getName(), component);
            }
        }
    }

    CByName mComponents;
    CByName mItems;
};

/// Gathers what doesn't fit.
class CLinter
{
public:
    explicit CLinter(const CTargets& targets) : mTargets(targets) {}

    void Check(const CObject& object)
    {
        TComponent* const target = mTargets.Find(object);
        if (target == nullptr) {
            if (!IsInfo(object)) {
                mFindings.push_back({object.getName(), {}, {}, ELintFault::NoComponent});
            }
            return;
        }
        if (const auto* const item = dynamic_cast<const CMenuItem*>(&object); item != nullptr) {
            CheckItem(*item);
        }
        for (const CProperty& property : object.getProperties()) {
            Note(object, property, FaultOf(property, target));
        }
    }

    std::vector<TLintFinding> TakeFindings() { return std::move(mFindings); }

private:
    /// A menu document has the keys of what its file keeps of itself as objects too.
    static bool IsInfo(const CObject& object)
    {
        const auto isName = [&](const char16_t* key) { return object.getName() == key; };
        return dynamic_cast<const CMenuItem*>(&object) != nullptr && std::ranges::any_of(InfoKeys, isName);
    }

    void CheckItem(const CMenuItem& item)
    {
        const UnicodeString& shortCut = item.getShortCut();
        const bool isShortCut =
            shortCut.IsEmpty() || shortCut == u"-" || Menus::TextToShortCut(shortCut) != Classes::scNone;
        Note(item, {u"Caption", item.getCaption()},
             FaultIf(item.getCaption().IsEmpty(), ELintFault::NoValue));
        Note(item, {u"ShortCut", shortCut}, FaultIf(!isShortCut, ELintFault::NoValue));
    }

    void Note(const CObject& object, const CProperty& property, const CFault& fault)
    {
        if (fault) {
            mFindings.push_back({object.getName(), property.getName(), property.getValue(), *fault});
        }
    }

    const CTargets& mTargets;
    std::vector<TLintFinding> mFindings;
};

} // namespace

std::vector<TLintFinding> Lint(const ADocument& document, TComponent* form)
{
    if (form == nullptr) {
        UTL::THROW_XAssert(NoForm);
    }
    const CTargets targets(document, form);
    CLinter linter(targets);
    for (const auto& object : document.getObjects()) {
        linter.Check(*object.get());
    }
    return linter.TakeFindings();
}

} // namespace PROP
