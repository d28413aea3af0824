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

// Columns, rows, options and the design.

namespace Grids
{

using Classes::TComponentWatch;
using System::UnicodeString;

namespace
{

constexpr int UsualCount = 5;
constexpr int UsualWidth = 64;
constexpr int UsualHeight = 24;

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
    ShowLineCursor(gsNormal);
}

bool TCustomGrid::IsInGrid(int col, int row) const noexcept
{
    return col >= 0 && col < getColCount() && row >= 0 && row < getRowCount();
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
    if (!IsInGrid(mEditorCell.X, mEditorCell.Y)) {
        HideEdit();
    }
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
    AnnounceCell();
    PlaceEditor();
}

void TCustomGrid::ResetToBegin()
{
    mCols.setFirst(getFixedCols());
    mRows.setFirst(getFixedRows());
    mCurrent = mAnchor = {getFixedCols(), getFixedRows()};
    StopDragging();
    const TComponentWatch watch(this);
    HideEdit();
    if (watch.IsAlive()) {
        Relaid();
    }
}

void TCustomGrid::setFixedCols(int count)
{
    if (count == getFixedCols()) {
        return;
    }
    if (count >= getColCount()) {
        throw EInvalidGridOperation(u"Fixed column count must be less than column count");
    }
    mCols.CheckIndex(count);
    mCols.setFixedCount(count);
    ResetToBegin();
}

void TCustomGrid::setFixedRows(int count)
{
    if (count == getFixedRows()) {
        return;
    }
    if (count >= getRowCount()) {
        throw EInvalidGridOperation(u"Fixed row count must be less than row count");
    }
    mRows.CheckIndex(count);
    mRows.setFixedCount(count);
    ResetToBegin();
}

void TCustomGrid::setDefaultColWidth(int width)
{
    mCols.setDefaultSize(width);
    SizesChanged(mCols);
}

void TCustomGrid::setDefaultRowHeight(int height)
{
    mRows.setDefaultSize(height);
    SizesChanged(mRows);
}

void TCustomGrid::setColWidths(int col, int width)
{
    SetSize(mCols, col, width);
}

void TCustomGrid::setRowHeights(int row, int height)
{
    SetSize(mRows, row, height);
}

void TCustomGrid::SetSize(CGridAxis& axis, int index, int size)
{
    axis.CheckIndex(index);
    if (size != axis.getSize(index)) {
        axis.setSize(index, size);
        SizesChanged(axis);
    }
}

void TCustomGrid::SizesChanged(const CGridAxis& axis)
{
    const TComponentWatch watch(this);
    if (&axis == &mCols) {
        ColWidthsChanged();
    } else {
        RowHeightsChanged();
    }
    if (watch.IsAlive()) {
        Relaid();
    }
}

void TCustomGrid::setTabStops(int col, bool isStop)
{
    mCols.CheckIndex(col);
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
    if (!MoveOn(mCols, &TGridCoord::X, from, to)) {
        return;
    }
    mPassedCols = Moved(mPassedCols, from, to);
    const TComponentWatch watch(this);
    Relaid();
    if (watch.IsAlive()) {
        ColumnMoved(from, to);
    }
}

void TCustomGrid::MoveRow(int from, int to)
{
    if (!MoveOn(mRows, &TGridCoord::Y, from, to)) {
        return;
    }
    const TComponentWatch watch(this);
    Relaid();
    if (watch.IsAlive()) {
        RowMoved(from, to);
    }
}

bool TCustomGrid::MoveOn(CGridAxis& axis, int TGridCoord::*number, int from, int to)
{
    axis.CheckIndex(from);
    axis.CheckIndex(to);
    if (from == to) {
        return false;
    }
    axis.Move(from, to);
    for (TGridCoord* const cell : {&mCurrent, &mAnchor, &mEditorCell}) {
        cell->*number = CGridAxis::MovedIndex(cell->*number, from, to);
    }
    return true;
}

void TCustomGrid::DeleteColumn(int col)
{
    mCols.CheckIndex(col);
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
    mRows.CheckIndex(row);
    if (getRowCount() == 1) {
        throw EInvalidGridOperation(u"Cannot delete the last row of a grid");
    }
    const TComponentWatch watch(this);
    MoveRow(row, getRowCount() - 1);
    if (watch.IsAlive()) {
        setRowCount(getRowCount() - 1);
    }
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
    const TComponentWatch watch(this);
    if (HasOption(goAlwaysShowEditor)) {
        ShowEditor();
    } else if (!HasOption(goEditing) || HasOption(goRowSelect)) {
        HideEditor();
    }
    if (watch.IsAlive()) {
        Relaid();
    }
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

void TCustomGrid::TopLeftChanged()
{
    PlaceEditor();
}

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
        axis.CheckIndex(i);
        axis.setSize(i, size);
    }
    reader.ReadListEnd();
    SizesChanged(axis);
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
