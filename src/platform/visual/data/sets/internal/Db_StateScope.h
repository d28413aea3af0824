// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/data/sets/Db_DataSet.h"

namespace Db
{

/// While it lives, a record is calculated or filtered, and the set's fields have its values.
class TDataSet::CStateScope
{
public:
    CStateScope(TDataSet& dataSet, TDataSetState state, std::shared_ptr<TRecord> record)
        : mDataSet(dataSet),
          mWatch(&dataSet),
          mState(std::exchange(dataSet.mState, state)),
          mInspected(std::exchange(dataSet.mInspected, std::move(record)))
    {
    }
    CStateScope(const CStateScope&) = delete;
    CStateScope& operator=(const CStateScope&) = delete;
    ~CStateScope()
    {
        if (mWatch.IsAlive()) {
            mDataSet.mState = mState;
            mDataSet.mInspected = std::move(mInspected);
        }
    }

    /// Ends what runs, quietly, if the set was destroyed meanwhile.
    void CheckAlive() const
    {
        if (!mWatch.IsAlive()) {
            throw Sysutils::EAbort(u"The data set was destroyed.");
        }
    }

private:
    TDataSet& mDataSet;
    Classes::TComponentWatch mWatch;
    TDataSetState mState;
    std::shared_ptr<TRecord> mInspected;
};

} // namespace Db
