// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/forms/Forms_Types.h"
#include "platform/visual/stdctrls/lists/Stdctrls_ListControl.h"
#include "platform/visual/stdctrls/lists/Stdctrls_OwnerDraw.h"

#include <vector>

namespace Stdctrls
{

class CListItems;
class CTypeAhead;

/// How a list box has and shows its items. Those of a virtual list are asked for by `OnData`; owner-drawn
/// ones are drawn by `OnDrawItem`, all as high as `ItemHeight` or each as `OnMeasureItem` tells.
enum TListBoxStyle
{
    lbStandard,
    lbOwnerDrawFixed,
    lbOwnerDrawVariable,
    lbVirtual,
    lbVirtualOwnerDraw
};

/// The text of an item of a virtual list is asked for.
using TLBGetDataEvent =
    System::TClosure<void(Controls::TWinControl* control, int index, System::UnicodeString& data)>;
/// The object of an item of a virtual list is asked for.
using TLBGetDataObjectEvent =
    System::TClosure<void(Controls::TWinControl* control, int index, System::TObject*& object)>;
/// The first item of a virtual list that begins with a text is asked for; -1 for none.
using TLBFindDataEvent =
    System::TClosure<int(Controls::TWinControl* control, const System::UnicodeString& text)>;

/// Base of lists of texts, of which the user chooses one, or several, by mouse, keys or the first letters of
/// the text. What the user chooses calls `OnClick`, what a program chooses doesn't.
///
///     auto* const box = new Stdctrls::TListBox(form);
///     box->setParent(form);
///     box->getItems()->AddStrings({u"Channel 1", u"Channel 2"});
///     box->setItemIndex(0);
///     box->OnClick = Classes::TNotifyEvent(this, &TMainForm::ChannelChosen);
class TRS8_BTL_API TCustomListBox : public TCustomMultiSelectListControl, private Toolkits::WindowItems
{
    TRS8_BTL_CLASS(TCustomListBox, TCustomMultiSelectListControl)

public:
    explicit TCustomListBox(Classes::TComponent* owner = nullptr);
    ~TCustomListBox() override;

    // The items.

    /// The texts and their objects, which stay the program's. The box owns the list; writing copies. Without
    /// any in the virtual styles.
    Classes::TStrings* getItems() const noexcept;
    void setItems(Classes::TStrings* items);
    /// How many there are. Only a virtual list takes a number; `Classes::EInvalidOperation` otherwise.
    int getCount() const { return GetCount(); }
    void setCount(int count);
    /// The text of an item, wherever it comes from. `Classes::EListError` out of range.
    System::UnicodeString GetItemText(int index) const override;
    /// Whether they are kept in the order of their texts; off at first.
    bool getSorted() const noexcept { return mSorted; }
    void setSorted(bool isSorted);
    void AddItem(const System::UnicodeString& text, System::TObject* object) override;
    void Clear() override;

    // The choice.

    /// Whether an item is chosen. `Classes::EListError` for an index that isn't there.
    bool getSelected(int index) const;
    void setSelected(int index, bool isSelected);
    /// Of a list of several choices: whether a click chooses one item, Shift a range of them and Ctrl one
    /// more; otherwise each click turns one over. On at first.
    bool getExtendedSelect() const noexcept { return mExtendedSelect; }
    void setExtendedSelect(bool isOn);
    void ClearSelection() override;
    void CopySelection(TCustomListControl* destination) override;
    void DeleteSelected() override;
    void SelectAll() override;
    /// Whether letters that are typed choose the item that begins with all of them, as long as they follow
    /// each other within the delay; otherwise each leads to the next item that begins with it. On at first.
    bool getAutoComplete() const noexcept { return mAutoComplete; }
    void setAutoComplete(bool isOn) noexcept { mAutoComplete = isOn; }
    /// In milliseconds; 500 at first.
    unsigned getAutoCompleteDelay() const noexcept { return mAutoCompleteDelay; }
    void setAutoCompleteDelay(unsigned milliseconds) noexcept { mAutoCompleteDelay = milliseconds; }

    // What is seen.

