// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Strings.h"
#include "platform/visual/grids/Grids_DrawGrid.h"

#include <map>

namespace Grids
{

/// A grid of texts, each with an object that may go with it. An empty cell takes 8 bytes, 16 where there are
/// objects, and none where nothing near to it is set. What is set beyond the counts is kept and seen once
/// there are as many; fewer columns or rows lose nothing, but for `DeleteColumn` and `DeleteRow`. A negative
/// column or row of a cell raises `EInvalidGridOperation`.
///
///     auto* const grid = new Grids::TStringGrid(form);
///     grid->setParent(form);
///     grid->setRowCount(count + 1);
///     grid->getRows(0)->setCommaText(u"Time,Voltage,Current");
///     for (int i = 0; i < count; ++i) { grid->setCells(1, i + 1, Sysutils::FloatToStr(voltages[i])); }
class TRS8_BTL_API TStringGrid : public TDrawGrid
{
    TRS8_BTL_CLASS(TStringGrid, TDrawGrid)

public:
    explicit TStringGrid(Classes::TComponent* owner = nullptr);
    ~TStringGrid() override;

    System::UnicodeString getCells(int col, int row) const;
    void setCells(int col, int row, const System::UnicodeString& text);
    /// Not owned, null at first.
    System::TObject* getObjects(int col, int row) const;
    void setObjects(int col, int row, System::TObject* object);

    /// The cells of a column, or row, as a list that the grid owns: what is done to it is done to the grid.
    /// It has as many lines as the grid has rows, or columns; `Add` sets the first that is empty and gives -1
    /// if there is none, `Assign` sets those that there are, and lines can't be inserted or deleted.
    Classes::TStrings* getCols(int col);
    void setCols(int col, Classes::TStrings* lines) { getCols(col)->Assign(lines); }
    Classes::TStrings* getRows(int row);
    void setRows(int row, Classes::TStrings* lines) { getRows(row)->Assign(lines); }

    void DeleteColumn(int col) override;
    void DeleteRow(int row) override;

protected:
    /// Draws the text, two pixels from the corner, if the grid draws by itself; then calls `OnDrawCell`.
    void DrawCell(int col, int row, const Types::TRect& rect, TGridDrawState state) override;
    System::UnicodeString GetCellText(int col, int row) override { return getCells(col, row); }
    /// The cell's text, which `OnGetEditText` may change.
    System::UnicodeString GetEditText(int col, int row) override;
    /// Sets the cell, then calls `OnSetEditText`.
    void SetEditText(int col, int row, const System::UnicodeString& text) override;
    void ColumnMoved(int from, int to) override;
    void RowMoved(int from, int to) override;

private:
    struct TCells;
    class CLines;
    using CViews = std::map<int, std::unique_ptr<CLines>>;

    Classes::TStrings* NeedView(CViews& views, bool isColumn, int index);
    /// Whether the cell changed, which then is painted soon.
    template <class Table, class Value>
    bool Set(Table& table, int col, int row, const Value& value);

    std::unique_ptr<TCells> mCells;
    CViews mColViews;
    CViews mRowViews;
    /// While it isn't 0, many cells change, and the grid is painted once for all of them.
    int mUpdateLevel = 0;
    /// The editor is about to tell a cell what the user typed, and needn't hear of it.
    bool mIsTakingEdit = false;
};

} // namespace Grids
