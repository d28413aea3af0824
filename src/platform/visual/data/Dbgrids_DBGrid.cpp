// SPDX-License-Identifier: MIT
#include "platform/visual/data/Dbgrids_DBGrid.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/visual/controls/Controls_Publish.h"
#include "platform/visual/data/internal/Dbgrids_FollowingFont.h"
#include "platform/visual/data/internal/Dbgrids_Link.h"
#include "platform/visual/data/sets/Db_Field.h"
#include "platform/visual/grids/internal/Grids_FlagScope.h"

#include <algorithm>

// The columns and rows of a data grid, and what it publishes.

namespace Typinfo
{

TTypeInfo GEnumType<Dbgrids::TDBGridOption>::Make()
{
    return EnumType(u"TDBGridOption",
                    {u"dgEditing", u"dgAlwaysShowEditor", u"dgTitles", u"dgIndicator", u"dgColumnResize",
                     u"dgColLines", u"dgRowLines", u"dgTabs", u"dgRowSelect", u"dgAlwaysShowSelection",
                     u"dgConfirmDelete", u"dgCancelOnExit", u"dgMultiSelect", u"dgTitleClick",
                     u"dgTitleHotTrack"});
}

} // namespace Typinfo

namespace Dbgrids
{

using Classes::TComponentWatch;
using Grids::CFlagScope;

namespace
{

TDBGridOptions FirstOptions()
{
    return {dgEditing, dgTitles,        dgIndicator,    dgColumnResize, dgColLines,     dgRowLines,
            dgTabs,    dgConfirmDelete, dgCancelOnExit, dgTitleClick,   dgTitleHotTrack};
}

} // namespace

System::TMetaClass* TCustomDBGrid::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TCustomDBGrid>(u"TCustomDBGrid").Build();
    return record;
}

System::TMetaClass* TDBGrid::ClassRecord()
{
    using System::TObject;
    const auto of = [](const TObject* grid) -> const TDBGrid& { return *dynamic_cast<const TDBGrid*>(grid); };
    static System::TMetaClass* const record =
        Controls::PublishFocus(Controls::PublishColoredControl(System::GClassBuilder<TDBGrid>(u"TDBGrid")))
            .Property(u"BorderStyle", &TDBGrid::getBorderStyle, &TDBGrid::setBorderStyle,
                      {.defaultValue = Forms::bsSingle})
            .Property(
                u"Columns", &TDBGrid::getColumns, &TDBGrid::setColumns,
                {.stored =
                     [of](const TObject* grid) { return of(grid).getColumns()->getState() == csCustomized; }})
            .Property(u"DataSource", &TDBGrid::getDataSource, &TDBGrid::setDataSource)
            .Property(u"DefaultDrawing", &TDBGrid::getDefaultDrawing, &TDBGrid::setDefaultDrawing,
                      {.defaultValue = 1})
            .Property(u"FixedColor", &TDBGrid::getFixedColor, &TDBGrid::setFixedColor,
                      {.defaultValue = static_cast<int>(Graphics::clBtnFace)})
            .Property(
                u"Options", &TDBGrid::getOptions, &TDBGrid::setOptions,
                {.stored = [of](const TObject* grid) { return of(grid).getOptions() != FirstOptions(); }})
            .Property(u"ReadOnly", &TDBGrid::getReadOnly, &TDBGrid::setReadOnly, {.defaultValue = 0})
            .Property(u"TitleFont", &TDBGrid::getTitleFont, &TDBGrid::setTitleFont)
            .Property(u"OnCellClick", &TDBGrid::OnCellClick)
            .Property(u"OnColEnter", &TDBGrid::OnColEnter)
            .Property(u"OnColExit", &TDBGrid::OnColExit)
            .Property(u"OnColumnMoved", &TDBGrid::OnColumnMoved)
            .Property(u"OnDrawColumnCell", &TDBGrid::OnDrawColumnCell)
            .Property(u"OnTitleClick", &TDBGrid::OnTitleClick)
            .Build();
    return record;
}

TDBGrid::~TDBGrid() = default;

TCustomDBGrid::TCustomDBGrid(Classes::TComponent* owner)
    : TCustomGrid(owner),
      mLink(std::make_unique<CLink>(*this)),
      mColumns(std::make_unique<TDBGridColumns>(this)),
      mTitleFont(std::make_unique<CFollowingFont>()),
      mDBOptions(FirstOptions())
{
    mTitleFont->OnChange = {this, &TCustomDBGrid::TitleFontChanged};
    ApplyOptions();
    LayOut();
}

TCustomDBGrid::~TCustomDBGrid()
{
    Destroying();
    // Nothing of it may be told to what is destroyed already.
    mLink = nullptr;
}

Db::TDataSource* TCustomDBGrid::getDataSource() const noexcept
{
    return mLink == nullptr ? nullptr : mLink->getDataSource();
}

void TCustomDBGrid::setDataSource(Db::TDataSource* dataSource)
{
    mLink->setDataSource(dataSource);
}

Db::TDataSet* TCustomDBGrid::GetDataSet() const noexcept
{
    return mLink == nullptr ? nullptr : mLink->getDataSet();
}

