// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/WindowContents.h"
#include "platform/visual/controls/Controls_CustomControl.h"
#include "platform/visual/forms/Forms_Types.h"
#include "platform/visual/grids/Grids_Axis.h"
#include "platform/visual/grids/Grids_Types.h"
#include "platform/visual/stdctrls/Stdctrls_ScrollStyle.h"

#include <set>

namespace Extctrls
{
class TTimer;
} // namespace Extctrls

namespace Grids
{

class CGridScrollBar;
class TInplaceEdit;

/// Cells in columns and rows, the first of which may be fixed: they are headings, and don't scroll. What a
/// cell is, and how it is drawn, is the derived class's. Columns and rows count from 0, the fixed ones among
/// them; one that isn't there raises `EInvalidGridOperation`. Billions of them cost nothing: only what is
/// seen is looked at.
///
///     class TCheckerboard : public Grids::TCustomGrid
///     {
///         void DrawCell(int col, int row, const Types::TRect& rect, Grids::TGridDrawState) override
///         {
///             getCanvas()->getBrush()->setColor((col + row) % 2 == 0 ? Graphics::clWhite :
///             Graphics::clBlack); getCanvas()->FillRect(rect);
///         }
///     };
class TRS8_BTL_API TCustomGrid : public Controls::TCustomControl, private Toolkits::WindowCells
{
    TRS8_BTL_CLASS(TCustomGrid, Controls::TCustomControl)

public:
    explicit TCustomGrid(Classes::TComponent* owner = nullptr);
    ~TCustomGrid() override;

    // Columns and rows.

    /// How many there are; 5 at first, always at least 1. Fewer of them keep at least one that isn't fixed,
    /// as long as there are two.
    int getColCount() const noexcept { return mCols.getCount(); }
    void setColCount(int count) { ChangeSize(count, getRowCount()); }
    int getRowCount() const noexcept { return mRows.getCount(); }
    void setRowCount(int count) { ChangeSize(getColCount(), count); }
    /// How many of them are fixed; 1 at first. `EInvalidGridOperation` unless there are more than that. A
    /// change scrolls back to the begin and goes to the first cell that isn't fixed.
    int getFixedCols() const noexcept { return mCols.getFixedCount(); }
    void setFixedCols(int count);
    int getFixedRows() const noexcept { return mRows.getFixedCount(); }
    void setFixedRows(int count);
    /// In pixels, 64 and 24 at first. Setting it gives that size to all.
    int getDefaultColWidth() const noexcept { return mCols.getDefaultSize(); }
    void setDefaultColWidth(int width);
    int getDefaultRowHeight() const noexcept { return mRows.getDefaultSize(); }
    void setDefaultRowHeight(int height);
    /// The size of one in pixels, without its line; 0 leaves only the line, -1 hides that too. The default
    /// for one that isn't there.
    int getColWidths(int col) const { return mCols.getSize(col); }
    void setColWidths(int col, int width);
    int getRowHeights(int row) const { return mRows.getSize(row); }
    void setRowHeights(int row, int height);
    /// Whether the Tab key stops in the column, where it goes from cell to cell.
    bool getTabStops(int col) const { return mPassedCols.count(col) == 0; }
    void setTabStops(int col, bool isStop);
    /// The width of lines in pixels, 1 at first.
    int getGridLineWidth() const noexcept { return mLineWidth; }
    void setGridLineWidth(int width);
    /// All that there is, in pixels, or the area if that is less.
    int getGridWidth() const;
    int getGridHeight() const;

    /// Takes a column or row out and puts it back at another place.
    void MoveColumn(int from, int to);
    void MoveRow(int from, int to);
    /// Takes it away; the last one of all can't be.
    virtual void DeleteColumn(int col);
    virtual void DeleteRow(int row);

    // The cell at hand, the selection, and what is in sight.

    /// The column and row that the user is at; those behind the fixed ones at first. Setting it goes there,
    /// if `OnSelectCell` allows, and calls `OnClick`.
    int getCol() const noexcept { return mCurrent.X; }
    void setCol(int col);
    int getRow() const noexcept { return mCurrent.Y; }
    void setRow(int row);
    /// Goes to a cell as setting both would; unless `moveAnchor`, the selection grows up to there, where that
    /// is an option.
    void FocusCell(int col, int row, bool moveAnchor);
    /// The selected cells: the one at hand, the range up to it, or whole rows. Setting it asks nobody; all of
    /// it -1 selects nothing. What is outside of the grid is held at its edges.
    TGridRect getSelection() const noexcept;
    void setSelection(const TGridRect& selection);
    /// The first column and row shown behind the fixed ones. Setting a fixed one is the first of all.
    int getLeftCol() const noexcept { return mCols.getFirst(); }
    void setLeftCol(int col);
    int getTopRow() const noexcept { return mRows.getFirst(); }
    void setTopRow(int row);
    /// How many, from there on, are seen whole; at least 1.
    int getVisibleColCount() const;
    int getVisibleRowCount() const;

