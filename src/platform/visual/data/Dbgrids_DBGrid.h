// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/data/Dbgrids_Columns.h"
#include "platform/visual/data/sets/Db_Types.h"
#include "platform/visual/grids/Grids_CustomGrid.h"

namespace Dbgrids
{

/// What a data grid draws and what its user may do: edit cells, at once with `dgAlwaysShowEditor`; headings;
/// a mark in front of the record at hand; size and move columns; lines; the Tab key from cell to cell; whole
/// rows selected, several of them with `dgMultiSelect`; the selection also seen without the focus; a question
/// before a record is deleted; a new record that wasn't touched given up when the grid is left.
enum TDBGridOption
{
    dgEditing,
    dgAlwaysShowEditor,
    dgTitles,
    dgIndicator,
    dgColumnResize,
    dgColLines,
    dgRowLines,
    dgTabs,
    dgRowSelect,
    dgAlwaysShowSelection,
    dgConfirmDelete,
    dgCancelOnExit,
    dgMultiSelect,
    dgTitleClick,
    dgTitleHotTrack
};
/// All that holds for a data grid at a time.
using TDBGridOptions = System::Set<TDBGridOption, dgEditing, dgTitleHotTrack>;

/// A column has something to tell.
using TDBGridClickEvent = System::TClosure<void(TColumn* column)>;
/// A cell is to be drawn within `rect`, its fields having the values of its record.
using TDrawColumnCellEvent = System::TClosure<void(System::TObject* sender, Types::TRect rect, int dataCol,
                                                   TColumn* column, Grids::TGridDrawState state)>;

/// The records that the user selected in a data grid, by their bookmarks.
class TRS8_BTL_API TBookmarkList
{
public:
    explicit TBookmarkList(TCustomDBGrid* grid) noexcept : mGrid(grid) {}

    int getCount() const noexcept { return static_cast<int>(mItems.size()); }
    /// In the order of selecting; `Classes::EListError` out of range.
    Db::TBookmark getItems(int index) const;
    /// Whether the record at hand is one of them.
    bool getCurrentRowSelected() const;
    void setCurrentRowSelected(bool isSelected);
    bool Contains(Db::TBookmark bookmark) const noexcept;
    void Clear();
    /// Deletes all of these records.
    void Delete();
    /// Forgets those that aren't there any more; whether there were any.
    bool Refresh();

private:
    TCustomDBGrid* mGrid;
    std::vector<Db::TBookmark> mItems;
};

/// Base of the grids that show the records of a data set: each row is one, the row at hand is the record at
/// hand, and each column shows a field. Going to another row goes to its record, which posts what is edited.
/// However many records there are, only what is seen is looked at.
class TRS8_BTL_API TCustomDBGrid : public Grids::TCustomGrid
{
    TRS8_BTL_CLASS(TCustomDBGrid, Grids::TCustomGrid)

public:
    explicit TCustomDBGrid(Classes::TComponent* owner = nullptr);
    ~TCustomDBGrid() override;

    /// Not owned; null at first.
    Db::TDataSource* getDataSource() const noexcept;
    void setDataSource(Db::TDataSource* dataSource);
    /// The set that it shows, open or not; null without one.
    Db::TDataSet* GetDataSet() const noexcept;
    /// Whether it has an open set to show.
    bool GetLinkActive() const noexcept;
    TDBGridColumns* getColumns() const noexcept { return mColumns.get(); }
    void setColumns(TDBGridColumns* columns) { mColumns->Assign(columns); }
    /// The font of the headings; the grid's until it is changed.
    Graphics::TFont* getTitleFont() const;
    void setTitleFont(Graphics::TFont* font);
    const Graphics::TFont& GetShownTitleFont() const;
    /// All but `dgAlwaysShowEditor`, `dgRowSelect`, `dgAlwaysShowSelection` and `dgMultiSelect` at first.
    const TDBGridOptions& getOptions() const noexcept { return mDBOptions; }
    void setOptions(const TDBGridOptions& options);
    /// Whether the user can't change anything; off at first.
    bool getReadOnly() const noexcept { return mReadOnly; }
    void setReadOnly(bool isReadOnly);

    /// How many columns are seen with a field, and the field of each; `Classes::EListError` out of range.
    int getFieldCount() const noexcept { return static_cast<int>(mShownColumns.size()); }
    Db::TField* getFields(int index) const;
    /// The place of the column at hand among those that are seen; setting it is held within these.
    int getSelectedIndex() const noexcept;
    void setSelectedIndex(int index);
    /// The field of the column at hand; null if it has none. Setting one that no column has does nothing.
    Db::TField* getSelectedField() const;
    void setSelectedField(const Db::TField* field);
    TBookmarkList* getSelectedRows() noexcept { return &mSelectedRows; }

    /// Draws the field's text in the column's alignment, as the grid does by itself.
    void DefaultDrawColumnCell(const Types::TRect& rect, int dataCol, TColumn* column,
                               Grids::TGridDrawState state);
    /// The width of a text in pixels.
    static int MeasureText(const Graphics::TFont& font, const System::UnicodeString& text);
    /// Looks at the columns anew.
    void ColumnsChanged();

