// SPDX-License-Identifier: MIT
#include "testing/internal/GridState.h"

#include "platform/visual/grids/Grids_StringGrid.h"

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

namespace Testing
{

namespace
{

/// The fixed ones and those behind them that are seen whole.
std::vector<int> InSight(int fixedCount, int first, int visibleCount, int count)
{
    // A grid with more of them than fit on any screen is no use to print.
    constexpr int most = 1000;
    std::vector<int> indices;
    const auto add = [&](int begin, int end) {
        for (int i = begin; i < end; ++i) {
            indices.push_back(i);
        }
    };
    add(0, std::min(fixedCount, most));
    add(first, first + std::min({visibleCount, most, count - first}));
    return indices;
}

} // namespace

void WriteGridState(std::ostream& out, const Controls::TControl& control)
{
    const auto* const grid = dynamic_cast<const Grids::TCustomGrid*>(&control);
    if (grid == nullptr) {
        return;
    }
    out << " cells " << grid->getColCount() << 'x' << grid->getRowCount() << " first " << grid->getLeftCol()
        << ',' << grid->getTopRow() << " at " << grid->getCol() << ',' << grid->getRow();
    const Grids::TGridRect selection = grid->getSelection();
    if (selection.Left != selection.Right || selection.Top != selection.Bottom) {
        out << " selected " << selection.Left << ',' << selection.Top << '-' << selection.Right << ','
            << selection.Bottom;
    }
}

void WriteGridCells(std::ostream& out, const Controls::TControl& control, int level)
{
    const auto* const grid = dynamic_cast<const Grids::TStringGrid*>(&control);
    if (grid == nullptr) {
        return;
    }
    const std::vector<int> cols =
        InSight(grid->getFixedCols(), grid->getLeftCol(), grid->getVisibleColCount(), grid->getColCount());
    for (const int row :
         InSight(grid->getFixedRows(), grid->getTopRow(), grid->getVisibleRowCount(), grid->getRowCount())) {
        out << std::string(static_cast<std::size_t>(level) * 2, ' ') << "row " << row;
        for (const int col : cols) {
            out << " \"" << grid->getCells(col, row) << '"';
        }
        out << '\n';
    }
}

} // namespace Testing
