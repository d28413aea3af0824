// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/grids/Grids_CustomGrid.h"
#include "platform/visual/grids/internal/Grids_GridLayout.h"
#include "platform/visual/grids/internal/Grids_ScrollBar.h"

#include <algorithm>

// The cell at hand, the selection and what is scrolled.

namespace Grids
{

using Classes::TComponentWatch;
using Types::TPoint;
using Types::TRect;
using Types::TSize;

namespace
{

/// Where the cells begin that are scrolled, and how far those moved that are still in sight.
struct TMove
{
    int begin = 0;
    int way = 0;
    bool isInSight = true;
};

TMove MoveFirst(CGridAxis& axis, int first, int area)
{
    const int former = axis.getFirst();
    const auto ahead = axis.GetSpan(first, area);
    axis.setFirst(first);
    const auto begin = axis.GetSpan(first, area);
    const auto behind = axis.GetSpan(former, area);
    const auto& kept = first < former ? behind : ahead;
    if (!begin || !kept) {
        return {.isInSight = false};
    }
    const int way = kept->begin - begin->begin;
    return {.begin = begin->begin, .way = first < former ? way : -way};
}

} // namespace

void TCustomGrid::CheckCell(int col, int row) const
{
    mCols.CheckIndex(col);
    mRows.CheckIndex(row);
}

TGridCoord TCustomGrid::Held(TGridCoord cell) const noexcept
{
    return {std::clamp(cell.X, -1, getColCount() - 1), std::clamp(cell.Y, -1, getRowCount() - 1)};
}

void TCustomGrid::setCol(int col)
{
    if (col != getCol()) {
        FocusCell(col, std::max(getRow(), 0), true);
    }
}

void TCustomGrid::setRow(int row)
{
    if (row != getRow()) {
        FocusCell(std::max(getCol(), 0), row, true);
    }
}

void TCustomGrid::FocusCell(int col, int row, bool moveAnchor)
{
    const TComponentWatch watch(this);
    MoveCurrent(col, row, moveAnchor, true);
    if (watch.IsAlive()) {
        UpdateEditor();
    }
    if (watch.IsAlive()) {
        Click();
    }
}

bool TCustomGrid::MoveCurrent(int col, int row, bool moveAnchor, bool show)
{
    CheckCell(col, row);
    const TComponentWatch watch(this);
    // Whoever is asked may have made the grid smaller.
    if (!SelectCell(col, row) || !watch.IsAlive() || !IsInGrid(col, row)) {
        return false;
    }
    // A masked text that isn't complete keeps its user.
    HideEdit();
    if (!watch.IsAlive() || !IsInGrid(col, row)) {
        return false;
    }
    mEditorMode = mEditorMode && HasOption(goAlwaysShowEditor);
    const TGridRect former = getSelection();
    mCurrent = {HasOption(goRowSelect) ? getFixedCols() : col, row};
    if (moveAnchor || !HasOption(goRangeSelect)) {
        mAnchor = mCurrent;
    }
    InvalidateCells(former);
    InvalidateCells(getSelection());
    if (show) {
        ShowCell({col, row});
    }
    if (watch.IsAlive()) {
        AnnounceCell();
    }
    return watch.IsAlive();
}

void TCustomGrid::AnnounceCell()
{
    if (GetWindow() != nullptr) {
        GetWindow()->AnnounceCell();
    }
}

TGridRect TCustomGrid::getSelection() const noexcept
{
    TGridRect selection{std::min(mAnchor.X, mCurrent.X), std::min(mAnchor.Y, mCurrent.Y),
                        std::max(mAnchor.X, mCurrent.X), std::max(mAnchor.Y, mCurrent.Y)};
    if (HasOption(goRowSelect) && selection.Left >= 0) {
        selection.Left = getFixedCols();
        selection.Right = getColCount() - 1;
    }
    return selection;
}

Types::TRect TCustomGrid::GetSelectedCells() const
{
    const TGridRect selection = getSelection();
    return selection.Left < 0
               ? Types::TRect()
               : Types::TRect{selection.Left, selection.Top, selection.Right + 1, selection.Bottom + 1};
}

void TCustomGrid::ChooseCell(int col, int row)
{
    if (col >= getFixedCols() && row >= getFixedRows()) {
        FocusCell(col, row, true);
    }
}

System::UnicodeString TCustomGrid::GetCellText(int, int)
{
    return {};
}

void TCustomGrid::setSelection(const TGridRect& selection)
{
    const TComponentWatch watch(this);
    HideEditor();
    if (!watch.IsAlive()) {
        return;
    }
    mAnchor = Held({selection.Left, selection.Top});
    mCurrent = Held({selection.Right, selection.Bottom});
    Relaid();
}

void TCustomGrid::setLeftCol(int col)
{
    mCols.CheckIndex(col);
    MoveTopLeft(col, getTopRow());
}

void TCustomGrid::setTopRow(int row)
{
    mRows.CheckIndex(row);
    MoveTopLeft(getLeftCol(), row);
}

void TCustomGrid::MoveTopLeft(int left, int top)
{
    left = std::max(left, getFixedCols());
    top = std::max(top, getFixedRows());
    if (left == getLeftCol() && top == getTopRow()) {
        return;
    }
    const TLayout former = GetLayout();
    const TMove across = MoveFirst(mCols, left, former.width);
    const TMove down = MoveFirst(mRows, top, former.height);
    const bool isStraight = across.way == 0 || down.way == 0;
    if (across.isInSight && down.isInSight && isStraight && GetLayout() == former && CanMoveCells()) {
        MoveCells(
            {across.way == 0 ? 0 : across.begin, down.way == 0 ? 0 : down.begin, former.width, former.height},
            {across.way, down.way});
    } else {
        Invalidate();
    }
    TopLeftChanged();
}

bool TCustomGrid::CanMoveCells() const
{
    // The mark of what the mouse drags, and what lies on the cells, as the editor does, stay where they are.
    for (int i = 0; i < GetControlCount(); ++i) {
        if (GetControl(i)->getVisible()) {
            return false;
        }
    }
    return GetWindow() != nullptr && getShowing() && (mGridState == gsNormal || mGridState == gsSelecting);
}

void TCustomGrid::MoveCells(TRect area, const TSize& by)
{
    const int edge = mBorderStyle == Forms::bsSingle ? 1 : 0;
    area = Mirror(area);
    GetWindow()->Scroll({std::max(area.Left, edge), std::max(area.Top, edge),
                         std::min(area.Right, getWidth() - edge), std::min(area.Bottom, getHeight() - edge)},
                        {UseRightToLeftAlignment() ? -by.cx : by.cx, by.cy});
    const TRect client = GetClientRect();
    InvalidateRect({client.Right, 0, getWidth(), getHeight()});
    InvalidateRect({0, client.Bottom, getWidth(), getHeight()});
}

void TCustomGrid::ShowCell(TGridCoord cell)
{
    const TLayout layout = GetLayout();
    MoveTopLeft(mCols.GetFirstToShow(cell.X, layout.width), mRows.GetFirstToShow(cell.Y, layout.height));
}

void TCustomGrid::ScrollBy(int cols, int rows)
{
    const TLayout layout = GetLayout();
    const auto moved = [](const CGridAxis& axis, int count, int area) {
        // What was scrolled further than to the end, as a program may, isn't pulled back.
        const int last = std::max(axis.GetHighestFirst(area), axis.getFirst());
        const System::Int64 first = System::Int64{axis.getFirst()} + count;
        return static_cast<int>(
            std::clamp<System::Int64>(first, axis.getFixedCount(), std::max(last, axis.getFixedCount())));
    };
    MoveTopLeft(moved(mCols, cols, layout.width), moved(mRows, rows, layout.height));
}

bool TCustomGrid::PressBar(TPoint place)
{
    using EPart = CGridScrollBar::EPart;
    for (const bool isVertical : {false, true}) {
        const auto bar = GetBar(isVertical);
        const EPart part = bar ? bar->GetPartAt(place) : EPart::None;
        if (part == EPart::None) {
            continue;
        }
        if (part == EPart::Thumb) {
            mDraggedBar = isVertical ? 2 : 1;
            return true;
        }
        const int size = part == EPart::LineBack || part == EPart::LineOn ? 1 : bar->getPage();
        const int step = part == EPart::LineBack || part == EPart::PageBack ? -size : size;
        isVertical ? ScrollBy(0, step) : ScrollBy(step, 0);
        return true;
    }
    return place.X >= getClientWidth() && place.Y >= getClientHeight();
}

void TCustomGrid::DragBar(TPoint place)
{
    const bool isVertical = mDraggedBar == 2;
    const auto bar = GetBar(isVertical);
    // A press and release on one spot moves nothing, though the thumb is held at its middle.
    if (bar && place != mHitTest) {
        const int step = bar->GetPositionAt(place) - bar->getPosition();
        isVertical ? ScrollBy(0, step) : ScrollBy(step, 0);
    }
}

} // namespace Grids
