// SPDX-License-Identifier: MIT
#include "platform/visual/grids/Grids_CustomGrid.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/filer/Classes_Reader.h"
#include "platform/runtime/filer/Classes_Writer.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/grids/internal/Grids_GridLayout.h"
#include "platform/visual/grids/internal/Grids_ScrollBar.h"
#include "platform/visual/stdctrls/Extctrls_Timer.h"

#include <algorithm>
#include <limits>

// Columns, rows, the cell at hand and the selection.

namespace Grids
{

using Classes::TComponentWatch;
using System::UnicodeString;

namespace
{

constexpr int UsualCount = 5;
constexpr int UsualWidth = 64;
constexpr int UsualHeight = 24;

[[noreturn]] void ThrowOutOfRange()
{
    throw EInvalidGridOperation(u"Grid index out of range");
}

void CheckIndex(int index, const CGridAxis& axis)
{
    if (index < 0 || index >= axis.getCount()) {
        ThrowOutOfRange();
    }
}

/// Goes with the one that moves from one index to another.
std::set<int> Moved(const std::set<int>& indices, int from, int to)
{
    std::set<int> moved;
    for (const int index : indices) {
        moved.insert(CGridAxis::MovedIndex(index, from, to));
    }
    return moved;
}

} // namespace

System::TMetaClass* TCustomGrid::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TCustomGrid>(u"TCustomGrid").Build();
    return record;
}

TCustomGrid::TCustomGrid(Classes::TComponent* owner)
    : TCustomControl(owner),
      mCols(UsualCount, 1, UsualWidth),
      mRows(UsualCount, 1, UsualHeight),
      mCurrent{1, 1},
      mAnchor{1, 1},
      mOptions{goFixedVertLine, goFixedHorzLine, goVertLine, goHorzLine, goRangeSelect}
{
    setControlStyle({Controls::csCaptureMouse, Controls::csOpaque, Controls::csDoubleClicks});
    SetBounds(getLeft(), getTop(), 320, 120);
    setColor(Graphics::clWindow);
    setTabStop(true);
}

TCustomGrid::~TCustomGrid()
{
    Destroying();
}

bool TCustomGrid::IsInGrid(int col, int row) const noexcept
{
    return col >= 0 && col < getColCount() && row >= 0 && row < getRowCount();
}

void TCustomGrid::CheckCell(int col, int row) const
{
    if (!IsInGrid(col, row)) {
        ThrowOutOfRange();
    }
}

TGridCoord TCustomGrid::Held(TGridCoord cell) const noexcept
{
    return {std::clamp(cell.X, -1, getColCount() - 1), std::clamp(cell.Y, -1, getRowCount() - 1)};
}

void TCustomGrid::ChangeSize(int colCount, int rowCount)
{
    const int oldColCount = getColCount();
    const int oldRowCount = getRowCount();
    mCols.setCount(colCount);
    mRows.setCount(rowCount);
    if (getColCount() == oldColCount && getRowCount() == oldRowCount) {
        return;
    }
    mPassedCols.erase(mPassedCols.lower_bound(getColCount()), mPassedCols.end());
    mCurrent = Held(mCurrent);
    mAnchor = Held(mAnchor);
    if (mGridState != gsNormal && mGridState != gsSelecting) {
        StopDragging();
    }
    const TComponentWatch watch(this);
    Relaid();
    if (watch.IsAlive()) {
        SizeChanged(oldColCount, oldRowCount);
    }
}

void TCustomGrid::Relaid()
{
    Invalidate();
}

void TCustomGrid::ResetToBegin()
{
    mCols.setFirst(getFixedCols());
    mRows.setFirst(getFixedRows());
    mCurrent = mAnchor = {getFixedCols(), getFixedRows()};
    StopDragging();
    Relaid();
}

void TCustomGrid::setFixedCols(int count)
{
    if (count == getFixedCols()) {
        return;
    }
    if (count < 0) {
        ThrowOutOfRange();
    }
    if (count >= getColCount()) {
        throw EInvalidGridOperation(u"Fixed column count must be less than column count");
    }
    mCols.setFixedCount(count);
    ResetToBegin();
}

void TCustomGrid::setFixedRows(int count)
{
    if (count == getFixedRows()) {
        return;
    }
    if (count < 0) {
        ThrowOutOfRange();
    }
    if (count >= getRowCount()) {
        throw EInvalidGridOperation(u"Fixed row count must be less than row count");
    }
    mRows.setFixedCount(count);
    ResetToBegin();
}

