// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/grids/Grids_CustomGrid.h"

namespace Grids
{

/// A grid whose cells are drawn, and given to the editor, by events.
class TRS8_BTL_API TCustomDrawGrid : public TCustomGrid
{
    TRS8_BTL_CLASS(TCustomDrawGrid, TCustomGrid)

public:
    explicit TCustomDrawGrid(Classes::TComponent* owner = nullptr);
    ~TCustomDrawGrid() override;

    TMovedEvent OnColumnMoved;
    TDrawCellEvent OnDrawCell;
    TFixedCellClickEvent OnFixedCellClick;
    TGetEditEvent OnGetEditMask;
    TGetEditEvent OnGetEditText;
    TMovedEvent OnRowMoved;
    TSelectCellEvent OnSelectCell;
    TSetEditEvent OnSetEditText;
    /// What was scrolled.
    Classes::TNotifyEvent OnTopLeftChanged;

protected:
    void DrawCell(int col, int row, const Types::TRect& rect, TGridDrawState state) override;
    void ColumnMoved(int from, int to) override;
    void RowMoved(int from, int to) override;
    void FixedCellClick(int col, int row) override;
    bool SelectCell(int col, int row) override;
    System::UnicodeString GetEditMask(int col, int row) override;
    System::UnicodeString GetEditText(int col, int row) override;
    void SetEditText(int col, int row, const System::UnicodeString& text) override;
    void TopLeftChanged() override;
};

/// A `TCustomDrawGrid` for forms.
///
///     auto* const grid = new Grids::TDrawGrid(form);
///     grid->setParent(form);
///     grid->setRowCount(1'000'000);
///     grid->OnDrawCell = {this, &TMainForm::DrawSample};
class TRS8_BTL_API TDrawGrid : public TCustomDrawGrid
{
    TRS8_BTL_CLASS(TDrawGrid, TCustomDrawGrid)

public:
    explicit TDrawGrid(Classes::TComponent* owner = nullptr);
    ~TDrawGrid() override;
};

} // namespace Grids