    /// Where a cell is seen in the client area; empty for one that isn't.
    Types::TRect CellRect(int col, int row) const;
    /// As `CellRect`, for all the cells from a column and row to others.
    Types::TRect BoxRect(int left, int top, int right, int bottom) const;
    /// The cell at a place of the client area; -1, -1 where there is none.
    void MouseToCell(int x, int y, int& col, int& row) const;
    /// As `MouseToCell`; both are -1 outside of all cells.
    TGridCoord MouseCoord(int x, int y) const;
    /// Where the mouse button was pressed last.
    Types::TPoint getHitTest() const noexcept { return mHitTest; }
    TGridState getGridState() const noexcept { return mGridState; }

    // The editor of the cell at hand, which is there with `goEditing` alone, and not with `goRowSelect`.

    /// Whether the user edits the cell at hand. It begins by the key F2, the return key, a character or a
    /// click on the cell, and ends by the return key or when the user goes to another cell; the escape key
    /// brings the former text back.
    bool getEditorMode() const noexcept { return mEditorMode; }
    void setEditorMode(bool isOn);
    void ShowEditor();
    void HideEditor();
    /// As `ShowEditor`, and types a character into it.
    void ShowEditorChar(System::WideChar character);
    /// Has it take the text of its cell anew, if it is shown.
    void InvalidateEditor();
    /// Null as long as nothing was edited.
    TInplaceEdit* getInplaceEditor() const noexcept { return mEditor; }

    // What is drawn and allowed.

    /// Lines and range selection at first. With `goRowSelect` there is no `goAlwaysShowEditor`.
    const TGridOptions& getOptions() const noexcept { return mOptions; }
    void setOptions(const TGridOptions& options) { SetOptions(options); }
    /// The bars that are there when not all is in sight; both at first.
    Stdctrls::TScrollStyle getScrollBars() const noexcept { return mScrollBars; }
    void setScrollBars(Stdctrls::TScrollStyle style);
    /// `bsSingle`, with a frame, at first.
    Forms::TBorderStyle getBorderStyle() const noexcept { return mBorderStyle; }
    void setBorderStyle(Forms::TBorderStyle style);
    /// Whether ground, selection and focus of a cell are drawn before `DrawCell` is called; on at first.
    bool getDefaultDrawing() const noexcept { return mDefaultDrawing; }
    void setDefaultDrawing(bool isOn);
    TGridDrawingStyle getDrawingStyle() const noexcept { return mDrawingStyle; }
    void setDrawingStyle(TGridDrawingStyle style);
    /// The ground of fixed cells, `clBtnFace` at first.
    Graphics::TColor getFixedColor() const noexcept { return mFixedColor; }
    void setFixedColor(Graphics::TColor color);
    /// The colours from top to bottom of fixed cells that are drawn with a gradient.
    Graphics::TColor getGradientStartColor() const noexcept { return mGradientStart; }
    void setGradientStartColor(Graphics::TColor color);
    Graphics::TColor getGradientEndColor() const noexcept { return mGradientEnd; }
    void setGradientEndColor(Graphics::TColor color);

    /// Have a part of the grid painted soon; nothing happens for what isn't in sight.
    void InvalidateCell(int col, int row);
    void InvalidateCol(int col);
    void InvalidateRow(int row);
    void InvalidateGrid() { Invalidate(); }

    /// The area without the bars.
    Types::TRect GetClientRect() const override;
    void Dispatch(void* message) override;
    void Notification(Classes::TComponent* component, Classes::TOperation operation) override;

protected:
    friend class TInplaceEdit;

    /// What a cell says, for those who can't see it; nothing, unless a derived class knows.
    System::UnicodeString GetCellText(int col, int row) override;

    // What a derived class adds to; it calls its parent's.

