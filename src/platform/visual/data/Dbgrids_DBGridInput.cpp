// SPDX-License-Identifier: MIT
#include "platform/toolkit/MessageBox.h"
#include "platform/visual/data/Dbgrids_DBGrid.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/data/internal/Dbctrls_ReadScope.h"
#include "platform/visual/data/internal/Dbgrids_Link.h"
#include "platform/visual/data/sets/Db_Field.h"
#include "platform/visual/forms/Forms_Application.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/grids/internal/Grids_FlagScope.h"

// What the user does in a data grid, and how it is painted.

namespace Dbgrids
{

using Classes::TComponentWatch;
using Grids::CFlagScope;
using System::UnicodeString;

bool TCustomDBGrid::GoToRow(int row)
{
    Db::TDataSet* const dataSet = GetDataSet();
    const Db::TBookmark target = dataSet->GetBookmarkAt(row - TitleRows());
    const TComponentWatch watch(this);
    const TComponentWatch setWatch(dataSet);
    // A new record that is given up moves those below it.
    dataSet->CheckBrowseMode();
    if (watch.IsAlive() && setWatch.IsAlive() && dataSet->BookmarkValid(target)) {
        dataSet->GotoBookmark(target);
    }
    return watch.IsAlive() && setWatch.IsAlive() && GetLinkActive() &&
           TitleRows() + mLink->getActiveRecord() == row;
}

bool TCustomDBGrid::SelectCell(int col, int row)
{
    if (mIsFollowing || mIsLayingOut || !GetLinkActive()) {
        return TCustomGrid::SelectCell(col, row);
    }
    const TComponentWatch watch(this);
    if (row != TitleRows() + mLink->getActiveRecord()) {
        if (!GoToRow(row)) {
            return false;
        }
    } else if (col != getCol()) {
        mLink->UpdateRecord();
    }
    return watch.IsAlive() && TCustomGrid::SelectCell(col, row);
}

bool TCustomDBGrid::CanChange() const
{
    return GetLinkActive() && !mReadOnly && mDBOptions.Contains(dgEditing) && GetDataSet()->getCanModify();
}

UnicodeString TCustomDBGrid::GetCellText(int col, int row)
{
    const TColumn* const column = ColumnAt(col);
    if (column == nullptr || col < IndicatorCols()) {
        return {};
    }
    if (row < TitleRows()) {
        return column->getTitle()->getCaption();
    }
    if (!GetLinkActive() || row - TitleRows() >= mLink->getRecordCount()) {
        return {};
    }
    const Dbctrls::CReadScope reading(*GetDataSet(), row - TitleRows());
    const Db::TField* const field = column->getField();
    return field == nullptr ? UnicodeString() : field->getDisplayText();
}

UnicodeString TCustomDBGrid::GetEditText(int col, int)
{
    const TColumn* const column = ColumnAt(col);
    const Db::TField* const field = column == nullptr ? nullptr : column->getField();
    return field == nullptr ? UnicodeString() : field->getText();
}

void TCustomDBGrid::SetEditText(int, int, const UnicodeString& text)
{
    if (GetLinkActive() && mLink->getEditing()) {
        mEditText = text;
    }
}

UnicodeString TCustomDBGrid::GetEditMask(int col, int)
{
    const TColumn* const column = ColumnAt(col);
    const Db::TField* const field = column == nullptr ? nullptr : column->getField();
    return field == nullptr ? UnicodeString() : field->getEditMask();
}

int TCustomDBGrid::GetEditLimit()
{
    const Db::TField* const field = getSelectedField();
    return field == nullptr ? 0 : field->getSize();
}

bool TCustomDBGrid::CanEditAcceptKey(System::WideChar character)
{
    const Db::TField* const field = getSelectedField();
    return field != nullptr && field->IsValidChar(character);
}

bool TCustomDBGrid::CanEditModify()
{
    const TColumn* const column = ColumnAtHand();
    const Db::TField* const field = getSelectedField();
    return CanChange() && field != nullptr && !column->getReadOnly() && field->getCanModify() &&
           mLink->Edit();
}

bool TCustomDBGrid::CanEditShow()
{
    return GetLinkActive() && getSelectedField() != nullptr && TCustomGrid::CanEditShow();
}

void TCustomDBGrid::StoreEdit()
{
    if (!mEditText) {
        return;
    }
    // A text that the field refuses stays to be corrected.
    const TComponentWatch watch(this);
    const UnicodeString text = *mEditText;
    if (Db::TField* const field = getSelectedField()) {
        field->setText(text);
    }
    if (watch.IsAlive()) {
        mEditText.reset();
    }
}

void TCustomDBGrid::DeleteByUser()
{
    const TComponentWatch watch(this);
    Db::TDataSet* const dataSet = GetDataSet();
    if (dataSet->IsEmpty() || dataSet->getState() == Db::dsInsert) {
        return;
    }
    const bool isMany = mSelectedRows.getCount() > 0;
    const UnicodeString question = isMany ? u"Delete all selected records?" : u"Delete record?";
    if (mDBOptions.Contains(dgConfirmDelete) &&
        Forms::Application->MessageBox(question.c_str(), nullptr, MB_OKCANCEL | MB_ICONQUESTION) != IDOK) {
        return;
    }
    if (!watch.IsAlive() || !GetLinkActive()) {
        return;
    }
    if (isMany) {
        mSelectedRows.Delete();
    } else {
        GetDataSet()->Delete();
    }
}

bool TCustomDBGrid::DoRecordKey(System::Word key, const Classes::TShiftState& shift)
{
    if (!GetLinkActive()) {
        return false;
    }
    Db::TDataSet& dataSet = *GetDataSet();
    const bool isCtrl = shift.Contains(Classes::ssCtrl);
    const bool isPlain = shift.empty();
    if (key == VK_ESCAPE && isPlain && Db::IsEditState(dataSet.getState())) {
        mEditText.reset();
        dataSet.Cancel();
        return true;
    }
    if (!CanChange()) {
        return false;
    }
    if (key == VK_INSERT && isPlain) {
        dataSet.Insert();
        return true;
    }
    if (key == VK_DELETE && isCtrl) {
        DeleteByUser();
        return true;
    }
    const bool isAtEnd = mLink->getActiveRecord() >= mLink->getRecordCount() - 1;
    const bool isUntouched = dataSet.getState() == Db::dsInsert && !dataSet.getModified() && !mEditText;
    if (key == VK_DOWN && isPlain && isAtEnd && !mDBOptions.Contains(dgRowSelect) && !isUntouched) {
        dataSet.Append();
        return true;
    }
    return false;
}

bool TCustomDBGrid::CanGridAcceptKey(System::Word key, Classes::TShiftState shift)
{
    const TComponentWatch watch(this);
    return TCustomGrid::CanGridAcceptKey(key, shift) && watch.IsAlive() && !DoRecordKey(key, shift);
}

void TCustomDBGrid::NoteColumn(int former)
{
    if (getCol() == former) {
        return;
    }
    const TComponentWatch watch(this);
    ColExit();
    if (watch.IsAlive()) {
        ColEnter();
    }
}

void TCustomDBGrid::KeyDown(System::Word& key, Classes::TShiftState shift)
{
    const TComponentWatch watch(this);
    const int former = getCol();
    TCustomGrid::KeyDown(key, shift);
    if (watch.IsAlive()) {
        NoteColumn(former);
    }
}

void TCustomDBGrid::SelectByMouse(const Classes::TShiftState& shift)
{
    if (!mDBOptions.Contains(dgMultiSelect)) {
        return;
    }
    if (shift.Contains(Classes::ssCtrl)) {
        mSelectedRows.setCurrentRowSelected(!mSelectedRows.getCurrentRowSelected());
    } else {
        mSelectedRows.Clear();
        mSelectedRows.setCurrentRowSelected(true);
    }
}

void TCustomDBGrid::MouseDown(Controls::TMouseButton button, Classes::TShiftState shift, int x, int y)
{
    const TComponentWatch watch(this);
    const int former = getCol();
    mPressed = button == Controls::mbLeft ? MouseCoord(x, y) : Grids::TGridCoord{-1, -1};
    TCustomGrid::MouseDown(button, shift, x, y);
    if (!watch.IsAlive()) {
        return;
    }
    if (mPressed.Y >= TitleRows() && GetLinkActive()) {
        SelectByMouse(shift);
    }
    NoteColumn(former);
}

void TCustomDBGrid::MouseUp(Controls::TMouseButton button, Classes::TShiftState shift, int x, int y)
{
    const bool isSizing = getGridState() == Grids::gsColSizing || getGridState() == Grids::gsRowSizing;
    const TComponentWatch watch(this);
    TCustomGrid::MouseUp(button, shift, x, y);
    if (!watch.IsAlive() || button != Controls::mbLeft) {
        return;
    }
    const Grids::TGridCoord pressed = std::exchange(mPressed, {-1, -1});
    TColumn* const column = ColumnAt(pressed.X);
    if (isSizing || column == nullptr || pressed.Y < 0 || MouseCoord(x, y) != pressed) {
        return;
    }
    if (pressed.Y >= TitleRows()) {
        CellClick(column);
    } else if (mDBOptions.Contains(dgTitleClick)) {
        TitleClick(column);
    }
}

void TCustomDBGrid::DoExit()
{
    const TComponentWatch watch(this);
    try {
        mLink->UpdateRecord();
    } catch (...) {
        if (watch.IsAlive() && CanFocus()) {
            SetFocus();
        }
        throw;
    }
    if (!watch.IsAlive()) {
        return;
    }
    const bool isUntouched =
        GetLinkActive() && GetDataSet()->getState() == Db::dsInsert && !GetDataSet()->getModified();
    if (isUntouched && mDBOptions.Contains(dgCancelOnExit)) {
        GetDataSet()->Cancel();
    }
    if (watch.IsAlive()) {
        TCustomGrid::DoExit();
    }
}

void TCustomDBGrid::CellClick(TColumn* column)
{
    if (OnCellClick) {
        OnCellClick(column);
    }
}

void TCustomDBGrid::TitleClick(TColumn* column)
{
    if (OnTitleClick) {
        OnTitleClick(column);
    }
}

void TCustomDBGrid::ColEnter()
{
    if (OnColEnter) {
        OnColEnter(this);
    }
}

void TCustomDBGrid::ColExit()
{
    if (OnColExit) {
        OnColExit(this);
    }
}

void TCustomDBGrid::DrawColumnCell(const Types::TRect& rect, int dataCol, TColumn* column,
                                   Grids::TGridDrawState state)
{
    if (OnDrawColumnCell) {
        OnDrawColumnCell(this, rect, dataCol, column, state);
    }
}

bool TCustomDBGrid::IsMarked(int row) const
{
    return mSelectedRows.getCount() > 0 && GetLinkActive() &&
           mSelectedRows.Contains(GetDataSet()->GetBookmarkAt(row - TitleRows()));
}

bool TCustomDBGrid::IsHighlightSeen(int row) const
{
    return Focused() || mDBOptions.Contains(dgAlwaysShowSelection) || IsMarked(row);
}

void TCustomDBGrid::DrawCellHighlight(const Types::TRect& rect, Grids::TGridDrawState state, int col, int row)
{
    if (IsHighlightSeen(row)) {
        TCustomGrid::DrawCellHighlight(rect, state, col, row);
    }
}

void TCustomDBGrid::WriteText(const Types::TRect& rect, const UnicodeString& text,
                              Classes::TAlignment alignment)
{
    constexpr int Margin = 2;
    // As much as can be seen is enough of a text of any length.
    const UnicodeString seen = text.SubString(1, std::max(rect.Width(), 1));
    Graphics::TCanvas& canvas = *getCanvas();
    const int room = rect.Width() - canvas.TextWidth(seen);
    const int left = alignment == Classes::taLeftJustify ? Margin
                     : alignment == Classes::taCenter    ? room / 2
                                                         : room - Margin - 1;
    canvas.TextRect(rect, rect.Left + left, rect.Top + Margin, seen);
}

void TCustomDBGrid::DefaultDrawColumnCell(const Types::TRect& rect, int, TColumn* column,
                                          Grids::TGridDrawState)
{
    const Db::TField* const field = column == nullptr ? nullptr : column->getField();
    const TComponentWatch watch(this);
    const UnicodeString text = field == nullptr ? UnicodeString() : field->getDisplayText();
    if (watch.IsAlive()) {
        WriteText(rect, text, column == nullptr ? Classes::taLeftJustify : column->getAlignment());
    }
}

void TCustomDBGrid::DrawTitle(TColumn* column, const Types::TRect& rect)
{
    Graphics::TCanvas& canvas = *getCanvas();
    canvas.setFont(const_cast<Graphics::TFont*>(&column->getTitle()->GetShownFont()));
    canvas.getBrush()->setStyle(Graphics::bsSolid);
    canvas.getBrush()->setColor(column->getTitle()->getColor());
    WriteText(rect, column->getTitle()->getCaption(), column->getTitle()->getAlignment());
}

void TCustomDBGrid::DrawIndicator(int row, const Types::TRect& rect)
{
    if (!GetLinkActive() || row != TitleRows() + mLink->getActiveRecord()) {
        return;
    }
    const Db::TDataSetState state = GetDataSet()->getState();
    const char16_t* const mark = state == Db::dsInsert ? u"*" : state == Db::dsEdit ? u"I" : u"\u25B6";
    getCanvas()->TextRect(rect, rect.Left + 1, rect.Top + 1, mark);
}

void TCustomDBGrid::DrawCell(int col, int row, const Types::TRect& rect, Grids::TGridDrawState state)
{
    TColumn* const column = ColumnAt(col);
    if (col < IndicatorCols()) {
        if (row >= TitleRows()) {
            DrawIndicator(row, rect);
        }
        return;
    }
    if (column == nullptr) {
        return;
    }
    if (row < TitleRows()) {
        return DrawTitle(column, rect);
    }
    if (!GetLinkActive() || row - TitleRows() >= mLink->getRecordCount()) {
        return;
    }
    if (IsMarked(row) && !state.Contains(Grids::gdSelected)) {
        state << Grids::gdSelected;
        TCustomGrid::DrawCellHighlight(rect, state, col, row);
    }
    const bool isHighlighted = state.Contains(Grids::gdSelected) && IsHighlightSeen(row);
    Graphics::TCanvas& canvas = *getCanvas();
    const Graphics::TColor textColor = canvas.getFont()->getColor();
    canvas.setFont(const_cast<Graphics::TFont*>(&column->GetShownFont()));
    if (isHighlighted) {
        canvas.getFont()->setColor(textColor);
    } else {
        canvas.getBrush()->setColor(column->getColor());
    }
    const TComponentWatch watch(this);
    const Dbctrls::CReadScope reading(*GetDataSet(), row - TitleRows());
    if (getDefaultDrawing()) {
        DefaultDrawColumnCell(rect, col - IndicatorCols(), column, state);
    }
    // The text of a field may come from a handler that takes columns away.
    if (watch.IsAlive() && ColumnAt(col) == column) {
        DrawColumnCell(rect, col - IndicatorCols(), column, state);
    }
}

} // namespace Dbgrids