    void Loaded() override;
    void Dispatch(void* message) override;

    TDBGridClickEvent OnCellClick;
    Classes::TNotifyEvent OnColEnter;
    Classes::TNotifyEvent OnColExit;
    Grids::TMovedEvent OnColumnMoved;
    TDrawColumnCellEvent OnDrawColumnCell;
    TDBGridClickEvent OnTitleClick;

protected:
    // Each calls the event of its name.

    /// The user clicked on a cell of the column.
    virtual void CellClick(TColumn* column);
    /// The user clicked on the heading of the column.
    virtual void TitleClick(TColumn* column);
    /// The user, or a program, came to the column at hand, or leaves the former one.
    virtual void ColEnter();
    virtual void ColExit();
    /// A cell was drawn, unless its event is to draw it: the fields have the values of its record.
    virtual void DrawColumnCell(const Types::TRect& rect, int dataCol, TColumn* column,
                                Grids::TGridDrawState state);

    void DrawCell(int col, int row, const Types::TRect& rect, Grids::TGridDrawState state) override;
    bool SelectCell(int col, int row) override;
    void ColWidthsChanged() override;
    void ColumnMoved(int from, int to) override;
    System::UnicodeString GetCellText(int col, int row) override;
    System::UnicodeString GetEditText(int col, int row) override;
    void SetEditText(int col, int row, const System::UnicodeString& text) override;
    System::UnicodeString GetEditMask(int col, int row) override;
    int GetEditLimit() override;
    bool CanEditAcceptKey(System::WideChar character) override;
    bool CanEditModify() override;
    bool CanEditShow() override;
    bool CanGridAcceptKey(System::Word key, Classes::TShiftState shift) override;
    void DrawCellHighlight(const Types::TRect& rect, Grids::TGridDrawState state, int col, int row) override;
    void KeyDown(System::Word& key, Classes::TShiftState shift) override;
    void MouseDown(Controls::TMouseButton button, Classes::TShiftState shift, int x, int y) override;
    void MouseUp(Controls::TMouseButton button, Classes::TShiftState shift, int x, int y) override;
    void DoExit() override;

private:
    class CLink;
    friend class CLink;
    friend class TDBGridColumns;

    int TitleRows() const { return mDBOptions.Contains(dgTitles) ? 1 : 0; }
    int IndicatorCols() const { return mDBOptions.Contains(dgIndicator) ? 1 : 0; }
    TColumn* ColumnAt(int col) const;
    void ForgetColumn(const Classes::TCollectionItem* column) noexcept;
    bool IsMarked(int row) const;
    bool IsHighlightSeen(int row) const;
    bool CanChange() const;
    void SelectByMouse(const Classes::TShiftState& shift);
    TColumn* ColumnAtHand() const { return ColumnAt(getCol()); }
    void ApplyOptions();
    void LayOut();
    void ShowRecords();
    void FollowRecord();
    void StoreEdit();
    bool GoToRow(int row);
    bool DoRecordKey(System::Word key, const Classes::TShiftState& shift);
    void DeleteByUser();
    void NoteColumn(int former);
    void DrawTitle(TColumn* column, const Types::TRect& rect);
    void DrawIndicator(int row, const Types::TRect& rect);
    void WriteText(const Types::TRect& rect, const System::UnicodeString& text,
                   Classes::TAlignment alignment);
    void TitleFontChanged(System::TObject* sender);

    std::unique_ptr<CLink> mLink;
    std::unique_ptr<TDBGridColumns> mColumns;
    std::vector<TColumn*> mShownColumns;
    std::unique_ptr<CFollowingFont> mTitleFont;
    TBookmarkList mSelectedRows{this};
    TDBGridOptions mDBOptions;
    /// What the user made of the cell at hand and isn't in its field yet.
    std::optional<System::UnicodeString> mEditText;
    Grids::TGridCoord mPressed{-1, -1};
    bool mReadOnly = false;
    bool mIsLayingOut = false;
    bool mIsFollowing = false;
};

/// A data grid for forms.
///
///     auto* const grid = new Dbgrids::TDBGrid(form);
///     grid->setParent(form);
///     grid->setDataSource(source);
///     Dbgrids::TColumn* const column = grid->getColumns()->Add();
///     column->setFieldName(u"Voltage");
///     column->getTitle()->setCaption(u"U / V");
class TRS8_BTL_API TDBGrid : public TCustomDBGrid
{
    TRS8_BTL_CLASS(TDBGrid, TCustomDBGrid)

public:
    explicit TDBGrid(Classes::TComponent* owner = nullptr) : TCustomDBGrid(owner) {}
    ~TDBGrid() override;
};

} // namespace Dbgrids

namespace Typinfo
{

/// The options of data grids, by the names of their values.
template <>
struct TRS8_BTL_API GEnumType<Dbgrids::TDBGridOption>
{
    static TTypeInfo Make();
};

} // namespace Typinfo