void TCustomGrid::setDefaultColWidth(int width)
{
    mCols.setDefaultSize(width);
    const TComponentWatch watch(this);
    ColWidthsChanged();
    if (watch.IsAlive()) {
        Relaid();
    }
}

void TCustomGrid::setDefaultRowHeight(int height)
{
    mRows.setDefaultSize(height);
    const TComponentWatch watch(this);
    RowHeightsChanged();
    if (watch.IsAlive()) {
        Relaid();
    }
}

void TCustomGrid::setColWidths(int col, int width)
{
    CheckIndex(col, mCols);
    if (width == getColWidths(col)) {
        return;
    }
    mCols.setSize(col, width);
    const TComponentWatch watch(this);
    ColWidthsChanged();
    if (watch.IsAlive()) {
        Relaid();
    }
}

void TCustomGrid::setRowHeights(int row, int height)
{
    CheckIndex(row, mRows);
    if (height == getRowHeights(row)) {
        return;
    }
    mRows.setSize(row, height);
    const TComponentWatch watch(this);
    RowHeightsChanged();
    if (watch.IsAlive()) {
        Relaid();
    }
}

void TCustomGrid::setTabStops(int col, bool isStop)
{
    CheckIndex(col, mCols);
    if (isStop) {
        mPassedCols.erase(col);
    } else {
        mPassedCols.insert(col);
    }
}

void TCustomGrid::setGridLineWidth(int width)
{
    mLineWidth = std::clamp(width, 0, std::numeric_limits<int>::max() / 4);
    ApplyLineWidth();
    Relaid();
}

void TCustomGrid::ApplyLineWidth()
{
    mCols.setLineWidth(HasOption(goVertLine) || HasOption(goFixedVertLine) ? mLineWidth : 0);
    mRows.setLineWidth(HasOption(goHorzLine) || HasOption(goFixedHorzLine) ? mLineWidth : 0);
}

void TCustomGrid::MoveColumn(int from, int to)
{
    CheckIndex(from, mCols);
    CheckIndex(to, mCols);
    if (from == to) {
        return;
    }
    mCols.Move(from, to);
    mPassedCols = Moved(mPassedCols, from, to);
    mCurrent.X = CGridAxis::MovedIndex(mCurrent.X, from, to);
    mAnchor.X = CGridAxis::MovedIndex(mAnchor.X, from, to);
    const TComponentWatch watch(this);
    Relaid();
    if (watch.IsAlive()) {
        ColumnMoved(from, to);
    }
}

void TCustomGrid::MoveRow(int from, int to)
{
    CheckIndex(from, mRows);
    CheckIndex(to, mRows);
    if (from == to) {
        return;
    }
    mRows.Move(from, to);
    mCurrent.Y = CGridAxis::MovedIndex(mCurrent.Y, from, to);
    mAnchor.Y = CGridAxis::MovedIndex(mAnchor.Y, from, to);
    const TComponentWatch watch(this);
    Relaid();
    if (watch.IsAlive()) {
        RowMoved(from, to);
    }
}

void TCustomGrid::DeleteColumn(int col)
{
    CheckIndex(col, mCols);
    if (getColCount() == 1) {
        throw EInvalidGridOperation(u"Cannot delete the last column of a grid");
    }
    const TComponentWatch watch(this);
    MoveColumn(col, getColCount() - 1);
    if (watch.IsAlive()) {
        setColCount(getColCount() - 1);
    }
}

