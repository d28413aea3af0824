// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/lists/Stdctrls_ComboBox.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Update.h"
#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/controls/Controls_WindowActs.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/graphics/Graphics_DrawText.h"
#include "platform/visual/stdctrls/lists/internal/Stdctrls_ListItems.h"
#include "platform/visual/stdctrls/lists/internal/Stdctrls_TypeAhead.h"

#include <algorithm>
#include <utility>

// What a combo box has, and what it looks like.

namespace Stdctrls
{

using Classes::TComponentWatch;
using System::TObject;
using System::UnicodeString;
using Types::TRect;

System::TMetaClass* TCustomComboBox::ClassRecord()
{
    static System::TMetaClass* const record =
        System::GClassBuilder<TCustomComboBox>(u"TCustomComboBox").Build();
    return record;
}

TCustomComboBox::TCustomComboBox(Classes::TComponent* owner)
    : TCustomListControl(owner),
      mItems(std::make_unique<CListItems>()),
      mTyped(std::make_unique<CTypeAhead>())
{
    setControlStyle({Controls::csCaptureMouse, Controls::csSetCaption, Controls::csDoubleClicks,
                     Controls::csFixedHeight});
    setParentColor(false);
    setTabStop(true);
    SetBounds(0, 0, 145, 21);
    mItems->setOnChange({this, &TCustomComboBox::ItemsChanged});
}

TCustomComboBox::~TCustomComboBox()
{
    Destroying();
    mItems->setOnChange({});
    // It may look at the items as long as it is there.
    DestroyWnd();
}

Classes::TStrings* TCustomComboBox::getItems() const noexcept
{
    return mItems.get();
}

void TCustomComboBox::setItems(Classes::TStrings* items)
{
    mItems->Assign(items);
}

int TCustomComboBox::GetCount() const
{
    return mItems->getCount();
}

UnicodeString TCustomComboBox::GetItemText(int index) const
{
    return mItems->At(index);
}

void TCustomComboBox::setSorted(bool isSorted)
{
    if (isSorted != mSorted) {
        mSorted = isSorted;
        const Classes::GUpdateScope scope(*mItems);
        mItems->setSorted(isSorted);
    }
}

void TCustomComboBox::AddItem(const UnicodeString& text, TObject* object)
{
    mItems->AddObject(text, object);
}

void TCustomComboBox::Clear()
{
    mItems->Clear();
    SetText({});
}

void TCustomComboBox::CopySelection(TCustomListControl* destination)
{
    const int index = GetItemIndex();
    if (destination != nullptr && destination != this && index >= 0) {
        destination->AddItem(mItems->At(index), mItems->getObjects(index));
    }
}

void TCustomComboBox::DeleteSelected()
{
    const int index = GetItemIndex();
    if (index >= 0) {
        mItems->Delete(index);
        // The text of an item that is gone is no text of the box.
        SetItemIndex(-1);
    }
}

void TCustomComboBox::ItemsChanged(TObject*)
{
    if (IsDestroying()) {
        return;
    }
    if (GetWindow() != nullptr) {
        GetWindow()->ShowItems(*this);
        GetWindow()->SelectItem(GetItemIndex());
    }
    Invalidate();
}

int TCustomComboBox::GetItemIndex() const
{
    return mItems->getCurrent();
}

System::TObject* TCustomComboBox::GetItemObject(int index) const
{
    return mItems->getObjects(index);
}

bool TCustomComboBox::SetItemObject(int index, System::TObject* object)
{
    mItems->setObjects(index, object);
    return true;
}

void TCustomComboBox::SetItemIndex(int index)
{
    if (IsLoading() && index >= GetCount()) {
        mDesignedIndex = index;
        return;
    }
    mItems->setCurrent(index);
    const int chosen = GetItemIndex();
    if (IsEditable()) {
        PutText(chosen < 0 ? UnicodeString() : mItems->At(chosen));
    }
    if (GetWindow() != nullptr) {
        GetWindow()->SelectItem(chosen);
    }
    Invalidate();
}

void TCustomComboBox::Loaded()
{
    TCustomListControl::Loaded();
    if (const int index = std::exchange(mDesignedIndex, -1); index >= 0) {
        SetItemIndex(index);
    }
}

UnicodeString TCustomComboBox::GetText() const
{
    if (IsEditable()) {
        return mText.getText();
    }
    const int index = GetItemIndex();
    return index < 0 ? UnicodeString() : mItems->At(index);
}

void TCustomComboBox::SetText(const UnicodeString& text)
{
    if (!IsEditable()) {
        // Of several items of one text the one that is chosen stays.
        if (GetItemIndex() < 0 || GetText() != text) {
            SetItemIndex(mItems->FindText(text));
        }
        return;
    }
    const TComponentWatch watch(this);
    PutText(text);
    if (watch.IsAlive()) {
        ChooseByText();
    }
}

void TCustomComboBox::ChooseByText()
{
    mItems->setCurrent(mItems->FindExact(mText.getText()));
    if (GetWindow() != nullptr) {
        GetWindow()->SelectItem(GetItemIndex());
    }
}

void TCustomComboBox::PutText(const UnicodeString& text)
{
    if (text != mText.getText()) {
        mText.SetText(text);
        Perform(CM_TEXTCHANGED);
    }
}

void TCustomComboBox::PutSelection(int anchor, int caret)
{
    mText.Select(anchor, caret);
    TellSelection();
}

void TCustomComboBox::TellSelection()
{
    if (GetWindow() != nullptr && IsEditable()) {
        GetWindow()->SetSelection(getSelStart(), getSelLength());
    }
    Invalidate();
}

void TCustomComboBox::setSelStart(int start)
{
    PutSelection(start, start);
}

void TCustomComboBox::setSelLength(int length)
{
    const int start = getSelStart();
    PutSelection(start, start + std::clamp(length, 0, mText.Length() - start));
}

UnicodeString TCustomComboBox::getSelText() const
{
    return mText.getText().SubString(getSelStart() + 1, getSelLength());
}

void TCustomComboBox::setSelText(const UnicodeString& text)
{
    if (!IsEditable()) {
        return;
    }
    mText.Replace(getSelStart(), getSelLength(), text);
    ChooseByText();
    const TComponentWatch watch(this);
    Perform(CM_TEXTCHANGED);
    if (watch.IsAlive()) {
        TellSelection();
    }
}

void TCustomComboBox::SelectAll()
{
    PutSelection(0, mText.Length());
}

void TCustomComboBox::setMaxLength(int length)
{
    mMaxLength = std::max(length, 0);
    TellTraits();
}

void TCustomComboBox::setDropDownCount(int count)
{
    mDropDownCount = std::max(count, 1);
    TellTraits();
}

void TCustomComboBox::setStyle(TComboBoxStyle style)
{
    if (style == mStyle) {
        return;
    }
    const bool wasEditable = IsEditable();
    const UnicodeString text = GetText();
    setDroppedDown(false);
    mStyle = style;
    if (IsEditable() != wasEditable) {
        SetText(text);
        PutSelection(0, 0);
    }
    RecreateWnd();
    Invalidate();
}

int TCustomComboBox::getItemHeight() const
{
    return IsOwnerDrawn() ? mItemHeight : std::max(getCanvas()->TextHeight(u"0"), 1);
}

void TCustomComboBox::setItemHeight(int height)
{
    if (height > 0 && height != mItemHeight) {
        mItemHeight = height;
        Invalidate();
    }
}

void TCustomComboBox::CreateParams(Controls::TCreateParams& params)
{
    TCustomListControl::CreateParams(params);
    params.Kind = Toolkits::EWindowKind::ComboBox;
}

void TCustomComboBox::CreateWnd()
{
    TCustomListControl::CreateWnd();
    TellTraits();
    GetWindow()->ShowItems(*this);
    GetWindow()->SelectItem(GetItemIndex());
    if (IsEditable()) {
        GetWindow()->SetText(GetText());
    }
    TellSelection();
}

void TCustomComboBox::TellTraits()
{
    if (GetWindow() != nullptr) {
        GetWindow()->SetComboTraits(
            {.isEditable = IsEditable(), .dropDownCount = mDropDownCount, .maxLength = mMaxLength});
    }
}

void TCustomComboBox::MeasureItem(int index, int& height)
{
    if (OnMeasureItem) {
        OnMeasureItem(this, index, height);
    }
}

void TCustomComboBox::MeasureItems()
{
    const TComponentWatch watch(this);
    for (int i = 0; mStyle == csOwnerDrawVariable && i < GetCount(); ++i) {
        MeasuredHeight(*mItems, i, mItemHeight, [&](int& height) {
            MeasureItem(i, height);
            StopIfGone(watch);
        });
    }
}

int TCustomComboBox::GetItemHeight(int index) const
{
    const int measured = mStyle == csOwnerDrawVariable ? mItems->ItemAt(index).height : 0;
    return measured > 0 ? measured : mItemHeight;
}

void TCustomComboBox::DrawItem(int index, const TRect& rect, TOwnerDrawState state)
{
    if (OnDrawItem) {
        OnDrawItem(this, index, rect, state);
    } else if (HasItem(index)) {
        DrawItemText(mItems->At(index), rect);
    } else {
        getCanvas()->FillRect(rect);
    }
}

TOwnerDrawState TCustomComboBox::FieldState() const
{
    TOwnerDrawState state{odComboBoxEdit};
    return Focused() && !mIsDroppedDown ? state << odSelected << odFocused : state;
}

void TCustomComboBox::PaintItem(Toolkits::PaintDevice& device, int index, const TRect& bounds,
                                bool isChosen) const
{
    PaintAskedItem(device,
                   {index, bounds, isChosen ? TOwnerDrawState{odSelected, odFocused} : TOwnerDrawState()});
}

void TCustomComboBox::PaintField(Toolkits::PaintDevice& device, const TRect& bounds) const
{
    PaintAskedItem(device, {GetItemIndex(), bounds, FieldState()});
}

void TCustomComboBox::PaintAskedItem(Toolkits::PaintDevice& device, const TAskedItem& item) const
{
    auto& self = const_cast<TCustomComboBox&>(*this);
    self.mAskedItem = &item;
    self.PaintWindow(device);
}

void TCustomComboBox::PaintItemIn(const TAskedItem& item)
{
    Graphics::TCanvas& canvas = *getCanvas();
    TOwnerDrawState state = item.state;
    if (!getEnabled()) {
        state << odDisabled;
        canvas.getFont()->setColor(Graphics::clGrayText);
    }
    if (state.Contains(odSelected)) {
        canvas.getBrush()->setColor(Graphics::clHighlight);
        canvas.getFont()->setColor(Graphics::clHighlightText);
    }
    if (!IsOwnerDrawn()) {
        DrawItemText(mItems->At(item.index), item.bounds);
        return;
    }
    const TComponentWatch watch(this);
    DrawItem(item.index, item.bounds, state);
    if (watch.IsAlive() && state.Contains(odFocused) && canvas.HandleAllocated()) {
        canvas.DrawFocusRect(item.bounds);
    }
}

TRect TCustomComboBox::ButtonRect() const
{
    constexpr int width = 17;
    const TRect client = GetClientRect();
    if (mStyle == csSimple) {
        return {};
    }
    return UseRightToLeftAlignment() ? TRect{1, 1, width, client.Bottom - 1}
                                     : TRect{client.Right - width, 1, client.Right - 1, client.Bottom - 1};
}

void TCustomComboBox::PaintText(const TRect& rect)
{
    if (!IsEditable() && GetItemIndex() >= 0) {
        PaintItemIn({GetItemIndex(), rect, FieldState()});
        return;
    }
    TRect place{rect.Left + 2, rect.Top, rect.Right, rect.Bottom};
    Graphics::DrawText(getCanvas(), GetText(), place,
                       DrawTextBiDiModeFlags(DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX));
}

void TCustomComboBox::Paint()
{
    if (const TAskedItem* const item = std::exchange(mAskedItem, nullptr)) {
        if (HasItem(item->index)) {
            PaintItemIn(*item);
        }
        return;
    }
    if (Controls::WindowActs(*this)) {
        return;
    }
    Graphics::TCanvas& canvas = *getCanvas();
    const TRect client = GetClientRect();
    canvas.FillRect(client);
    if (!getEnabled()) {
        canvas.getFont()->setColor(Graphics::clGrayText);
    }
    const TRect button = ButtonRect();
    const bool isAtLeft = UseRightToLeftAlignment();
    const Classes::TComponentWatch watch(this);
    PaintText({isAtLeft ? button.Right + 1 : 2, 2, client.Right - 2 - (isAtLeft ? 0 : button.Width()),
               client.Bottom - 2});
    if (!watch.IsAlive()) {
        return;
    }
    canvas.getBrush()->setColor(Graphics::clWindowFrame);
    canvas.FrameRect(client);
    if (button.Width() > 0) {
        canvas.getBrush()->setColor(Graphics::clBtnFace);
        canvas.FillRect(button);
        canvas.getBrush()->setColor(Graphics::clBtnText);
        const int x = (button.Left + button.Right) / 2;
        const int y = (button.Top + button.Bottom) / 2;
        const Types::TPoint arrow[] = {{x - 3, y - 1}, {x + 3, y - 1}, {x, y + 2}};
        canvas.Polygon(arrow);
    }
}

System::TMetaClass* TComboBox::ClassRecord()
{
    using T = TComboBox;
    static System::TMetaClass* const record =
        Controls::PublishFocus(Controls::PublishColoredControl(System::GClassBuilder<T>(u"TComboBox")))
            .Property(u"AutoComplete", &T::getAutoComplete, &T::setAutoComplete, {.defaultValue = 1})
            .Property(u"AutoCompleteDelay", &T::getAutoCompleteDelay, &T::setAutoCompleteDelay,
                      {.defaultValue = 500})
            .Property(u"AutoDropDown", &T::getAutoDropDown, &T::setAutoDropDown, {.defaultValue = 0})
            .Property(u"AutoCloseUp", &T::getAutoCloseUp, &T::setAutoCloseUp, {.defaultValue = 0})
            .Property(u"Ctl3D", &T::getCtl3D, &T::setCtl3D)
            .Property(u"ParentCtl3D", &T::getParentCtl3D, &T::setParentCtl3D, {.defaultValue = 1})
            // What a design's items and text mean depends on the style, so that this comes first.
            .Property(u"Style", &T::getStyle, &T::setStyle, {.defaultValue = csDropDown})
            .Property(u"DropDownCount", &T::getDropDownCount, &T::setDropDownCount, {.defaultValue = 8})
            .Property(u"DropDownWidth", &T::getDropDownWidth, &T::setDropDownWidth, {.defaultValue = 0})
            .Property(u"ItemHeight", &T::getItemHeight, &T::setItemHeight)
            .Property(u"MaxLength", &T::getMaxLength, &T::setMaxLength, {.defaultValue = 0})
            .Property(u"Sorted", &T::getSorted, &T::setSorted, {.defaultValue = 0})
            .Property(u"Items", &T::getItems, &T::setItems)
            .Property(u"ItemIndex", &T::getItemIndex, &T::setItemIndex, {.defaultValue = -1})
            // Behind these two, which change the text where they are laid over a box.
            .Property(u"Text", &T::getText, &T::setText)
            .Property(u"OnChange", &T::OnChange)
            .Property(u"OnCloseUp", &T::OnCloseUp)
            .Property(u"OnDrawItem", &T::OnDrawItem)
            .Property(u"OnDropDown", &T::OnDropDown)
            .Property(u"OnMeasureItem", &T::OnMeasureItem)
            .Property(u"OnSelect", &T::OnSelect)
            .Build();
    return record;
}

TComboBox::~TComboBox() = default;

} // namespace Stdctrls

namespace Typinfo
{

TTypeInfo GEnumType<Stdctrls::TComboBoxStyle>::Make()
{
    return EnumType(u"TComboBoxStyle", {u"csDropDown", u"csSimple", u"csDropDownList", u"csOwnerDrawFixed",
                                        u"csOwnerDrawVariable"});
}

} // namespace Typinfo
