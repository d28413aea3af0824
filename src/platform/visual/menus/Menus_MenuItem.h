// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Component.h"
#include "platform/visual/menus/Menus_ShortCut.h"

#include <vector>

namespace Toolkits
{
struct TMenuEntry;
} // namespace Toolkits

namespace Menus
{

class TMenu;
class TMenuItem;

/// A character that in an item's caption marks the next one as its key, and the caption of a line between
/// items.
inline constexpr System::WideChar cHotkeyPrefix = u'&';
inline constexpr System::WideChar cLineCaption = u'-';

/// An item that is about to be added or taken away can't be: it is in a menu already, or isn't in this one.
class TRS8_BTL_API EMenuError : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EMenuError() override;
};

/// An item of a menu, and the menu that opens from it. It destroys its items with itself, and leaves its
/// parent when it is destroyed first.
///
///     auto* const save = new Menus::TMenuItem(form);
///     save->setCaption(u"&Save");
///     save->setShortCut(Menus::TextToShortCut(u"Ctrl+S"));
///     save->OnClick = Classes::TNotifyEvent(this, &TMainForm::SaveClick);
///     mainMenu->getItems()->Add(save);
class TRS8_BTL_API TMenuItem : public Classes::TComponent
{
    TRS8_BTL_CLASS(TMenuItem, Classes::TComponent)

public:
    explicit TMenuItem(Classes::TComponent* owner = nullptr);
    ~TMenuItem() override;

    /// What the item shows; "-" is a line.
    const System::UnicodeString& getCaption() const noexcept { return mCaption; }
    void setCaption(const System::UnicodeString& caption);
    /// The key that does what a click does; none at first.
    Classes::TShortCut getShortCut() const noexcept { return mShortCut; }
    void setShortCut(Classes::TShortCut shortCut);
    bool getVisible() const noexcept { return mVisible; }
    void setVisible(bool isVisible);
    bool getEnabled() const noexcept { return mEnabled; }
    void setEnabled(bool isEnabled);
    /// Checking a radio item takes the mark from its neighbours of the same group.
    bool getChecked() const noexcept { return mChecked; }
    void setChecked(bool isChecked);
    /// Whether a click turns `Checked` over first; off at first.
    bool getAutoCheck() const noexcept { return mAutoCheck; }
    void setAutoCheck(bool isOn) noexcept { mAutoCheck = isOn; }
    bool getRadioItem() const noexcept { return mRadioItem; }
    void setRadioItem(bool isOn);
    System::Byte getGroupIndex() const noexcept { return mGroupIndex; }
    void setGroupIndex(System::Byte group);
    /// Whether the item is the one that a double click on its parent does. It takes that from its neighbours.
    bool getDefault() const noexcept { return mDefault; }
    void setDefault(bool isDefault);
    const System::UnicodeString& getHint() const noexcept { return mHint; }
    void setHint(const System::UnicodeString& hint) { mHint = hint; }
    int getHelpContext() const noexcept { return mHelpContext; }
    void setHelpContext(int context) noexcept { mHelpContext = context; }
    int getImageIndex() const noexcept { return mImageIndex; }
    void setImageIndex(int index);

    /// The number by which windows know the item: above 0, and no other item's.
    int getCommand() const noexcept { return mCommand; }
    /// The item of that command, this one or one in it, however deep; null if there is none.
    TMenuItem* FindCommand(int command) noexcept;
    /// What windows show of the items in here.
    std::vector<Toolkits::TMenuEntry> GetEntries() const;

    /// Whether it is a line between items.
    bool IsLine() const { return mCaption == System::UnicodeString(cLineCaption); }
    /// The items in it; `Classes::EListError` for an index out of range.
    int GetCount() const noexcept { return static_cast<int>(mItems.size()); }
    TMenuItem* GetItem(int index) const;
    /// The item that this one is in; null if none.
    TMenuItem* getParent() const noexcept { return mParent; }
    /// The menu that it is in, however deep; null if none.
    TMenu* GetParentMenu() const noexcept;
    /// The place in the parent; -1 without one.
    int getMenuIndex() const;
    void setMenuIndex(int index);
    /// The place of `item` in here; -1 if it isn't.
    int IndexOf(const TMenuItem* item) const;
    /// The item with that caption, case and marks of keys aside; null if there is none.
    TMenuItem* Find(const System::UnicodeString& caption) const;

    /// Adds the item at the end, or at a place from 0 to the count. `EMenuError` if it is in a menu already,
    /// or would be in itself.
    void Add(TMenuItem* item) { Insert(GetCount(), item); }
    void Insert(int index, TMenuItem* item);
    /// Takes the item out; it isn't destroyed. `EMenuError` if it isn't in here, or the index is out of
    /// range.
    void Remove(TMenuItem* item);
    void Delete(int index);
    /// Destroys all items.
    void Clear();

    /// Does what the user's click does, if the item is enabled.
    virtual void Click();

    bool HasParent() const override { return mParent != nullptr || mMenu != nullptr; }
    Classes::TComponent* GetParentComponent() const override;
    void Loaded() override;

    Classes::TNotifyEvent OnClick;

protected:
    void GetChildren(const Classes::TGetChildProc& proc, Classes::TComponent* root) override;
    void SetChildOrder(Classes::TComponent* child, int order) override;
    void SetParentComponent(Classes::TComponent* parent) override;
    /// Tells the menu that it has to be shown anew.
    virtual void MenuChanged();

private:
    friend class TMenu;

    void UncheckNeighbours();

    System::UnicodeString mCaption;
    System::UnicodeString mHint;
    std::vector<TMenuItem*> mItems;
    TMenuItem* mParent = nullptr;
    /// Of the root of a menu alone.
    TMenu* mMenu = nullptr;
    int mHelpContext = 0;
    int mImageIndex = -1;
    int mCommand;
    Classes::TShortCut mShortCut = Classes::scNone;
    System::Byte mGroupIndex = 0;
    bool mVisible = true;
    bool mEnabled = true;
    bool mChecked = false;
    bool mAutoCheck = false;
    bool mRadioItem = false;
    bool mDefault = false;
};

} // namespace Menus
