// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/forms/Forms_Screen.h"
#include "platform/visual/grids/Grids_CustomGrid.h"
#include "platform/visual/grids/internal/Grids_GridLayout.h"
#include "platform/visual/stdctrls/Extctrls_Timer.h"

#include <algorithm>
#include <cstdlib>

// What the mouse does in a grid.

namespace Grids
{

using Classes::TComponentWatch;
using Classes::TShiftState;
using Controls::TMouseButton;
using Types::TPoint;
using Types::TRect;

namespace
{

/// Where the fixed ones end that are in sight.
int GetFixedEnd(const CGridAxis& axis, int area)
{
    int end = 0;
    for (const CGridAxis::TSpan& span : axis.GetVisible(area)) {
        end = span.index < axis.getFixedCount() ? span.end : end;
    }
    return end;
}

/// The place in the part that scrolls that is nearest to one outside of it.
int HoldInScrolled(int place, const CGridAxis& axis, int area)
{
    const int last = std::max(area - 1, 0);
    return std::clamp(place, std::min(GetFixedEnd(axis, area) + axis.getLineWidth(), last), last);
}

} // namespace

bool TCustomGrid::BeginColumnDrag(int&, int&, TPoint)
{
    return true;
}

bool TCustomGrid::BeginRowDrag(int&, int&, TPoint)
{
    return true;
}

bool TCustomGrid::CheckColumnDrag(int, int, TPoint)
{
    return true;
}

bool TCustomGrid::CheckRowDrag(int, int, TPoint)
{
    return true;
}

bool TCustomGrid::EndColumnDrag(int&, int&, TPoint)
{
    return true;
}

bool TCustomGrid::EndRowDrag(int&, int&, TPoint)
{
    return true;
}

void TCustomGrid::MouseDown(TMouseButton button, TShiftState shift, int x, int y)
{
    const TPoint place{x, y};
    mHitTest = mMousePlace = place;
    if (PressBar(place)) {
        return;
    }
    const TComponentWatch watch(this);
    if (!IsDesigning() && CanFocus()) {
        SetFocus();
    }
    if (watch.IsAlive() && button == Controls::mbLeft) {
        if (shift.Contains(Classes::ssDouble)) {
            DblClick();
        } else if (!StartSizing(place)) {
            PressCell(MouseCoord(x, y), shift, place);
        }
    }
    if (watch.IsAlive()) {
        TCustomControl::MouseDown(button, shift, x, y);
    }
}

void TCustomGrid::PressCell(TGridCoord cell, const TShiftState& shift, TPoint place)
{
    if (cell.X < 0) {
        return;
    }
    const bool isInFixedCol = cell.X < getFixedCols();
    const bool isInFixedRow = cell.Y < getFixedRows();
    if (isInFixedCol || isInFixedRow) {
        if ((isInFixedCol && HasOption(goFixedColClick)) || (isInFixedRow && HasOption(goFixedRowClick))) {
            mPressedCell = cell;
            InvalidateCell(cell.X, cell.Y);
        }
        StartMoving(cell, place);
        return;
    }
    if (!HasOption(goEditing)) {
        StartDragging(gsSelecting);
        MoveCurrent(cell.X, cell.Y, !shift.Contains(Classes::ssShift), true);
        return;
    }
    // Where the user edits, a press on the cell at hand asks for the editor.
    if (cell != mCurrent) {
        FocusCell(cell.X, cell.Y, true);
        return;
    }
    const TComponentWatch watch(this);
    ShowEditor();
    if (watch.IsAlive()) {
        Click();
    }
}

TGridState TCustomGrid::FindLine(TPoint place, int& index) const
{
    const TLayout layout = GetLayout();
    const int x = Mirror(place.X);
    const auto isInFixed = [](const CGridAxis& axis, int at, int area) {
        const int under = axis.GetIndexAt(at, area);
        return under >= 0 && under < axis.getFixedCount();
    };
    const auto find = [&](const CGridAxis& axis, int at, int area) {
        const auto line = axis.GetLineAt(at, area);
        const bool isFound = line && line->index >= axis.getFixedCount();
        index = isFound ? line->index : -1;
        return isFound;
    };
    if (HasOption(goColSizing) && isInFixed(mRows, place.Y, layout.height)) {
        return find(mCols, x, layout.width) ? gsColSizing : gsNormal;
    }
    const bool isOverRows = HasOption(goRowSizing) && isInFixed(mCols, x, layout.width);
    return isOverRows && find(mRows, place.Y, layout.height) ? gsRowSizing : gsNormal;
}

bool TCustomGrid::StartSizing(TPoint place)
{
    int index = -1;
    const TGridState state = FindLine(place, index);
    if (state != gsNormal) {
        mDragged = index;
        StartDragging(state);
    }
    return state != gsNormal;
}

void TCustomGrid::ShowLineCursor(TGridState state)
{
    const Controls::TCursor cursor = state == gsColSizing   ? Controls::crHSplit
                                     : state == gsRowSizing ? Controls::crVSplit
                                                            : Controls::crDefault;
    if (cursor == mLineCursor) {
        return;
    }
    mLineCursor = cursor;
    // What the program shows over all of the screen, as while it is busy, counts more.
    if (Forms::Screen->getCursor() == Controls::crDefault) {
        Toolkits::CurrentToolkit().SetCursor(cursor);
    }
}

void TCustomGrid::StartMoving(TGridCoord cell, TPoint place)
{
    const bool isInFixedCol = cell.X < getFixedCols();
    const bool isInFixedRow = cell.Y < getFixedRows();
    if (isInFixedCol == isInFixedRow || !HasOption(isInFixedCol ? goRowMoving : goColMoving)) {
        return;
    }
    int origin = isInFixedCol ? cell.Y : cell.X;
    int target = origin;
    const TComponentWatch watch(this);
    const bool mayMove =
        isInFixedCol ? BeginRowDrag(origin, target, place) : BeginColumnDrag(origin, target, place);
    if (mayMove && watch.IsAlive()) {
        mDragged = origin;
        mDragTarget = target;
        StartDragging(isInFixedCol ? gsRowMoving : gsColMoving);
    }
}

void TCustomGrid::StartDragging(TGridState state)
{
    constexpr unsigned scrollInterval = 60;
    mGridState = state;
    if (state != gsSelecting) {
        Invalidate();
    }
    if (state == gsRowSizing || state == gsColSizing) {
        return;
    }
    if (mDragTimer == nullptr) {
        mDragTimer = std::make_unique<Extctrls::TTimer>();
        mDragTimer->setInterval(scrollInterval);
        mDragTimer->setOnTimer({this, &TCustomGrid::DragTimer});
    }
    mDragTimer->setEnabled(true);
}

void TCustomGrid::StopDragging()
{
    if (mGridState != gsNormal) {
        mGridState = gsNormal;
        Invalidate();
    }
    mDraggedBar = 0;
    if (mPressedCell.X >= 0) {
        mPressedCell = {-1, -1};
        Invalidate();
    }
    if (mDragTimer != nullptr) {
        mDragTimer->setEnabled(false);
    }
}

void TCustomGrid::MouseMove(TShiftState shift, int x, int y)
{
    const TPoint place{x, y};
    mMousePlace = place;
    const TComponentWatch watch(this);
    if (mDraggedBar != 0) {
        if (HasOption(goThumbTracking)) {
            DragBar(place);
        }
        return;
    }
    DragTo(place);
    if (watch.IsAlive()) {
        TCustomControl::MouseMove(shift, x, y);
    }
}

void TCustomGrid::DragTo(TPoint place)
{
    const TGridCoord cell = MouseCoord(place.X, place.Y);
    switch (mGridState) {
    case gsSelecting:
        if (cell.X >= getFixedCols() && cell.Y >= getFixedRows() && cell != mCurrent) {
            MoveCurrent(cell.X, cell.Y, false, true);
        }
        break;
    case gsRowSizing:
    case gsColSizing:
        Invalidate();
        break;
    case gsRowMoving:
    case gsColMoving:
        MoveDragTarget(place);
        break;
    default: {
        int index = -1;
        ShowLineCursor(FindLine(place, index));
        TrackFixed(cell);
    }
    }
}

void TCustomGrid::MoveDragTarget(TPoint place)
{
    const TLayout layout = GetLayout();
    const bool isRow = mGridState == gsRowMoving;
    const int target =
        isRow ? mRows.GetIndexAt(place.Y, layout.height) : mCols.GetIndexAt(Mirror(place.X), layout.width);
    const int fixedCount = isRow ? getFixedRows() : getFixedCols();
    if (target < fixedCount || target == mDragTarget) {
        return;
    }
    const TComponentWatch watch(this);
    const bool isAllowed =
        isRow ? CheckRowDrag(mDragged, target, place) : CheckColumnDrag(mDragged, target, place);
    if (isAllowed && watch.IsAlive()) {
        mDragTarget = target;
        Invalidate();
    }
}

void TCustomGrid::MouseUp(TMouseButton button, TShiftState shift, int x, int y)
{
    const TPoint place{x, y};
    const TComponentWatch watch(this);
    if (mDraggedBar != 0) {
        DragBar(place);
        if (watch.IsAlive()) {
            StopDragging();
        }
        return;
    }
    const TGridState state = mGridState;
    const TGridCoord pressed = mPressedCell;
    if (button == Controls::mbLeft) {
        if (state == gsRowMoving || state == gsColMoving || state == gsSelecting) {
            DragTo(place);
        }
        if (watch.IsAlive()) {
            StopDragging();
            EndSizing(state, place);
        }
        if (watch.IsAlive()) {
            EndMoving(state, place);
        }
        if (watch.IsAlive() && state == gsSelecting) {
            Click();
        }
        if (watch.IsAlive() && pressed.X >= 0 && MouseCoord(x, y) == pressed) {
            FixedCellClick(pressed.X, pressed.Y);
        }
    }
    if (watch.IsAlive()) {
        TCustomControl::MouseUp(button, shift, x, y);
    }
}

void TCustomGrid::EndSizing(TGridState state, TPoint place)
{
    if (state != gsRowSizing && state != gsColSizing) {
        return;
    }
    const TLayout layout = GetLayout();
    const bool isRow = state == gsRowSizing;
    const auto span = isRow ? mRows.GetSpan(mDragged, layout.height) : mCols.GetSpan(mDragged, layout.width);
    if (!span) {
        return;
    }
    // A press and release on one spot sizes nothing, though the spot needn't be the line's own.
    const int at = isRow ? place.Y : Mirror(place.X);
    const int pressedAt = isRow ? mHitTest.Y : Mirror(mHitTest.X);
    const int size = std::max(span->end - span->begin + at - pressedAt, 1);
    if (at == pressedAt) {
        return;
    }
    if (isRow) {
        setRowHeights(mDragged, size);
    } else {
        setColWidths(mDragged, size);
    }
}

void TCustomGrid::EndMoving(TGridState state, TPoint place)
{
    int from = mDragged;
    int to = mDragTarget;
    const TComponentWatch watch(this);
    if (state == gsColMoving && EndColumnDrag(from, to, place) && watch.IsAlive() && from != to) {
        MoveColumn(from, to);
    } else if (state == gsRowMoving && EndRowDrag(from, to, place) && watch.IsAlive() && from != to) {
        MoveRow(from, to);
    }
}

void TCustomGrid::DragTimer(System::TObject*)
{
    const TRect area = GetClientRect();
    const int x = Mirror(mMousePlace.X);
    TGridScrollDirection direction;
    const auto look = [&](int at, int begin, int end, TGridScrollDirectionFlag back,
                          TGridScrollDirectionFlag on) {
        if (at < begin) {
            direction << back;
        } else if (at >= end) {
            direction << on;
        }
    };
    if (mGridState != gsRowMoving) {
        look(x, GetFixedEnd(mCols, area.Right), area.Right, sdLeft, sdRight);
    }
    if (mGridState != gsColMoving) {
        look(mMousePlace.Y, GetFixedEnd(mRows, area.Bottom), area.Bottom, sdUp, sdDown);
    }
    if (!direction.Empty()) {
        TimedScroll(direction);
    }
}

void TCustomGrid::TimedScroll(TGridScrollDirection direction)
{
    const int cols = direction.Contains(sdRight) - direction.Contains(sdLeft);
    const int rows = direction.Contains(sdDown) - direction.Contains(sdUp);
    if (mGridState == gsSelecting) {
        const TGridCoord target =
            HeldBehindFixed(System::Int64{mCurrent.X} + cols, System::Int64{mCurrent.Y} + rows);
        if (target != mCurrent) {
            MoveCurrent(target.X, target.Y, false, true);
        }
        return;
    }
    const TComponentWatch watch(this);
    ScrollBy(cols, rows);
    if (watch.IsAlive()) {
        const TRect area = GetClientRect();
        MoveDragTarget({Mirror(HoldInScrolled(Mirror(mMousePlace.X), mCols, area.Right)),
                        HoldInScrolled(mMousePlace.Y, mRows, area.Bottom)});
    }
}

void TCustomGrid::TrackFixed(TGridCoord cell)
{
    const bool isFixed = cell.X >= 0 && (cell.X < getFixedCols() || cell.Y < getFixedRows());
    const TGridCoord hot = isFixed && HasOption(goFixedHotTrack) ? cell : TGridCoord{-1, -1};
    if (hot == mHotCell) {
        return;
    }
    InvalidateCell(mHotCell.X, mHotCell.Y);
    mHotCell = hot;
    InvalidateCell(hot.X, hot.Y);
}

bool TCustomGrid::MouseWheel(TShiftState shift, int delta, TPoint place)
{
    constexpr int notch = 120;
    const TComponentWatch watch(this);
    if (TCustomControl::MouseWheel(shift, delta, place) || !watch.IsAlive()) {
        return true;
    }
    const System::Int64 turned = System::Int64{mWheelRest} + delta;
    // A wheel that turns by less than a notch at a time adds up; more notches than a user can turn are noise.
    const int notches = static_cast<int>(std::clamp<System::Int64>(turned / notch, -100, 100));
    mWheelRest = static_cast<int>(turned % notch);
    bool isHandled = std::abs(notches) == 0;
    for (int i = 0; i < std::abs(notches) && watch.IsAlive(); ++i) {
        isHandled = notches > 0 ? DoMouseWheelUp(shift, place) : DoMouseWheelDown(shift, place);
    }
    return isHandled;
}

bool TCustomGrid::DoMouseWheelDown(TShiftState, TPoint)
{
    if (getRow() < getRowCount() - 1) {
        setRow(getRow() + 1);
    }
    return true;
}

bool TCustomGrid::DoMouseWheelUp(TShiftState, TPoint)
{
    if (getRow() > getFixedRows()) {
        setRow(getRow() - 1);
    }
    return true;
}

void TCustomGrid::Dispatch(void* record)
{
    auto& message = *static_cast<Messages::TMessage*>(record);
    const TComponentWatch watch(this);
    switch (message.Msg) {
    case WM_CHAR:
        if (StartTyping(message)) {
            return;
        }
        break;
    case CM_MOUSELEAVE:
        ShowLineCursor(gsNormal);
        TrackFixed({-1, -1});
        break;
    case CM_ENABLEDCHANGED:
    case CM_VISIBLECHANGED:
        StopDragging();
        break;
    default:
        break;
    }
    TCustomControl::Dispatch(record);
    // The editor that is always there has the keyboard for the grid.
    if (message.Msg == WM_SETFOCUS && watch.IsAlive() && HasOption(goAlwaysShowEditor) && !mIsHidingEditor) {
        ShowEditor();
    }
}

} // namespace Grids
