// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_CustomControl.h"

namespace Classes
{
class TComponentWatch;
} // namespace Classes

namespace Stdctrls
{

/// The numbers of the messages that ask for the items of a list and set them; each kind of list has its own.
struct TListMessages
{
    unsigned GetCount;
    unsigned GetCurrent;
    unsigned SetCurrent;
    unsigned GetItemData;
    unsigned SetItemData;
};

/// Base of controls with items of which the user chooses.
class TRS8_BTL_API TCustomListControl : public Controls::TCustomControl
{
    TRS8_BTL_CLASS(TCustomListControl, Controls::TCustomControl)

public:
    explicit TCustomListControl(Classes::TComponent* owner = nullptr) : TCustomControl(owner) {}
    ~TCustomListControl() override;

    /// The chosen item; -1 for none. An index that isn't there chooses none. No event is called.
    int getItemIndex() const { return GetItemIndex(); }
    void setItemIndex(int index) { SetItemIndex(index); }

    /// Adds an item with an object, which stays the caller's.
    virtual void AddItem(const System::UnicodeString& text, System::TObject* object) = 0;
    /// Deletes all items.
    virtual void Clear() = 0;
    virtual void ClearSelection() = 0;
    /// Adds the chosen items, with their objects, to another list.
    virtual void CopySelection(TCustomListControl* destination) = 0;
    virtual void DeleteSelected() = 0;
    /// As `CopySelection`, and deletes them here.
    virtual void MoveSelection(TCustomListControl* destination);
    virtual void SelectAll() = 0;

protected:
    /// How many items there are.
    virtual int GetCount() const = 0;
    /// What the property of this name gives and does.
    virtual int GetItemIndex() const = 0;
    virtual void SetItemIndex(int index) = 0;
    /// The object of an item that is there, and whether it could be set: items that are made when they are
    /// asked for keep none.
    virtual System::TObject* GetItemObject(int index) const = 0;
    virtual bool SetItemObject(int index, System::TObject* object) = 0;

    /// Whether `index` is that of an item.
    bool HasItem(int index) const { return index >= 0 && index < GetCount(); }
    /// Ends what goes on, with a quiet exception, where a handler destroyed the control that asked it.
    static void StopIfGone(const Classes::TComponentWatch& watch);
    /// Draws the text of an item on the canvas's brush.
    void DrawItemText(const System::UnicodeString& text, const Types::TRect& rect);
    /// Acts on a message of these numbers; false for any other. -1 answers for an item that isn't there.
    bool DispatchItems(Messages::TMessage& message, const TListMessages& numbers);
};

/// Base of lists of which several items may be chosen.
class TRS8_BTL_API TCustomMultiSelectListControl : public TCustomListControl
{
    TRS8_BTL_CLASS(TCustomMultiSelectListControl, TCustomListControl)

public:
    explicit TCustomMultiSelectListControl(Classes::TComponent* owner = nullptr) : TCustomListControl(owner)
    {
    }
    ~TCustomMultiSelectListControl() override;

    /// Whether several items may be chosen at once; off at first.
    bool getMultiSelect() const noexcept { return mMultiSelect; }
    void setMultiSelect(bool isOn) { SetMultiSelect(isOn); }
    /// How many items are chosen; -1 unless several may be.
    int getSelCount() const { return GetSelCount(); }

protected:
    /// What the properties of these names do and give.
    virtual void SetMultiSelect(bool isOn) { mMultiSelect = isOn; }
    virtual int GetSelCount() const = 0;

private:
    bool mMultiSelect = false;
};

} // namespace Stdctrls
