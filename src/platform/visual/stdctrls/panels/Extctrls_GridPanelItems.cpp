// SPDX-License-Identifier: MIT
#include "platform/visual/stdctrls/panels/Extctrls_GridPanelItems.h"

#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/stdctrls/panels/Extctrls_GridPanel.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Typinfo
{

TTypeInfo GEnumType<Extctrls::TSizeStyle>::Make()
{
    return EnumType(u"TSizeStyle", {u"ssAbsolute", u"ssPercent", u"ssAuto"});
}

TTypeInfo GEnumType<Extctrls::TExpandStyle>::Make()
{
    return EnumType(u"TExpandStyle", {u"emAddRows", u"emAddColumns", u"emFixedSize"});
}

} // namespace Typinfo

namespace Extctrls
{

using Controls::TControl;
using System::GClassBuilder;

EGridPanelException::~EGridPanelException() = default;

System::TMetaClass* TCellItem::ClassRecord()
{
    static System::TMetaClass* const record =
        GClassBuilder<TCellItem>(u"TCellItem")
            .Property(u"SizeStyle", &TCellItem::getSizeStyle, &TCellItem::setSizeStyle,
                      {.defaultValue = ssPercent})
            .Property(u"Value", &TCellItem::getValue, &TCellItem::setValue)
            .Build();
    return record;
}

TCellItem::~TCellItem() = default;

void TCellItem::setSizeStyle(TSizeStyle style)
{
    if (style != mSizeStyle) {
        mSizeStyle = style;
        Changed(false);
    }
}

void TCellItem::setValue(double value)
{
    // Sums of them don't overflow.
    constexpr double most = 1e9;
    const double held = std::isnan(value) ? 0 : std::clamp(value, 0.0, most);
    if (held != mValue) {
        mValue = held;
        Changed(false);
    }
}

void TCellItem::Assign(Classes::TPersistent* source)
{
    const auto* const other = dynamic_cast<TCellItem*>(source);
    if (other == nullptr) {
        return TCollectionItem::Assign(source);
    }
    mSizeStyle = other->mSizeStyle;
    mValue = other->mValue;
    Changed(false);
}

System::TMetaClass* TColumnItem::ClassRecord()
{
    static System::TMetaClass* const record = GClassBuilder<TColumnItem>(u"TColumnItem").Build();
    return record;
}

TColumnItem::~TColumnItem() = default;

System::TMetaClass* TRowItem::ClassRecord()
{
    static System::TMetaClass* const record = GClassBuilder<TRowItem>(u"TRowItem").Build();
    return record;
}

TRowItem::~TRowItem() = default;

System::TMetaClass* TCellCollection::ClassRecord()
{
    static System::TMetaClass* const record = GClassBuilder<TCellCollection>(u"TCellCollection").Build();
    return record;
}

TCellCollection::TCellCollection(TCustomGridPanel* panel, System::TMetaClass* itemClass)
    : TOwnedCollection(panel, itemClass), mPanel(*panel)
{
}

TCellCollection::~TCellCollection() = default;

TCellItem* TCellCollection::getItems(int index) const
{
    return static_cast<TCellItem*>(GetItem(index));
}

void TCellCollection::Update(Classes::TCollectionItem*)
{
    mPanel.CellsChanged();
}

void TCellCollection::Notify(Classes::TCollectionItem*, Classes::TOperation)
{
    mPanel.ForgetTakenCells();
}

System::TMetaClass* TColumnCollection::ClassRecord()
{
    static System::TMetaClass* const record = GClassBuilder<TColumnCollection>(u"TColumnCollection").Build();
    return record;
}

TColumnCollection::TColumnCollection(TCustomGridPanel* panel)
    : TCellCollection(panel, System::ClassOf<TColumnItem>())
{
}

TColumnCollection::~TColumnCollection() = default;

TColumnItem* TColumnCollection::Add()
{
    return static_cast<TColumnItem*>(TCellCollection::Add());
}

TColumnItem* TColumnCollection::getItems(int index) const
{
    return static_cast<TColumnItem*>(GetItem(index));
}

System::TMetaClass* TRowCollection::ClassRecord()
{
    static System::TMetaClass* const record = GClassBuilder<TRowCollection>(u"TRowCollection").Build();
    return record;
}

TRowCollection::TRowCollection(TCustomGridPanel* panel) : TCellCollection(panel, System::ClassOf<TRowItem>())
{
}

TRowCollection::~TRowCollection() = default;

TRowItem* TRowCollection::Add()
{
    return static_cast<TRowItem*>(TCellCollection::Add());
}

TRowItem* TRowCollection::getItems(int index) const
{
    return static_cast<TRowItem*>(GetItem(index));
}

System::TMetaClass* TControlItem::ClassRecord()
{
    static System::TMetaClass* const record =
        GClassBuilder<TControlItem>(u"TControlItem")
            .Property(u"Column", &TControlItem::getColumn, &TControlItem::setColumn)
            .Property(u"ColumnSpan", &TControlItem::getColumnSpan, &TControlItem::setColumnSpan,
                      {.defaultValue = 1})
            .Property(u"Control", &TControlItem::getControl, &TControlItem::setControl)
            .Property(u"Row", &TControlItem::getRow, &TControlItem::setRow)
            .Property(u"RowSpan", &TControlItem::getRowSpan, &TControlItem::setRowSpan, {.defaultValue = 1})
            .Build();
    return record;
}

TControlItem::~TControlItem() = default;

TCustomGridPanel* TControlItem::GetPanel() const
{
    const auto* const collection = dynamic_cast<TControlCollection*>(getCollection());
    return collection == nullptr ? nullptr : &collection->mPanel;
}

void TControlItem::Moved()
{
    if (TCustomGridPanel* const panel = GetPanel()) {
        panel->ForgetTakenCells();
    }
    Changed(false);
}

void TControlItem::setControl(TControl* control)
{
    if (control == mControl) {
        return;
    }
    mControl = control;
    TCustomGridPanel* const panel = GetPanel();
    if (control != nullptr) {
        mOwnWidth = control->getWidth();
        mOwnHeight = control->getHeight();
        if (panel != nullptr) {
            panel->FreeNotification(control);
        }
    }
    Moved();
}

void TControlItem::SetLocation(int column, int row)
{
    column = std::max(column, 0);
    row = std::max(row, 0);
    if (column == mColumn && row == mRow) {
        return;
    }
    TCustomGridPanel* const panel = GetPanel();
    // While a design is read, its items come one after another, each to its cell.
    if (panel != nullptr && !panel->getComponentState().Contains(Classes::csLoading)) {
        TControlItem* const other = panel->getControlCollection()->getControlItems(column, row);
        if (other != nullptr && other != this) {
            other->mColumn = mColumn;
            other->mRow = mRow;
        }
    }
    mColumn = column;
    mRow = row;
    Moved();
}

void TControlItem::setColumnSpan(int span)
{
    mColumnSpan = std::max(span, 1);
    Moved();
}

void TControlItem::setRowSpan(int span)
{
    mRowSpan = std::max(span, 1);
    Moved();
}

bool TControlItem::Covers(int column, int row) const noexcept
{
    return column >= mColumn && column - mColumn < mColumnSpan && row >= mRow && row - mRow < mRowSpan;
}

void TControlItem::Assign(Classes::TPersistent* source)
{
    const auto* const other = dynamic_cast<TControlItem*>(source);
    if (other == nullptr) {
        return TCollectionItem::Assign(source);
    }
    mColumn = other->mColumn;
    mRow = other->mRow;
    mColumnSpan = other->mColumnSpan;
    mRowSpan = other->mRowSpan;
    setControl(other->mControl);
    Moved();
}

System::TMetaClass* TControlCollection::ClassRecord()
{
    static System::TMetaClass* const record =
        GClassBuilder<TControlCollection>(u"TControlCollection").Build();
    return record;
}

TControlCollection::TControlCollection(TCustomGridPanel* panel)
    : TOwnedCollection(panel, System::ClassOf<TControlItem>()), mPanel(*panel)
{
}

TControlCollection::~TControlCollection() = default;

TControlItem* TControlCollection::getItems(int index) const
{
    return static_cast<TControlItem*>(GetItem(index));
}

TControlItem* TControlCollection::getControlItems(int column, int row) const
{
    const auto found = std::find_if(begin(), end(), [&](const Classes::TCollectionItem* item) {
        return static_cast<const TControlItem*>(item)->Covers(column, row);
    });
    return found == end() ? nullptr : static_cast<TControlItem*>(*found);
}

TControl* TControlCollection::getControls(int column, int row) const
{
    const TControlItem* const item = getControlItems(column, row);
    return item == nullptr ? nullptr : item->getControl();
}

TControlItem* TControlCollection::FindItem(const TControl* control) const
{
    const int index = IndexOf(control);
    return index < 0 ? nullptr : getItems(index);
}

int TControlCollection::IndexOf(const TControl* control) const
{
    // From the end, where those are that go first.
    for (int i = GetCount() - 1; control != nullptr && i >= 0; --i) {
        if (getItems(i)->mControl == control) {
            return i;
        }
    }
    return -1;
}

void TControlCollection::AddControl(TControl* control, int column, int row)
{
    if (control == nullptr) {
        return;
    }
    TControlItem* item = FindItem(control);
    if (column >= 0 && row >= 0) {
        const TControlItem* const other = getControlItems(column, row);
        if (other != nullptr && other != item) {
            throw EGridPanelException(u"The cell " + System::UnicodeString(column) + u", " +
                                      System::UnicodeString(row) + u" is taken");
        }
    }
    if (item == nullptr) {
        mPanel.TakeControl(control);
        item = FindItem(control);
    }
    if (column >= 0 && row >= 0) {
        item->SetLocation(column, row);
    }
    control->setParent(&mPanel);
}

void TControlCollection::RemoveControl(const TControl* control)
{
    delete FindItem(control);
}

void TControlCollection::Update(Classes::TCollectionItem*)
{
    mPanel.CellsChanged();
}

void TControlCollection::Notify(Classes::TCollectionItem*, Classes::TOperation operation)
{
    mPanel.ForgetTakenCells();
    if (operation == Classes::opRemove) {
        ++mRemovals;
    }
}

} // namespace Extctrls
