// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/Types.h"
#include "platform/visual/menus/Menus_MenuItem.h"

#include <memory>

namespace Menus
{

/// Base of menus: the tree of items, which the menu owns but for those that belong to a form.
class TRS8_BTL_API TMenu : public Classes::TComponent
{
    TRS8_BTL_CLASS(TMenu, Classes::TComponent)

public:
    explicit TMenu(Classes::TComponent* owner = nullptr);
    ~TMenu() override;

    /// The root of the items; the menu's own.
    TMenuItem* getItems() const noexcept { return mItems.get(); }
    /// Does the item of that shortcut, if it and all that it is in are enabled; false if there is none.
    bool DispatchShortCut(Classes::TShortCut shortCut);
    /// The first item with that shortcut, whether it can be used or not; null if there is none.
    TMenuItem* FindShortCut(Classes::TShortCut shortCut) const;

    /// Called after each change of an item.
    Classes::TNotifyEvent OnChange;

protected:
    void GetChildren(const Classes::TGetChildProc& proc, Classes::TComponent* root) override;
    void SetChildOrder(Classes::TComponent* child, int order) override;

    /// An item changed.
    virtual void Changed();

private:
    friend class TMenuItem;

    std::unique_ptr<TMenuItem> mItems;
};

/// The menu along the upper edge of a form.
class TRS8_BTL_API TMainMenu : public TMenu
{
    TRS8_BTL_CLASS(TMainMenu, TMenu)

public:
    explicit TMainMenu(Classes::TComponent* owner = nullptr) : TMenu(owner) {}
    ~TMainMenu() override;

    /// Clicks on an item of this menu, which may prepare what is in it, and opens that at a place of the
    /// screen. Nothing happens for an item that is disabled.
    void OpenItem(TMenuItem* item, int x, int y);
    /// Whom the menu tells of each change: the form that shows it.
    void setViewer(System::TClosure<void()> viewer) { mViewer = std::move(viewer); }

protected:
    void Changed() override;

private:
    System::TClosure<void()> mViewer;
};

/// A menu that opens at a place of the screen, as by the right button of the mouse.
///
///     fMenu->OnPopup = Classes::TNotifyEvent(this, &TMainForm::PrepareMenu);
///     fMenu->Popup(100, 100);                                     // until the user chose or left it
class TRS8_BTL_API TPopupMenu : public TMenu
{
    TRS8_BTL_CLASS(TPopupMenu, TMenu)

public:
    explicit TPopupMenu(Classes::TComponent* owner = nullptr) : TMenu(owner) {}
    ~TPopupMenu() override;

    /// Whether the right button of the mouse opens it; on at first.
    bool getAutoPopup() const noexcept { return mAutoPopup; }
    void setAutoPopup(bool isOn) noexcept { mAutoPopup = isOn; }
    /// Opens the menu at a place of the screen and does what the user chose.
    virtual void Popup(int x, int y);
    /// The control that it was opened for; null if none. It isn't told of that control's end.
    Classes::TComponent* getPopupComponent() const noexcept { return mPopupComponent; }
    void setPopupComponent(Classes::TComponent* component) noexcept { mPopupComponent = component; }

    Classes::TNotifyEvent OnPopup;

private:
    Classes::TComponent* mPopupComponent = nullptr;
    bool mAutoPopup = true;
};

} // namespace Menus
