// SPDX-License-Identifier: MIT
#pragma once

#include "charts/BTL_CD_AChartSeries.h"
#include "foundation/vectors/UTL_SV_GSimpleVector.h"

namespace BTL::Detail
{

/// Series on their way into a chart, which go with this list if they don't get there.
class CSeriesList
{
public:
    CSeriesList() = default;
    CSeriesList(const CSeriesList&) = delete;
    CSeriesList& operator=(const CSeriesList&) = delete;
    ~CSeriesList()
    {
        for (AChartSeries* const one : series) {
            delete one;
        }
    }

    /// Takes the series over, unless it is null.
    void Add(AChartSeries* one)
    {
        if (one == nullptr) {
            return;
        }
        try {
            series.push_back(one);
        } catch (...) {
            delete one;
            throw;
        }
    }

    UTL::GSimpleVector<AChartSeries*> series;
};

} // namespace BTL::Detail