bool TCustomDBGrid::GetLinkActive() const noexcept
{
    return mLink != nullptr && mLink->getActive();
}

Graphics::TFont* TCustomDBGrid::getTitleFont() const
{
    return mTitleFont->Get(GetShownFont());
}

void TCustomDBGrid::setTitleFont(Graphics::TFont* font)
{
    mTitleFont->Set(font, GetShownFont());
}

const Graphics::TFont& TCustomDBGrid::GetShownTitleFont() const
{
    return mTitleFont->Shown(GetShownFont());
}

void TCustomDBGrid::TitleFontChanged(System::TObject*)
{
    LayOut();
}

int TCustomDBGrid::MeasureText(const Graphics::TFont& font, const System::UnicodeString& text)
{
    return text.IsEmpty() ? 0 : Toolkits::CurrentToolkit().TextExtent(font.getData(), text).cx;
}

void TCustomDBGrid::setReadOnly(bool isReadOnly)
{
    mReadOnly = isReadOnly;
    mLink->setReadOnly(isReadOnly);
}

void TCustomDBGrid::setOptions(const TDBGridOptions& options)
{
    mDBOptions = options;
    ApplyOptions();
    LayOut();
}

void TCustomDBGrid::ApplyOptions()
{
    const std::pair<TDBGridOption, Grids::TGridOptions> parts[] = {
        {dgEditing, {Grids::goEditing}},
        {dgAlwaysShowEditor, {Grids::goAlwaysShowEditor}},
        {dgColumnResize, {Grids::goColSizing, Grids::goColMoving}},
        {dgColLines, {Grids::goVertLine, Grids::goFixedVertLine}},
        {dgRowLines, {Grids::goHorzLine, Grids::goFixedHorzLine}},
        {dgTabs, {Grids::goTabs}},
        {dgRowSelect, {Grids::goRowSelect}},
        {dgTitleHotTrack, {Grids::goFixedHotTrack}}};
    Grids::TGridOptions options{Grids::goThumbTracking, Grids::goDrawFocusSelected};
    for (const auto& [option, gridOptions] : parts) {
        if (mDBOptions.Contains(option)) {
            options += gridOptions;
        }
    }
    TCustomGrid::setOptions(options);
}

void TCustomDBGrid::Loaded()
{
    TCustomGrid::Loaded();
    LayOut();
}

void TCustomDBGrid::Dispatch(void* message)
{
    const TComponentWatch watch(this);
    const unsigned number = static_cast<const Messages::TMessage*>(message)->Msg;
    TCustomGrid::Dispatch(message);
    if (watch.IsAlive() && number == CM_FONTCHANGED) {
        LayOut();
    }
}

void TCustomDBGrid::ColumnsChanged()
{
    LayOut();
}

void TCustomDBGrid::ForgetColumn(const Classes::TCollectionItem* column) noexcept
{
    // The places of the others stay until the grid is laid out anew.
    std::replace_if(
        mShownColumns.begin(), mShownColumns.end(), [&](const TColumn* shown) { return shown == column; },
        nullptr);
}

TColumn* TCustomDBGrid::ColumnAt(int col) const
{
    const int index = col - IndicatorCols();
    return index >= 0 && index < getFieldCount() ? mShownColumns[static_cast<std::size_t>(index)] : nullptr;
}

void TCustomDBGrid::LayOut()
{
    constexpr int IndicatorWidth = 12;
    constexpr int Margin = 4;
    if (mIsLayingOut || IsLoading() || IsDestroying()) {
        return;
    }
    const TComponentWatch watch(this);
    {
        const CFlagScope layingOut(*this, mIsLayingOut);
        mShownColumns.clear();
        for (int i = 0; i < mColumns->GetCount(); ++i) {
            if (mColumns->getItems(i)->getShowing()) {
                mShownColumns.push_back(mColumns->getItems(i));
            }
        }
        const auto heightOf = [](const Graphics::TFont& font) {
            return Toolkits::CurrentToolkit().TextExtent(font.getData(), u"Wg").cy + Margin;
        };
        setColCount(IndicatorCols() + std::max(getFieldCount(), 1));
        setFixedCols(IndicatorCols());
        setRowCount(std::max(getRowCount(), TitleRows() + 1));
        setFixedRows(TitleRows());
        setDefaultRowHeight(heightOf(GetShownFont()));
        for (int i = 0; i < getFieldCount(); ++i) {
            setColWidths(i + IndicatorCols(), mShownColumns[static_cast<std::size_t>(i)]->getWidth());
        }
        if (IndicatorCols() > 0) {
            setColWidths(0, IndicatorWidth);
        }
        if (TitleRows() > 0) {
            setRowHeights(0, heightOf(GetShownTitleFont()));
        }
    }
    if (watch.IsAlive()) {
        ShowRecords();
    }
}

void TCustomDBGrid::ShowRecords()
{
    const TComponentWatch watch(this);
    setRowCount(TitleRows() + std::max(mLink->getRecordCount(), 1));
    if (watch.IsAlive()) {
        FollowRecord();
    }
}