    TListBoxStyle getStyle() const noexcept { return mStyle; }
    void setStyle(TListBoxStyle style);
    /// The first item that is seen; held within what is needed to see all.
    int getTopIndex() const;
    void setTopIndex(int index);
    /// The height of an item in pixels: what was set for owner-drawn ones, 16 at first, that of the font for
    /// others.
    int getItemHeight() const;
    void setItemHeight(int height);
    /// How many columns fill the width, to be moved sideways; 0, one column moved up and down, at first.
    int getColumns() const noexcept { return mColumns; }
    void setColumns(int columns);
    /// Whether the height is meant for whole items. It is kept, and changes nothing here.
    bool getIntegralHeight() const noexcept { return mIntegralHeight; }
    void setIntegralHeight(bool isOn) noexcept { mIntegralHeight = isOn; }
    /// How many pixels of the width can be moved to sight. If that is more than the box is wide, a bar stands
    /// below the items, unless these are drawn by the program or in columns. 0 at first, as is a negative
    /// one.
    int getScrollWidth() const noexcept { return mScrollWidth; }
    void setScrollWidth(int width);
    /// The width of a tabulator in the units of a dialog; 0, the usual one, at first.
    int getTabWidth() const noexcept { return mTabWidth; }
    void setTabWidth(int width) noexcept { mTabWidth = width; }
    /// `bsSingle`, with a frame, or `bsNone`.
    Forms::TFormBorderStyle getBorderStyle() const noexcept { return mBorderStyle; }
    void setBorderStyle(Forms::TFormBorderStyle style);
    /// The item at a place of the client area. Below the last one it is the count, or -1 if `existing`; -1
    /// outside.
    int ItemAtPos(const Types::TPoint& place, bool existing) const;
    /// Where an item is, outside of the client area for one out of sight. For the count it is where the next
    /// one would be; empty for any other index.
    Types::TRect ItemRect(int index) const;

    void Dispatch(void* message) override;
    void Loaded() override;

    TDrawItemEvent OnDrawItem;
    TMeasureItemEvent OnMeasureItem;
    TLBGetDataEvent OnData;
    TLBGetDataObjectEvent OnDataObject;
    TLBFindDataEvent OnDataFind;

protected:
    /// Draws an item of an owner-drawn list, by `OnDrawItem` if that is set: its text on the canvas's brush.
    virtual void DrawItem(int index, const Types::TRect& rect, TOwnerDrawState state);
    /// Asks `OnMeasureItem`.
    virtual void MeasureItem(int index, int& height);
    /// Draws what stands in front of an item, and gives the rest of its place.
    virtual Types::TRect DrawLead(int index, const Types::TRect& rect);
    /// Gives the canvas the colours of an item.
    virtual void SetItemColors(int index, bool isChosen);
    /// What a virtual list's events give.
    virtual System::UnicodeString DoGetData(int index) const;
    virtual System::TObject* DoGetDataObject(int index) const;
    virtual int DoFindData(const System::UnicodeString& text) const;
    /// Whether the texts come from `OnData`.
    bool IsVirtual() const noexcept { return mStyle == lbVirtual || mStyle == lbVirtualOwnerDraw; }
    bool IsOwnerDrawn() const noexcept { return mStyle != lbStandard && mStyle != lbVirtual; }
    /// The items with all that goes with them.
    CListItems& ItemList() const noexcept { return *mItems; }
    /// The kind of window that shows a list which needs no drawing of ours.
    virtual Toolkits::EWindowKind NativeKind() const { return Toolkits::EWindowKind::ListBox; }
    /// Paints one item anew.
    void InvalidateItem(int index);
    /// `Classes::EListError` unless there is such an item.
    void CheckIndex(int index) const;
    /// Brings the item to sight.
    void ShowIndex(int index);

    int GetCount() const override;
    int GetItemIndex() const override;
    void SetItemIndex(int index) override;
    System::TObject* GetItemObject(int index) const override;
    bool SetItemObject(int index, System::TObject* object) override;
    int GetSelCount() const override;
    void SetMultiSelect(bool isOn) override;
    void CreateParams(Controls::TCreateParams& params) override;
    void CreateWnd() override;
    void Paint() override;
    bool WantsKey(System::Word key, Classes::TShiftState shift) const override;
    bool ActOnKey(System::Word key, Classes::TShiftState shift) override;
    bool ActOnChar(System::WideChar character) override;
    bool MouseWheel(Classes::TShiftState shift, int delta, Types::TPoint place) override;
    void ChosenInWindow(int index) override;
    void ScrolledInWindow(int first) override { setTopIndex(first); }
    void Resize() override;

    // Of the window that shows them.

