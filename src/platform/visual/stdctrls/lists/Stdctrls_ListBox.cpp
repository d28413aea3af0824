// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/lists/Stdctrls_ListBox.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/classes/Classes_Update.h"
#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/stdctrls/lists/internal/Stdctrls_ListItems.h"
#include "platform/visual/stdctrls/lists/internal/Stdctrls_TypeAhead.h"

#include <algorithm>
#include <utility>

// What a list box has, and what of it is chosen.

namespace Stdctrls
{

using Classes::TComponentWatch;
using System::TObject;
using System::UnicodeString;

System::TMetaClass* TCustomListBox::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCustomListBox>(u"TCustomListBox").Build();
    return record;
}

TCustomListBox::TCustomListBox(Classes::TComponent* owner)
    : TCustomMultiSelectListControl(owner),
      mItems(std::make_unique<CListItems>()),
      mTyped(std::make_unique<CTypeAhead>())
{
    setControlStyle(
        {Controls::csCaptureMouse, Controls::csSetCaption, Controls::csDoubleClicks, Controls::csOpaque});
    setParentColor(false);
    setTabStop(true);
    SetBounds(0, 0, 121, 97);
    mItems->setOnChange({this, &TCustomListBox::ItemsChanged});
}

TCustomListBox::~TCustomListBox()
{
    Destroying();
    mItems->setOnChange({});
    // It may look at the items as long as it is there.
    DestroyWnd();
}

Classes::TStrings* TCustomListBox::getItems() const noexcept
{
    return mItems.get();
}

void TCustomListBox::setItems(Classes::TStrings* items)
{
    mItems->Assign(items);
}

int TCustomListBox::GetCount() const
{
    return IsVirtual() ? mVirtualCount : mItems->getCount();
}

void TCustomListBox::setCount(int count)
{
    if (!IsVirtual()) {
        throw Classes::EInvalidOperation(u"The count of a list box is set in a virtual style only");
    }
    mVirtualCount = std::max(count, 0);
    mVirtualSelected.resize(getMultiSelect() ? static_cast<std::size_t>(mVirtualCount) : 0);
    if (mVirtualIndex >= mVirtualCount) {
        mVirtualIndex = -1;
    }
    ItemsChanged(nullptr);
}

void TCustomListBox::CheckIndex(int index) const
{
    if (index < 0 || index >= GetCount()) {
        throw Classes::EListError(u"List index out of bounds (" + UnicodeString(index) + u")");
    }
}

UnicodeString TCustomListBox::GetItemText(int index) const
{
    CheckIndex(index);
    return IsVirtual() ? DoGetData(index) : mItems->At(index);
}

TObject* TCustomListBox::GetItemObject(int index) const
{
    return IsVirtual() ? DoGetDataObject(index) : mItems->getObjects(index);
}

bool TCustomListBox::SetItemObject(int index, TObject* object)
{
    if (IsVirtual()) {
        return false;
    }
    mItems->setObjects(index, object);
    return true;
}

UnicodeString TCustomListBox::DoGetData(int index) const
{
    UnicodeString data;
    if (OnData) {
        const TComponentWatch watch(this);
        OnData(const_cast<TCustomListBox*>(this), index, data);
        StopIfGone(watch);
    }
    return data;
}

TObject* TCustomListBox::DoGetDataObject(int index) const
{
    TObject* object = nullptr;
    if (OnDataObject) {
        const TComponentWatch watch(this);
        OnDataObject(const_cast<TCustomListBox*>(this), index, object);
        StopIfGone(watch);
    }
    return object;
}

int TCustomListBox::DoFindData(const UnicodeString& text) const
{
    if (!OnDataFind) {
        return -1;
    }
    const TComponentWatch watch(this);
    const int index = OnDataFind(const_cast<TCustomListBox*>(this), text);
    StopIfGone(watch);
    return index;
}

void TCustomListBox::setSorted(bool isSorted)
{
    if (isSorted == mSorted) {
        return;
    }
    mSorted = isSorted;
    const Classes::GUpdateScope scope(*mItems);
    mItems->setSorted(isSorted);
}

void TCustomListBox::AddItem(const UnicodeString& text, TObject* object)
{
    mItems->AddObject(text, object);
}

void TCustomListBox::Clear()
{
    if (IsVirtual()) {
        setCount(0);
    } else {
        mItems->Clear();
    }
}

void TCustomListBox::ItemsChanged(TObject*)
{
    if (IsDestroying()) {
        return;
    }
    KeepTopIndex();
    if (GetWindow() != nullptr) {
        GetWindow()->ShowItems(*this);
        GetWindow()->SetTopItem(mTopIndex);
        GetWindow()->SelectItem(GetItemIndex());
    }
    ShowChoiceInWindow();
}

int TCustomListBox::GetItemIndex() const
{
    return IsVirtual() ? mVirtualIndex : mItems->getCurrent();
}

void TCustomListBox::MoveCurrent(int index)
{
    if (!IsVirtual()) {
        mItems->setCurrent(index);
        return;
    }
    mVirtualIndex = index >= 0 && index < mVirtualCount ? index : -1;
}