void TCustomDBGrid::FollowRecord()
{
    const TComponentWatch watch(this);
    const int row = std::clamp(TitleRows() + mLink->getActiveRecord(), 0, getRowCount() - 1);
    if (row != getRow()) {
        const CFlagScope following(*this, mIsFollowing);
        MoveCurrent(getCol(), row, true, true);
    }
    if (!watch.IsAlive()) {
        return;
    }
    Invalidate();
    if (!mEditText) {
        InvalidateEditor();
    }
}

void TCustomDBGrid::ColWidthsChanged()
{
    TCustomGrid::ColWidthsChanged();
    if (mIsLayingOut || IsLoading()) {
        return;
    }
    // The user sized a column.
    const auto shown = mShownColumns;
    for (int i = 0; i < static_cast<int>(shown.size()); ++i) {
        TColumn* const column = shown[static_cast<std::size_t>(i)];
        const int width = getColWidths(i + IndicatorCols());
        if (column != nullptr && column->getWidth() != width) {
            column->setWidth(width);
            return;
        }
    }
}

void TCustomDBGrid::ColumnMoved(int from, int to)
{
    TColumn* const moved = ColumnAt(from);
    const TColumn* const place = ColumnAt(to);
    if (moved != nullptr && place != nullptr) {
        const TComponentWatch watch(this);
        // They stand where the user wants them, whatever the fields do.
        mColumns->setState(csCustomized);
        moved->setIndex(place->getIndex());
        if (!watch.IsAlive()) {
            return;
        }
    }
    if (OnColumnMoved) {
        OnColumnMoved(this, from, to);
    }
}

Db::TField* TCustomDBGrid::getFields(int index) const
{
    if (index < 0 || index >= getFieldCount()) {
        throw Classes::EListError(u"There is no column " + System::UnicodeString(index) + u".");
    }
    const TColumn* const column = mShownColumns[static_cast<std::size_t>(index)];
    return column == nullptr ? nullptr : column->getField();
}

int TCustomDBGrid::getSelectedIndex() const noexcept
{
    return std::max(getCol() - IndicatorCols(), 0);
}

void TCustomDBGrid::setSelectedIndex(int index)
{
    const TComponentWatch watch(this);
    const int former = getCol();
    MoveCurrent(IndicatorCols() + std::clamp(index, 0, std::max(getFieldCount() - 1, 0)), getRow(), true,
                true);
    if (watch.IsAlive()) {
        NoteColumn(former);
    }
}

Db::TField* TCustomDBGrid::getSelectedField() const
{
    const TColumn* const column = ColumnAtHand();
    return column == nullptr ? nullptr : column->getField();
}

void TCustomDBGrid::setSelectedField(const Db::TField* field)
{
    const auto found = std::find_if(mShownColumns.begin(), mShownColumns.end(), [&](const TColumn* column) {
        return field != nullptr && column != nullptr && column->getField() == field;
    });
    if (found != mShownColumns.end()) {
        setSelectedIndex(static_cast<int>(found - mShownColumns.begin()));
    }
}

Db::TBookmark TBookmarkList::getItems(int index) const
{
    if (index < 0 || index >= getCount()) {
        throw Classes::EListError(u"There is no selected record " + System::UnicodeString(index) + u".");
    }
    return mItems[static_cast<std::size_t>(index)];
}

bool TBookmarkList::Contains(Db::TBookmark bookmark) const noexcept
{
    return std::find(mItems.begin(), mItems.end(), bookmark) != mItems.end();
}

bool TBookmarkList::getCurrentRowSelected() const
{
    return mGrid->GetLinkActive() && Contains(mGrid->GetDataSet()->GetBookmark());
}

void TBookmarkList::setCurrentRowSelected(bool isSelected)
{
    const Db::TBookmark here = mGrid->GetLinkActive() ? mGrid->GetDataSet()->GetBookmark() : Db::TBookmark();
    if (!here || Contains(here) == isSelected) {
        return;
    }
    if (isSelected) {
        mItems.push_back(here);
    } else {
        std::erase(mItems, here);
    }
    mGrid->Invalidate();
}

void TBookmarkList::Clear()
{
    mItems.clear();
    mGrid->Invalidate();
}

void TBookmarkList::Delete()
{
    const TComponentWatch watch(mGrid);
    const auto items = std::exchange(mItems, {});
    for (const Db::TBookmark item : items) {
        if (!watch.IsAlive() || !mGrid->GetLinkActive()) {
            return;
        }
        Db::TDataSet* const dataSet = mGrid->GetDataSet();
        if (dataSet->BookmarkValid(item)) {
            dataSet->GotoBookmark(item);
            dataSet->Delete();
        }
    }
}

bool TBookmarkList::Refresh()
{
    const Db::TDataSet* const dataSet = mGrid->GetLinkActive() ? mGrid->GetDataSet() : nullptr;
    return std::erase_if(mItems, [&](Db::TBookmark item) {
               return dataSet == nullptr || !dataSet->BookmarkValid(item);
           }) > 0;
}

} // namespace Dbgrids