    int GetItemCount() const override { return GetCount(); }
    Toolkits::ECheck GetItemCheck(int index) const override;
    bool IsItemEnabled(int index) const override;
    bool IsItemHeader(int index) const override;
    bool IsItemChosen(int index) const override { return HasItem(index) && IsChosen(index); }
    /// How the window shows the items; a derived class adds what it knows.
    virtual Toolkits::TListTraits ListTraits() const;
    void ShowTraitsInWindow();

private:
    void ItemsChanged(System::TObject* sender);
    void TellChoice();
    /// The window has to show which of several items are chosen.
    void ShowChoiceInWindow();
    void KeepTopIndex();
    void ShowTopInWindow();
    bool IsChosen(int index) const;
    void Choose(int index, bool isChosen);
    void ChooseRange(int from, int to);
    void ChooseNone();
    void MoveCurrent(int index);
    /// The user chooses by mouse or key.
    void ChooseByUser(int index, const Classes::TShiftState& shift);
    void MouseWentDown(const Messages::TMessage& message);
    void MouseDragged(const Messages::TMessage& message);
    void MouseLetGo(void* record);
    bool MoveByKey(int index, const Classes::TShiftState& shift);
    int TargetOf(System::Word key) const;
    void TurnCurrentOver(const Classes::TShiftState& shift);
    int FindBegin(const System::UnicodeString& text, int start) const;
    int HeightOf(int index) const;
    int RowsInSight() const;
    /// What the bar below the items takes of the height.
    int BarHeight() const;
    int ItemsInSight() const;
    int ColumnWidth() const;
    bool IsNative() const;
    bool DispatchList(Messages::TMessage& message);
    void PaintItem(int index, const Types::TRect& rect);

    std::unique_ptr<CListItems> mItems;
    /// Of a virtual list.
    std::vector<bool> mVirtualSelected;
    int mVirtualCount = 0;
    int mVirtualIndex = -1;
    std::unique_ptr<CTypeAhead> mTyped;
    unsigned mAutoCompleteDelay = 500;
    int mTopIndex = 0;
    int mAnchor = 0;
    /// The item that a design chooses before it has the items.
    int mDesignedIndex = -1;
    int mItemHeight = 16;
    int mColumns = 0;
    int mScrollWidth = 0;
    int mTabWidth = 0;
    TListBoxStyle mStyle = lbStandard;
    Forms::TFormBorderStyle mBorderStyle = Forms::bsSingle;
    bool mSorted = false;
    bool mExtendedSelect = true;
    bool mAutoComplete = true;
    bool mIntegralHeight = false;
    bool mIsMouseDown = false;
};

/// What all list boxes publish beyond `PublishControl` and `PublishFocus`.
template <class T>
System::GClassBuilder<T> PublishListBox(System::GClassBuilder<T> builder)
{
    builder.Property(u"AutoComplete", &T::getAutoComplete, &T::setAutoComplete, {.defaultValue = 1})
        .Property(u"AutoCompleteDelay", &T::getAutoCompleteDelay, &T::setAutoCompleteDelay,
                  {.defaultValue = 500})
        .Property(u"BorderStyle", &T::getBorderStyle, &T::setBorderStyle, {.defaultValue = Forms::bsSingle})
        .Property(u"Columns", &T::getColumns, &T::setColumns, {.defaultValue = 0})
        .Property(u"Ctl3D", &T::getCtl3D, &T::setCtl3D)
        .Property(u"IntegralHeight", &T::getIntegralHeight, &T::setIntegralHeight, {.defaultValue = 0})
        .Property(u"ItemHeight", &T::getItemHeight, &T::setItemHeight)
        .Property(u"ParentCtl3D", &T::getParentCtl3D, &T::setParentCtl3D, {.defaultValue = 1})
        .Property(u"ScrollWidth", &T::getScrollWidth, &T::setScrollWidth, {.defaultValue = 0})
        .Property(u"Sorted", &T::getSorted, &T::setSorted, {.defaultValue = 0})
        .Property(u"Style", &T::getStyle, &T::setStyle, {.defaultValue = lbStandard})
        .Property(u"TabWidth", &T::getTabWidth, &T::setTabWidth, {.defaultValue = 0})
        .Property(u"Items", &T::getItems, &T::setItems)
        .Property(u"ItemIndex", &T::getItemIndex, &T::setItemIndex, {.defaultValue = -1})
        .Property(u"OnData", &T::OnData)
        .Property(u"OnDataFind", &T::OnDataFind)
        .Property(u"OnDataObject", &T::OnDataObject)
        .Property(u"OnDrawItem", &T::OnDrawItem)
        .Property(u"OnMeasureItem", &T::OnMeasureItem);
    return builder;
}

/// A list of texts.
class TRS8_BTL_API TListBox : public TCustomListBox
{
    TRS8_BTL_CLASS(TListBox, TCustomListBox)

public:
    explicit TListBox(Classes::TComponent* owner = nullptr) : TCustomListBox(owner) {}
    ~TListBox() override;
};

} // namespace Stdctrls

/// The styles of a list box by their names.
template <>
struct TRS8_BTL_API Typinfo::GEnumType<Stdctrls::TListBoxStyle>
{
    static TTypeInfo Make();
};
