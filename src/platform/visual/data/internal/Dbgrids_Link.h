// SPDX-License-Identifier: MIT
#pragma once

#include "platform/visual/data/Dbgrids_DBGrid.h"
#include "platform/visual/data/sets/Db_DataSet.h"

#include <limits>

namespace Dbgrids
{

/// Passes on to a grid what happens to its records.
class TCustomDBGrid::CLink : public Db::TDataLink
{
public:
    explicit CLink(TCustomDBGrid& grid) : mGrid(grid) { setBufferCount(std::numeric_limits<int>::max()); }

protected:
    void ActiveChanged() override
    {
        mGrid.mEditText.reset();
        mGrid.mSelectedRows.Clear();
        mGrid.mColumns->FollowFields();
    }
    void LayoutChanged() override { mGrid.mColumns->FollowFields(); }
    void DataSetChanged() override { mGrid.ShowRecords(); }
    void DataSetScrolled(int) override { mGrid.FollowRecord(); }
    void EditingChanged() override { mGrid.Invalidate(); }
    void RecordChanged(Db::TField*) override
    {
        mGrid.Invalidate();
        if (!mGrid.mEditText) {
            mGrid.InvalidateEditor();
        }
    }
    void UpdateData() override { mGrid.StoreEdit(); }

private:
    TCustomDBGrid& mGrid;
};

} // namespace Dbgrids
