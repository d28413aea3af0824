// SPDX-License-Identifier: MIT
#include "config/internal/BTL_INI_Unwritable.h"
#include "foundation/UTL_ASRT_Assert.h"
#include "platform/host/profile/Host_Profile.h"
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/menus/Menus.h"
#include "properties/documents/PROP_Document.h"
#include "properties/documents/PROP_IniFile.h"

#include <algorithm>
#include <utility>

namespace PROP
{

using Classes::TComponentWatch;
using Menus::TMenuItem;
using System::UnicodeString;

namespace
{

constexpr UTL::CFaultPlace NoMenu{"PROP_Document", 2};
constexpr UTL::CFaultPlace TakenFromMenu{"PROP_Document", 3};

/// Applies the object of the item's name, and those of the items in it.
void ApplyTo(const CObjects& objects, TMenuItem& item)
{
    // Menus tell their changes, and a handler may destroy items.
    const TComponentWatch watch(&item);
    if (const CObject* const object = objects.Find(item.getName()); object != nullptr) {
        object->ApplyProperties(&item);
    }
    for (int i = 0; watch.IsAlive() && i < item.GetCount(); ++i) {
        ApplyTo(objects, *item.GetItem(i));
    }
}

} // namespace

CMenuDoc::CMenuDoc(Menus::TMenu* menu) : ADocument(menu), mMenu(menu), mMenuName(u"MAIN_MENU_ITEMS")
{
    if (menu == nullptr) {
        UTL::THROW_XAssert(NoMenu);
    }
}

CMenuDoc::CMenuDoc(const UnicodeString& name) : ADocument(nullptr), mMenuName(name) {}

CMenuDoc::~CMenuDoc()
{
    EndChain();
}

/// One after the other: each destroys the next by itself, and a chain may be longer than the stack bears.
void CMenuDoc::EndChain() noexcept
{
    System::GOwner<CMenuDoc> next = std::exchange(mNext, nullptr);
    while (next != nullptr) {
        next = std::exchange(next->mNext, nullptr);
    }
}

CObject* CMenuDoc::NewObject(const UnicodeString& name) const
{
    return new CMenuItem(name);
}

void CMenuDoc::SetProperties(const CFilter* /*filter*/)
{
    if (mMenu == nullptr) {
        return;
    }
    getObjects().clear();
    EndChain();
    CMenuDoc* last = this;
    AddMenuItems(mMenu->getItems(), last);
}

void CMenuDoc::AddMenuItems(TMenuItem* item, CMenuDoc*& last)
{
    if (last == nullptr) {
        last = this;
    }
    for (int i = 0; item != nullptr && i < item->GetCount(); ++i) {
        TMenuItem* const child = item->GetItem(i);
        if (child->getName().IsEmpty()) {
            continue;
        }
        getObjects().AddObject(new CMenuItem(child));
        if (child->GetCount() > 0) {
            last = &last->Append(child->getName());
            last->AddMenuItems(child, last);
        }
    }
}

CMenuDoc& CMenuDoc::Append(const UnicodeString& menuName)
{
    CMenuDoc* end = this;
    while (end->mNext != nullptr) {
        end = end->mNext.get();
    }
    end->mNext = System::GOwner<CMenuDoc>(new CMenuDoc(menuName));
    return *end->mNext;
}

void CMenuDoc::ApplyProperties()
{
    if (mNext != nullptr) {
        UTL::THROW_XAssert(TakenFromMenu);
    }
    if (mMenu == nullptr) {
        return;
    }
    // Apart from this: a handler may take the objects anew, or end the document.
    CObjects objects;
    objects.Assign(getObjects());
    TMenuItem& items = *mMenu->getItems();
    const TComponentWatch watch(&items);
    for (int i = 0; watch.IsAlive() && i < std::min(items.GetCount(), objects.size()); ++i) {
        ApplyTo(objects, *items.GetItem(i));
    }
}

void CMenuDoc::ApplyMenuItem(TMenuItem* item)
{
    if (item == nullptr) {
        return;
    }
    CObjects objects;
    objects.Assign(getObjects());
    ApplyTo(objects, *item);
}

void CMenuDoc::DoWrite(const UnicodeString& fileName)
{
    // All menus come to the disk in one step.
    Host::ProfileBundle bundle(fileName);
    for (CMenuDoc* document = this; document != nullptr; document = document->mNext.get()) {
        CKeyFormatIniFile(document, fileName, document->mMenuName).Write();
    }
    if (!bundle.End()) {
        BTL::Detail::ThrowUnwritable(fileName);
    }
}

void CMenuDoc::DoRead(const UnicodeString& fileName)
{
    for (const UnicodeString& section : Host::ListProfileSections(fileName)) {
        CKeyFormatIniFile(this, fileName, section).Read();
    }
}

} // namespace PROP