void TCustomGrid::DeleteRow(int row)
{
    CheckIndex(row, mRows);
    if (getRowCount() == 1) {
        throw EInvalidGridOperation(u"Cannot delete the last row of a grid");
    }
    const TComponentWatch watch(this);
    MoveRow(row, getRowCount() - 1);
    if (watch.IsAlive()) {
        setRowCount(getRowCount() - 1);
    }
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
    mCurrent = {HasOption(goRowSelect) ? getFixedCols() : col, row};
    if (moveAnchor || !HasOption(goRangeSelect)) {
        mAnchor = mCurrent;
    }
    Invalidate();
    if (show) {
        ShowCell({col, row});
    }
    return true;
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

void TCustomGrid::setSelection(const TGridRect& selection)
{
    mAnchor = Held({selection.Left, selection.Top});
    mCurrent = Held({selection.Right, selection.Bottom});
    Relaid();
}

void TCustomGrid::setLeftCol(int col)
{
    CheckIndex(col, mCols);
    MoveTopLeft(col, getTopRow());
}

void TCustomGrid::setTopRow(int row)
{
    CheckIndex(row, mRows);
    MoveTopLeft(getLeftCol(), row);
}

void TCustomGrid::MoveTopLeft(int left, int top)
{
    left = std::max(left, getFixedCols());
    top = std::max(top, getFixedRows());
    if (left == getLeftCol() && top == getTopRow()) {
        return;
    }
    mCols.setFirst(left);
    mRows.setFirst(top);
    Invalidate();
    TopLeftChanged();
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

void TCustomGrid::SetOptions(const TGridOptions& options)
{
    if (options == mOptions) {
        return;
    }
    mOptions = options;
    if (HasOption(goRowSelect)) {
        mOptions >> goAlwaysShowEditor;
        mCurrent.X = mCurrent.X < 0 ? mCurrent.X : getFixedCols();
    }
    if (!HasOption(goRangeSelect)) {
        mAnchor = mCurrent;
    }
    ApplyLineWidth();
    Relaid();
}

void TCustomGrid::setScrollBars(Stdctrls::TScrollStyle style)
{
    mScrollBars = style;
    Relaid();
}

void TCustomGrid::setBorderStyle(Forms::TBorderStyle style)
{
    if (style != mBorderStyle) {
        mBorderStyle = style;
        Invalidate();
    }
}

void TCustomGrid::setDefaultDrawing(bool isOn)
{
    mDefaultDrawing = isOn;
    Invalidate();
}

void TCustomGrid::setDrawingStyle(TGridDrawingStyle style)
{
    mDrawingStyle = style;
    Invalidate();
}

void TCustomGrid::setFixedColor(Graphics::TColor color)
{
    mFixedColor = color;
    Invalidate();
}

void TCustomGrid::setGradientStartColor(Graphics::TColor color)
{
    mGradientStart = color;
    Invalidate();
}

void TCustomGrid::setGradientEndColor(Graphics::TColor color)
{
    mGradientEnd = color;
    Invalidate();
}

// What is there for derived classes.

bool TCustomGrid::SelectCell(int, int)
{
    return true;
}

void TCustomGrid::SizeChanged(int, int) {}

void TCustomGrid::ColWidthsChanged() {}

void TCustomGrid::RowHeightsChanged() {}

void TCustomGrid::TopLeftChanged() {}

void TCustomGrid::ColumnMoved(int, int) {}

void TCustomGrid::RowMoved(int, int) {}

void TCustomGrid::FixedCellClick(int, int) {}

void TCustomGrid::DefineProperties(Classes::TFiler& filer)
{
    TCustomControl::DefineProperties(filer);
    const auto* const ancestor = dynamic_cast<const TCustomGrid*>(filer.getAncestor());
    const auto define = [&](const UnicodeString& name, bool areColumns) {
        const CGridAxis& axis = areColumns ? mCols : mRows;
        const CGridAxis* const inherited =
            ancestor == nullptr ? nullptr : &(areColumns ? ancestor->mCols : ancestor->mRows);
        const bool hasData = inherited == nullptr ? axis.hasOwnSizes() : !axis.HasSameSizes(*inherited);
        // What the ancestor has of its own, and this one not, must be told as well.
        const int end = std::max(axis.GetOwnEnd(), inherited == nullptr ? 0 : inherited->GetOwnEnd());
        filer.DefineProperty(
            name, [this, areColumns](Classes::TReader& reader) { ReadSizes(reader, areColumns); },
            [&axis, end](Classes::TWriter& writer) { WriteSizes(writer, axis, end); }, hasData);
    };
    define(u"ColWidths", true);
    define(u"RowHeights", false);
}

void TCustomGrid::ReadSizes(Classes::TReader& reader, bool areColumns)
{
    CGridAxis& axis = areColumns ? mCols : mRows;
    reader.ReadListBegin();
    for (int i = 0; !reader.EndOfList(); ++i) {
        const int size = reader.ReadInteger();
        CheckIndex(i, axis);
        axis.setSize(i, size);
    }
    reader.ReadListEnd();
    const TComponentWatch watch(this);
    if (areColumns) {
        ColWidthsChanged();
    } else {
        RowHeightsChanged();
    }
    if (watch.IsAlive()) {
        Relaid();
    }
}

void TCustomGrid::WriteSizes(Classes::TWriter& writer, const CGridAxis& axis, int end)
{
    writer.WriteListBegin();
    for (int i = 0; i < std::min(end, axis.getCount()); ++i) {
        writer.WriteInteger(axis.getSize(i));
    }
    writer.WriteListEnd();
}

} // namespace Grids
