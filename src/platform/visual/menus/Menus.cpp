// SPDX-License-Identifier: MIT
#include "platform/visual/menus/Menus.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/MenuEntry.h"
#include "platform/toolkit/Toolkit.h"

namespace Menus
{

using Classes::TComponentWatch;
using System::GClassBuilder;
using System::TMetaClass;

namespace
{

/// Opens the menu of the items in `parent` at a place of the screen, and does what the user chose if that is
/// still there.
void OpenItemsOf(TMenuItem& parent, Types::TPoint place)
{
    const TComponentWatch watch(&parent);
    const int command = Toolkits::CurrentToolkit().ShowMenu(parent.GetEntries(), place);
    TMenuItem* const item = watch.IsAlive() && command > 0 ? parent.FindCommand(command) : nullptr;
    if (item != nullptr) {
        item->Click();
    }
}

} // namespace

TMetaClass* TMenu::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TMenu>(u"TMenu").Build();
    return record;
}

TMenu::TMenu(Classes::TComponent* owner) : Classes::TComponent(owner), mItems(std::make_unique<TMenuItem>())
{
    mItems->mMenu = this;
}

TMenu::~TMenu()
{
    Destroying();
    mItems->mMenu = nullptr;
    mItems.reset();
}

TMenuItem* TMenu::FindShortCut(Classes::TShortCut shortCut) const
{
    std::vector<TMenuItem*> waiting{mItems.get()};
    while (!waiting.empty() && shortCut != Classes::scNone) {
        TMenuItem* const item = waiting.back();
        waiting.pop_back();
        if (item->getShortCut() == shortCut) {
            return item;
        }
        for (int i = item->GetCount(); i > 0; --i) {
            waiting.push_back(item->GetItem(i - 1));
        }
    }
    return nullptr;
}

bool TMenu::DispatchShortCut(Classes::TShortCut shortCut)
{
    TMenuItem* const item = FindShortCut(shortCut);
    for (const TMenuItem* outer = item; outer != nullptr; outer = outer->getParent()) {
        if (!outer->getEnabled()) {
            return false;
        }
    }
    if (item != nullptr) {
        item->Click();
    }
    return item != nullptr;
}

void TMenu::Changed()
{
    if (OnChange && !getComponentState().Contains(Classes::csDestroying)) {
        OnChange(this);
    }
}

void TMainMenu::Changed()
{
    const TComponentWatch watch(this);
    TMenu::Changed();
    if (watch.IsAlive() && mViewer) {
        mViewer();
    }
}

void TMenu::GetChildren(const Classes::TGetChildProc& proc, Classes::TComponent* root)
{
    mItems->GetChildren(proc, root);
}

void TMenu::SetChildOrder(Classes::TComponent* child, int order)
{
    mItems->SetChildOrder(child, order);
}

TMetaClass* TMainMenu::ClassRecord()
{
    static TMetaClass* const record =
        GClassBuilder<TMainMenu>(u"TMainMenu").Property(u"OnChange", &TMainMenu::OnChange).Build();
    return record;
}

TMainMenu::~TMainMenu() = default;

void TMainMenu::OpenItem(TMenuItem* item, int x, int y)
{
    if (!item->getEnabled()) {
        return;
    }
    const TComponentWatch watch(item);
    item->Click();
    if (watch.IsAlive() && item->GetCount() > 0) {
        OpenItemsOf(*item, {x, y});
    }
}

TMetaClass* TPopupMenu::ClassRecord()
{
    static TMetaClass* const record =
        GClassBuilder<TPopupMenu>(u"TPopupMenu")
            .Property(u"AutoPopup", &TPopupMenu::getAutoPopup, &TPopupMenu::setAutoPopup, {.defaultValue = 1})
            .Property(u"OnChange", &TPopupMenu::OnChange)
            .Property(u"OnPopup", &TPopupMenu::OnPopup)
            .Build();
    return record;
}

TPopupMenu::~TPopupMenu() = default;

void TPopupMenu::Popup(int x, int y)
{
    const TComponentWatch watch(this);
    if (OnPopup) {
        OnPopup(this);
    }
    if (watch.IsAlive()) {
        OpenItemsOf(*getItems(), {x, y});
    }
}

} // namespace Menus