void TCustomListBox::SetItemIndex(int index)
{
    if (IsLoading() && index >= GetCount()) {
        mDesignedIndex = index;
        return;
    }
    MoveCurrent(index);
    TellChoice();
}

void TCustomListBox::Loaded()
{
    TCustomMultiSelectListControl::Loaded();
    if (const int index = std::exchange(mDesignedIndex, -1); index >= 0) {
        SetItemIndex(index);
    }
}

void TCustomListBox::TellChoice()
{
    const int index = GetItemIndex();
    if (index >= 0) {
        ShowIndex(index);
    }
    if (GetWindow() != nullptr) {
        GetWindow()->SelectItem(index);
    }
    ShowChoiceInWindow();
}

void TCustomListBox::ShowChoiceInWindow()
{
    if (getMultiSelect() && GetWindow() != nullptr) {
        GetWindow()->ShowChoice();
    }
    Invalidate();
}

bool TCustomListBox::IsChosen(int index) const
{
    if (!getMultiSelect()) {
        return index == GetItemIndex();
    }
    return IsVirtual() ? mVirtualSelected[static_cast<std::size_t>(index)] : mItems->ItemAt(index).isSelected;
}

void TCustomListBox::Choose(int index, bool isChosen)
{
    if (IsVirtual()) {
        mVirtualSelected[static_cast<std::size_t>(index)] = isChosen;
    } else {
        mItems->ItemAt(index).isSelected = isChosen;
    }
}

void TCustomListBox::ChooseRange(int from, int to)
{
    const auto [first, last] = std::minmax(from, to);
    for (int i = first; i <= last; ++i) {
        Choose(i, true);
    }
}

void TCustomListBox::ChooseNone()
{
    for (int i = 0; i < GetCount(); ++i) {
        Choose(i, false);
    }
}

bool TCustomListBox::getSelected(int index) const
{
    CheckIndex(index);
    return IsChosen(index);
}

void TCustomListBox::setSelected(int index, bool isSelected)
{
    CheckIndex(index);
    if (!getMultiSelect()) {
        SetItemIndex(isSelected ? index : -1);
        return;
    }
    Choose(index, isSelected);
    InvalidateItem(index);
}

int TCustomListBox::GetSelCount() const
{
    if (!getMultiSelect()) {
        return -1;
    }
    int count = 0;
    for (int i = 0; i < GetCount(); ++i) {
        count += IsChosen(i) ? 1 : 0;
    }
    return count;
}

void TCustomListBox::SetMultiSelect(bool isOn)
{
    if (isOn == getMultiSelect()) {
        return;
    }
    TCustomMultiSelectListControl::SetMultiSelect(isOn);
    mVirtualSelected.assign(isOn ? static_cast<std::size_t>(mVirtualCount) : 0, false);
    if (isOn && GetItemIndex() >= 0) {
        Choose(GetItemIndex(), true);
    }
    RecreateWnd();
    Invalidate();
}

void TCustomListBox::setExtendedSelect(bool isOn)
{
    mExtendedSelect = isOn;
}

void TCustomListBox::ClearSelection()
{
    if (getMultiSelect()) {
        ChooseNone();
        ShowChoiceInWindow();
    } else {
        SetItemIndex(-1);
    }
}

void TCustomListBox::SelectAll()
{
    if (getMultiSelect() && GetCount() > 0) {
        ChooseRange(0, GetCount() - 1);
        ShowChoiceInWindow();
    }
}

void TCustomListBox::CopySelection(TCustomListControl* destination)
{
    if (destination == nullptr || destination == this) {
        return;
    }
    for (int i = 0; i < GetCount(); ++i) {
        if (IsChosen(i)) {
            destination->AddItem(GetItemText(i), GetItemObject(i));
        }
    }
}

void TCustomListBox::DeleteSelected()
{
    if (IsVirtual()) {
        return;
    }
    if (!getMultiSelect()) {
        if (GetItemIndex() >= 0) {
            mItems->Delete(GetItemIndex());
        }
        return;
    }
    const Classes::GUpdateScope scope(*mItems);
    for (int i = GetCount() - 1; i >= 0; --i) {
        if (IsChosen(i)) {
            mItems->Delete(i);
        }
    }
}

System::TMetaClass* TListBox::ClassRecord()
{
    static System::TMetaClass* const record =
        PublishListBox(Controls::PublishFocus(
                           Controls::PublishColoredControl(System::GClassBuilder<TListBox>(u"TListBox"))))
            .Property(u"ExtendedSelect", &TListBox::getExtendedSelect, &TListBox::setExtendedSelect,
                      {.defaultValue = 1})
            .Property(u"MultiSelect", &TListBox::getMultiSelect, &TListBox::setMultiSelect,
                      {.defaultValue = 0})
            .Build();
    return record;
}

TListBox::~TListBox() = default;

} // namespace Stdctrls

namespace Typinfo
{

TTypeInfo GEnumType<Stdctrls::TListBoxStyle>::Make()
{
    return EnumType(u"TListBoxStyle", {u"lbStandard", u"lbOwnerDrawFixed", u"lbOwnerDrawVariable",
                                       u"lbVirtual", u"lbVirtualOwnerDraw"});
}

} // namespace Typinfo
