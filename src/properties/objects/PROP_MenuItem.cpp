// SPDX-License-Identifier: MIT
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/visual/menus/Menus_MenuItem.h"
#include "properties/objects/PROP_Object.h"

namespace PROP
{

using Classes::TStrings;
using System::TObject;
using System::UnicodeString;

namespace
{

constexpr UTL::CFaultPlace NoMenuItem{"PROP_Object", 2};
constexpr UTL::CFaultPlace NoCaption{"PROP_Object", 3};

/// In place of a shortcut: the one that the item has.
constexpr const char16_t* KeptShortCut = u"-";

UnicodeString TakeLine(TStrings& strings, int index)
{
    UnicodeString line = strings.getStrings(index);
    strings.Delete(index);
    return line;
}

UnicodeString ShortCutText(Classes::TShortCut shortCut)
{
    UnicodeString text = Menus::ShortCutToText(shortCut);
    return text.IsEmpty() && shortCut != Classes::scNone ? UnicodeString(KeptShortCut) : text;
}

void ApplyShortCut(Menus::TMenuItem& item, const UnicodeString& text)
{
    if (text == KeptShortCut) {
        return;
    }
    const Classes::TShortCut shortCut = text.IsEmpty() ? Classes::scNone : Menus::TextToShortCut(text);
    if (text.IsEmpty() || shortCut != Classes::scNone) {
        item.setShortCut(shortCut);
    }
}

} // namespace

ACaptionProp::ACaptionProp(const UnicodeString& name) : CObject(name) {}

ACaptionProp::ACaptionProp(const UnicodeString& name, const UnicodeString& propString) : CObject(name)
{
    SetProperties(propString);
}

ACaptionProp::~ACaptionProp() noexcept(false) = default;

void ACaptionProp::AddProperty(const UnicodeString& name, const UnicodeString& value)
{
    if (name == u"Caption") {
        mCaption = value;
    } else {
        CObject::AddProperty(name, value);
    }
}

void ACaptionProp::AddProperties(TStrings* strings)
{
    if (strings != nullptr && !strings->empty()) {
        mCaption = TakeLine(*strings, 0);
    }
    CObject::AddProperties(strings);
}

UnicodeString ACaptionProp::GetPropString() const
{
    const UnicodeString quoted = u"\"" + mCaption + u"\"";
    return getProperties().empty() ? quoted : quoted + u"," + CObject::GetPropString();
}

void ACaptionProp::GetProperties(CProperties& properties) const
{
    CObject::GetProperties(properties);
    properties.AddProperty(u"Caption", mCaption);
}

CMenuItem::CMenuItem(const UnicodeString& name) : ACaptionProp(name) {}

CMenuItem::CMenuItem(const UnicodeString& name, const UnicodeString& propString) : ACaptionProp(name)
{
    SetProperties(propString);
}

CMenuItem::CMenuItem(Menus::TMenuItem* item) : ACaptionProp(UnicodeString())
{
    SetMenuItemProperties(item);
}

CMenuItem::~CMenuItem() noexcept(false) = default;

void CMenuItem::SetMenuItemProperties(Menus::TMenuItem* item)
{
    if (item == nullptr) {
        UTL::THROW_XAssert(NoMenuItem);
        return;
    }
    setName(item->getName());
    setCaption(item->getCaption());
    mShortCut = ShortCutText(item->getShortCut());
}

void CMenuItem::SetProperties(TObject* object, const CFilter* filter)
{
    if (auto* const item = dynamic_cast<Menus::TMenuItem*>(object); item != nullptr) {
        SetMenuItemProperties(item);
    }
    Properties().AddProperties(object, filter);
}

void CMenuItem::AddProperty(const UnicodeString& name, const UnicodeString& value)
{
    if (name == u"ShortCut") {
        mShortCut = value;
    } else {
        ACaptionProp::AddProperty(name, value);
    }
}

void CMenuItem::AddProperties(TStrings* strings)
{
    if (strings != nullptr && strings->size() == 2) {
        mShortCut = TakeLine(*strings, 1);
    }
    ACaptionProp::AddProperties(strings);
}

void CMenuItem::ApplyProperties(TObject* object) const
{
    if (getCaption().IsEmpty()) {
        UTL::THROW_XAssert(NoCaption);
    }
    if (auto* const item = dynamic_cast<Menus::TMenuItem*>(object); item != nullptr) {
        const Classes::TComponentWatch watch(item);
        item->setCaption(getCaption());
        if (watch.IsAlive()) {
            ApplyShortCut(*item, mShortCut);
        }
        if (!watch.IsAlive()) {
            return;
        }
    }
    ACaptionProp::ApplyProperties(object);
}

UnicodeString CMenuItem::GetPropString() const
{
    const UnicodeString text = ACaptionProp::GetPropString();
    return mShortCut.IsEmpty() ? text : text + u",\"" + mShortCut + u"\"";
}

void CMenuItem::GetProperties(CProperties& properties) const
{
    ACaptionProp::GetProperties(properties);
    properties.AddProperty(u"ShortCut", mShortCut);
}

} // namespace PROP
