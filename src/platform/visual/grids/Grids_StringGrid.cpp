// SPDX-License-Identifier: MIT
#include "platform/visual/grids/Grids_StringGrid.h"

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/runtime/classes/Classes_Update.h"
#include "platform/visual/graphics/Graphics_Canvas.h"
#include "platform/visual/grids/internal/Grids_CellTable.h"
#include "platform/visual/grids/internal/Grids_FlagScope.h"

namespace Grids
{

using Classes::TComponentWatch;
using System::TObject;
using System::UnicodeString;

/// Texts and objects apart: most grids have no objects, and those that have have few.
struct TStringGrid::TCells
{
    GCellTable<UnicodeString> texts;
    GCellTable<TObject*> objects;

    template <class Work>
    void Each(Work work)
    {
        work(texts);
        work(objects);
    }
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

TStringGrid::TStringGrid(Classes::TComponent* owner) : TDrawGrid(owner), mCells(std::make_unique<TCells>()) {}

TStringGrid::~TStringGrid()
{
    Destroying();
}

UnicodeString TStringGrid::getCells(int col, int row) const
{
    const UnicodeString* const text = mCells->texts.Find(col, row);
    return text == nullptr ? UnicodeString() : *text;
}

void TStringGrid::setCells(int col, int row, const UnicodeString& text)
{
    if (Set(mCells->texts, col, row, text) && !mIsTakingEdit && col == getCol() && row == getRow()) {
        InvalidateEditor();
    }
}

TObject* TStringGrid::getObjects(int col, int row) const
{
    TObject* const* const object = mCells->objects.Find(col, row);
    return object == nullptr ? nullptr : *object;
}

void TStringGrid::setObjects(int col, int row, TObject* object)
{
    Set(mCells->objects, col, row, object);
}

template <class Table, class Value>
bool TStringGrid::Set(Table& table, int col, int row, const Value& value)
{
    if (value == Value{}) {
        // What isn't there gets no memory to become empty.
        if (!table.Clear(col, row)) {
            return false;
        }
    } else {
        Value& cell = table.Need(col, row, getColCount(), getRowCount());
        if (cell == value) {
            return false;
        }
        cell = value;
    }
    // Where nothing is shown, as while a grid is filled, this must cost nothing.
    if (getShowing() && mUpdateLevel == 0) {
        InvalidateCell(col, row);
    }
    return true;
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
        mCells->Each([last](auto& table) { table.ClearColumn(last); });
    }
}

void TStringGrid::DeleteRow(int row)
{
    const TComponentWatch watch(this);
    const int last = getRowCount() - 1;
    TDrawGrid::DeleteRow(row);
    if (watch.IsAlive()) {
        mCells->Each([last](auto& table) { table.ClearRow(last); });
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
    mCells->Each([&](auto& table) { table.MoveColumn(from, to, getColCount()); });
    Invalidate();
    TDrawGrid::ColumnMoved(from, to);
}

void TStringGrid::RowMoved(int from, int to)
{
    mCells->Each([&](auto& table) { table.MoveRow(from, to, getRowCount()); });
    Invalidate();
    TDrawGrid::RowMoved(from, to);
}

} // namespace Grids
