// SPDX-License-Identifier: MIT
#include "platform/visual/menus/Menus.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/MenuEntry.h"
#include "platform/toolkit/Toolkit.h"

#include <algorithm>
#include <deque>

namespace Menus
{

using Classes::TComponentWatch;
using System::GClassBuilder;
using System::TMetaClass;

namespace
{

/// The items of a menu that is open, by the ids that the toolkit knows them by. They may go meanwhile.
class COpenItems
{
public:
    std::vector<Toolkits::TMenuEntry> EntriesOf(const TMenuItem& parent)
    {
        std::vector<Toolkits::TMenuEntry> entries;
        for (int i = 0; i < parent.GetCount(); ++i) {
            TMenuItem* const item = parent.GetItem(i);
            if (item->getVisible()) {
                entries.push_back(EntryOf(*item));
            }
        }
        return entries;
    }

    /// Does the item that was chosen, if it is still there.
    void Click(int id) const
    {
        const auto place = static_cast<std::size_t>(id) - 1;
        if (id > 0 && place < mItems.size() && mItems[place].watch.IsAlive()) {
            mItems[place].item->Click();
        }
    }

private:
    struct TOpenItem
    {
        explicit TOpenItem(TMenuItem* opened) : item(opened), watch(opened) {}

        TMenuItem* item;
        TComponentWatch watch;
    };

    Toolkits::TMenuEntry EntryOf(TMenuItem& item)
    {
        mItems.emplace_back(&item);
        Toolkits::TMenuEntry entry;
        entry.id = static_cast<int>(mItems.size());
        entry.caption = item.getCaption();
        entry.shortCut = ShortCutToText(item.getShortCut());
        entry.isEnabled = item.getEnabled();
        entry.isChecked = item.getChecked();
        entry.isRadio = item.getRadioItem();
        entry.isDefault = item.getDefault();
        entry.entries = EntriesOf(item);
        return entry;
    }

    std::deque<TOpenItem> mItems;
};

/// Opens the menu of the items in `parent` at a place of the screen, and does what the user chose.
void OpenItemsOf(const TMenuItem& parent, Types::TPoint place)
{
    COpenItems open;
    const std::vector<Toolkits::TMenuEntry> entries = open.EntriesOf(parent);
    open.Click(Toolkits::CurrentToolkit().ShowMenu(entries, place));
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
