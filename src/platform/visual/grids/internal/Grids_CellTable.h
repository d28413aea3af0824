// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/grids/Grids_Types.h"
#include "platform/visual/grids/internal/Grids_SparseArray.h"

#include <limits>

namespace Grids
{

/// What each cell of a grid has of a kind, by rows; a cell that has none is as `T{}`. A negative column or
/// row of a cell raises `EInvalidGridOperation`.
template <class T>
class GCellTable
{
public:
    /// Null for a cell without memory.
    const T* Find(int col, int row) const
    {
        CheckPlace(col, row);
        const CRow* const cells = mRows.Find(row);
        return cells == nullptr ? nullptr : cells->Find(col);
    }
    /// The cell, which gets memory. The counts are those of the grid as far as one knows.
    T& Need(int col, int row, int colCount, int rowCount)
    {
        // By numbers without a sign: what is in front of the run is far behind it.
        const auto place = static_cast<std::size_t>(static_cast<unsigned>(col) - mRunBegin);
        if (row != mRunRow || place >= mRun.size()) {
            return StartRun(col, row, colCount, rowCount);
        }
        return mRun[place];
    }
    /// Makes a cell that has memory as `T{}`; whether it wasn't.
    bool Clear(int col, int row)
    {
        T* const cell = const_cast<T*>(Find(col, row));
        return cell != nullptr && std::exchange(*cell, T{}) != T{};
    }
    void ClearRow(int row)
    {
        ForgetRun();
        if (CRow* const cells = mRows.Find(row)) {
            *cells = CRow();
        }
    }
    void ClearColumn(int col)
    {
        mRows.ForEach([col](int, CRow& cells) {
            if (T* const cell = cells.Find(col)) {
                *cell = T{};
            }
        });
    }
    void MoveRow(int from, int to, int count)
    {
        ForgetRun();
        mRows.Move(from, to, count);
    }
    void MoveColumn(int from, int to, int count)
    {
        ForgetRun();
        mRows.ForEach([=](int, CRow& cells) { cells.Move(from, to, count); });
    }

private:
    static constexpr int ColsInPage = 64;
    static constexpr int RowsInPage = 1024;
    using CRow = GSparseArray<T, ColsInPage>;

    static void CheckPlace(int col, int row)
    {
        constexpr int most = std::numeric_limits<int>::max();
        if (col < 0 || row < 0 || col == most || row == most) {
            throw EInvalidGridOperation(u"Grid index out of range");
        }
    }

    T& StartRun(int col, int row, int colCount, int rowCount)
    {
        CheckPlace(col, row);
        ForgetRun();
        const auto run = mRows.Need(row, rowCount).NeedRun(col, colCount);
        mRun = run.items;
        mRunRow = row;
        mRunBegin = static_cast<unsigned>(run.begin);
        return mRun[static_cast<std::size_t>(col - run.begin)];
    }
    void ForgetRun() noexcept { mRun = {}; }

    GSparseArray<CRow, RowsInPage> mRows;
    /// The cells with memory around the one that was needed last: grids are filled row by row.
    std::span<T> mRun;
    int mRunRow = -1;
    unsigned mRunBegin = 0;
};

} // namespace Grids
