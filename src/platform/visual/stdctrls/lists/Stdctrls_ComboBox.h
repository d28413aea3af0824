// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/DrawnItems.h"
#include "platform/visual/stdctrls/edits/Stdctrls_EditBuffer.h"
#include "platform/visual/stdctrls/lists/Stdctrls_ListControl.h"
#include "platform/visual/stdctrls/lists/Stdctrls_OwnerDraw.h"

namespace Stdctrls
{

class CListItems;
class CTypeAhead;

/// What a combo box is: an edit with a list that opens below it, or with one that is always open; or a list
/// that opens, whose items alone can be the text. Those of an owner-drawn one are drawn by `OnDrawItem`, in
/// the list and in the field, all as high as `ItemHeight` or each as `OnMeasureItem` tells.
enum TComboBoxStyle
{
    csDropDown,
    csSimple,
    csDropDownList,
    csOwnerDrawFixed,
    csOwnerDrawVariable
};

/// Base of boxes that show one item of a list, which the user chooses, or a text that he types. What he
/// chooses calls `OnClick` and `OnSelect`, or `OnChange` if that isn't set; what he types calls `OnChange`.
/// What a program does calls none of them.
///
///     auto* const box = new Stdctrls::TComboBox(form);
///     box->setParent(form);
///     box->setStyle(Stdctrls::csDropDownList);
///     box->getItems()->AddStrings({u"Volt", u"Ampere"});
///     box->setItemIndex(0);
///     box->OnSelect = Classes::TNotifyEvent(this, &TMainForm::UnitChosen);
class TRS8_BTL_API TCustomComboBox : public TCustomListControl, private Toolkits::DrawnItems
{
    TRS8_BTL_CLASS(TCustomComboBox, TCustomListControl)

public:
    explicit TCustomComboBox(Classes::TComponent* owner = nullptr);
    ~TCustomComboBox() override;

    // The items. The chosen one is that of the text; any other text chooses none.

    /// The texts and their objects, which stay the program's. The box owns the list; writing copies.
    Classes::TStrings* getItems() const noexcept;
    void setItems(Classes::TStrings* items);
    int getItemCount() const { return GetCount(); }
    /// Whether they are kept in the order of their texts; off at first.
    bool getSorted() const noexcept { return mSorted; }
    void setSorted(bool isSorted);
    void AddItem(const System::UnicodeString& text, System::TObject* object) override;
    /// Deletes the text as well.
    void Clear() override;
    void ClearSelection() override { SetItemIndex(-1); }
    void CopySelection(TCustomListControl* destination) override;
    void DeleteSelected() override;
    /// Selects all of the text that can be edited.
    void SelectAll() override;

    // The text.

    /// The chosen item's, or what was typed.
    System::UnicodeString GetText() const override;
    /// Where only items can be the text, chooses the one of that text, case aside, or none.
    void SetText(const System::UnicodeString& text) override;
    /// Of a text that can be edited, in characters from 0; held within the text.
    int getSelStart() const noexcept { return mText.SelStart(); }
    void setSelStart(int start);
    int getSelLength() const noexcept { return mText.SelLength(); }
    void setSelLength(int length);
    System::UnicodeString getSelText() const;
    /// Replaces what is selected.
    void setSelText(const System::UnicodeString& text);
    /// Most characters that the user can bring the text to; 0, no limit, at first.
    int getMaxLength() const noexcept { return mMaxLength; }
    void setMaxLength(int length);
    /// Whether a text that is typed is completed by the first item that begins so; on at first.
    bool getAutoComplete() const noexcept { return mAutoComplete; }
    void setAutoComplete(bool isOn) noexcept { mAutoComplete = isOn; }
    /// In milliseconds, how soon letters must follow each other to be one text; 500 at first.
    unsigned getAutoCompleteDelay() const noexcept { return mAutoCompleteDelay; }
    void setAutoCompleteDelay(unsigned milliseconds) noexcept { mAutoCompleteDelay = milliseconds; }

    // The list.

    TComboBoxStyle getStyle() const noexcept { return mStyle; }
    void setStyle(TComboBoxStyle style);
    /// Whether it is open. Opening and closing call their events, whoever does it.
    bool getDroppedDown() const noexcept { return mIsDroppedDown; }
    void setDroppedDown(bool isOpen);
    /// Most items that are seen at once; 8 at first.
    int getDropDownCount() const noexcept { return mDropDownCount; }
    void setDropDownCount(int count);
    /// Whether it opens when something is typed; off at first.
    bool getAutoDropDown() const noexcept { return mAutoDropDown; }
    void setAutoDropDown(bool isOn) noexcept { mAutoDropDown = isOn; }
    /// Whether it closes when what is typed is an item; off at first.
    bool getAutoCloseUp() const noexcept { return mAutoCloseUp; }
    void setAutoCloseUp(bool isOn) noexcept { mAutoCloseUp = isOn; }
    /// The width of the list if that is more than the box's; 0 at first.
    int getDropDownWidth() const noexcept { return mDropDownWidth; }
    void setDropDownWidth(int width) noexcept { mDropDownWidth = width; }
    /// The height of an item in pixels: what was set for owner-drawn ones, 16 at first, that of the font for
    /// others.
    int getItemHeight() const;
    void setItemHeight(int height);

    void Dispatch(void* message) override;
    void Loaded() override;

