// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Collection.h"
#include "platform/runtime/typinfo/Typinfo.h"

namespace Controls
{
class TControl;
} // namespace Controls

namespace Extctrls
{

class TCustomGridPanel;

/// How the extent of a column or row is told: in pixels, as a share of what the others leave, or by the
/// controls in it.
enum TSizeStyle
{
    ssAbsolute,
    ssPercent,
    ssAuto
};

/// What a grid panel gets more of when a control comes and all cells are taken. With a fixed size it refuses
/// the control.
enum TExpandStyle
{
    emAddRows,
    emAddColumns,
    emFixedSize
};

/// A grid panel of a fixed size has no cell for another control, or a cell is taken that a control should
/// come into.
class TRS8_BTL_API EGridPanelException : public Sysutils::Exception
{
public:
    using Exception::Exception;
    ~EGridPanelException() override;
};

/// A column or row of a grid panel.
class TRS8_BTL_API TCellItem : public Classes::TCollectionItem
{
    TRS8_BTL_CLASS(TCellItem, Classes::TCollectionItem)

public:
    explicit TCellItem(Classes::TCollection* collection = nullptr) : TCollectionItem(collection) {}
    ~TCellItem() override;

    /// A share at first.
    TSizeStyle getSizeStyle() const noexcept { return mSizeStyle; }
    void setSizeStyle(TSizeStyle style);
    /// Pixels, or the share: those of all such columns or rows together are the whole. 50 at first; what is
    /// negative or no number counts as 0.
    double getValue() const noexcept { return mValue; }
    void setValue(double value);
    /// The pixels that it has had since the controls were placed last.
    int getSize() const noexcept { return mSize; }

    void Assign(Classes::TPersistent* source) override;

private:
    friend class TCustomGridPanel;

    double mValue = 50;
    /// Where it begins, in pixels from the first one.
    int mBegin = 0;
    int mSize = 0;
    TSizeStyle mSizeStyle = ssPercent;
};

/// A column of a grid panel.
class TRS8_BTL_API TColumnItem : public TCellItem
{
    TRS8_BTL_CLASS(TColumnItem, TCellItem)

public:
    using TCellItem::TCellItem;
    ~TColumnItem() override;
};

/// A row of a grid panel.
class TRS8_BTL_API TRowItem : public TCellItem
{
    TRS8_BTL_CLASS(TRowItem, TCellItem)

public:
    using TCellItem::TCellItem;
    ~TRowItem() override;
};

/// The columns or the rows of a grid panel, which places its controls anew after each change, or once after
/// `EndUpdate`.
class TRS8_BTL_API TCellCollection : public Classes::TOwnedCollection
{
    TRS8_BTL_CLASS(TCellCollection, Classes::TOwnedCollection)

public:
    TCellCollection(TCustomGridPanel* panel, System::TMetaClass* itemClass);
    ~TCellCollection() override;

    /// `Classes::EListError` out of range.
    TCellItem* getItems(int index) const;

protected:
    void Update(Classes::TCollectionItem* item) override;
    void Notify(Classes::TCollectionItem* item, Classes::TOperation operation) override;

private:
    TCustomGridPanel& mPanel;
};

/// The columns of a grid panel.
class TRS8_BTL_API TColumnCollection : public TCellCollection
{
    TRS8_BTL_CLASS(TColumnCollection, TCellCollection)

public:
    explicit TColumnCollection(TCustomGridPanel* panel);
    ~TColumnCollection() override;
    /// A new column at the end.
    TColumnItem* Add();
    /// `Classes::EListError` out of range.
    TColumnItem* getItems(int index) const;
};

/// The rows of a grid panel.
class TRS8_BTL_API TRowCollection : public TCellCollection
{
    TRS8_BTL_CLASS(TRowCollection, TCellCollection)

public:
    explicit TRowCollection(TCustomGridPanel* panel);
    ~TRowCollection() override;
    /// A new row at the end.
    TRowItem* Add();
    /// `Classes::EListError` out of range.
    TRowItem* getItems(int index) const;
};

/// Which cell of a grid panel a control stands in, and how many cells it covers from there.
class TRS8_BTL_API TControlItem : public Classes::TCollectionItem
{
    TRS8_BTL_CLASS(TControlItem, Classes::TCollectionItem)

public:
    explicit TControlItem(Classes::TCollection* collection = nullptr) : TCollectionItem(collection) {}
    ~TControlItem() override;

