// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/grids/Grids_CustomGrid.h"
#include "platform/visual/grids/internal/Grids_GridLayout.h"

#include <algorithm>

// What the keys do in a grid.

namespace Grids
{

using Classes::TComponentWatch;
using Classes::TShiftState;
using System::Int64;
using System::Word;

namespace
{

/// The arrow key that means the same where a grid runs from the right.
Word MirroredKey(Word key)
{
    switch (key) {
    case VK_LEFT:
        return VK_RIGHT;
    case VK_RIGHT:
        return VK_LEFT;
    default:
        return key;
    }
}

} // namespace

bool TCustomGrid::CanGridAcceptKey(Word, TShiftState)
{
    return true;
}

bool TCustomGrid::WantsKey(Word key, TShiftState shift) const
{
    switch (key) {
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
        return true;
    case VK_TAB:
        return HasOption(goTabs) && !shift.Contains(Classes::ssCtrl);
    case VK_RETURN:
        return HasOption(goEditing);
    default:
        return TCustomControl::WantsKey(key, shift);
    }
}

void TCustomGrid::KeyDown(Word& key, TShiftState shift)
{
    const TComponentWatch watch(this);
    TCustomControl::KeyDown(key, shift);
    if (!watch.IsAlive() || key == 0) {
        return;
    }
    if (!CanGridAcceptKey(key, shift)) {
        key = 0;
        return;
    }
    if (key == VK_F2 && HasOption(goEditing)) {
        ShowEditor();
        return;
    }
    GoByKey(UseRightToLeftAlignment() ? MirroredKey(key) : key, shift);
}

void TCustomGrid::GoByKey(Word key, const TShiftState& shift)
{
    TGridCoord target = mCurrent;
    bool moveAnchor = !shift.Contains(Classes::ssShift);
    if (shift.Contains(Classes::ssCtrl)) {
        if (key == VK_UP || key == VK_DOWN) {
            ScrollBy(0, key == VK_UP ? -1 : 1);
            return;
        }
        target = CtrlTargetOf(key);
    } else if (key == VK_TAB) {
        target = HasOption(goTabs) && !shift.Contains(Classes::ssAlt) ? TabTarget(moveAnchor) : mCurrent;
        moveAnchor = true;
    } else {
        target = TargetOf(key);
        if (key == VK_PRIOR || key == VK_NEXT) {
            const TComponentWatch watch(this);
            ScrollBy(0, key == VK_PRIOR ? -getVisibleRowCount() : getVisibleRowCount());
            if (!watch.IsAlive()) {
                return;
            }
        }
    }
    if (target != mCurrent) {
        FocusCell(target.X, target.Y, moveAnchor);
    }
}

TGridCoord TCustomGrid::HeldBehindFixed(Int64 col, Int64 row) const noexcept
{
    return {static_cast<int>(std::clamp<Int64>(col, getFixedCols(), getColCount() - 1)),
            static_cast<int>(std::clamp<Int64>(row, getFixedRows(), getRowCount() - 1))};
}

TGridCoord TCustomGrid::TargetOf(Word key) const
{
    const bool byRows = HasOption(goRowSelect);
    const Int64 col = mCurrent.X;
    const Int64 row = mCurrent.Y;
    switch (key) {
    case VK_UP:
        return HeldBehindFixed(col, row - 1);
    case VK_DOWN:
        return HeldBehindFixed(col, row + 1);
    case VK_LEFT:
        return byRows ? HeldBehindFixed(col, row - 1) : HeldBehindFixed(col - 1, row);
    case VK_RIGHT:
        return byRows ? HeldBehindFixed(col, row + 1) : HeldBehindFixed(col + 1, row);
    case VK_HOME:
        return byRows ? HeldBehindFixed(col, 0) : HeldBehindFixed(0, row);
    case VK_END:
        return byRows ? HeldBehindFixed(col, getRowCount()) : HeldBehindFixed(getColCount(), row);
    case VK_PRIOR:
        return HeldBehindFixed(col, row - getVisibleRowCount());
    case VK_NEXT:
        return HeldBehindFixed(col, row + getVisibleRowCount());
    default:
        return mCurrent;
    }
}

TGridCoord TCustomGrid::CtrlTargetOf(Word key) const
{
    const TLayout layout = GetLayout();
    const bool byRows = HasOption(goRowSelect);
    const Int64 col = mCurrent.X;
    const Int64 row = mCurrent.Y;
    switch (key) {
    case VK_LEFT:
        return byRows ? mCurrent : HeldBehindFixed(col - getVisibleColCount(), row);
    case VK_RIGHT:
        return byRows ? mCurrent : HeldBehindFixed(col + getVisibleColCount(), row);
    case VK_PRIOR:
        return HeldBehindFixed(col, getTopRow());
    case VK_NEXT:
        return HeldBehindFixed(col, mRows.GetLastWhole(layout.height));
    case VK_HOME:
        return HeldBehindFixed(0, 0);
    case VK_END:
        return HeldBehindFixed(byRows ? col : getColCount(), getRowCount());
    default:
        return mCurrent;
    }
}

TGridCoord TCustomGrid::TabTarget(bool goForward) const
{
    const auto firstStop = mPassedCols.lower_bound(getFixedCols());
    if (std::distance(firstStop, mPassedCols.end()) >= getColCount() - getFixedCols()) {
        return mCurrent;
    }
    const int firstCol = getFixedCols();
    const int lastCol = getColCount() - 1;
    TGridCoord cell = HeldBehindFixed(mCurrent.X, mCurrent.Y);
    do {
        if (goForward && ++cell.X > lastCol) {
            cell.X = firstCol;
            cell.Y = cell.Y == getRowCount() - 1 ? getFixedRows() : cell.Y + 1;
        } else if (!goForward && --cell.X < firstCol) {
            cell.X = lastCol;
            cell.Y = cell.Y <= getFixedRows() ? getRowCount() - 1 : cell.Y - 1;
        }
    } while (!getTabStops(cell.X));
    return cell;
}

} // namespace Grids