    Classes::TNotifyEvent OnChange;
    Classes::TNotifyEvent OnSelect;
    /// The list is about to open, so that its items may be made first; it closed.
    Classes::TNotifyEvent OnDropDown;
    Classes::TNotifyEvent OnCloseUp;
    TDrawItemEvent OnDrawItem;
    /// Each item is measured once, before the list opens.
    TMeasureItemEvent OnMeasureItem;

protected:
    /// Each calls its event; a choice without `OnSelect` is a change.
    virtual void Change();
    virtual void Select();
    virtual void DropDown();
    virtual void CloseUp();
    /// Draws an item of an owner-drawn box, by `OnDrawItem` if that is set: its text on the canvas's brush.
    virtual void DrawItem(int index, const Types::TRect& rect, TOwnerDrawState state);
    /// Asks `OnMeasureItem`.
    virtual void MeasureItem(int index, int& height);
    bool IsOwnerDrawn() const noexcept { return mStyle == csOwnerDrawFixed || mStyle == csOwnerDrawVariable; }
    /// Whether the user can type a text.
    bool IsEditable() const noexcept { return mStyle == csDropDown || mStyle == csSimple; }

    int GetCount() const override;
    int GetItemIndex() const override;
    void SetItemIndex(int index) override;
    System::TObject* GetItemObject(int index) const override;
    bool SetItemObject(int index, System::TObject* object) override;
    void CreateParams(Controls::TCreateParams& params) override;
    void CreateWnd() override;
    void Paint() override;
    bool WantsKey(System::Word key, Classes::TShiftState shift) const override;
    bool ActOnKey(System::Word key, Classes::TShiftState shift) override;
    bool ActOnChar(System::WideChar character) override;
    bool MouseWheel(Classes::TShiftState shift, int delta, Types::TPoint place) override;
    void TextEditedInWindow(const System::UnicodeString& text) override;
    void SelectionMovedInWindow(int start, int length) override;
    void ChosenInWindow(int index) override;
    void DropChangedInWindow(bool isOpen) override;

    int GetItemCount() const override { return GetCount(); }
    System::UnicodeString GetItemText(int index) const override;
    bool AreItemsDrawn() const override { return IsOwnerDrawn(); }
    int GetItemHeight(int index) const override;
    void PaintItem(Toolkits::PaintDevice& device, int index, const Types::TRect& bounds,
                   bool isChosen) const override;
    void PaintField(Toolkits::PaintDevice& device, const Types::TRect& bounds) const override;

private:
    /// What a window wants to have drawn.
    struct TAskedItem
    {
        int index;
        Types::TRect bounds;
        TOwnerDrawState state;
    };

    void ItemsChanged(System::TObject* sender);
    void TellTraits();
    void TellSelection();
    void PutText(const System::UnicodeString& text);
    /// The item with the text of the box is the chosen one; without such an item none is.
    void ChooseByText();
    void PutSelection(int anchor, int caret);
    void ChooseByUser(int index);
    /// The list was opened or closed; the window knows it already if it did so.
    void OpenOrClose(bool isOpen, bool isByWindow);
    bool DispatchList(Messages::TMessage& message);
    bool ActOnListKey(System::Word key, const Classes::TShiftState& shift);
    bool ActOnEditKey(System::Word key, const Classes::TShiftState& shift);
    bool ActOnClipboardKey(System::Word key);
    void CancelDropDown();
    int TargetOf(System::Word key) const;
    void ReplaceSelection(const System::UnicodeString& text);
    /// Takes out what is selected, or else what lies between the caret and another place.
    void EraseTo(int place);
    void UndoEdit();
    /// The user has edited the text.
    void Edited();
    bool TypeText(System::WideChar character);
    void Complete();
    bool TypeAhead(System::WideChar character);
    void CopyToClipboard() const;
    void MouseWentDown(const Messages::TMessage& message);
    int CharAt(int x) const;
    Types::TRect ButtonRect() const;
    void MeasureItems();
    TOwnerDrawState FieldState() const;
    void PaintAskedItem(Toolkits::PaintDevice& device, const TAskedItem& item) const;
    void PaintItemIn(const TAskedItem& item);
    void PaintText(const Types::TRect& rect);

    std::unique_ptr<CListItems> mItems;
    std::unique_ptr<CTypeAhead> mTyped;
    /// What alone the next paint draws; null for the whole box.
    const TAskedItem* mAskedItem = nullptr;
    /// The text that can be edited.
    CEditBuffer mText;
    unsigned mAutoCompleteDelay = 500;
    int mMaxLength = 0;
    int mDropDownCount = 8;
    int mDropDownWidth = 0;
    int mItemHeight = 16;
    /// The chosen item before the list was opened.
    int mIndexBefore = -1;
    /// The item that a design chooses before it has the items.
    int mDesignedIndex = -1;
    TComboBoxStyle mStyle = csDropDown;
    bool mIsDroppedDown = false;
    bool mSorted = false;
    bool mAutoComplete = true;
    bool mAutoDropDown = false;
    bool mAutoCloseUp = false;
};

/// A box with a list of texts.
class TRS8_BTL_API TComboBox : public TCustomComboBox
{
    TRS8_BTL_CLASS(TComboBox, TCustomComboBox)

public:
    explicit TComboBox(Classes::TComponent* owner = nullptr) : TCustomComboBox(owner) {}
    ~TComboBox() override;
};

} // namespace Stdctrls

/// The styles of a combo box by their names.
template <>
struct TRS8_BTL_API Typinfo::GEnumType<Stdctrls::TComboBoxStyle>
{
    static TTypeInfo Make();
};
