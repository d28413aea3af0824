// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/visual/stdctrls/panels/Extctrls_GridPanelItems.h"
#include "platform/visual/stdctrls/panels/Extctrls_Panel.h"

#include <vector>

namespace Extctrls
{

/// A panel that places its controls in columns and rows, two by two at first. In its cell a control stands by
/// its `Align`, or by its anchors: at the edges that they name, as wide as the cell between two opposite
/// ones, in the middle without any.
///
///     auto* const grid = new Extctrls::TGridPanel(form);
///     grid->getColumnCollection()->getItems(0)->setSizeStyle(Extctrls::ssAuto);
///     label->setParent(grid);                                     // column 0, row 0
///     edit->setParent(grid);                                      // column 1, row 0
class TRS8_BTL_API TCustomGridPanel : public TCustomPanel
{
    TRS8_BTL_CLASS(TCustomGridPanel, TCustomPanel)

public:
    explicit TCustomGridPanel(Classes::TComponent* owner = nullptr);
    ~TCustomGridPanel() override;

    // The panel owns the collections; writing copies.

    TColumnCollection* getColumnCollection() const noexcept { return mColumns.get(); }
    void setColumnCollection(TColumnCollection* columns) { mColumns->Assign(columns); }
    TRowCollection* getRowCollection() const noexcept { return mRows.get(); }
    void setRowCollection(TRowCollection* rows) { mRows->Assign(rows); }
    TControlCollection* getControlCollection() const noexcept { return mControls.get(); }
    void setControlCollection(TControlCollection* controls) { mControls->Assign(controls); }
    /// Rows at first.
    TExpandStyle getExpandStyle() const noexcept { return mExpandStyle; }
    void setExpandStyle(TExpandStyle style) noexcept { mExpandStyle = style; }

    /// The place of a cell in the client area; empty for one that isn't there.
    Types::TRect getCellRect(int column, int row) const;
    int getCellCount() const;
    /// Whether no control covers a cell of the column, or of the row.
    bool IsColumnEmpty(int column) const;
    bool IsRowEmpty(int row) const;

    void Dispatch(void* message) override;
    void Loaded() override;
    void Notification(Classes::TComponent* component, Classes::TOperation operation) override;

protected:
    void AlignControls(Controls::TControl* control, Types::TRect& rect) override;

private:
    friend class TCellCollection;
    friend class TControlCollection;
    friend class TControlItem;

    /// Gives a control that comes a cell, unless it has one.
    void TakeControl(Controls::TControl* control);
    /// The first free cell, for which the panel grows if it may.
    Types::TPoint FindFreeCell();
    Types::TPoint GrowForCell();
    /// Other cells are taken than was known.
    void ForgetTakenCells() noexcept { mTakenCells.clear(); }
    void CountTakenCells();
    void Take(const TControlItem& item);
    /// Something about the cells changed.
    void CellsChanged();
    /// The pixels that the controls of each column, or row, ask for.
    std::vector<int> GetAutoSizes(bool ofColumns) const;
    /// The begin of a cell and the end of the last one of `span`, counted from the first.
    static Types::TPoint GetExtent(const TCellCollection& cells, int index, int span);
    Types::TRect GetCell(const TControlItem& item) const;
    void PlaceControls();
    void CompleteItems();

    System::GOwner<TColumnCollection> mColumns;
    System::GOwner<TRowCollection> mRows;
    System::GOwner<TControlCollection> mControls;
    /// Row by row, whether a control covers the cell; empty if that isn't known.
    std::vector<bool> mTakenCells;
    /// Before this one, no cell is free.
    std::size_t mFirstFree = 0;
    /// Where the cells begin.
    Types::TPoint mOrigin;
    TExpandStyle mExpandStyle = emAddRows;
    /// The panel itself changes its cells and places the controls later.
    bool mIsChanging = false;
};

/// A grid panel, with all of it published.
class TRS8_BTL_API TGridPanel : public TCustomGridPanel
{
    TRS8_BTL_CLASS(TGridPanel, TCustomGridPanel)

public:
    using TCustomGridPanel::TCustomGridPanel;
    ~TGridPanel() override;
};

} // namespace Extctrls
