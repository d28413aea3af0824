// SPDX-License-Identifier: MIT
#include "platform/visual/grids/Grids_StringGrid.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Update.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/grids/internal/Grids_FlagScope.h"
#include "platform/visual/grids/internal/Grids_SparseArray.h"

#include <limits>

namespace Grids
{

using Classes::TComponentWatch;
using System::TObject;
using System::UnicodeString;

namespace
{

struct TGridCell
{
    UnicodeString text;
    TObject* object = nullptr;

    bool IsBlank() const noexcept { return object == nullptr && text.IsEmpty(); }
};
static_assert(sizeof(TGridCell) <= 16);

constexpr int ColsInPage = 64;
constexpr int RowsInPage = 1024;
using CRow = GSparseArray<TGridCell, ColsInPage>;

} // namespace

/// All cells, by rows.
class TStringGrid::CCells
{
public:
    const TGridCell* Find(int col, int row) const
    {
        CheckPlace(col, row);
        const CRow* const cells = mRows.Find(row);
        return cells == nullptr ? nullptr : cells->Find(col);
    }
    /// Null for a cell without memory that is to become what it is.
    TGridCell* ForChange(const TStringGrid& grid, int col, int row, bool isToBlank)
    {
        CheckPlace(col, row);
        if (!isToBlank) {
            return &mRows.Need(row, grid.getRowCount()).Need(col, grid.getColCount());
        }
        CRow* const cells = mRows.Find(row);
        return cells == nullptr ? nullptr : cells->Find(col);
    }
    void ClearRow(int row)
    {
        if (CRow* const cells = mRows.Find(row)) {
            *cells = CRow();
        }
    }
    void ClearColumn(int col)
    {
        mRows.ForEach([col](int, CRow& cells) {
            if (TGridCell* const cell = cells.Find(col)) {
                *cell = TGridCell();
            }
        });
    }
    void MoveRow(int from, int to, int count) { mRows.Move(from, to, count); }
    void MoveColumn(int from, int to, int count)
    {
        mRows.ForEach([=](int, CRow& cells) { cells.Move(from, to, count); });
    }

private:
    static void CheckPlace(int col, int row)
    {
        constexpr int most = std::numeric_limits<int>::max();
        if (col < 0 || row < 0 || col == most || row == most) {
            throw EInvalidGridOperation(u"Grid index out of range");
        }
    }

    GSparseArray<CRow, RowsInPage> mRows;
};

/// A column or row as a list.
class TStringGrid::CLines : public Classes::TStrings
{
public:
    CLines(TStringGrid& grid, bool isColumn, int index) : mGrid(grid), mIsColumn(isColumn), mIndex(index) {}

    int Add(const UnicodeString& text) override
    {
        const int place = FirstBlank();
        if (place >= 0) {
            Put(place, text);
        }
        return place;
    }
    void Assign(Classes::TPersistent* source) override
    {
        const auto* const lines = dynamic_cast<const TStrings*>(source);
        if (lines == nullptr) {
            TStrings::Assign(source);
            return;
        }
        const Classes::GUpdateScope scope(*this);
        const int count = std::min(GetCount(), lines->getCount());
        for (int i = 0; i < count; ++i) {
            Put(i, lines->getStrings(i));
            PutObject(i, lines->getObjects(i));
        }
    }
    void Clear() override
    {
        const Classes::GUpdateScope scope(*this);
        for (int i = 0; i < GetCount(); ++i) {
            Put(i, UnicodeString());
            PutObject(i, nullptr);
        }
    }
    void Insert(int, const UnicodeString&) override { Refuse(); }
    void Delete(int) override { Refuse(); }

protected:
    UnicodeString Get(int index) const override
    {
        CheckIndex(index, GetCount());
        return mGrid.getCells(ColOf(index), RowOf(index));
    }
    int GetCount() const override { return mIsColumn ? mGrid.getRowCount() : mGrid.getColCount(); }
    TObject* GetObject(int index) const override
    {
        CheckIndex(index, GetCount());
        return mGrid.getObjects(ColOf(index), RowOf(index));
    }
    void Put(int index, const UnicodeString& text) override
    {
        CheckIndex(index, GetCount());
        mGrid.setCells(ColOf(index), RowOf(index), text);
    }
    void PutObject(int index, TObject* object) override
    {
        CheckIndex(index, GetCount());
        mGrid.setObjects(ColOf(index), RowOf(index), object);
    }
    void AppendItems(std::vector<Classes::TStringItem>&& items) override
    {
        const int first = FirstBlank();
        for (int i = first; first >= 0 && i < GetCount(); ++i) {
            const auto item = static_cast<std::size_t>(i - first);
            if (item >= items.size()) {
                return;
            }
            Put(i, items[item].String);
            PutObject(i, items[item].Object);
        }
    }
    void SetUpdateState(bool updating) override
    {
        mGrid.mUpdateLevel += updating ? 1 : -1;
        if (mGrid.mUpdateLevel == 0) {
            mGrid.Invalidate();
        }
    }

private:
    int ColOf(int index) const noexcept { return mIsColumn ? mIndex : index; }
    int RowOf(int index) const noexcept { return mIsColumn ? index : mIndex; }
    int FirstBlank() const
    {
        int place = 0;
        while (place < GetCount() && !Get(place).IsEmpty()) {
            ++place;
        }
        return place == GetCount() ? -1 : place;
    }
    [[noreturn]] static void Refuse()
    {
        throw EInvalidGridOperation(u"Cannot insert or delete rows from grid");
    }

