// SPDX-License-Identifier: MIT
#include "platform/visual/menus/Menus_MenuItem.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/MenuEntry.h"
#include "platform/visual/menus/Menus.h"

#include <algorithm>
#include <limits>
#include <string>

namespace Menus
{

using Classes::TComponentWatch;
using System::UnicodeString;

namespace
{

/// A caption without its marks of keys; a doubled mark is one character.
UnicodeString StripHotkey(const UnicodeString& caption)
{
    std::u16string text;
    const std::u16string_view view = caption.AsView();
    for (std::size_t i = 0; i < view.size(); ++i) {
        if (view[i] == cHotkeyPrefix && i + 1 < view.size()) {
            ++i;
        }
        text += view[i];
    }
    return UnicodeString(text);
}

} // namespace

EMenuError::~EMenuError() = default;

System::TMetaClass* TMenuItem::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TMenuItem>(u"TMenuItem")
            .Property(u"AutoCheck", &TMenuItem::getAutoCheck, &TMenuItem::setAutoCheck, {.defaultValue = 0})
            .Property(u"Caption", &TMenuItem::getCaption, &TMenuItem::setCaption)
            .Property(u"Checked", &TMenuItem::getChecked, &TMenuItem::setChecked, {.defaultValue = 0})
            .Property(u"Default", &TMenuItem::getDefault, &TMenuItem::setDefault, {.defaultValue = 0})
            .Property(u"Enabled", &TMenuItem::getEnabled, &TMenuItem::setEnabled, {.defaultValue = 1})
            .Property(u"GroupIndex", &TMenuItem::getGroupIndex, &TMenuItem::setGroupIndex,
                      {.defaultValue = 0})
            .Property(u"HelpContext", &TMenuItem::getHelpContext, &TMenuItem::setHelpContext,
                      {.defaultValue = 0})
            .Property(u"Hint", &TMenuItem::getHint, &TMenuItem::setHint)
            .Property(u"ImageIndex", &TMenuItem::getImageIndex, &TMenuItem::setImageIndex,
                      {.defaultValue = -1})
            .Property(u"RadioItem", &TMenuItem::getRadioItem, &TMenuItem::setRadioItem, {.defaultValue = 0})
            .Property(u"ShortCut", &TMenuItem::getShortCut, &TMenuItem::setShortCut, {.defaultValue = 0})
            .Property(u"Visible", &TMenuItem::getVisible, &TMenuItem::setVisible, {.defaultValue = 1})
            .Property(u"OnClick", &TMenuItem::OnClick)
            .Build();
    return record;
}

TMenuItem::TMenuItem(Classes::TComponent* owner) : Classes::TComponent(owner)
{
    // Numbers are given again when all of them were.
    static unsigned last = 0;
    mCommand = static_cast<int>(last++ % std::numeric_limits<int>::max()) + 1;
}

TMenuItem::~TMenuItem()
{
    Destroying();
    while (!mItems.empty()) {
        delete mItems.back();
    }
    if (mParent != nullptr) {
        std::erase(mParent->mItems, this);
        mParent->MenuChanged(); // NOLINT(clang-analyzer-optin.cplusplus.VirtualCall): of another object
    }
}

void TMenuItem::setCaption(const UnicodeString& caption)
{
    if (caption != mCaption) {
        mCaption = caption;
        MenuChanged();
    }
}

void TMenuItem::setShortCut(Classes::TShortCut shortCut)
{
    if (shortCut != mShortCut) {
        mShortCut = shortCut;
        MenuChanged();
    }
}

void TMenuItem::setVisible(bool isVisible)
{
    if (isVisible != mVisible) {
        mVisible = isVisible;
        MenuChanged();
    }
}

void TMenuItem::setEnabled(bool isEnabled)
{
    if (isEnabled != mEnabled) {
        mEnabled = isEnabled;
        MenuChanged();
    }
}

void TMenuItem::setChecked(bool isChecked)
{
    if (isChecked == mChecked) {
        return;
    }
    mChecked = isChecked;
    if (isChecked && mRadioItem) {
        UncheckNeighbours();
    }
    MenuChanged();
}

void TMenuItem::setRadioItem(bool isOn)
{
    if (isOn == mRadioItem) {
        return;
    }
    mRadioItem = isOn;
    if (mChecked && mRadioItem) {
        UncheckNeighbours();
    }
    MenuChanged();
}

void TMenuItem::setGroupIndex(System::Byte group)
{
    if (group == mGroupIndex) {
        return;
    }
    mGroupIndex = group;
    if (mChecked && mRadioItem) {
        UncheckNeighbours();
    }
}

void TMenuItem::UncheckNeighbours()
{
    if (mParent == nullptr) {
        return;
    }
    for (TMenuItem* other : mParent->mItems) {
        if (other != this && other->mRadioItem && other->mGroupIndex == mGroupIndex) {
            other->mChecked = false;
        }
    }
}

void TMenuItem::setDefault(bool isDefault)
{
    if (isDefault == mDefault) {
        return;
    }
    if (isDefault && mParent != nullptr) {
        std::ranges::for_each(mParent->mItems, [](TMenuItem* other) { other->mDefault = false; });
    }
    mDefault = isDefault;
    MenuChanged();
}

void TMenuItem::setImageIndex(int index)
{
    if (index != mImageIndex) {
        mImageIndex = index;
        MenuChanged();
    }
}