    /// Not owned.
    Controls::TControl* getControl() const noexcept { return mControl; }
    void setControl(Controls::TControl* control);
    /// Counted from 0. Moving to the cell of another control has that change places.
    int getColumn() const noexcept { return mColumn; }
    void setColumn(int column) { SetLocation(column, mRow); }
    int getRow() const noexcept { return mRow; }
    void setRow(int row) { SetLocation(mColumn, row); }
    /// Column and row at once. A negative one counts as 0; in one that isn't there, the control isn't placed.
    void SetLocation(int column, int row);
    /// Cells to the right and downwards, 1 at first; less counts as 1, and what there is of them is covered.
    int getColumnSpan() const noexcept { return mColumnSpan; }
    void setColumnSpan(int span);
    int getRowSpan() const noexcept { return mRowSpan; }
    void setRowSpan(int span);

    void Assign(Classes::TPersistent* source) override;

private:
    friend class TControlCollection;
    friend class TCustomGridPanel;

    bool Covers(int column, int row) const noexcept;
    /// The panel whose collection it is in; null for none.
    TCustomGridPanel* GetPanel() const;
    /// The cells that it covers changed.
    void Moved();

    Controls::TControl* mControl = nullptr;
    int mColumn = 0;
    int mRow = 0;
    int mColumnSpan = 1;
    int mRowSpan = 1;
    /// The size that the control came with.
    int mOwnWidth = 0;
    int mOwnHeight = 0;
};

/// The controls of a grid panel by their cells. A control that comes into the panel gets the first free cell,
/// row by row.
class TRS8_BTL_API TControlCollection : public Classes::TOwnedCollection
{
    TRS8_BTL_CLASS(TControlCollection, Classes::TOwnedCollection)

public:
    explicit TControlCollection(TCustomGridPanel* panel);
    ~TControlCollection() override;

    /// `Classes::EListError` out of range.
    TControlItem* getItems(int index) const;
    /// The control that covers a cell; null for none.
    Controls::TControl* getControls(int column, int row) const;
    /// Its item.
    TControlItem* getControlItems(int column, int row) const;
    /// The place of the control's item; -1 for none.
    int IndexOf(const Controls::TControl* control) const;
    /// Gives the control a cell, the first free one by itself, and moves it into the panel.
    /// `EGridPanelException` if that cell is taken or none is left.
    void AddControl(Controls::TControl* control, int column = -1, int row = -1);
    /// Takes the control's cell away; the control stays where it is.
    void RemoveControl(const Controls::TControl* control);

protected:
    void Update(Classes::TCollectionItem* item) override;
    void Notify(Classes::TCollectionItem* item, Classes::TOperation operation) override;

private:
    friend class TControlItem;
    friend class TCustomGridPanel;

    TControlItem* FindItem(const Controls::TControl* control) const;

    TCustomGridPanel& mPanel;
    /// Counts the items that went.
    unsigned mRemovals = 0;
};

} // namespace Extctrls

namespace Typinfo
{

// The enumerations of a grid panel, by the names of their values.

template <>
struct TRS8_BTL_API GEnumType<Extctrls::TSizeStyle>
{
    static TTypeInfo Make();
};
template <>
struct TRS8_BTL_API GEnumType<Extctrls::TExpandStyle>
{
    static TTypeInfo Make();
};

} // namespace Typinfo
