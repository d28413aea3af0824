// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/grids/Grids_CustomGrid.h"
#include "platform/visual/grids/internal/Grids_GridLayout.h"
#include "platform/visual/grids/internal/Grids_ScrollBar.h"

#include <algorithm>

// Where cells are seen, and how a grid is painted.

namespace Grids
{

using Types::TPoint;
using Types::TRect;

namespace
{

bool IsEmpty(const TRect& rect)
{
    return rect.Left >= rect.Right || rect.Top >= rect.Bottom;
}

bool Overlap(const TRect& a, const TRect& b)
{
    return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

/// A colour on the way from one to another.
Graphics::TColor Between(Graphics::TColor from, Graphics::TColor to, int step, int steps)
{
    const int begin = Graphics::ColorToRGB(from);
    const int end = Graphics::ColorToRGB(to);
    int color = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        const int a = begin >> shift & 0xFF;
        const int b = end >> shift & 0xFF;
        color |= (a + (b - a) * step / std::max(steps, 1)) << shift;
    }
    return Graphics::TColor(color);
}

} // namespace

TCustomGrid::TLayout TCustomGrid::GetLayout() const
{
    const bool mayHorizontal = mScrollBars == Stdctrls::ssHorizontal || mScrollBars == Stdctrls::ssBoth;
    const bool mayVertical = mScrollBars == Stdctrls::ssVertical || mScrollBars == Stdctrls::ssBoth;
    const auto isBeyond = [](const CGridAxis& axis, int area) {
        return axis.GetTotal() - axis.getLineWidth() > area || axis.getFirst() > axis.getFixedCount();
    };
    TLayout layout{.width = getWidth(), .height = getHeight()};
    layout.hasHorizontal = mayHorizontal && isBeyond(mCols, layout.width);
    const int bar = CGridScrollBar::Breadth;
    layout.hasVertical = mayVertical && isBeyond(mRows, layout.height - (layout.hasHorizontal ? bar : 0));
    if (layout.hasVertical && mayHorizontal) {
        layout.hasHorizontal = isBeyond(mCols, layout.width - bar);
    }
    layout.width = std::max(layout.width - (layout.hasVertical ? bar : 0), 0);
    layout.height = std::max(layout.height - (layout.hasHorizontal ? bar : 0), 0);
    return layout;
}

TRect TCustomGrid::GetClientRect() const
{
    const TLayout layout = GetLayout();
    return {0, 0, layout.width, layout.height};
}

std::optional<CGridScrollBar> TCustomGrid::GetBar(bool isVertical) const
{
    const TLayout layout = GetLayout();
    if (!(isVertical ? layout.hasVertical : layout.hasHorizontal)) {
        return std::nullopt;
    }
    const CGridAxis& axis = isVertical ? mRows : mCols;
    const int area = isVertical ? layout.height : layout.width;
    const TRect rect = isVertical ? TRect{layout.width, 0, getWidth(), layout.height}
                                  : TRect{0, layout.height, layout.width, getHeight()};
    const int last = std::max(axis.GetHighestFirst(area), axis.getFirst());
    return CGridScrollBar(rect, isVertical, axis.getFirst() - axis.getFixedCount(),
                          last - axis.getFixedCount(), axis.GetLastWhole(area) - axis.getFirst() + 1);
}

int TCustomGrid::getGridWidth() const
{
    return static_cast<int>(std::min<System::Int64>(mCols.GetTotal(), getClientWidth()));
}

int TCustomGrid::getGridHeight() const
{
    return static_cast<int>(std::min<System::Int64>(mRows.GetTotal(), getClientHeight()));
}

int TCustomGrid::getVisibleColCount() const
{
    return mCols.GetLastWhole(getClientWidth()) - getLeftCol() + 1;
}

int TCustomGrid::getVisibleRowCount() const
{
    return mRows.GetLastWhole(getClientHeight()) - getTopRow() + 1;
}

int TCustomGrid::Mirror(int x) const
{
    return UseRightToLeftAlignment() ? getClientWidth() - 1 - x : x;
}

TRect TCustomGrid::Mirror(const TRect& rect) const
{
    if (!UseRightToLeftAlignment()) {
        return rect;
    }
    const int width = getClientWidth();
    return {width - rect.Right, rect.Top, width - rect.Left, rect.Bottom};
}

TRect TCustomGrid::RectOf(const CGridAxis::TSpan& col, const CGridAxis::TSpan& row) const
{
    return Mirror({col.begin, row.begin, col.end, row.end});
}

TRect TCustomGrid::CellRect(int col, int row) const
{
    const TLayout layout = GetLayout();
    const auto colSpan = mCols.GetSpan(col, layout.width);
    const auto rowSpan = mRows.GetSpan(row, layout.height);
    return colSpan && rowSpan ? RectOf(*colSpan, *rowSpan) : TRect{};
}

TRect TCustomGrid::BoxRect(int left, int top, int right, int bottom) const
{
    const TLayout layout = GetLayout();
    const auto around = [](const CGridAxis& axis, int area, int first, int last) {
        std::optional<CGridAxis::TSpan> found;
        for (const CGridAxis::TSpan& span : axis.GetVisible(area)) {
            if (span.index >= first && span.index <= last) {
                found = {span.index, found ? found->begin : span.begin, span.end};
            }
        }
        return found;
    };
    const auto cols = around(mCols, layout.width, std::min(left, right), std::max(left, right));
    const auto rows = around(mRows, layout.height, std::min(top, bottom), std::max(top, bottom));
    return cols && rows ? RectOf(*cols, *rows) : TRect{};
}

TGridCoord TCustomGrid::MouseCoord(int x, int y) const
{
    const TLayout layout = GetLayout();
    const TGridCoord cell{mCols.GetIndexAt(Mirror(x), layout.width), mRows.GetIndexAt(y, layout.height)};
    return cell.X < 0 || cell.Y < 0 ? TGridCoord{-1, -1} : cell;
}

void TCustomGrid::MouseToCell(int x, int y, int& col, int& row) const
{
    const TGridCoord cell = MouseCoord(x, y);
    col = cell.X;
    row = cell.Y;
}

void TCustomGrid::InvalidateRect(const TRect& rect)
{
    if (!IsEmpty(rect)) {
        GetWindow()->Invalidate(&rect);
    }
}

void TCustomGrid::InvalidateCells(const TGridRect& cells)
{
    // Where nothing is shown, as while a grid is filled, this must cost nothing.
    if (GetWindow() != nullptr && getShowing()) {
        InvalidateRect(BoxRect(cells.Left, cells.Top, cells.Right, cells.Bottom));
    }
}

void TCustomGrid::InvalidateCell(int col, int row)
{
    if (GetWindow() != nullptr && getShowing()) {
        InvalidateRect(CellRect(col, row));
    }
}

void TCustomGrid::InvalidateCol(int col)
{
    InvalidateCells({col, 0, col, getRowCount() - 1});
}

void TCustomGrid::InvalidateRow(int row)
{
    InvalidateCells({0, row, getColCount() - 1, row});
}

TGridDrawState TCustomGrid::StateOf(int col, int row) const
{
    TGridDrawState state;
    const TGridCoord cell{col, row};
    if (col < getFixedCols() || row < getFixedRows()) {
        state << gdFixed;
        if (cell == mHotCell) {
            state << gdHotTrack;
        }
        if (cell == mPressedCell) {
            state << gdPressed;
        }
    }
    if (cell == mCurrent && Focused()) {
        state << gdFocused;
    }
    if (!state.Contains(gdFixed) && getSelection().Contains(col, row)) {
        state << gdSelected;
        if (HasOption(goRowSelect)) {
            state << gdRowSelected;
        }
    }
    return state;
}

bool TCustomGrid::IsHighlighted(TGridDrawState state) const
{
    return state.Contains(gdSelected) &&
           (!state.Contains(gdFocused) || HasOption(goDrawFocusSelected) || HasOption(goRowSelect));
}

void TCustomGrid::Paint()
{
    const TLayout layout = GetLayout();
    const std::vector<CGridAxis::TSpan> cols = mCols.GetVisible(layout.width);
    const std::vector<CGridAxis::TSpan> rows = mRows.GetVisible(layout.height);
    const TRect part = getCanvas()->getClipRect();
    getCanvas()->FillRect({0, 0, getWidth(), getHeight()});
    const Classes::TComponentWatch watch(this);
    for (const CGridAxis::TSpan& row : rows) {
        for (const CGridAxis::TSpan& col : cols) {
            const TRect rect = RectOf(col, row);
            // Whoever draws a cell may make the grid smaller.
            if (!IsEmpty(rect) && IsInGrid(col.index, row.index) &&
                Overlap(part, {rect.Left - mLineWidth, rect.Top, rect.Right + mLineWidth,
                               rect.Bottom + mLineWidth})) {
                PaintCell(col, row);
                if (!watch.IsAlive()) {
                    return;
                }
            }
        }
    }
    PaintFocus();
    PaintMarker();
    PaintBars();
}

void TCustomGrid::PaintCell(const CGridAxis::TSpan& col, const CGridAxis::TSpan& row)
{
    const TRect rect = RectOf(col, row);
    const TGridDrawState state = StateOf(col.index, row.index);
    const bool isFixed = state.Contains(gdFixed);
    Graphics::TCanvas& canvas = *getCanvas();
    PaintLines(rect, isFixed);
    canvas.setFont(const_cast<Graphics::TFont*>(&GetShownFont()));
    canvas.getBrush()->setStyle(Graphics::bsSolid);
    canvas.getBrush()->setColor(isFixed ? mFixedColor : getColor());
    const Classes::TComponentWatch watch(this);
    if (mDefaultDrawing) {
        DrawCellBackground(rect, canvas.getBrush()->getColor(), state, col.index, row.index);
        if (watch.IsAlive() && IsHighlighted(state)) {
            DrawCellHighlight(rect, state, col.index, row.index);
        }
    }
    if (watch.IsAlive()) {
        DrawCell(col.index, row.index, rect, state);
    }
}

void TCustomGrid::PaintLines(const TRect& rect, bool isFixed)
{
    const bool hasVertical = HasOption(isFixed ? goFixedVertLine : goVertLine);
    const bool hasHorizontal = HasOption(isFixed ? goFixedHorzLine : goHorzLine);
    const Graphics::TColor ground = isFixed ? mFixedColor : getColor();
    const Graphics::TColor line = isFixed && mDrawingStyle == gdsClassic ? Graphics::clBlack
                                  : isFixed                              ? Graphics::clBtnShadow
                                                                         : Graphics::clSilver;
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.getBrush()->setStyle(Graphics::bsSolid);
    const int width = mCols.getLineWidth();
    const int height = mRows.getLineWidth();
    const bool isMirrored = UseRightToLeftAlignment();
    const int left = isMirrored ? rect.Left - width : rect.Left;
    const int right = isMirrored ? rect.Right : rect.Right + width;
    if (height > 0) {
        canvas.getBrush()->setColor(hasHorizontal ? line : ground);
        canvas.FillRect({left, rect.Bottom, right, rect.Bottom + height});
    }
    if (width > 0) {
        canvas.getBrush()->setColor(hasVertical ? line : ground);
        const int x = isMirrored ? left : rect.Right;
        canvas.FillRect({x, rect.Top, x + width, rect.Bottom});
    }
}

void TCustomGrid::DrawCellBackground(const TRect& rect, Graphics::TColor color, TGridDrawState state, int,
                                     int)
{
    Graphics::TCanvas& canvas = *getCanvas();
    const bool isFixed = state.Contains(gdFixed);
    if (isFixed && mDrawingStyle == gdsGradient) {
        const int height = rect.Height();
        for (int i = 0; i < height; ++i) {
            canvas.getBrush()->setColor(Between(mGradientStart, mGradientEnd, i, height - 1));
            canvas.FillRect({rect.Left, rect.Top + i, rect.Right, rect.Top + i + 1});
        }
    } else {
        const bool isLight = isFixed && (state.Contains(gdHotTrack) || state.Contains(gdPressed));
        canvas.getBrush()->setColor(isLight ? Between(color, Graphics::clHighlight, 1, 4) : color);
        canvas.FillRect(rect);
    }
    if (isFixed && mDrawingStyle == gdsClassic && getCtl3D()) {
        const bool isPressed = state.Contains(gdPressed);
        canvas.getPen()->setColor(isPressed ? Graphics::clBtnShadow : Graphics::clBtnHighlight);
        const TPoint edge[] = {{rect.Left, rect.Bottom - 1}, {rect.Left, rect.Top}, {rect.Right, rect.Top}};
        canvas.Polyline(edge);
    }
    // Text stands on what is there.
    canvas.getBrush()->setColor(color);
    if (isFixed) {
        canvas.getBrush()->setStyle(Graphics::bsClear);
    }
}

void TCustomGrid::DrawCellHighlight(const TRect& rect, TGridDrawState, int, int)
{
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.getBrush()->setColor(Graphics::clHighlight);
    canvas.getFont()->setColor(Graphics::clHighlightText);
    canvas.FillRect(rect);
}

void TCustomGrid::PaintFocus()
{
    getCanvas()->getBrush()->setStyle(Graphics::bsSolid);
    const bool isEditing = HasOption(goEditing) && HasOption(goAlwaysShowEditor);
    if (!mDefaultDrawing || !Focused() || isEditing || IsDesigning()) {
        return;
    }
    const TRect rect = HasOption(goRowSelect)
                           ? BoxRect(getFixedCols(), mCurrent.Y, getColCount() - 1, mCurrent.Y)
                           : CellRect(mCurrent.X, mCurrent.Y);
    if (!IsEmpty(rect)) {
        getCanvas()->DrawFocusRect(rect);
    }
}

void TCustomGrid::PaintMarker()
{
    if (mGridState == gsNormal || mGridState == gsSelecting) {
        return;
    }
    const TRect area = GetClientRect();
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.getBrush()->setColor(Graphics::clBtnShadow);
    const bool isRow = mGridState == gsRowSizing || mGridState == gsRowMoving;
    const bool isMoving = mGridState == gsRowMoving || mGridState == gsColMoving;
    const auto draw = [&](int place, int width) {
        const int begin = place - width / 2;
        canvas.FillRect(isRow ? TRect{0, begin, area.Right, begin + width}
                              : Mirror({begin, 0, begin + width, area.Bottom}));
    };
    if (!isMoving) {
        draw(isRow ? mMousePlace.Y : Mirror(mMousePlace.X), 1);
        return;
    }
    const CGridAxis& axis = isRow ? mRows : mCols;
    if (const auto span = axis.GetSpan(mDragTarget, isRow ? area.Bottom : area.Right)) {
        draw(mDragTarget > mDragged ? span->end : span->begin, 5);
    }
}

void TCustomGrid::PaintBars()
{
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.getBrush()->setStyle(Graphics::bsSolid);
    const auto horizontal = GetBar(false);
    const auto vertical = GetBar(true);
    if (horizontal && vertical) {
        canvas.getBrush()->setColor(Graphics::clBtnFace);
        canvas.FillRect({getClientWidth(), getClientHeight(), getWidth(), getHeight()});
    }
    for (const auto& bar : {horizontal, vertical}) {
        if (bar) {
            bar->Paint(canvas);
        }
    }
    if (mBorderStyle == Forms::bsSingle) {
        canvas.getBrush()->setColor(Graphics::clBtnShadow);
        canvas.FrameRect({0, 0, getWidth(), getHeight()});
    }
}

} // namespace Grids