    /// Draws what is in a cell. The canvas has the font, and the brush and text colour that fit the state.
    virtual void DrawCell(int col, int row, const Types::TRect& rect, TGridDrawState state) = 0;
    /// Draws the ground of a cell, and over it what shows that it is selected.
    virtual void DrawCellBackground(const Types::TRect& rect, Graphics::TColor color, TGridDrawState state,
                                    int col, int row);
    virtual void DrawCellHighlight(const Types::TRect& rect, TGridDrawState state, int col, int row);
    /// Whether the cell may become the one at hand.
    virtual bool SelectCell(int col, int row);
    virtual void SetOptions(const TGridOptions& options);
    /// The counts changed from these.
    virtual void SizeChanged(int oldColCount, int oldRowCount);
    virtual void ColWidthsChanged();
    virtual void RowHeightsChanged();
    virtual void TopLeftChanged();
    virtual void ColumnMoved(int from, int to);
    virtual void RowMoved(int from, int to);
    /// The user clicked on a cell of a fixed column or row, where that is an option.
    virtual void FixedCellClick(int col, int row);
    /// A step of scrolling while the mouse is held outside.
    virtual void TimedScroll(TGridScrollDirection direction);
    /// Whether the grid may act on a key; not, if `key` is 0.
    virtual bool CanGridAcceptKey(System::Word key, Classes::TShiftState shift);
    /// The wheel is turned by a notch: goes a row down, or up. True if it is dealt with.
    virtual bool DoMouseWheelDown(Classes::TShiftState shift, Types::TPoint place);
    virtual bool DoMouseWheelUp(Classes::TShiftState shift, Types::TPoint place);
    /// Whether a drag of the column or row `origin` may begin, go over `destination`, or end there; the
    /// numbers may be changed, but by `Check...`.
    virtual bool BeginColumnDrag(int& origin, int& destination, Types::TPoint place);
    virtual bool BeginRowDrag(int& origin, int& destination, Types::TPoint place);
    virtual bool CheckColumnDrag(int origin, int destination, Types::TPoint place);
    virtual bool CheckRowDrag(int origin, int destination, Types::TPoint place);
    virtual bool EndColumnDrag(int& origin, int& destination, Types::TPoint place);
    virtual bool EndRowDrag(int& origin, int& destination, Types::TPoint place);

    /// A new editor, which the grid owns.
    virtual TInplaceEdit* CreateEditor();
    /// The text of a cell as the editor shows it, and its mask, empty by itself; what the user makes of it.
    virtual System::UnicodeString GetEditText(int col, int row);
    virtual void SetEditText(int col, int row, const System::UnicodeString& text);
    virtual System::UnicodeString GetEditMask(int col, int row);
    /// Most characters of the text; 0 is no limit.
    virtual int GetEditLimit();
    /// Whether the character may be typed into the editor.
    virtual bool CanEditAcceptKey(System::WideChar character);
    /// Whether the user may change the cell at hand.
    virtual bool CanEditModify();
    /// Whether the editor may be seen now.
    virtual bool CanEditShow();

    /// Shows the editor at the cell at hand, if it may be seen.
    void UpdateEditor();
    /// Puts the editor away until it is shown again.
    void HideEdit();
    /// Goes to a cell without a click; `show` scrolls it to sight. False if `SelectCell` refused it.
    bool MoveCurrent(int col, int row, bool moveAnchor, bool show);
    /// Scrolls by so many columns and rows, within what there is.
    void ScrollBy(int cols, int rows);
    /// Raises `EInvalidGridOperation` for a cell that isn't in the grid.
    void CheckCell(int col, int row) const;

    void Paint() override;
    void DefineProperties(Classes::TFiler& filer) override;
    bool WantsKey(System::Word key, Classes::TShiftState shift) const override;
    void KeyDown(System::Word& key, Classes::TShiftState shift) override;
    void KeyPress(System::WideChar& key) override;
    void DoExit() override;
    void MouseDown(Controls::TMouseButton button, Classes::TShiftState shift, int x, int y) override;
    void MouseMove(Classes::TShiftState shift, int x, int y) override;
    void MouseUp(Controls::TMouseButton button, Classes::TShiftState shift, int x, int y) override;
    bool MouseWheel(Classes::TShiftState shift, int delta, Types::TPoint place) override;

private:
    struct TLayout;

    Toolkits::WindowCells* GetWindowCells() override { return this; }
    int GetCellColumnCount() const override { return getColCount(); }
    int GetCellRowCount() const override { return getRowCount(); }
    bool IsColumnHeading(int, int row) const override { return row < getFixedRows(); }
    bool IsRowHeading(int col, int) const override { return col < getFixedCols(); }
    Types::TRect GetCellBounds(int col, int row) const override { return CellRect(col, row); }
    Types::TRect GetSelectedCells() const override;
    Types::TPoint GetCurrentCell() const override { return {getCol(), getRow()}; }
    void ChooseCell(int col, int row) override;

    void ChangeSize(int colCount, int rowCount);
    void ApplyLineWidth();
    void ResetToBegin();
    void SetSize(CGridAxis& axis, int index, int size);
    void SizesChanged(const CGridAxis& axis);
    /// Moves one of an axis, which is `number` of a cell; false if it is there.
    bool MoveOn(CGridAxis& axis, int TGridCoord::*number, int from, int to);
    /// Cells are somewhere else now.
    void Relaid();
    void MoveTopLeft(int left, int top);
    /// Whether what was painted is still good at another place.
    bool CanMoveCells() const;
    /// Moves what is shown of the cells in an area, which is told from left to right, and paints the rest.
    void MoveCells(Types::TRect area, const Types::TSize& by);
    void ShowCell(TGridCoord cell);
    /// Lets those who can't see it know of the cell at hand.
    void AnnounceCell();
    TGridCoord Held(TGridCoord cell) const noexcept;
    bool IsInGrid(int col, int row) const noexcept;
    bool HasOption(TGridOption option) const { return mOptions.Contains(option); }
    void ReadSizes(Classes::TReader& reader, bool areColumns);
    static void WriteSizes(Classes::TWriter& writer, const CGridAxis& axis, int end);