    TStringGrid& mGrid;
    bool mIsColumn;
    int mIndex;
};

System::TMetaClass* TStringGrid::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TStringGrid>(u"TStringGrid").Build();
    return record;
}

TStringGrid::TStringGrid(Classes::TComponent* owner) : TDrawGrid(owner), mCells(std::make_unique<CCells>()) {}

TStringGrid::~TStringGrid()
{
    Destroying();
}

UnicodeString TStringGrid::getCells(int col, int row) const
{
    const TGridCell* const cell = mCells->Find(col, row);
    return cell == nullptr ? UnicodeString() : cell->text;
}

void TStringGrid::setCells(int col, int row, const UnicodeString& text)
{
    TGridCell* const cell = mCells->ForChange(*this, col, row, text.IsEmpty());
    if (cell != nullptr && cell->text != text) {
        cell->text = text;
        CellChanged(col, row);
        if (!mIsTakingEdit && col == getCol() && row == getRow()) {
            InvalidateEditor();
        }
    }
}

TObject* TStringGrid::getObjects(int col, int row) const
{
    const TGridCell* const cell = mCells->Find(col, row);
    return cell == nullptr ? nullptr : cell->object;
}

void TStringGrid::setObjects(int col, int row, TObject* object)
{
    TGridCell* const cell = mCells->ForChange(*this, col, row, object == nullptr);
    if (cell != nullptr && cell->object != object) {
        cell->object = object;
        CellChanged(col, row);
    }
}

void TStringGrid::CellChanged(int col, int row)
{
    if (mUpdateLevel == 0) {
        InvalidateCell(col, row);
    }
}

Classes::TStrings* TStringGrid::NeedView(CViews& views, bool isColumn, int index)
{
    if (index < 0 || index >= (isColumn ? getColCount() : getRowCount())) {
        throw EInvalidGridOperation(u"Grid index out of range");
    }
    auto& view = views[index];
    if (view == nullptr) {
        view = std::make_unique<CLines>(*this, isColumn, index);
    }
    return view.get();
}

Classes::TStrings* TStringGrid::getCols(int col)
{
    return NeedView(mColViews, true, col);
}

Classes::TStrings* TStringGrid::getRows(int row)
{
    return NeedView(mRowViews, false, row);
}

void TStringGrid::DeleteColumn(int col)
{
    const TComponentWatch watch(this);
    const int last = getColCount() - 1;
    TDrawGrid::DeleteColumn(col);
    if (watch.IsAlive()) {
        mCells->ClearColumn(last);
    }
}

void TStringGrid::DeleteRow(int row)
{
    const TComponentWatch watch(this);
    const int last = getRowCount() - 1;
    TDrawGrid::DeleteRow(row);
    if (watch.IsAlive()) {
        mCells->ClearRow(last);
    }
}

void TStringGrid::DrawCell(int col, int row, const Types::TRect& rect, TGridDrawState state)
{
    constexpr int margin = 2;
    if (getDefaultDrawing()) {
        getCanvas()->TextRect(rect, rect.Left + margin, rect.Top + margin, getCells(col, row));
    }
    TDrawGrid::DrawCell(col, row, rect, state);
}

UnicodeString TStringGrid::GetEditText(int col, int row)
{
    UnicodeString text = getCells(col, row);
    if (OnGetEditText) {
        OnGetEditText(this, col, row, text);
    }
    return text;
}

void TStringGrid::SetEditText(int col, int row, const UnicodeString& text)
{
    {
        const CFlagScope taking(*this, mIsTakingEdit);
        setCells(col, row, text);
    }
    TDrawGrid::SetEditText(col, row, text);
}

void TStringGrid::ColumnMoved(int from, int to)
{
    mCells->MoveColumn(from, to, getColCount());
    Invalidate();
    TDrawGrid::ColumnMoved(from, to);
}

void TStringGrid::RowMoved(int from, int to)
{
    mCells->MoveRow(from, to, getRowCount());
    Invalidate();
    TDrawGrid::RowMoved(from, to);
}

} // namespace Grids
