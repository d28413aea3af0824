// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_ComponentWatch.h"
#include "platform/visual/data/sets/Db_DataSet.h"

namespace Dbctrls
{

/// While it lives, the fields of a set have the values of another record than the one at hand.
class CReadScope
{
public:
    CReadScope(Db::TDataSet& dataSet, int shownIndex)
        : mDataSet(dataSet), mWatch(&dataSet), mFormer(dataSet.GetReadIndex())
    {
        dataSet.SetReadIndex(shownIndex);
    }
    CReadScope(const CReadScope&) = delete;
    CReadScope& operator=(const CReadScope&) = delete;
    ~CReadScope()
    {
        if (mWatch.IsAlive()) {
            mDataSet.SetReadIndex(mFormer);
        }
    }

private:
    Db::TDataSet& mDataSet;
    Classes::TComponentWatch mWatch;
    int mFormer;
};

} // namespace Dbctrls