TMenuItem* TMenuItem::GetItem(int index) const
{
    if (index < 0 || index >= GetCount()) {
        throw Classes::EListError(u"There is no menu item " + UnicodeString(index));
    }
    return mItems[static_cast<std::size_t>(index)];
}

TMenu* TMenuItem::GetParentMenu() const noexcept
{
    const TMenuItem* root = this;
    while (root->mParent != nullptr) {
        root = root->mParent;
    }
    return root->mMenu;
}

TMenuItem* TMenuItem::FindCommand(int command) noexcept
{
    if (command == mCommand) {
        return this;
    }
    for (TMenuItem* const item : mItems) {
        if (TMenuItem* const found = item->FindCommand(command)) {
            return found;
        }
    }
    return nullptr;
}

std::vector<Toolkits::TMenuEntry> TMenuItem::GetEntries() const
{
    std::vector<Toolkits::TMenuEntry> entries;
    for (const TMenuItem* const item : mItems) {
        if (item->mVisible) {
            entries.push_back({.id = item->mCommand,
                               .caption = item->mCaption,
                               .shortCut = ShortCutToText(item->mShortCut),
                               .isEnabled = item->mEnabled,
                               .isChecked = item->mChecked,
                               .isRadio = item->mRadioItem,
                               .isDefault = item->mDefault,
                               .entries = item->GetEntries()});
        }
    }
    return entries;
}

int TMenuItem::getMenuIndex() const
{
    return mParent == nullptr ? -1 : mParent->IndexOf(this);
}

void TMenuItem::setMenuIndex(int index)
{
    if (mParent != nullptr) {
        mParent->SetChildOrder(this, index);
    }
}

int TMenuItem::IndexOf(const TMenuItem* item) const
{
    const auto found = std::ranges::find(mItems, item);
    return found == mItems.end() ? -1 : static_cast<int>(found - mItems.begin());
}

TMenuItem* TMenuItem::Find(const UnicodeString& caption) const
{
    const UnicodeString wanted = StripHotkey(caption);
    const auto found = std::ranges::find_if(
        mItems, [&](const TMenuItem* item) { return StripHotkey(item->mCaption).CompareIC(wanted) == 0; });
    return found == mItems.end() ? nullptr : *found;
}

void TMenuItem::Insert(int index, TMenuItem* item)
{
    if (item == nullptr || item->mParent != nullptr || item->mMenu != nullptr) {
        throw EMenuError(u"Menu inserted twice");
    }
    for (const TMenuItem* outer = this; outer != nullptr; outer = outer->mParent) {
        if (outer == item) {
            throw EMenuError(u"A menu item cannot be in itself");
        }
    }
    if (index < 0 || index > GetCount()) {
        throw EMenuError(u"Menu index out of range");
    }
    mItems.insert(mItems.begin() + index, item);
    item->mParent = this;
    if (item->mChecked && item->mRadioItem) {
        item->UncheckNeighbours();
    }
    MenuChanged();
}

void TMenuItem::Remove(TMenuItem* item)
{
    const int index = IndexOf(item);
    if (index < 0) {
        throw EMenuError(u"Sub-menu is not in menu");
    }
    Delete(index);
}

void TMenuItem::Delete(int index)
{
    if (index < 0 || index >= GetCount()) {
        throw EMenuError(u"Menu index out of range");
    }
    const auto place = mItems.begin() + index;
    (*place)->mParent = nullptr;
    mItems.erase(place);
    MenuChanged();
}

void TMenuItem::Clear()
{
    while (!mItems.empty()) {
        delete mItems.back();
    }
}

void TMenuItem::Click()
{
    if (!mEnabled) {
        return;
    }
    const TComponentWatch watch(this);
    if (mAutoCheck && !(mRadioItem && mChecked)) {
        setChecked(!mChecked);
    }
    if (watch.IsAlive() && OnClick) {
        OnClick(this);
    }
}

Classes::TComponent* TMenuItem::GetParentComponent() const
{
    // The root of a menu is no component of its own to those who read and write.
    return mParent != nullptr && mParent->mMenu != nullptr ? static_cast<Classes::TComponent*>(mParent->mMenu)
                                                           : mParent;
}

void TMenuItem::SetParentComponent(Classes::TComponent* parent)
{
    TMenuItem* target = dynamic_cast<TMenuItem*>(parent);
    if (auto* const menu = dynamic_cast<TMenu*>(parent)) {
        target = menu->getItems();
    }
    if (mParent != nullptr) {
        mParent->Remove(this);
    }
    if (target != nullptr) {
        target->Add(this);
    }
}

void TMenuItem::GetChildren(const Classes::TGetChildProc& proc, Classes::TComponent*)
{
    for (int i = 0; i < GetCount(); ++i) {
        proc(GetItem(i));
    }
}

void TMenuItem::SetChildOrder(Classes::TComponent* child, int order)
{
    const auto found = std::ranges::find(mItems, child);
    if (found == mItems.end()) {
        return;
    }
    TMenuItem* const item = *found;
    mItems.erase(found);
    mItems.insert(mItems.begin() + std::clamp(order, 0, GetCount()), item);
    MenuChanged();
}

void TMenuItem::Loaded()
{
    Classes::TComponent::Loaded();
    MenuChanged();
}

void TMenuItem::MenuChanged()
{
    TMenu* const menu = GetParentMenu();
    if (menu != nullptr && !getComponentState().Contains(Classes::csLoading)) {
        menu->Changed();
    }
}

} // namespace Menus