    // The editor.

    /// Whether the keyboard of the form belongs to the grid or its editor.
    bool IsActive() const;
    bool IsEditing() const noexcept;
    void FillEditor();
    void PlaceEditor();
    void EditorChanged();
    void CancelEditor(const System::UnicodeString& formerText);
    bool StartTyping(Messages::TMessage& message);

    // Geometry.

    TLayout GetLayout() const;
    Types::TRect RectOf(const CGridAxis::TSpan& col, const CGridAxis::TSpan& row) const;
    /// From left to right or back, where the grid runs from the right.
    int Mirror(int x) const;
    Types::TRect Mirror(const Types::TRect& rect) const;
    void InvalidateRect(const Types::TRect& rect);
    void InvalidateCells(const TGridRect& cells);
    std::optional<CGridScrollBar> GetBar(bool isVertical) const;

    // Painting.

    TGridDrawState StateOf(int col, int row) const;
    bool IsHighlighted(TGridDrawState state) const;
    void PaintCell(const CGridAxis::TSpan& col, const CGridAxis::TSpan& row);
    void PaintLines(const Types::TRect& rect, bool isFixed);
    void PaintFocus();
    void PaintMarker();
    void PaintBars();

    // Keys and mouse.

    /// The cell that a key goes to from the one at hand, which it may be itself.
    TGridCoord TargetOf(System::Word key) const;
    TGridCoord CtrlTargetOf(System::Word key) const;
    TGridCoord TabTarget(bool goForward) const;
    TGridCoord HeldBehindFixed(System::Int64 col, System::Int64 row) const noexcept;
    void GoByKey(System::Word key, const Classes::TShiftState& shift);
    /// What a press at a place would size, and its number; `gsNormal` for nothing.
    TGridState FindLine(Types::TPoint place, int& index) const;
    bool StartSizing(Types::TPoint place);
    void ShowLineCursor(TGridState state);
    void StartMoving(TGridCoord cell, Types::TPoint place);
    void StartDragging(TGridState state);
    void PressCell(TGridCoord cell, const Classes::TShiftState& shift, Types::TPoint place);
    void DragTo(Types::TPoint place);
    void MoveDragTarget(Types::TPoint place);
    void EndSizing(TGridState state, Types::TPoint place);
    void EndMoving(TGridState state, Types::TPoint place);
    void StopDragging();
    bool PressBar(Types::TPoint place);
    void DragBar(Types::TPoint place);
    void TrackFixed(TGridCoord cell);
    void DragTimer(System::TObject* sender);

    CGridAxis mCols;
    CGridAxis mRows;
    std::set<int> mPassedCols;
    TGridCoord mCurrent;
    TGridCoord mAnchor;
    TGridOptions mOptions;
    Forms::TBorderStyle mBorderStyle = Forms::bsSingle;
    Stdctrls::TScrollStyle mScrollBars = Stdctrls::ssBoth;
    TGridDrawingStyle mDrawingStyle = gdsThemed;
    Graphics::TColor mFixedColor = Graphics::clBtnFace;
    Graphics::TColor mGradientStart = Graphics::clWhite;
    Graphics::TColor mGradientEnd = Graphics::clBtnFace;
    int mLineWidth = 1;
    bool mDefaultDrawing = true;

    TInplaceEdit* mEditor = nullptr;
    /// The cell that is edited; -1 for none.
    TGridCoord mEditorCell{-1, -1};
    bool mEditorMode = false;
    bool mIsFillingEditor = false;
    bool mIsHidingEditor = false;

    TGridState mGridState = gsNormal;
    Types::TPoint mHitTest;
    Types::TPoint mMousePlace;
    /// The column or row that is sized or moved, and where it would go.
    int mDragged = 0;
    int mDragTarget = 0;
    std::unique_ptr<Extctrls::TTimer> mDragTimer;
    /// The bar whose thumb is dragged: 0 none, 1 the horizontal, 2 the vertical one.
    int mDraggedBar = 0;
    int mWheelRest = 0;
    /// The cursor of a line that the mouse is over.
    Controls::TCursor mLineCursor = Controls::crDefault;
    TGridCoord mHotCell{-1, -1};
    TGridCoord mPressedCell{-1, -1};
};

} // namespace Grids
